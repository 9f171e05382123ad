// Everything that is not known is a no: one template that matches a plain name, with texts, xsl:text and xsl:value-of
// of one attribute in it, each with no attributes but those it needs, and xsl:output beside it. What is left out costs
// time alone, since the library runs the rest.

#include "native/xml/StraightSheet.h"

#include <libxml/tree.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace quorvane::native {

namespace {

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

bool IsXslt(const xmlNode* node, std::string_view name) {
  return node->type == XML_ELEMENT_NODE && node->ns != nullptr &&
         View(node->ns->href) == "http://www.w3.org/1999/XSL/Transform" && View(node->name) == name;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == text.npos;
}

/// A name of ASCII letters, digits and underscores.
bool IsPlainName(std::string_view name) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
  return !name.empty() && isLetter(name.front()) &&
         std::ranges::all_of(name, [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

/// The value of the attribute `name`, empty without it. Nothing when it is no plain text or when `node` has attributes
/// that are not `allowed`.
std::optional<std::string_view> Attribute(const xmlNode* node, std::string_view name,
                                          std::initializer_list<std::string_view> allowed) {
  std::string_view value;
  for (const xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
    if (attribute->ns != nullptr || std::ranges::find(allowed, View(attribute->name)) == allowed.end()) return {};
    const xmlNode* text = attribute->children;
    if (text == nullptr || text->type != XML_TEXT_NODE || text->next != nullptr) return {};
    if (View(attribute->name) == name) value = View(text->content);
  }
  return value;
}

constexpr std::string_view kRaw = "disable-output-escaping";

/// Nothing when it is neither yes nor no.
std::optional<bool> IsEscaped(const xmlNode* node) {
  const auto raw = Attribute(node, kRaw, {kRaw, "select"});
  if (!raw || !(raw->empty() || *raw == "yes" || *raw == "no")) return {};
  return *raw != "yes";
}

bool AddText(const xmlNode* node, StraightSheet& sheet) {
  const auto escaped = IsEscaped(node);
  if (!escaped || !Attribute(node, {}, {kRaw})) return false;
  for (const xmlNode* text = node->children; text != nullptr; text = text->next) {
    if (text->type != XML_TEXT_NODE) return false;
    sheet.Pieces.push_back({std::string(View(text->content)), {}, *escaped});
  }
  return true;
}

bool AddValue(const xmlNode* node, StraightSheet& sheet) {
  const auto escaped = IsEscaped(node);
  const auto select = Attribute(node, "select", {kRaw, "select"});
  const bool one = escaped && select && select->starts_with('@') && IsPlainName(select->substr(1));
  if (!one || node->children != nullptr) return false;
  sheet.Pieces.push_back({{}, std::string(select->substr(1)), *escaped});
  return true;
}

bool AddTemplate(const xmlNode* node, StraightSheet& sheet) {
  const auto match = Attribute(node, "match", {"match"});
  if (!match || !IsPlainName(*match) || !sheet.Element.empty()) return false;
  sheet.Element = *match;
  for (const xmlNode* child = node->children; child != nullptr; child = child->next) {
    if (child->type == XML_TEXT_NODE) {
      if (!IsBlank(View(child->content))) sheet.Pieces.push_back({std::string(View(child->content)), {}, true});
    } else if (child->type != XML_COMMENT_NODE) {
      const bool added =
          (IsXslt(child, "text") && AddText(child, sheet)) || (IsXslt(child, "value-of") && AddValue(child, sheet));
      if (!added) return false;
    }
  }
  return true;
}

}  // namespace

std::optional<StraightSheet> ReadStraightSheet(const _xmlDoc* document) {
  const xmlNode* root = xmlDocGetRootElement(document);
  if (root == nullptr || document->intSubset != nullptr || document->extSubset != nullptr) return {};
  if (!IsXslt(root, "stylesheet") && !IsXslt(root, "transform")) return {};
  if (Attribute(root, "version", {"version"}) != "1.0") return {};
  StraightSheet sheet;
  for (const xmlNode* top = root->children; top != nullptr; top = top->next) {
    const bool passes = top->type == XML_COMMENT_NODE || IsXslt(top, "output") ||
                        (top->type == XML_TEXT_NODE && IsBlank(View(top->content)));
    if (!passes && !(IsXslt(top, "template") && AddTemplate(top, sheet))) return {};
  }
  if (sheet.Element.empty()) return {};
  return sheet;
}

}  // namespace quorvane::native
