#include "chordtrap/ChordTrapControl.h"

#include "base/Error.h"
#include "chordtrap/Manager.h"

namespace quorvane::chordtrap {

void ChordTrapControl::Attach(Manager& manager) {
  manager.BeginEdit();
  manager_ = &manager;
  selected_ = 0;
  pressed_ = {};
  Changed.Raise();
}

void ChordTrapControl::Detach() {
  manager_ = nullptr;
  selected_ = 0;
  Changed.Raise();
}

std::int32_t ChordTrapControl::Count() const {
  return manager_ == nullptr ? 0 : manager_->Items().Count();
}

std::u16string ChordTrapControl::Description(std::int32_t row) const {
  return Deref(manager_).Items()[row]->Description;
}

std::u16string ChordTrapControl::Key(std::int32_t row) const {
  return KeyText(Deref(manager_).Items()[row]->Key);
}

void ChordTrapControl::Select(std::int32_t row) {
  if (row < 0 || row > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  selected_ = row;
  Changed.Raise();
}

void ChordTrapControl::Press(const KeyChord& chord) {
  KeyText(chord);  // raises for a chord that has no text form
  pressed_ = chord;
  Changed.Raise();
}

bool ChordTrapControl::CanAdd() const {
  return selected_ != 0 && IsUsable(pressed_);
}

void ChordTrapControl::Add() {
  if (!CanAdd()) return;
  Items& items = Deref(manager_).Items();
  const auto taken = items.Find(pressed_);
  if (taken && taken != items[selected_]) {
    RaiseError(ErrorNumber::DuplicateKey, ErrorText(ErrorNumber::DuplicateKey) + u": " + taken->Description);
  }
  items[selected_]->Key = pressed_;
  pressed_ = {};
  Changed.Raise();
}

bool ChordTrapControl::CanRemove() const {
  return selected_ != 0 && Deref(manager_).Items()[selected_]->Key.KeyCode != 0;
}

void ChordTrapControl::Remove() {
  if (!CanRemove()) return;
  Deref(manager_).Items()[selected_]->Key = {};
  Changed.Raise();
}

}  // namespace quorvane::chordtrap
