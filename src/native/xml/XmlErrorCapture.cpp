#include "native/xml/XmlErrorCapture.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxslt/documents.h>
#include <libxslt/xsltutils.h>

#include <cstdio>

#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr std::size_t kLongestText = 4000;  ///< bytes; a library can complain about the same thing without end

xmlDocPtr LoadNoDocument(const xmlChar*, xmlDictPtr, int, void*, xsltLoadType) {
  return nullptr;
}

/// Without blanks at its ends, line breaks written as a colon or a semicolon.
std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c != '\n') {
      if (c != ' ' || (!line.empty() && line.back() != ' ')) line.push_back(c);
    } else if (!line.empty() && line.back() != ' ') {
      line.append("; ");
    }
  }
  while (!line.empty() && (line.back() == ' ' || line.back() == ';')) line.pop_back();
  return line;
}

}  // namespace

struct XmlErrorCapture::Saved {
  xmlStructuredErrorFunc Structured = xmlStructuredError;
  void* StructuredContext = xmlStructuredErrorContext;
  xmlGenericErrorFunc Generic = xmlGenericError;
  void* GenericContext = xmlGenericErrorContext;
  xmlGenericErrorFunc Xslt = xsltGenericError;
  void* XsltContext = xsltGenericErrorContext;
  xmlExternalEntityLoader Entities = xmlGetExternalEntityLoader();
  xsltDocLoaderFunc Documents = xsltDocDefaultLoader;
};

XmlErrorCapture::XmlErrorCapture() : mobjSaved(new Saved) {
  xmlSetStructuredErrorFunc(this, reinterpret_cast<xmlStructuredErrorFunc>(&OnError));
  xmlSetGenericErrorFunc(this, &OnText);
  xsltSetGenericErrorFunc(this, &OnText);
  xmlSetExternalEntityLoader([](const char* url, const char* name, xmlParserCtxtPtr) -> xmlParserInputPtr {
    auto& capture = *static_cast<XmlErrorCapture*>(xmlStructuredErrorContext);  // the innermost one
    const char* const known = url != nullptr ? url : name;
    if (capture.mstrEntity.empty()) capture.mstrEntity = known != nullptr ? FromUtf8(known) : u"?";
    return nullptr;
  });
  xsltSetLoaderFunc(LoadNoDocument);
}

XmlErrorCapture::~XmlErrorCapture() {
  xsltSetLoaderFunc(mobjSaved->Documents);
  xmlSetExternalEntityLoader(mobjSaved->Entities);
  xsltSetGenericErrorFunc(mobjSaved->XsltContext, mobjSaved->Xslt);
  xmlSetGenericErrorFunc(mobjSaved->GenericContext, mobjSaved->Generic);
  xmlSetStructuredErrorFunc(mobjSaved->StructuredContext, mobjSaved->Structured);
  delete mobjSaved;
}

std::u16string XmlErrorCapture::Words(std::u16string_view fallback) const {
  const std::string line = OneLine(mstrText);
  return line.empty() ? std::u16string(fallback) : FromUtf8(line);
}

void XmlErrorCapture::OnText(void* self, const char* format, ...) {
  char piece[1024];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(piece, sizeof piece, format, arguments);
  va_end(arguments);
  auto& capture = *static_cast<XmlErrorCapture*>(self);
  if (capture.mstrText.size() < kLongestText) capture.mstrText.append(piece);
}

void XmlErrorCapture::OnError(void* self, _xmlError* error) {
  if (error == nullptr || error->message == nullptr || error->level < XML_ERR_ERROR) return;
  auto& capture = *static_cast<XmlErrorCapture*>(self);
  if (capture.mstrText.size() < kLongestText) capture.mstrText.append(error->message);
  if (error->domain != XML_FROM_PARSER && error->domain != XML_FROM_NAMESPACE) return;
  if (!capture.mstrParseError.empty()) return;
  capture.mstrParseError = FromUtf8(OneLine(error->message)) + u" (line " + ToText(error->line) + u")";
}

}  // namespace quorvane::native
