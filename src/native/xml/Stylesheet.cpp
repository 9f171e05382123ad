#include "native/xml/Stylesheet.h"

#include <libxml/parser.h>
#include <libxslt/xsltInternals.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <string_view>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/StylesheetReach.h"
#include "native/xml/XmlErrorCapture.h"

namespace quorvane::native {

namespace {

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

/// Whether an attribute of a stylesheet may hold a call whose result a transformation remembers. A colon and a bracket
/// together may be an extension function. Too many answers of yes cost time, never correctness.
bool MayRemember(std::string_view value) {
  for (const std::string_view word : {"document", "key", "generate-id"}) {
    if (value.find(word) != value.npos) return true;
  }
  return value.find(':') != value.npos && value.find('(') != value.npos;
}

bool IsXslt(const xmlNode* node) {
  return node->type == XML_ELEMENT_NODE && node->ns != nullptr &&
         View(node->ns->href) == "http://www.w3.org/1999/XSL/Transform";
}

/// An attribute that is a pattern. Of one with a predicate the library remembers how many elements it counted, and a
/// row that is added later is not among them.
bool IsPattern(const xmlAttr* attribute) {
  const std::string_view name = View(attribute->name);
  return name == "match" || name == "count" || name == "from";
}

bool MayRemember(const xmlNode* node) {
  const std::string_view name = View(node->name);
  if (name == "fallback" || (!IsXslt(node) && node->ns != nullptr)) return true;
  for (const xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
    if (View(attribute->name) == "extension-element-prefixes") return true;
    if (attribute->children == nullptr) continue;
    const std::string_view value = View(attribute->children->content);
    if (MayRemember(value) || (IsPattern(attribute) && value.find('[') != value.npos)) return true;
  }
  return false;
}

/// The library passes over an element of the XSLT namespace that XSLT 1.0 does not have.
bool IsKnownInstruction(std::string_view name) {
  constexpr std::string_view known[] = {"apply-imports",
                                        "apply-templates",
                                        "attribute",
                                        "attribute-set",
                                        "call-template",
                                        "choose",
                                        "comment",
                                        "copy",
                                        "copy-of",
                                        "decimal-format",
                                        "document",
                                        "element",
                                        "fallback",
                                        "for-each",
                                        "if",
                                        "import",
                                        "include",
                                        "key",
                                        "message",
                                        "namespace-alias",
                                        "number",
                                        "otherwise",
                                        "output",
                                        "param",
                                        "preserve-space",
                                        "sort",
                                        "strip-space",
                                        "stylesheet",
                                        "template",
                                        "text",
                                        "transform",
                                        "value-of",
                                        "variable",
                                        "when",
                                        "with-param",
                                        "processing-instruction"};
  return std::find(std::begin(known), std::end(known), name) != std::end(known);
}

/// The next node in document order.
const xmlNode* Next(const xmlNode* node) {
  if (node->type == XML_ELEMENT_NODE && node->children != nullptr) return node->children;
  while (node != nullptr && node->next == nullptr) node = node->parent;
  return node == nullptr ? nullptr : node->next;
}

}  // namespace

_xmlDoc* ParseXml(const std::string& xml, const char* name) {
  if (xml.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) RaiseError(ErrorNumber::OutOfMemory);
  constexpr int options = XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC;
  return xmlReadMemory(xml.data(), static_cast<int>(xml.size()), name, "UTF-8", options);
}

Stylesheet::Stylesheet(const std::string& xml) {
  const XmlErrorCapture capture;
  xmlDoc* document = ParseXml(xml, "stylesheet");
  if (document == nullptr) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The stylesheet is not well-formed: " + capture.FirstParseError());
  }
  if (!capture.RefusedEntity().empty()) {
    xmlFreeDoc(document);
    RaiseError(ErrorNumber::InvalidProcedureCall,
               u"The stylesheet does not compile: the external entity " + capture.RefusedEntity() + u" is not loaded");
  }
  Inspect(document);
  mblnStaysInside = native::StaysInside(document);
  if (mblnStaysInside) mblnStateless = true;  // the other look at it is a coarse one
  mvarStraight = ReadStraightSheet(document);
  mobjStyle = xsltParseStylesheetDoc(document);
  if (mobjStyle == nullptr) xmlFreeDoc(document);
  if (mobjStyle == nullptr || mobjStyle->errors != 0) {
    xsltFreeStylesheet(mobjStyle);
    RaiseError(ErrorNumber::InvalidProcedureCall,
               u"The stylesheet does not compile: " + capture.Words(u"it is no XSLT stylesheet"));
  }
  if (!mstrUnknown.empty() && mobjStyle->forwards_compatible == 0) {
    xsltFreeStylesheet(mobjStyle);
    RaiseError(ErrorNumber::InvalidProcedureCall,
               u"The stylesheet does not compile: unknown element xsl:" + FromUtf8(mstrUnknown));
  }
  // The output becomes UTF-16 text, whatever the stylesheet names.
  xmlFree(mobjStyle->encoding);
  mobjStyle->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
  // Without this the library writes a line break after every result for which no indentation is asked either way.
  if (mobjStyle->indent < 0) mobjStyle->indent = 0;
  FitStraightToOutput();
}

/// A declaration or HTML is more than the texts.
void Stylesheet::FitStraightToOutput() {
  const std::string_view method = View(mobjStyle->method);
  const bool xml = (method.empty() || method == "xml") && mobjStyle->methodURI == nullptr;
  if (method == "text" && mobjStyle->methodURI == nullptr && mvarStraight) {
    for (StraightSheet::Piece& piece : mvarStraight->Pieces) piece.Escaped = false;
  } else if (!xml || mobjStyle->omitXmlDeclaration != 1) {
    mvarStraight.reset();
  }
}

Stylesheet::~Stylesheet() {
  xsltFreeStylesheet(mobjStyle);
}

void Stylesheet::Inspect(const _xmlDoc* document) {
  const xmlNode* root = xmlDocGetRootElement(document);
  // A document type could bring attributes that stand nowhere in the elements.
  if (document->intSubset != nullptr) mblnStateless = false;
  for (const xmlNode* node = root; node != nullptr; node = Next(node)) {
    if (node->type != XML_ELEMENT_NODE) continue;
    if (MayRemember(node)) mblnStateless = false;
    if (IsXslt(node) && !IsKnownInstruction(View(node->name)) && mstrUnknown.empty()) mstrUnknown = View(node->name);
    if (node->parent != root || !IsXslt(node)) continue;
    const std::string_view name = View(node->name);
    if (name == "key") ++mlngKeys;
    if (name != "template" && name != "output" && name != "decimal-format" && name != "attribute-set") {
      mblnStateless = false;
    }
  }
}

}  // namespace quorvane::native
