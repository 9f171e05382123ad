#pragma once

#include <string_view>

struct _xmlAttr;
struct _xmlDoc;
struct _xmlNode;

namespace quorvane::native {

/// Nodes made by hand: names are taken as they are and must lie in the dictionary of `document`, values are UTF-8
/// without NUL and are not looked at for entities. Each raises std::bad_alloc when there is no memory.

/// An element that stands nowhere.
_xmlNode* NewElementNode(_xmlDoc* document, const unsigned char* name);

/// A text with `value`, that stands nowhere.
_xmlNode* NewTextNode(_xmlDoc* document, std::string_view value);

/// An attribute of no element yet, with `text` as its value; it takes `text` over.
_xmlAttr* NewAttributeNode(const unsigned char* name, _xmlNode* text);

/// Puts `attribute` after `last`, the last of `element`, or at the front when that is null.
void LinkAttribute(_xmlNode* element, _xmlAttr* last, _xmlAttr* attribute);

}  // namespace quorvane::native
