#include "addin/search/ResultCollection.h"

#include "addin/search/PositionInfo.h"
#include "base/Checked.h"

namespace quorvane {

ResultCollection::ResultCollection() = default;
ResultCollection::~ResultCollection() = default;

void ResultCollection::Add(const std::shared_ptr<PositionInfo>& pi) {
  PositionInfo& position = Deref(pi);
  if (modules_.insert(position.mobjCodeObject.get()).second) mcolModules.push_back(pi);
  position.mobjParent = this;
  position.mlngID = Checked32(std::int64_t{Count()} + 1);
  mcolItems.push_back(pi);
  OnAdd.Raise(pi);
}

void ResultCollection::Clear() {
  for (const auto& item : mcolItems) item->TearDown();
  mcolItems.clear();
  mcolModules.clear();
  modules_.clear();
  OnClear.Raise();
}

const std::shared_ptr<PositionInfo>& ResultCollection::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return mcolItems[static_cast<std::size_t>(index) - 1];
}

std::int32_t ResultCollection::Count() const {
  return Checked32(static_cast<std::int64_t>(mcolItems.size()));
}

std::int32_t ResultCollection::ModuleCount() const {
  return Checked32(static_cast<std::int64_t>(mcolModules.size()));
}

void ResultCollection::Setup(IPage& p) {
  mobjParent = &p;
}

void ResultCollection::TearDown() {
  Clear();
  mobjParent = nullptr;
}

}  // namespace quorvane
