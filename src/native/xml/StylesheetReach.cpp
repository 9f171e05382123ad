// Only what is known to be harmless passes: instructions, functions and axes stand in lists of those that cannot lead
// out of an element. No expression may hold a slash, two dots or a colon outside of its literals, but for the harmless
// axes. Patterns hold no predicates, which could count siblings. Where a value might be an attribute value template,
// all of it counts as an expression and quotes protect nothing. A wrong no costs time, a wrong yes would cost truth.

#include "native/xml/StylesheetReach.h"

#include <libxml/tree.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::native {

namespace {

constexpr std::string_view kXslt = "http://www.w3.org/1999/XSL/Transform";
constexpr std::string_view kBlanks = " \t\r\n";

/// Instructions that neither move to other nodes by themselves nor remember or load anything.
constexpr std::string_view kInstructions[] = {"apply-templates",
                                              "attribute",
                                              "attribute-set",
                                              "call-template",
                                              "choose",
                                              "comment",
                                              "copy",
                                              "copy-of",
                                              "element",
                                              "for-each",
                                              "if",
                                              "message",
                                              "otherwise",
                                              "param",
                                              "sort",
                                              "template",
                                              "text",
                                              "value-of",
                                              "processing-instruction",
                                              "variable",
                                              "when",
                                              "with-param"};

/// Those that may stand at the top level; the last two hold no expressions.
constexpr std::string_view kTopLevel[] = {"template", "attribute-set", "decimal-format", "output"};

/// Functions, node tests and operators: what may come before a parenthesis.
constexpr std::string_view kCalls[] = {"boolean",
                                       "ceiling",
                                       "comment",
                                       "concat",
                                       "contains",
                                       "count",
                                       "current",
                                       "false",
                                       "floor",
                                       "format-number",
                                       "last",
                                       "local-name",
                                       "name",
                                       "namespace-uri",
                                       "node",
                                       "normalize-space",
                                       "not",
                                       "number",
                                       "position",
                                       "round",
                                       "starts-with",
                                       "string",
                                       "string-length",
                                       "substring",
                                       "substring-after",
                                       "sum",
                                       "text",
                                       "substring-before",
                                       "translate",
                                       "true",
                                       "and",
                                       "or",
                                       "div",
                                       "mod",
                                       "processing-instruction"};

constexpr std::string_view kAxes[] = {"attribute", "self", "child"};

template <class List>
bool IsIn(const List& list, std::string_view word) {
  return std::find(std::begin(list), std::end(list), word) != std::end(list);
}

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

bool IsXslt(const xmlNode* node) {
  return node->ns != nullptr && View(node->ns->href) == kXslt;
}

/// `expression` with a blank string in place of each literal; nothing when a literal has no end.
std::optional<std::string> WithoutLiterals(std::string_view expression) {
  std::string rest;
  for (std::size_t i = 0; i < expression.size(); ++i) {
    rest.push_back(expression[i]);
    if (expression[i] != '\'' && expression[i] != '"') continue;
    i = expression.find(expression[i], i + 1);
    if (i == expression.npos) return std::nullopt;
    rest.push_back(expression[i]);
  }
  return rest;
}

bool IsNameCharacter(char c) {
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
  return letter || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
}

/// The name that ends before `end`, blanks between passed over.
std::string_view NameBefore(std::string_view text, std::size_t end) {
  while (end > 0 && kBlanks.find(text[end - 1]) != kBlanks.npos) --end;
  std::size_t begin = end;
  while (begin > 0 && IsNameCharacter(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

/// Whether `expression`, which may hold anything between its expressions too, stays on the context node and below.
bool IsHarmless(std::string_view expression) {
  for (std::size_t i = 0; i < expression.size(); ++i) {
    const char c = expression[i];
    if (c == '/' || (c == '.' && expression.substr(i).starts_with(".."))) return false;
    if (c == '(') {
      const std::string_view name = NameBefore(expression, i);
      if (!name.empty() && !IsIn(kCalls, name)) return false;
    }
    if (c == ':') {
      if (!expression.substr(i).starts_with("::") || !IsIn(kAxes, NameBefore(expression, i))) return false;
      ++i;
    }
  }
  return true;
}

bool IsHarmlessExpression(std::string_view expression) {
  const std::optional<std::string> rest = WithoutLiterals(expression);
  return rest && IsHarmless(*rest);
}

/// The document node, which such a pattern matches, is out of reach anyway.
bool IsHarmlessPattern(std::string_view pattern) {
  return pattern == "/" || (pattern.find_first_of("[:'\"") == pattern.npos && IsHarmless(pattern));
}

bool IsHarmless(const xmlAttr* attribute, bool ofXslt) {
  const xmlNode* content = attribute->children;
  if (content == nullptr) return true;
  if (content->next != nullptr || content->type != XML_TEXT_NODE) return false;
  const std::string_view name = View(attribute->name);
  const std::string_view value = View(content->content);
  if (ofXslt && attribute->ns == nullptr) {
    if (name == "match") return IsHarmlessPattern(value);
    if (name == "select" || name == "test") return IsHarmlessExpression(value);
  }
  return value.find('{') == value.npos || IsHarmless(value);
}

bool IsHarmless(const xmlNode* element) {
  const bool ofXslt = IsXslt(element);
  if (ofXslt ? !IsIn(kInstructions, View(element->name)) : element->ns != nullptr) return false;
  for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    if (View(attribute->name) == "extension-element-prefixes" || !IsHarmless(attribute, ofXslt)) return false;
  }
  for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE && !IsHarmless(child)) return false;
  }
  return true;
}

}  // namespace

bool StaysInside(const _xmlDoc* document) {
  const xmlNode* root = xmlDocGetRootElement(document);
  // A document type could bring attributes that stand nowhere in the elements.
  if (root == nullptr || document->intSubset != nullptr || document->extSubset != nullptr) return false;
  if (!IsXslt(root) || (View(root->name) != "stylesheet" && View(root->name) != "transform")) return false;
  for (const xmlAttr* attribute = root->properties; attribute != nullptr; attribute = attribute->next) {
    if (View(attribute->name) == "extension-element-prefixes") return false;
  }
  for (const xmlNode* top = root->children; top != nullptr; top = top->next) {
    if (top->type != XML_ELEMENT_NODE) continue;
    const std::string_view name = View(top->name);
    if (!IsXslt(top) || !IsIn(kTopLevel, name)) return false;
    if (name != "output" && name != "decimal-format" && !IsHarmless(top)) return false;
  }
  return true;
}

}  // namespace quorvane::native
