// The attribute nodes stay from one element to the next, also those that an element with fewer attributes leaves
// unlinked: taking on another element writes a name and a pointer for each attribute. The values lie elsewhere and the
// nodes must never free them.

#include "native/xml/ScratchElement.h"

#include <libxml/tree.h>

#include "native/xml/Stylesheet.h"
#include "native/xml/TransformRun.h"
#include "native/xml/XmlNodes.h"

namespace quorvane::native {

ScratchElement::ScratchElement(_xmlDict* names) : mobjDocument(xmlNewDoc(BAD_CAST "1.0")) {
  if (mobjDocument == nullptr) throw std::bad_alloc();
  mobjDocument->dict = names;
  xmlDictReference(names);
  mobjElement = NewElementNode(mobjDocument, xmlDictLookup(names, BAD_CAST "e", 1));
  xmlDocSetRootElement(mobjDocument, mobjElement);
}

ScratchElement::~ScratchElement() {
  mobjRun.reset();
  for (std::size_t i = 0; i < mcolAttributes.size(); ++i) {
    mcolAttributes[i]->children->content = nullptr;
    if (i >= count_) xmlFreeProp(mcolAttributes[i]);
  }
  xmlFreeDoc(mobjDocument);
}

void ScratchElement::Begin(const unsigned char* name) {
  mobjElement->name = name;
  mobjElement->properties = nullptr;
  count_ = 0;
}

void ScratchElement::Add(const unsigned char* name, std::string_view value) {
  if (count_ == mcolAttributes.size()) {
    mcolAttributes.push_back(NewAttributeNode(name, NewTextNode(mobjDocument, {})));
  }
  xmlAttr* attribute = mcolAttributes[count_];
  attribute->name = name;
  attribute->next = nullptr;
  attribute->children->content = reinterpret_cast<xmlChar*>(const_cast<char*>(value.data()));
  LinkAttribute(mobjElement, count_ > 0 ? mcolAttributes[count_ - 1] : nullptr, attribute);
  ++count_;
}

std::u16string ScratchElement::Transform(const std::shared_ptr<const Stylesheet>& stylesheet) {
  return TransformRun::Again(mobjRun, stylesheet, mobjDocument).Transform(mobjElement);
}

}  // namespace quorvane::native
