#include "native/xml/LibXmlElement.h"

#include <utility>

#include "base/Error.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/XmlTree.h"

namespace quorvane::native {

LibXmlElement::LibXmlElement(std::shared_ptr<XmlTree> tree, _xmlNode* element)
    : mobjTree(std::move(tree)), mobjNode(element) {
  mobjTree->Retain(mobjNode);
}

LibXmlElement::~LibXmlElement() {
  mobjTree->Release(mobjNode);
}

_xmlNode* LibXmlElement::NodeOf(XmlElement& element, const XmlTree& tree) {
  const auto* own = dynamic_cast<LibXmlElement*>(&element);
  if (own == nullptr || own->mobjTree.get() != &tree) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The element belongs to another document");
  }
  return own->mobjNode;
}

void LibXmlElement::SetAttribute(std::string_view name, std::u16string_view value) {
  mobjTree->SetAttribute(mobjNode, name, value);
}

std::u16string LibXmlElement::GetAttribute(std::string_view name) const {
  return mobjTree->GetAttribute(mobjNode, name);
}

void LibXmlElement::AppendChild(XmlElement& child) {
  mobjTree->Append(mobjNode, NodeOf(child, *mobjTree));
}

std::size_t LibXmlElement::ChildCount() const {
  return mobjTree->ChildCount(mobjNode);
}

std::shared_ptr<XmlElement> LibXmlElement::Child(std::size_t index) const {
  return std::make_shared<LibXmlElement>(mobjTree, mobjTree->Child(mobjNode, index));
}

std::u16string LibXmlElement::TransformNode(XmlDocument& stylesheet) const {
  auto* document = dynamic_cast<LibXmlDocument*>(&stylesheet);
  if (document == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
  return mobjTree->Transform(mobjNode, document->Compiled());
}

}  // namespace quorvane::native
