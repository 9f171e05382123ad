#include "chordtrap/Manager.h"

#include <exception>

#include "base/Error.h"
#include "chordtrap/ICommandTarget.h"

namespace quorvane::chordtrap {

void Manager::Revert() {
  for (std::size_t i = 0; i < before_.size(); ++i) items_[static_cast<std::int32_t>(i) + 1]->Key = before_[i];
  EndEdit();
}

void Manager::Load(IChordTrapKeeper& keeper, const KeeperInfo& info) {
  EndEdit();
  for (const auto& item : items_) {
    const std::u16string text = keeper.LoadHotkey(info, item->FuncName, KeyText(item->Default));
    try {
      item->Key = ParseKey(text);
    } catch (const Error& e) {
      throw Error(e.Number, e.Description + u": " + item->FuncName + u" = \"" + text + u"\"");
    }
  }
}

void Manager::Save(IChordTrapKeeper& keeper, const KeeperInfo& info) {
  std::exception_ptr refused;
  for (const auto& item : items_) {
    try {
      keeper.SaveHotkey(info, item->FuncName, KeyText(item->Key));
    } catch (...) {
      if (!refused) refused = std::current_exception();
    }
  }
  if (refused) std::rethrow_exception(refused);
}

std::shared_ptr<Item> Manager::CommandOf(const KeyChord& key) {
  const auto item = running_ ? items_.Find(key) : nullptr;
  if (!item) return nullptr;
  const KeyState state{(key.Modifier & kShift) != 0, (key.Modifier & kCtrl) != 0, (key.Modifier & kAlt) != 0};
  bool cancel = false;
  BeforeProcess.Raise(key.KeyCode, state, cancel);
  return cancel ? nullptr : item;
}

bool Manager::Takes(std::int32_t vkCode, std::int32_t modifier) {
  return CommandOf({vkCode, modifier}) != nullptr;
}

bool Manager::KeyDown(std::int32_t vkCode, std::int32_t modifier) {
  const auto item = CommandOf({vkCode, modifier});
  if (!item) return false;
  Deref(item->Target).Invoke(item->FuncName);
  return true;
}

void Manager::BeginEdit() {
  before_.clear();
  for (const auto& item : items_) before_.push_back(item->Key);
}

}  // namespace quorvane::chordtrap
