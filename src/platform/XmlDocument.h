#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace quorvane {

class XmlDocument;

/// One element of an XmlDocument. A handle: it keeps what it points to alive, also after the element has left its
/// document; two handles may stand for one element.
class XmlElement {
 public:
  virtual ~XmlElement() = default;

  /// Writes an attribute; a new one goes behind the others. Any text is stored and given back exactly, but that NUL and
  /// unpaired surrogates come back as U+FFFD.
  virtual void SetAttribute(std::string_view name, std::u16string_view value) = 0;
  /// The text of an attribute, empty when there is none.
  virtual std::u16string GetAttribute(std::string_view name) const = 0;

  virtual void AppendChild(XmlElement& child) = 0;
  virtual std::size_t ChildCount() const = 0;
  /// 0-based; constant time. Raises error 9 outside the range.
  virtual std::shared_ptr<XmlElement> Child(std::size_t index) const = 0;

  /// The output, as text, of the XSLT 1.0 stylesheet in `stylesheet` with this element as the initial context node; the
  /// root and the other elements of its document are in reach. Raises an error when the stylesheet cannot run. Its
  /// cost does not grow with the document unless the stylesheet itself looks further.
  virtual std::u16string TransformNode(XmlDocument& stylesheet) const = 0;
};

/// XML document and XSLT 1.0 transformation of the platform.
class XmlDocument {
 public:
  virtual ~XmlDocument() = default;

  /// Parses a text in memory; an encoding named in it plays no part. False when it is not well-formed: the document
  /// then has no document element and LoadError tells why. Loading the text that is loaded already costs a comparison.
  virtual bool LoadXml(std::u16string_view text) = 0;
  /// Reason and 1-based line of the last failed LoadXml, empty when it succeeded.
  virtual std::u16string LoadError() const = 0;

  /// Nothing when there is none.
  virtual std::shared_ptr<XmlElement> DocumentElement() = 0;
  virtual void SetDocumentElement(XmlElement& element) = 0;
  /// An element that belongs to this document and stands nowhere yet.
  virtual std::shared_ptr<XmlElement> CreateElement(std::string_view name) = 0;

  /// Raises an error when the loaded document is not a stylesheet that compiles.
  virtual void CompileStylesheet() = 0;

  /// The whole document as saved, in UTF-8; characters that XML cannot hold become U+FFFD.
  virtual std::string Xml() const = 0;
  /// Writes Xml() to `path`: the old file stays whole when that fails, which raises an error with the path in it.
  virtual void Save(const std::u16string& path) const = 0;
};

}  // namespace quorvane
