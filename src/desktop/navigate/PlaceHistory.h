#pragma once

#include <QTimer>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/Event.h"
#include "desktop/navigate/LineAnchor.h"

namespace quorvane::desktop {

class CodeArea;

/// Where the caret was before it jumped: into another module, or by a command to another line. Back and Forward walk
/// through these places. Steps of the caret by keys and mouse are no jumps.
class PlaceHistory {
 public:
  /// `code` outlives this.
  explicit PlaceHistory(CodeArea& code);

  void Back();
  void Forward();
  bool CanBack() const { return !back_.empty(); }
  bool CanForward() const { return !forward_.empty(); }

  Event<> Changed;  ///< there is more or less to go to

 private:
  struct Place {
    LineAnchor line;
    int column = 0;  ///< 0-based, in units of the document
  };

  std::optional<Place> Now() const;
  void Note();
  void Settle();
  void Walk(std::vector<Place>& from, std::vector<Place>& to);

  CodeArea& code_;
  QTimer soon_;
  std::vector<Place> back_;
  std::vector<Place> forward_;
  std::optional<Place> now_;
  bool jumped_ = false;  ///< since now_
  Subscription moved_;
};

}  // namespace quorvane::desktop
