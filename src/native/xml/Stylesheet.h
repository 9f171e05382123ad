#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "native/xml/StraightSheet.h"

struct _xmlDoc;
struct _xsltStylesheet;

namespace quorvane::native {

/// A compiled XSLT 1.0 stylesheet. It can load nothing: imports and includes fail to compile.
class Stylesheet {
 public:
  /// `xml` is UTF-8. Raises error 5 with the library's words when it is not well-formed, or no stylesheet that
  /// compiles.
  explicit Stylesheet(const std::string& xml);
  ~Stylesheet();
  Stylesheet(const Stylesheet&) = delete;
  Stylesheet& operator=(const Stylesheet&) = delete;

  _xsltStylesheet* Style() const { return mobjStyle; }
  /// Number of keys declared at the top level.
  int KeyCount() const { return mlngKeys; }
  /// True when nothing that the stylesheet can compute is remembered from one transformation to the next.
  bool IsStateless() const { return mblnStateless; }
  /// True when it is certain that a transformation looks at nothing outside of the element that it begins with.
  bool StaysInside() const { return mblnStaysInside; }
  /// What it does, where that is so little that it can be done without the library; null elsewhere.
  const StraightSheet* Straight() const { return mvarStraight ? &*mvarStraight : nullptr; }

  /// Gets what a run says without failing, by xsl:message above all, as one line.
  std::function<void(const std::u16string&)> OnMessage;
  /// How a run went beyond what one may take: no other is begun. Empty: none did.
  mutable std::u16string mstrTooCostly;

 private:
  void Inspect(const _xmlDoc* document);
  void FitStraightToOutput();

  _xsltStylesheet* mobjStyle = nullptr;
  int mlngKeys = 0;
  std::string mstrUnknown;  ///< an element that claims to be XSLT and is not in 1.0
  bool mblnStateless = true;
  bool mblnStaysInside = false;
  std::optional<StraightSheet> mvarStraight;
};

/// Parses UTF-8 without reading anything but `xml`; an encoding named in it plays no part. Null when it is not
/// well-formed. `name` stands for the text in the library's complaints. The caller frees the document. Complaints go to
/// the XmlErrorCapture that must be alive.
_xmlDoc* ParseXml(const std::string& xml, const char* name);

}  // namespace quorvane::native
