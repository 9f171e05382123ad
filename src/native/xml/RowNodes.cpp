#include "native/xml/RowNodes.h"

#include <libxml/tree.h>

#include <new>

#include "native/xml/TransformRun.h"
#include "native/xml/XmlNodes.h"

namespace quorvane::native {

RowNodes::RowNodes(_xmlDict* names, const unsigned char* root, const unsigned char* row)
    : document_(xmlNewDoc(BAD_CAST "1.0")), rowName_(row) {
  if (document_ == nullptr) throw std::bad_alloc();
  document_->dict = names;
  xmlDictReference(names);
  root_ = NewElementNode(document_, root);
  xmlDocSetRootElement(document_, root_);
}

RowNodes::~RowNodes() {
  run_.reset();
  xmlFreeDoc(document_);
}

void RowNodes::Begin() {
  run_.reset();  // the library remembers in a run how many rows it saw, for patterns such as e[last()]
  rows_.push_back(NewElementNode(document_, rowName_));
  xmlAddChild(root_, rows_.back());
  last_ = nullptr;
}

void RowNodes::Add(const unsigned char* name, std::string_view value) {
  xmlAttr* attribute = NewAttributeNode(name, NewTextNode(document_, value));
  LinkAttribute(rows_.back(), last_, attribute);
  last_ = attribute;
}

std::u16string RowNodes::Transform(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet) {
  return TransformRun::Again(run_, stylesheet, document_).Transform(rows_[row]);
}

}  // namespace quorvane::native
