#pragma once

#include <cstdarg>
#include <string>

struct _xmlError;

namespace quorvane::native {

/// While it lives, what the XML and XSLT libraries complain about is collected here instead of printed, and no entity,
/// stylesheet or document is fetched from a file or a network. Scopes may nest.
class XmlErrorCapture {
 public:
  XmlErrorCapture();
  ~XmlErrorCapture();
  XmlErrorCapture(const XmlErrorCapture&) = delete;
  XmlErrorCapture& operator=(const XmlErrorCapture&) = delete;

  /// The complaints so far as one line; `fallback` when there are none.
  std::u16string Words(std::u16string_view fallback) const;
  /// The first error of the parser with its 1-based line, such as "… (line 3)"; empty when there was none.
  std::u16string FirstParseError() const { return mstrParseError; }

  /// Where the first external entity was that a document asked for; empty when none was asked for.
  std::u16string RefusedEntity() const { return mstrEntity; }

  /// For a library's own hook: `self` is an XmlErrorCapture.
  static void OnText(void* self, const char* format, ...) __attribute__((format(printf, 2, 3)));

 private:
  struct Saved;
  static void OnError(void* self, _xmlError* error);

  std::string mstrText;
  std::u16string mstrParseError;
  std::u16string mstrEntity;
  Saved* mobjSaved;
};

}  // namespace quorvane::native
