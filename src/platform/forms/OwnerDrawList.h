#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Event.h"
#include "platform/Canvas.h"
#include "platform/forms/Control.h"
#include "platform/forms/Font.h"

namespace quorvane::forms {

/// A list with one selected row at most, whose owner draws the rows. Made for many rows: adding one costs the same
/// however many there are, and tells the view nothing but that rows have changed.
///
/// The user's side: a view writes ListIndex and HasFocus, raises the events of mouse and keys, with x and y in pixels
/// of the list, and raises DrawItem for each row that it shows. The press that selects a row comes before MouseDown.
class OwnerDrawList final : public Control {
 public:
  void AddItem(const std::u16string& text, std::int32_t itemData);
  /// No rows, no selection; the horizontal extent stays.
  void Clear();

  std::int32_t ListCount() const { return static_cast<std::int32_t>(rows_.size()); }
  /// 0-based; raises error 381 outside the list, as ItemData does.
  const std::u16string& List(std::int32_t index) const;
  std::int32_t ItemData(std::int32_t index) const;

  /// 0-based, -1 for no selection.
  std::int32_t ListIndex() const { return listIndex_; }
  /// Raises error 380 outside -1 to ListCount - 1.
  void SetListIndex(std::int32_t index);

  const forms::Font& Font() const { return font_; }
  void SetFont(const forms::Font& font);

  /// Width in pixels that can be scrolled to.
  std::int32_t HorizontalExtent() const { return horizontalExtent_; }
  void SetHorizontalExtent(std::int32_t pixels);

  bool HasFocus() const { return hasFocus_; }
  void SetHasFocus(bool hasFocus) { hasFocus_ = hasFocus; }

  /// Asks the view to draw all visible rows again, soon.
  void Refresh() { RepaintWanted.Raise(); }

  Event<> RowsChanged;    ///< rows were added or cleared; a view may wait and take many changes at once
  Event<> RepaintWanted;  ///< likewise

  Event<> DblClick;
  Event<std::int16_t, std::int16_t> KeyDown;                  ///< KeyCode, Shift
  Event<std::int16_t, std::int16_t, float, float> MouseDown;  ///< Button (1 left, 2 right, 4 middle), Shift, x, y
  Event<std::int16_t, std::int16_t, float, float> MouseMove;
  /// Row, canvas, whether the row is selected, its rectangle on the canvas.
  Event<std::int32_t, Canvas&, bool, const CanvasRect&> DrawItem;

 private:
  struct Row {
    std::u16string text;
    std::int32_t itemData = 0;
  };
  const Row& At(std::int32_t index) const;

  std::vector<Row> rows_;
  forms::Font font_;
  std::int32_t listIndex_ = -1;  ///< invariant: below ListCount
  std::int32_t horizontalExtent_ = 0;
  bool hasFocus_ = false;
};

}  // namespace quorvane::forms
