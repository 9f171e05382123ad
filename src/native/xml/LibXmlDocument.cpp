#include "native/xml/LibXmlDocument.h"

#include <libxml/tree.h>

#include <cstring>

#include "base/Text.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/XmlErrorCapture.h"

namespace quorvane::native {

LibXmlDocument::LibXmlDocument() = default;
LibXmlDocument::~LibXmlDocument() = default;

bool LibXmlDocument::LoadXml(std::u16string_view text) {
  const bool known = loaded_ && loaded_->size() == text.size() &&
                     std::memcmp(loaded_->data(), text.data(), text.size() * sizeof(char16_t)) == 0;
  if (known) return loadError_.empty();
  compiled_.reset();
  compileError_.reset();
  loadError_.clear();
  loaded_.emplace(text);
  const XmlErrorCapture capture;
  if (xmlDoc* document = ParseXml(ToUtf8(text.starts_with(u'\uFEFF') ? text.substr(1) : text), "document")) {
    xmlFreeDoc(document);
    return true;
  }
  loadError_ = capture.FirstParseError();
  if (loadError_.empty()) loadError_ = u"The text is no XML (line 1)";
  return false;
}

std::shared_ptr<const Stylesheet> LibXmlDocument::Compiled() {
  if (compiled_) return compiled_;
  if (compileError_) throw *compileError_;
  try {
    if (IsEmpty()) {
      RaiseError(ErrorNumber::InvalidProcedureCall, u"The stylesheet has no document element: " + loadError_);
    }
    const auto compiled = std::make_shared<Stylesheet>(ToUtf8(*loaded_));
    compiled->OnMessage = OnMessage;
    compiled_ = compiled;
  } catch (const Error& error) {
    compileError_ = error;
    throw;
  }
  return compiled_;
}

}  // namespace quorvane::native
