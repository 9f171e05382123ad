#include "addin/core/StringCollection.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"

namespace quorvane {

const std::u16string& StringCollection::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return items_[static_cast<std::size_t>(index) - 1];
}

void StringCollection::Add(std::u16string_view v) {
  items_.emplace_back(v);
}

void StringCollection::Remove(std::u16string_view v) {
  std::erase(items_, v);
}

void StringCollection::RemoveAll() {
  items_.clear();
}

std::int32_t StringCollection::Count() const {
  return Checked32(static_cast<std::int64_t>(items_.size()));
}

bool StringCollection::Exists(std::u16string_view v) const {
  return std::find(items_.begin(), items_.end(), v) != items_.end();
}

std::u16string StringCollection::Join(std::u16string_view splitter, std::optional<std::int32_t> count) const {
  const std::int32_t limit = count.value_or(Count());
  std::u16string text;
  for (std::int32_t i = 0; i < std::min(limit, Count()); ++i) {
    text.append(items_[static_cast<std::size_t>(i)]).append(splitter);
  }
  if (text.size() > splitter.size()) text.resize(text.size() - splitter.size());
  return text;
}

void StringCollection::AddSplit(std::u16string_view src, std::u16string_view splitter) {
  if (splitter.empty()) {
    if (!src.empty()) Add(src);
    return;
  }
  for (const std::u16string_view part : Split(src, splitter)) {
    if (!part.empty()) Add(part);
  }
}

}  // namespace quorvane
