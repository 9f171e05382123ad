#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "addin/core/Counted.h"
#include "base/Event.h"

namespace quorvane {

class IPage;
class PositionInfo;

namespace vbide {
class CodeModule;
}

/// The matches of one page, numbered from 1 in the order of adding.
class ResultCollection : private Counted<ResultCollection> {
 public:
  static constexpr std::string_view ClassName = "ResultCollection";

  ResultCollection();
  ~ResultCollection();

  IPage* mobjParent = nullptr;  ///< owner, from Setup to TearDown

  /// Appends a match, numbers it and raises OnAdd.
  void Add(const std::shared_ptr<PositionInfo>& pi);
  /// Tears the matches down and raises OnClear, also when there are none.
  void Clear();
  /// 1-based; raises error 9 out of range.
  const std::shared_ptr<PositionInfo>& Item(std::int32_t index) const;
  std::int32_t Count() const;
  /// Number of modules with a match.
  std::int32_t ModuleCount() const;
  void Setup(IPage& p);
  void TearDown();

  /// NewEnum: walks the matches in order.
  auto begin() const { return mcolItems.begin(); }
  auto end() const { return mcolItems.end(); }

  Event<const std::shared_ptr<PositionInfo>&> OnAdd;
  Event<> OnClear;

 private:
  std::vector<std::shared_ptr<PositionInfo>> mcolItems;    ///< invariant: mlngID is the 1-based place
  std::vector<std::shared_ptr<PositionInfo>> mcolModules;  ///< for each module with a match, its first match
  std::unordered_set<const vbide::CodeModule*> modules_;   ///< the modules of mcolModules, by identity
};

}  // namespace quorvane
