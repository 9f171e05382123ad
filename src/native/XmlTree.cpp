// The library's own tree, with two things added. Elements that somebody holds or that have been asked for a child carry
// a State in the node's private field: an index of the child elements, and counts of handles. The count that decides
// over life and death stands at the top of each tree of elements, so that one look tells whether an element without a
// document is still wanted.

#include "native/XmlTree.h"

#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlmemory.h>

#include <algorithm>
#include <cstring>

#include "base/Error.h"
#include "base/Text.h"
#include "native/TransformRun.h"
#include "native/XmlText.h"

namespace quorvane::native {

struct XmlTree::State {
  std::size_t Handles = 0;  ///< to the element itself
  std::size_t Total = 0;    ///< at the top of a tree: to all its elements
  bool Indexed = false;
  std::vector<xmlNode*> Children;  ///< the child elements, when Indexed
};

namespace {

bool IsElement(const xmlNode* node) {
  return node != nullptr && node->type == XML_ELEMENT_NODE;
}

xmlNode* TopOf(xmlNode* element) {
  while (IsElement(element->parent)) element = element->parent;
  return element;
}

bool IsInDocument(const xmlNode* top) {
  return top->parent != nullptr;
}

/// Calls `visit` with `element` and all elements below it, parents first.
template <class Visitor>
void ForEachElement(xmlNode* element, Visitor visit) {
  for (xmlNode* node = element; node != nullptr;) {
    if (IsElement(node)) visit(node);
    if (IsElement(node) && node->children != nullptr) {
      node = node->children;
      continue;
    }
    while (node != element && node->next == nullptr) node = node->parent;
    node = node == element ? nullptr : node->next;
  }
}

void* NewNode(std::size_t size) {
  void* node = xmlMalloc(size);
  if (node == nullptr) throw std::bad_alloc();
  std::memset(node, 0, size);
  return node;
}

/// A text node with `value` as it is. A short text lies inside the node, where the library's parser puts it too.
xmlNode* NewText(xmlDoc* document, const std::string& value) {
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
  std::memcpy(node->content, value.c_str(), value.size() + 1);
  return node;
}

void SetValue(xmlAttr* attribute, const std::string& value) {
  xmlNode* text = NewText(attribute->doc, value);
  xmlFreeNodeList(attribute->children);
  text->parent = reinterpret_cast<xmlNode*>(attribute);
  attribute->children = text;
  attribute->last = text;
}

bool HasQualifiedName(const xmlAttr* attribute, std::string_view name) {
  const auto text = [](const xmlChar* chars) { return std::string_view(reinterpret_cast<const char*>(chars)); };
  if (attribute->ns == nullptr || attribute->ns->prefix == nullptr) return text(attribute->name) == name;
  const std::string_view prefix = text(attribute->ns->prefix);
  return name.size() > prefix.size() && name.starts_with(prefix) && name[prefix.size()] == ':' &&
         name.substr(prefix.size() + 1) == text(attribute->name);
}

}  // namespace

XmlTree::XmlTree(_xmlDoc* document) : mobjDocument(document) {
  if (mobjDocument == nullptr) throw std::bad_alloc();
  if (mobjDocument->dict == nullptr) mobjDocument->dict = xmlDictCreate();
}

XmlTree::~XmlTree() {
  mobjTransformation.reset();
  if (xmlNode* root = Root()) FreeStates(root);
  xmlFreeDoc(mobjDocument);
}

_xmlNode* XmlTree::Root() const {
  return xmlDocGetRootElement(mobjDocument);
}

XmlTree::State*& XmlTree::StateOf(_xmlNode* element) {
  return reinterpret_cast<State*&>(element->_private);
}

XmlTree::State& XmlTree::NeedState(_xmlNode* element) {
  State*& state = StateOf(element);
  if (state == nullptr) state = new State;
  return *state;
}

void XmlTree::DropUnusedState(_xmlNode* element) {
  State*& state = StateOf(element);
  if (state == nullptr || state->Indexed || state->Handles != 0 || state->Total != 0) return;
  delete state;
  state = nullptr;
}

std::size_t XmlTree::HandlesBelow(_xmlNode* element) {
  std::size_t count = 0;
  ForEachElement(element, [&](xmlNode* node) {
    if (const State* state = StateOf(node)) count += state->Handles;
  });
  return count;
}

void XmlTree::FreeStates(_xmlNode* element) {
  ForEachElement(element, [](xmlNode* node) {
    delete StateOf(node);
    StateOf(node) = nullptr;
  });
}

void XmlTree::Retain(_xmlNode* element) {
  ++NeedState(element).Handles;
  ++NeedState(TopOf(element)).Total;
}

void XmlTree::Release(_xmlNode* element) {
  xmlNode* top = TopOf(element);
  --NeedState(element).Handles;
  --NeedState(top).Total;
  if (element != top) DropUnusedState(element);
  FreeIfOrphaned(top);
}

void XmlTree::FreeIfOrphaned(_xmlNode* top) {
  if (NeedState(top).Total != 0) return;
  if (IsInDocument(top)) {
    DropUnusedState(top);
    return;
  }
  mobjTransformation.reset();
  FreeStates(top);
  xmlFreeNode(top);
}

const unsigned char* XmlTree::Intern(std::string_view name) {
  // Names mostly come in the order in which they came before: the one behind the last is tried first.
  if (mlngNextName < mcolNames.size() && mcolNames[mlngNextName].Text == name)
    return mcolNames[mlngNextName++].Interned;
  const auto known = mcolNameIndex.find(name);
  const std::size_t index = known != mcolNameIndex.end() ? known->second : AddName(std::string(name));
  mlngNextName = index + 1;
  return mcolNames[index].Interned;
}

std::size_t XmlTree::AddName(const std::string& name) {
  const auto* chars = reinterpret_cast<const xmlChar*>(name.c_str());
  if (name.find('\0') != name.npos || xmlValidateNCName(chars, 0) != 0) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"Not an XML name: " + FromUtf8(name));
  }
  mcolNames.push_back({name, xmlDictLookup(mobjDocument->dict, chars, static_cast<int>(name.size()))});
  return mcolNameIndex.emplace(name, mcolNames.size() - 1).first->second;
}

_xmlNode* XmlTree::NewElement(std::string_view name) {
  const xmlChar* interned = Intern(name);
  auto* element = static_cast<xmlNode*>(NewNode(sizeof(xmlNode)));
  element->type = XML_ELEMENT_NODE;
  element->name = interned;
  element->doc = mobjDocument;
  return element;
}

/// Takes `element` out of where it stands, its handles with it.
void XmlTree::Detach(_xmlNode* element) {
  xmlNode* parent = element->parent;
  if (parent == nullptr) return;
  if (IsElement(parent)) {
    const std::size_t moved = HandlesBelow(element);
    NeedState(TopOf(parent)).Total -= moved;
    NeedState(element).Total = moved;
    State& state = NeedState(parent);
    std::erase(state.Children, element);
    DropUnusedState(parent);
    xmlNode* left = TopOf(parent);
    xmlUnlinkNode(element);
    FreeIfOrphaned(left);
    return;
  }
  xmlUnlinkNode(element);
}

void XmlTree::SetRoot(_xmlNode* element) {
  xmlNode* old = Root();
  if (old == element) return;
  ++mlngRevision;
  Detach(element);
  if (old == nullptr) {
    xmlDocSetRootElement(mobjDocument, element);
    return;
  }
  xmlReplaceNode(old, element);
  FreeIfOrphaned(old);
}

void XmlTree::Append(_xmlNode* parent, _xmlNode* child) {
  for (xmlNode* node = parent; node != nullptr; node = node->parent) {
    if (node == child) RaiseError(ErrorNumber::InvalidProcedureCall, u"An element cannot be put below itself");
  }
  ++mlngRevision;
  Detach(child);
  if (const State* state = StateOf(child)) {
    const std::size_t moved = state->Total;
    StateOf(child)->Total = 0;
    NeedState(TopOf(parent)).Total += moved;
    DropUnusedState(child);
  }
  State* state = StateOf(parent);
  if (state != nullptr && state->Indexed) state->Children.push_back(child);
  xmlAddChild(parent, child);
}

const std::vector<_xmlNode*>& XmlTree::Children(_xmlNode* element) {
  State& state = NeedState(element);
  if (!state.Indexed) {
    state.Children.clear();
    for (xmlNode* node = element->children; node != nullptr; node = node->next) {
      if (IsElement(node)) state.Children.push_back(node);
    }
    state.Indexed = true;
  }
  return state.Children;
}

std::size_t XmlTree::ChildCount(_xmlNode* element) {
  return Children(element).size();
}

_xmlNode* XmlTree::Child(_xmlNode* element, std::size_t index) {
  const std::vector<xmlNode*>& children = Children(element);
  if (index >= children.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return children[index];
}

void XmlTree::SetAttribute(_xmlNode* element, std::string_view name, std::u16string_view value) {
  ++mlngRevision;
  const xmlChar* interned = Intern(name);
  ToXmlText(value, mstrScratch);
  xmlAttr* last = nullptr;
  for (xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    if (attribute->ns == nullptr && attribute->name == interned) {
      SetValue(attribute, mstrScratch);
      return;
    }
    last = attribute;
  }
  auto* added = static_cast<xmlAttr*>(NewNode(sizeof(xmlAttr)));
  added->type = XML_ATTRIBUTE_NODE;
  added->name = interned;
  added->doc = mobjDocument;
  SetValue(added, mstrScratch);
  added->parent = element;
  added->prev = last;
  (last != nullptr ? last->next : element->properties) = added;
}

std::u16string XmlTree::GetAttribute(_xmlNode* element, std::string_view name) {
  std::u16string value;
  const auto known = mcolNameIndex.find(name);
  const xmlChar* interned = known != mcolNameIndex.end() ? mcolNames[known->second].Interned : nullptr;
  for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    const bool same = attribute->name == interned && attribute->ns == nullptr;
    if (!same && (interned != nullptr || !HasQualifiedName(attribute, name))) continue;
    for (const xmlNode* part = attribute->children; part != nullptr; part = part->next) {
      if (part->content != nullptr) AppendXmlText(reinterpret_cast<const char*>(part->content), value);
    }
    break;
  }
  return value;
}

}  // namespace quorvane::native
