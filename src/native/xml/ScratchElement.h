#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _xmlAttr;
struct _xmlDict;
struct _xmlDoc;
struct _xmlNode;

namespace quorvane::native {

class Stylesheet;
class TransformRun;

/// One element, alone in a document of its own, that takes on the looks of one element after the other: a stylesheet
/// that cannot look beyond the element (Stylesheet::StaysInside) cannot tell it from the element it stands for.
class ScratchElement {
 public:
  /// `names` holds the names that it is given.
  explicit ScratchElement(_xmlDict* names);
  ~ScratchElement();
  ScratchElement(const ScratchElement&) = delete;
  ScratchElement& operator=(const ScratchElement&) = delete;

  /// Becomes an element without attributes.
  void Begin(const unsigned char* name);
  /// Gives it one more attribute. `value` is borrowed until the next Begin; a NUL follows it.
  void Add(const unsigned char* name, std::string_view value);

  /// Raises what TransformRun::Transform raises.
  std::u16string Transform(const std::shared_ptr<const Stylesheet>& stylesheet);

 private:
  _xmlDoc* mobjDocument;
  _xmlNode* mobjElement;
  std::vector<_xmlAttr*> mcolAttributes;  ///< all ever made; the first count_ are linked to the element, in order
  std::size_t count_ = 0;
  std::unique_ptr<TransformRun> mobjRun;
};

}  // namespace quorvane::native
