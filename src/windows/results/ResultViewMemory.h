#pragma once

#include <map>
#include <memory>

#include "windows/results/ResultListView.h"

namespace quorvane::windows {

/// What of a ResultView goes on when the host destroys its window and a new one shows the document: the part of each
/// list that was on the screen.
class ResultViewMemory {
 public:
  void Keep(const std::shared_ptr<forms::OwnerDrawList>& list, ListPlace place) {
    std::erase_if(places_, [](const auto& entry) { return entry.first.expired(); });
    places_[list] = place;
  }
  /// The start of a list that was not kept.
  ListPlace PlaceOf(const std::shared_ptr<forms::OwnerDrawList>& list) const {
    const auto found = places_.find(list);
    return found != places_.end() ? found->second : ListPlace{};
  }

 private:
  std::map<std::weak_ptr<forms::OwnerDrawList>, ListPlace, std::owner_less<>> places_;
};

}  // namespace quorvane::windows
