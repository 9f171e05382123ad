#include "native/xml/XmlNodes.h"

#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlmemory.h>

#include <cstddef>
#include <cstring>
#include <new>

namespace quorvane::native {

namespace {

void* NewNode(std::size_t size) {
  void* node = xmlMalloc(size);
  if (node == nullptr) throw std::bad_alloc();
  std::memset(node, 0, size);
  return node;
}

}  // namespace

_xmlNode* NewElementNode(_xmlDoc* document, const unsigned char* name) {
  auto* element = static_cast<xmlNode*>(NewNode(sizeof(xmlNode)));
  element->type = XML_ELEMENT_NODE;
  element->name = name;
  element->doc = document;
  return element;
}

/// A short text lies inside the node, where the library's parser puts it too.
_xmlNode* NewTextNode(_xmlDoc* document, std::string_view value) {
  auto* node = static_cast<xmlNode*>(NewNode(sizeof(xmlNode)));
  node->type = XML_TEXT_NODE;
  node->name = xmlStringText;
  node->doc = document;
  constexpr std::size_t kInside = 2 * sizeof(void*);
  static_assert(offsetof(xmlNode, nsDef) == offsetof(xmlNode, properties) + sizeof(void*));
  node->content = value.size() < kInside ? reinterpret_cast<xmlChar*>(&node->properties)
                                         : static_cast<xmlChar*>(xmlMalloc(value.size() + 1));
  if (node->content == nullptr) {
    xmlFree(node);
    throw std::bad_alloc();
  }
  if (!value.empty()) std::memcpy(node->content, value.data(), value.size());
  node->content[value.size()] = 0;
  return node;
}

_xmlAttr* NewAttributeNode(const unsigned char* name, _xmlNode* text) {
  auto* attribute = static_cast<xmlAttr*>(NewNode(sizeof(xmlAttr)));
  attribute->type = XML_ATTRIBUTE_NODE;
  attribute->name = name;
  attribute->doc = text->doc;
  text->parent = reinterpret_cast<xmlNode*>(attribute);
  attribute->children = text;
  attribute->last = text;
  return attribute;
}

void LinkAttribute(_xmlNode* element, _xmlAttr* last, _xmlAttr* attribute) {
  attribute->parent = element;
  attribute->prev = last;
  (last != nullptr ? last->next : element->properties) = attribute;
}

}  // namespace quorvane::native
