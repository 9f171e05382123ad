#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// An XML text to be used as an XSLT 1.0 stylesheet.
class XmlDocument {
 public:
  virtual ~XmlDocument() = default;

  /// Parses a text in memory; an encoding named in it plays no part. False when it is not well-formed: the document is
  /// then empty and LoadError tells why. Loading the text that is loaded already costs a comparison.
  virtual bool LoadXml(std::u16string_view text) = 0;
  /// Reason and 1-based line of the last failed LoadXml, empty when it succeeded.
  virtual std::u16string LoadError() const = 0;
  /// True when there is no document element: nothing was loaded, or nothing well-formed.
  virtual bool IsEmpty() const = 0;

  /// Raises an error when the loaded document is not a stylesheet that compiles.
  virtual void CompileStylesheet() = 0;
};

}  // namespace quorvane
