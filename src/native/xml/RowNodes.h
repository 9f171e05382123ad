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

/// A document of rows as the library's own nodes, for stylesheets that look around. It only grows.
class RowNodes {
 public:
  /// `names` holds all names that are given here.
  RowNodes(_xmlDict* names, const unsigned char* root, const unsigned char* row);
  ~RowNodes();
  RowNodes(const RowNodes&) = delete;
  RowNodes& operator=(const RowNodes&) = delete;

  std::size_t Count() const { return rows_.size(); }
  /// One more row, without attributes.
  void Begin();
  /// One more attribute of the last row; `value` is UTF-8 without NUL.
  void Add(const unsigned char* name, std::string_view value);

  /// `row` is 0-based and exists. Raises what TransformRun::Transform raises.
  std::u16string Transform(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet);

 private:
  _xmlDoc* document_;
  _xmlNode* root_;
  const unsigned char* rowName_;
  std::vector<_xmlNode*> rows_;
  _xmlAttr* last_ = nullptr;  ///< of the last row
  std::unique_ptr<TransformRun> run_;
};

}  // namespace quorvane::native
