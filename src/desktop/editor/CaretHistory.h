#pragma once

#include <cstdint>
#include <map>
#include <optional>

namespace quorvane::desktop {

/// Where the caret stood in each state of a text, so that undo and redo bring it back with the text. A state is named
/// by `Module::State`; places are 0-based, in units of the document.
class CaretHistory {
 public:
  struct Caret {
    int anchor = 0;
    int position = 0;
  };

  /// The caret now stands there.
  void Note(std::uint64_t state, const Caret& caret) {
    const auto [seen, isNew] = seen_.try_emplace(state, Seen{caret, caret});
    if (!isNew) seen->second.last = caret;
  }

  /// Where it came to stand by the edit that made this state; no value for a state without a caret.
  std::optional<Caret> First(std::uint64_t state) const {
    const auto seen = seen_.find(state);
    return seen == seen_.end() ? std::nullopt : std::optional(seen->second.first);
  }
  /// Where it stood when the next edit ended this state; no value for a state without a caret.
  std::optional<Caret> Last(std::uint64_t state) const {
    const auto seen = seen_.find(state);
    return seen == seen_.end() ? std::nullopt : std::optional(seen->second.last);
  }

 private:
  struct Seen {
    Caret first;
    Caret last;
  };
  std::map<std::uint64_t, Seen> seen_;
};

}  // namespace quorvane::desktop
