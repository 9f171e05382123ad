#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/Error.h"
#include "platform/XmlDocument.h"

namespace quorvane::native {

class Stylesheet;
class XmlTree;

/// The platform's XML document over libxml2 and libxslt.
class LibXmlDocument : public XmlDocument {
 public:
  LibXmlDocument();
  ~LibXmlDocument() override;

  bool LoadXml(std::u16string_view text) override;
  std::u16string LoadError() const override { return mstrLoadError; }
  std::shared_ptr<XmlElement> DocumentElement() override;
  void SetDocumentElement(XmlElement& element) override;
  std::shared_ptr<XmlElement> CreateElement(std::string_view name) override;
  void CompileStylesheet() override { Compiled(); }
  std::string Xml() const override;
  void Save(const std::u16string& path) const override;

  /// The document as a stylesheet, compiled once for each state of it. Raises what CompileStylesheet raises.
  std::shared_ptr<const Stylesheet> Compiled();

 private:
  bool IsAsLoaded() const;

  std::shared_ptr<XmlTree> mobjTree;
  std::optional<std::u16string> mvarLoaded;  ///< the text of the last LoadXml
  std::u16string mstrLoadError;

  std::uint64_t mlngCompiledRevision = 0;  ///< of the tree that the next two belong to
  std::shared_ptr<const Stylesheet> mobjCompiled;
  std::optional<Error> mvarCompileError;
};

}  // namespace quorvane::native
