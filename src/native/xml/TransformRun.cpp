// A transformation starts at one element instead of at the document, so the library's steps around a run are done here:
// output document, global variables and keys, the first template, document type, serialising. What a run needs is made
// once and used again; a stylesheet that could see the difference (Stylesheet::IsStateless), a failure and a result
// with temporary trees each end the use. A result of text alone, the usual one, is read straight from the output tree.

#include "native/xml/TransformRun.h"

#include <libxml/HTMLtree.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlsave.h>
#include <libxslt/extensions.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <string_view>
#include <utility>

#include "base/Error.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/TransformBudget.h"
#include "native/xml/XmlErrorCapture.h"
#include "native/xml/XmlText.h"

namespace quorvane::native {

namespace {

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

xsltSecurityPrefsPtr NothingAllowed() {
  static const xsltSecurityPrefsPtr prefs = [] {
    const xsltSecurityPrefsPtr made = xsltNewSecurityPrefs();
    for (const xsltSecurityOption option :
         {XSLT_SECPREF_READ_FILE, XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_READ_NETWORK,
          XSLT_SECPREF_WRITE_NETWORK}) {
      xsltSetSecurityPrefs(made, option, xsltSecurityForbid);
    }
    return made;
  }();
  return prefs;
}

[[noreturn]] void RaiseTooCostly(const std::u16string& why) {
  RaiseError(ErrorNumber::OutOfStack, u"The stylesheet cannot run: " + why);
}

/// The element that an HTML output begins with when the stylesheet names no method.
bool IsHtmlRoot(const xmlNode* root) {
  return root != nullptr && root->ns == nullptr && xmlStrcasecmp(root->name, BAD_CAST "html") == 0;
}

}  // namespace

TransformRun::TransformRun(std::shared_ptr<const Stylesheet> stylesheet, _xmlDoc* document)
    : mobjStylesheet(std::move(stylesheet)),
      mobjDocument(document),
      mobjContext(xsltNewTransformContext(mobjStylesheet->Style(), document)),
      mblnReusable(mobjStylesheet->IsStateless()) {
  if (mobjContext == nullptr) throw std::bad_alloc();
  xsltSetCtxtSecurityPrefs(NothingAllowed(), mobjContext);
  mobjContext->initialContextDoc = mobjDocument;
  mobjContext->initialContextNode = reinterpret_cast<xmlNode*>(mobjDocument);
  mobjContext->globalVars = xmlHashCreate(0);
  mobjContext->nbKeys = mobjStylesheet->KeyCount();
}

TransformRun::~TransformRun() {
  xsltShutdownCtxtExts(mobjContext);
  xsltFreeGlobalVariables(mobjContext);
  mobjContext->globalVars = nullptr;
  xsltFreeTransformContext(mobjContext);
  xmlFreeDoc(mobjOutput);
}

TransformRun& TransformRun::Again(std::unique_ptr<TransformRun>& last,
                                  const std::shared_ptr<const Stylesheet>& stylesheet, _xmlDoc* document) {
  if (!last || !last->Serves(*stylesheet)) {
    last.reset();
    last = std::make_unique<TransformRun>(stylesheet, document);
  }
  return *last;
}

std::u16string TransformRun::Transform(_xmlNode* element) {
  if (!mobjStylesheet->mstrTooCostly.empty()) RaiseTooCostly(mobjStylesheet->mstrTooCostly);
  const bool again = std::exchange(mblnReusable, false);  // until this run has ended well
  XmlErrorCapture capture;
  xsltSetTransformErrorFunc(mobjContext, &capture, &XmlErrorCapture::OnText);
  if (mobjOutput == nullptr) NewOutput();
  Evaluate(element, capture);
  const std::u16string messages = capture.Words({});
  if (!messages.empty() && mobjStylesheet->OnMessage) mobjStylesheet->OnMessage(messages);
  const bool plain = IsPlainText();
  std::u16string text = plain ? PlainText() : Serialised();
  const bool clean =
      mobjContext->tmpRVT == nullptr && mobjContext->localRVT == nullptr && mobjContext->persistRVT == nullptr;
  mblnReusable = again && plain && clean;
  if (mblnReusable) {
    xmlFreeNodeList(mobjOutput->children);
    mobjOutput->children = nullptr;
    mobjOutput->last = nullptr;
  }
  return text;
}

void TransformRun::NewOutput() {
  const xsltStylesheet& style = *mobjStylesheet->Style();
  if (View(style.method) == "html") {
    mobjContext->type = XSLT_OUTPUT_HTML;
    const bool typed = style.doctypePublic != nullptr || style.doctypeSystem != nullptr;
    mobjOutput = typed ? htmlNewDoc(style.doctypeSystem, style.doctypePublic) : htmlNewDocNoDtD(nullptr, nullptr);
  } else {
    mobjContext->type = View(style.method) == "text" ? XSLT_OUTPUT_TEXT : XSLT_OUTPUT_XML;
    mobjOutput = xmlNewDoc(BAD_CAST(style.version != nullptr ? View(style.version).data() : "1.0"));
  }
  if (mobjOutput == nullptr) throw std::bad_alloc();
  mobjOutput->encoding = xmlStrdup(BAD_CAST "UTF-8");
  mobjOutput->charset = XML_CHAR_ENCODING_UTF8;
  mobjOutput->dict = mobjContext->dict;
  xmlDictReference(mobjOutput->dict);
}

void TransformRun::Evaluate(_xmlNode* element, const XmlErrorCapture& capture) {
  xsltTransformContext& context = *mobjContext;
  const auto reset = [&](xmlNode* node) {
    context.node = node;
    context.xpathCtxt->contextSize = 1;
    context.xpathCtxt->proximityPosition = 1;
    context.xpathCtxt->node = nullptr;
  };
  context.output = mobjOutput;
  context.insert = reinterpret_cast<xmlNode*>(mobjOutput);
  context.lasttext = nullptr;
  context.lasttsize = 0;
  context.lasttuse = 0;
  const TransformBudget budget(&context);
  reset(reinterpret_cast<xmlNode*>(mobjDocument));
  if (mobjStylesheet->Style()->variables != nullptr) xsltEvalGlobalVariables(&context);
  context.insert = reinterpret_cast<xmlNode*>(mobjOutput);
  reset(element);
  if (context.state == XSLT_STATE_OK) xsltProcessOneNode(&context, element, nullptr);
  const bool tooDeep = capture.Words({}).find(u"infinite template recursion") != std::u16string::npos;
  if (budget.Exceeded() || (context.state != XSLT_STATE_OK && tooDeep)) {
    mobjStylesheet->mstrTooCostly = tooDeep ? u"its templates call one another beyond the depth that one may reach"
                                            : u"it takes too long or too much memory for one match";
    RaiseTooCostly(mobjStylesheet->mstrTooCostly);
  }
  if (context.state != XSLT_STATE_OK) {
    RaiseError(ErrorNumber::InvalidProcedureCall,
               u"The stylesheet cannot run: " + capture.Words(u"the transformation was stopped"));
  }
}

bool TransformRun::IsPlainText() const {
  const bool declared = mobjContext->type == XSLT_OUTPUT_XML && mobjStylesheet->Style()->omitXmlDeclaration != 1;
  if (mobjContext->type == XSLT_OUTPUT_HTML || declared) return false;
  for (const xmlNode* node = mobjOutput->children; node != nullptr; node = node->next) {
    if (node->type != XML_TEXT_NODE) return false;
  }
  return true;
}

std::u16string TransformRun::PlainText() const {
  std::string escaped;
  std::u16string text;
  for (const xmlNode* node = mobjOutput->children; node != nullptr; node = node->next) {
    const std::string_view content = View(node->content);
    if (mobjContext->type == XSLT_OUTPUT_TEXT || node->name == xmlStringTextNoenc) {
      AppendXmlText(content, text);
    } else {
      escaped.clear();
      AppendEscapedText(content, escaped);
      AppendXmlText(escaped, text);
    }
  }
  return text;
}

/// The document type, and the change to HTML that a root of that name brings where no method is given.
void TransformRun::FinishOutput() {
  const xsltStylesheet& style = *mobjStylesheet->Style();
  const xmlNode* root = xmlDocGetRootElement(mobjOutput);
  if (mobjContext->type != XSLT_OUTPUT_XML || root == nullptr) return;
  if (style.method == nullptr && IsHtmlRoot(root)) {
    mobjContext->type = XSLT_OUTPUT_HTML;
    mobjOutput->type = XML_HTML_DOCUMENT_NODE;
  }
  if (style.doctypePublic == nullptr && style.doctypeSystem == nullptr) return;
  std::string name;
  if (root->ns != nullptr && root->ns->prefix != nullptr) name.append(View(root->ns->prefix)).append(":");
  name.append(View(root->name));
  xmlCreateIntSubset(mobjOutput, BAD_CAST name.c_str(), style.doctypePublic, style.doctypeSystem);
}

std::u16string TransformRun::Serialised() {
  FinishOutput();
  xmlOutputBufferPtr buffer = xmlAllocOutputBuffer(nullptr);
  if (buffer == nullptr) throw std::bad_alloc();
  std::string utf8;
  if (xsltSaveResultTo(buffer, mobjOutput, mobjStylesheet->Style()) >= 0) {
    utf8.assign(reinterpret_cast<const char*>(xmlOutputBufferGetContent(buffer)), xmlOutputBufferGetSize(buffer));
  }
  xmlOutputBufferClose(buffer);
  const bool broken = mobjContext->type == XSLT_OUTPUT_XML && mobjStylesheet->Style()->indent != 0;
  if (broken && utf8.ends_with('\n')) utf8.pop_back();  // indented output ends in a line break of the library's own
  constexpr std::string_view named = "encoding=\"UTF-8\"";
  const std::size_t at = utf8.starts_with("<?xml ") ? utf8.substr(0, utf8.find("?>")).find(named) : utf8.npos;
  if (at != utf8.npos) utf8.replace(at, named.size(), "encoding=\"UTF-16\"");
  std::u16string text;
  AppendXmlText(utf8, text);
  return text;
}

}  // namespace quorvane::native
