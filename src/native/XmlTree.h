#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct _xmlAttr;
struct _xmlDoc;
struct _xmlNode;

namespace quorvane::native {

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

  _xmlDoc* Document() const { return mobjDocument; }
  _xmlNode* Root() const;
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

  /// The transformation made ready for this document last; it goes when nodes are freed.
  std::unique_ptr<TransformRun>& Transformation() { return mobjTransformation; }

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
  void FreeIfOrphaned(_xmlNode* top);
  const unsigned char* Intern(std::string_view name);
  std::size_t AddName(const std::string& name);

  _xmlDoc* mobjDocument;
  std::uint64_t mlngRevision = 0;
  std::vector<Name> mcolNames;  ///< in the order of their first use
  std::size_t mlngNextName = 0;
  std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> mcolNameIndex;  ///< into mcolNames
  std::string mstrScratch;
  std::unique_ptr<TransformRun> mobjTransformation;
};

}  // namespace quorvane::native
