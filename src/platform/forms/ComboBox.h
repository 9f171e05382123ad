#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/Control.h"

namespace quorvane::forms {

class DataObject;

/// A text to edit with a list to pick it from. List places are 0-based; selection places are 0-based in UTF-16 units of
/// the text. The entry at ListIndex is the one whose text was picked; any other change of the text ends that.
///
/// Edit, Pick and Drop are the user's side: a view calls them, and a box that is disabled or invisible ignores them.
class ComboBox final : public Control {
 public:
  const std::u16string& Text() const { return text_; }
  /// Raises Change when the text is another one; the caret goes to the start.
  void SetText(const std::u16string& text);

  std::int32_t SelStart() const { return selStart_; }
  std::int32_t SelLength() const { return selLength_; }
  /// A place after the text becomes its end; setting it ends the selection. Error 380 below 0, as with SetSelLength.
  void SetSelStart(std::int32_t start);
  /// A selection beyond the text ends with it.
  void SetSelLength(std::int32_t length);

  std::int32_t ListCount() const { return static_cast<std::int32_t>(list_.size()); }
  /// Empty for a place outside the list.
  std::u16string List(std::int32_t index) const;
  /// At the end without an index; error 5 for an index outside the list or one after it.
  void AddItem(const std::u16string& item, std::optional<std::int32_t> index = {});
  /// Removing the picked entry empties the text, with its Change. Error 5 outside the list.
  void RemoveItem(std::int32_t index);
  /// Empties the list and the text.
  void Clear();

  std::int32_t ListIndex() const { return listIndex_; }  ///< -1: the text was not picked
  /// Picks an entry: takes its text and raises Click, no Change. -1 empties the text and raises Click. Error 380
  /// outside the list.
  void SetListIndex(std::int32_t index);

  /// The user has typed; the selection comes with it. Raises Change when the text is another one.
  void Edit(const std::u16string& text, std::int32_t selStart, std::int32_t selLength);
  /// Raises Click, also for the entry that was picked already. A place outside the list is ignored.
  void Pick(std::int32_t index);
  void Drop(const DataObject& data);

  Event<> Change;  ///< the text, other than by picking
  Event<> Click;   ///< an entry was picked
  Event<const DataObject&> OLEDragDrop;

 private:
  void TakeText(const std::u16string& text);
  bool TakesInput() const { return Enabled() && Visible(); }

  std::u16string text_;
  std::vector<std::u16string> list_;
  std::int32_t listIndex_ = -1;
  std::int32_t selStart_ = 0;   ///< invariant: at most the length of the text
  std::int32_t selLength_ = 0;  ///< invariant: ends within the text
};

}  // namespace quorvane::forms
