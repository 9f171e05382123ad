#include "native/xml/LibXmlDocument.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <cstring>

#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/xml/LibXmlElement.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/XmlErrorCapture.h"
#include "native/xml/XmlTree.h"

namespace quorvane::native {

namespace {

std::shared_ptr<XmlTree> EmptyTree() {
  return std::make_shared<XmlTree>(xmlNewDoc(BAD_CAST "1.0"));
}

/// Puts U+FFFD in place of the characters that XML cannot hold: controls, U+FFFE and U+FFFF.
std::string Saveable(std::string_view xml) {
  constexpr std::string_view replacement = "\xEF\xBF\xBD";
  std::string out;
  out.reserve(xml.size());
  std::size_t begin = 0;
  const auto replace = [&](std::size_t at, std::size_t length) {
    out.append(xml.substr(begin, at - begin)).append(replacement);
    begin = at + length;
  };
  for (std::size_t i = 0; i < xml.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(xml[i]);
    if (c < 0x20 && c != '\n' && c != '\r' && c != '\t') replace(i, 1);
    if (c == 0xEF && (xml.substr(i, 3) == "\xEF\xBF\xBE" || xml.substr(i, 3) == "\xEF\xBF\xBF")) replace(i, 3);
  }
  return out.append(xml.substr(begin));
}

}  // namespace

LibXmlDocument::LibXmlDocument() : mobjTree(EmptyTree()) {}
LibXmlDocument::~LibXmlDocument() = default;

/// True when the tree is what the last LoadXml made of its text.
bool LibXmlDocument::IsAsLoaded() const {
  return mvarLoaded && mobjTree->Revision() == 0;
}

bool LibXmlDocument::LoadXml(std::u16string_view text) {
  const bool known = IsAsLoaded() && mvarLoaded->size() == text.size() &&
                     std::memcmp(mvarLoaded->data(), text.data(), text.size() * sizeof(char16_t)) == 0;
  if (known) return mstrLoadError.empty();
  mobjCompiled.reset();
  mvarCompileError.reset();
  mstrLoadError.clear();
  mvarLoaded.emplace(text);
  const XmlErrorCapture capture;
  xmlDoc* document = ParseXml(ToUtf8(text.starts_with(u'\uFEFF') ? text.substr(1) : text), "document");
  if (document == nullptr) {
    mstrLoadError = capture.FirstParseError();
    if (mstrLoadError.empty()) mstrLoadError = u"The text is no XML (line 1)";
    mobjTree = EmptyTree();
    return false;
  }
  mobjTree = std::make_shared<XmlTree>(document);
  return true;
}

std::shared_ptr<XmlElement> LibXmlDocument::DocumentElement() {
  xmlNode* root = mobjTree->Root();
  return root != nullptr ? std::make_shared<LibXmlElement>(mobjTree, root) : nullptr;
}

void LibXmlDocument::SetDocumentElement(XmlElement& element) {
  mobjTree->SetRoot(LibXmlElement::NodeOf(element, *mobjTree));
}

std::shared_ptr<XmlElement> LibXmlDocument::CreateElement(std::string_view name) {
  return std::make_shared<LibXmlElement>(mobjTree, mobjTree->NewElement(name));
}

std::shared_ptr<const Stylesheet> LibXmlDocument::Compiled() {
  const std::uint64_t revision = mobjTree->Revision();
  if (revision != mlngCompiledRevision) {
    mobjCompiled.reset();
    mvarCompileError.reset();
  }
  if (mobjCompiled) return mobjCompiled;
  if (mvarCompileError) throw *mvarCompileError;
  mlngCompiledRevision = revision;
  try {
    if (mobjTree->Root() == nullptr) {
      RaiseError(ErrorNumber::InvalidProcedureCall, u"The stylesheet has no document element: " + mstrLoadError);
    }
    mobjCompiled = std::make_shared<Stylesheet>(IsAsLoaded() ? ToUtf8(*mvarLoaded) : Xml());
  } catch (const Error& error) {
    mvarCompileError = error;
    throw;
  }
  return mobjCompiled;
}

std::string LibXmlDocument::Xml() const {
  if (mobjTree->Root() == nullptr) return {};
  const XmlErrorCapture capture;
  const std::unique_ptr<xmlBuffer, void (*)(xmlBuffer*)> buffer(xmlBufferCreate(), xmlBufferFree);
  if (!buffer) throw std::bad_alloc();
  xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
  xmlSaveCtxt* save = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_FORMAT | XML_SAVE_NO_DECL);
  const bool written = save != nullptr && xmlSaveDoc(save, mobjTree->WholeDocument()) >= 0;
  if (save != nullptr && xmlSaveClose(save) >= 0 && written) {
    return Saveable({reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                     static_cast<std::size_t>(xmlBufferLength(buffer.get()))});
  }
  RaiseError(ErrorNumber::OutOfMemory, capture.Words(u"The document cannot be written out"));
}

void LibXmlDocument::Save(const std::u16string& path) const {
  WriteFileWhole(ToUtf8(path), Xml());
}

}  // namespace quorvane::native
