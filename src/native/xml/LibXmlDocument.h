#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Error.h"
#include "platform/XmlDocument.h"

namespace quorvane::native {

class Stylesheet;

/// The platform's XML document over libxml2 and libxslt.
class LibXmlDocument final : public XmlDocument {
 public:
  LibXmlDocument();
  ~LibXmlDocument() override;

  /// Gets what stylesheets say that are compiled from now on (Stylesheet::OnMessage).
  std::function<void(const std::u16string&)> OnMessage;

  bool LoadXml(std::u16string_view text) override;
  std::u16string LoadError() const override { return loadError_; }
  bool IsEmpty() const override { return !loaded_ || !loadError_.empty(); }
  void CompileStylesheet() override { Compiled(); }

  /// The document as a stylesheet, compiled once. Raises what CompileStylesheet raises.
  std::shared_ptr<const Stylesheet> Compiled();

 private:
  std::optional<std::u16string> loaded_;  ///< the text of the last LoadXml
  std::u16string loadError_;
  std::shared_ptr<const Stylesheet> compiled_;
  std::optional<Error> compileError_;
};

}  // namespace quorvane::native
