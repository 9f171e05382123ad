// The library's own tree, with three things added. Elements that somebody holds or that have been asked for a child
// carry a State in the node's private field: an index of the child elements, and counts of handles. The count that
// decides over life and death stands at the top of each tree of elements, so that one look tells whether an element
// without a document is still wanted.
//
// The third thing: an element made here keeps its attributes packed in its State, a tenth of what nodes for them would
// take, until somebody must see nodes. A whole tree of elements then gets its nodes at once, and is marked: what joins
// it later gets them as it joins, so that the work is never done twice.

#include "native/xml/XmlTree.h"

#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/PackedAttributes.h"
#include "native/xml/ScratchElement.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/TransformRun.h"
#include "native/xml/XmlNodes.h"
#include "native/xml/XmlText.h"

namespace quorvane::native {

struct XmlTree::State {
  std::size_t Handles = 0;  ///< to the element itself
  std::size_t Total = 0;    ///< at the top of a tree: to all its elements
  bool Indexed = false;
  bool Packed = false;             ///< its attributes are Attributes, and it has no attribute nodes
  bool AsNodes = false;            ///< at the top of a tree: none of its elements is Packed
  std::vector<xmlNode*> Children;  ///< the child elements, when Indexed
  PackedAttributes Attributes;     ///< when Packed
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

}  // namespace

XmlTree::XmlTree(_xmlDoc* document) : mobjDocument(document) {
  if (mobjDocument == nullptr) throw std::bad_alloc();
  if (mobjDocument->dict == nullptr) mobjDocument->dict = xmlDictCreate();
}

XmlTree::~XmlTree() {
  mobjTransformation.reset();
  mobjScratch.reset();
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
  if (state == nullptr || state->Handles != 0 || state->Total != 0) return;
  if (state->Indexed || state->Packed || state->AsNodes) return;
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

std::size_t XmlTree::NumberOf(std::string_view name) {
  // Names mostly come in the order in which they came before: the one behind the last is tried first.
  if (mlngNextName < mcolNames.size() && mcolNames[mlngNextName].Text == name) return mlngNextName++;
  const auto known = mcolNameIndex.find(name);
  const std::size_t number = known != mcolNameIndex.end() ? known->second : AddName(std::string(name));
  mlngNextName = number + 1;
  return number;
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
  xmlNode* element = NewElementNode(mobjDocument, mcolNames[NumberOf(name)].Interned);
  NeedState(element).Packed = true;
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

/// Hands what the State of `child`, the top of its tree, says about the tree over to the tree of `top`.
void XmlTree::Join(_xmlNode* child, _xmlNode* top) {
  if (const State* joined = StateOf(top); joined != nullptr && joined->AsNodes) MakeNodes(child);
  State* state = StateOf(child);
  if (state == nullptr) return;
  if (state->Packed) {
    state->Attributes.Trim();
    mlngUsualSize = state->Attributes.Size();
  }
  NeedState(top).Total += std::exchange(state->Total, 0);
  state->AsNodes = false;
  DropUnusedState(child);
}

void XmlTree::Append(_xmlNode* parent, _xmlNode* child) {
  for (xmlNode* node = parent; node != nullptr; node = node->parent) {
    if (node == child) RaiseError(ErrorNumber::InvalidProcedureCall, u"An element cannot be put below itself");
  }
  ++mlngRevision;
  Detach(child);
  Join(child, TopOf(parent));
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
  const std::size_t number = NumberOf(name);
  ToXmlText(value, mstrScratch);
  if (State* state = StateOf(element); state != nullptr && state->Packed) {
    if (state->Attributes.IsEmpty()) state->Attributes.Reserve(mlngUsualSize + mlngUsualSize / 8);
    state->Attributes.Set(number, mstrScratch);
    return;
  }
  const xmlChar* interned = mcolNames[number].Interned;
  xmlAttr* last = nullptr;
  for (xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    if (attribute->ns == nullptr && attribute->name == interned) {
      SetValue(attribute, NewTextNode(mobjDocument, mstrScratch));
      return;
    }
    last = attribute;
  }
  LinkAttribute(element, last, NewAttributeNode(interned, NewTextNode(mobjDocument, mstrScratch)));
}

std::u16string XmlTree::GetAttribute(_xmlNode* element, std::string_view name) {
  std::u16string value;
  const auto known = mcolNameIndex.find(name);
  if (const State* state = StateOf(element); state != nullptr && state->Packed) {
    if (known == mcolNameIndex.end()) return value;
    if (const auto packed = state->Attributes.Find(known->second)) AppendXmlText(*packed, value);
    return value;
  }
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

void XmlTree::Unpack(_xmlNode* element) {
  State* state = StateOf(element);
  if (state == nullptr || !state->Packed) return;
  xmlAttr* last = nullptr;
  state->Attributes.ForEach([&](const PackedAttributes::Item& item) {
    xmlAttr* next = NewAttributeNode(mcolNames[item.Name].Interned, NewTextNode(mobjDocument, item.Value));
    LinkAttribute(element, last, next);
    last = next;
  });
  state->Attributes = {};
  state->Packed = false;
}

void XmlTree::MakeNodes(_xmlNode* top) {
  if (const State* state = StateOf(top); state != nullptr && state->AsNodes) return;
  ForEachElement(top, [this, top](xmlNode* element) {
    Unpack(element);
    if (element != top) DropUnusedState(element);
  });
  NeedState(top).AsNodes = true;
}

_xmlDoc* XmlTree::WholeDocument() {
  if (xmlNode* root = Root()) MakeNodes(root);
  return mobjDocument;
}

/// Whether nothing around `element` shows in it: it has no content, and no namespace is declared further up.
bool XmlTree::StandsForItself(_xmlNode* element) const {
  const State* state = StateOf(element);
  if (state == nullptr || !state->Packed || element->children != nullptr || mobjDocument->intSubset != nullptr) {
    return false;
  }
  for (const xmlNode* above = element->parent; IsElement(above); above = above->parent) {
    if (above->nsDef != nullptr) return false;
  }
  return true;
}

std::u16string XmlTree::TransformAlone(_xmlNode* element, const std::shared_ptr<const Stylesheet>& stylesheet) {
  if (!mobjScratch) mobjScratch = std::make_unique<ScratchElement>(mobjDocument->dict);
  mobjScratch->Begin(element->name);
  StateOf(element)->Attributes.ForEach(
      [this](const PackedAttributes::Item& item) { mobjScratch->Add(mcolNames[item.Name].Interned, item.Value); });
  return mobjScratch->Transform(stylesheet);
}

std::u16string XmlTree::Transform(_xmlNode* element, const std::shared_ptr<const Stylesheet>& stylesheet) {
  if (stylesheet->StaysInside() && StandsForItself(element)) return TransformAlone(element, stylesheet);
  WholeDocument();
  MakeNodes(TopOf(element));
  return TransformRun::Again(mobjTransformation, stylesheet, mobjDocument).Transform(element);
}

}  // namespace quorvane::native
