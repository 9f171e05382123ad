#pragma once

#include <memory>

#include "platform/XmlDocument.h"

struct _xmlNode;

namespace quorvane::native {

class XmlTree;

class LibXmlElement : public XmlElement {
 public:
  LibXmlElement(std::shared_ptr<XmlTree> tree, _xmlNode* element);
  ~LibXmlElement() override;
  LibXmlElement(const LibXmlElement&) = delete;
  LibXmlElement& operator=(const LibXmlElement&) = delete;

  void SetAttribute(std::string_view name, std::u16string_view value) override;
  std::u16string GetAttribute(std::string_view name) const override;
  void AppendChild(XmlElement& child) override;
  std::size_t ChildCount() const override;
  std::shared_ptr<XmlElement> Child(std::size_t index) const override;
  std::u16string TransformNode(XmlDocument& stylesheet) const override;

  /// The node of `element`, which must stand for one of `tree`: error 5 otherwise.
  static _xmlNode* NodeOf(XmlElement& element, const XmlTree& tree);

 private:
  std::shared_ptr<XmlTree> mobjTree;
  _xmlNode* mobjNode;
};

}  // namespace quorvane::native
