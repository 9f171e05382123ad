#pragma once

#include <cstdint>
#include <string>

#include "base/Event.h"
#include "chordtrap/KeyChord.h"

namespace quorvane::chordtrap {

class Manager;

/// The key editor as a model: a list of the commands with their keys, a box that catches a chord, and two buttons.
/// Edits are in force at once; Manager::Revert takes them back. A view listens to Changed.
class ChordTrapControl {
 public:
  /// Begins an edit of the keys of `manager`, which stays attached until Detach and outlives that.
  void Attach(Manager& manager);
  void Detach();

  // Captions of the four parts.
  std::u16string FunctionCaption;
  std::u16string HotkeyCaption;
  std::u16string AddCaption;
  std::u16string RemoveCaption;

  /// Rows of the list; 0 while nothing is attached.
  std::int32_t Count() const;
  /// 1-based rows; error 9 outside the list.
  std::u16string Description(std::int32_t row) const;
  std::u16string Key(std::int32_t row) const;

  std::int32_t Selected() const { return selected_; }  ///< 1-based; 0: none
  /// Error 9 for a row that is not there; 0 selects none.
  void Select(std::int32_t row);

  /// A chord was pressed in the box.
  void Press(const KeyChord& chord);
  std::u16string Pressed() const { return KeyText(pressed_); }

  /// Whether a row is selected and the box holds a chord that can be a hotkey.
  bool CanAdd() const;
  /// Gives the chord in the box to the selected row and empties the box. Does nothing unless CanAdd; raises error 457,
  /// and changes nothing, when another command has that key.
  void Add();
  bool CanRemove() const;
  /// Takes the key from the selected row. Does nothing unless CanRemove.
  void Remove();

  Event<> Changed;

 private:
  Manager* manager_ = nullptr;
  std::int32_t selected_ = 0;
  KeyChord pressed_;
};

}  // namespace quorvane::chordtrap
