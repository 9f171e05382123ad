#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace quorvane::native {

class ScratchElement;
class Stylesheet;
class TransformRun;

/// The nodes of one document, shared by the document and every handle to one of its elements. An element that stands
/// in no document lives as long as there is a handle to it, to its ancestors or to its descendants.
class XmlTree {
 public:
  /// Takes over `document`.
  explicit XmlTree(_xmlDoc* document);
  ~XmlTree();
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  _xmlNode* Root() const;
  /// The document with all its attributes as nodes.
  _xmlDoc* WholeDocument();
  /// Grows with every change of the tree.
  std::uint64_t Revision() const { return mlngRevision; }

  /// For handles alone: count them in and out. The last one out frees an element that stands nowhere.
  void Retain(_xmlNode* element);
  void Release(_xmlNode* element);

  /// An element that stands nowhere; it must be retained. Raises error 5 when `name` is no XML name.
  _xmlNode* NewElement(std::string_view name);
  /// The root that it replaces lives on only in its handles.
  void SetRoot(_xmlNode* element);
  /// Moves `child` behind the children of `parent`. Raises error 5 when that would make a circle.
  void Append(_xmlNode* parent, _xmlNode* child);

  std::size_t ChildCount(_xmlNode* element);
  /// 0-based; error 9 outside the range.
  _xmlNode* Child(_xmlNode* element, std::size_t index);

  void SetAttribute(_xmlNode* element, std::string_view name, std::u16string_view value);
  std::u16string GetAttribute(_xmlNode* element, std::string_view name);

  /// The output of `stylesheet` with `element` as the initial context node. Raises what TransformRun::Transform raises.
  std::u16string Transform(_xmlNode* element, const std::shared_ptr<const Stylesheet>& stylesheet);

 private:
  struct State;
  struct Name {
    std::string Text;
    const unsigned char* Interned = nullptr;  ///< in the document's dictionary
  };
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
  };

  static State*& StateOf(_xmlNode* element);
  static State& NeedState(_xmlNode* element);
  static void DropUnusedState(_xmlNode* element);
  static std::size_t HandlesBelow(_xmlNode* element);
  static void FreeStates(_xmlNode* element);

  const std::vector<_xmlNode*>& Children(_xmlNode* element);
  void Detach(_xmlNode* element);
  void Join(_xmlNode* child, _xmlNode* top);
  void FreeIfOrphaned(_xmlNode* top);
  std::size_t NumberOf(std::string_view name);
  std::size_t AddName(const std::string& name);
  void Unpack(_xmlNode* element);
  /// Gives nodes to all attributes of the tree of elements with `top` at its top, now and as elements join it.
  void MakeNodes(_xmlNode* top);
  bool StandsForItself(_xmlNode* element) const;
  std::u16string TransformAlone(_xmlNode* element, const std::shared_ptr<const Stylesheet>& stylesheet);

  _xmlDoc* mobjDocument;
  std::uint64_t mlngRevision = 0;
  std::vector<Name> mcolNames;  ///< in the order of their first use; the index of a name is its number
  std::size_t mlngNextName = 0;
  std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> mcolNameIndex;  ///< numbers
  std::string mstrScratch;
  std::size_t mlngUsualSize = 0;                     ///< bytes that the attributes of the element appended last take
  std::unique_ptr<TransformRun> mobjTransformation;  ///< made last for this document; it goes when nodes are freed
  std::unique_ptr<ScratchElement> mobjScratch;       ///< made at the first need
};

}  // namespace quorvane::native
