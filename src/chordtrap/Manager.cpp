#include "chordtrap/Manager.h"

#include <exception>

#include "base/Error.h"
#include "chordtrap/ICommandTarget.h"

namespace quorvane::chordtrap {

void Manager::Revert() {
  for (std::size_t i = 0; i < before_.size(); ++i) items_[static_cast<std::int32_t>(i) + 1]->Key = before_[i];
}

void Manager::Load(IChordTrapKeeper& keeper, const KeeperInfo& info) {
  before_.clear();
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

bool Manager::KeyDown(std::int32_t vkCode, std::int32_t modifier) {
  if (!running_) return false;
  const auto item = items_.Find({vkCode, modifier});
  if (!item) return false;
  const KeyState state{(modifier & kShift) != 0, (modifier & kCtrl) != 0, (modifier & kAlt) != 0};
  bool cancel = false;
  BeforeProcess.Raise(vkCode, state, cancel);
  if (cancel) return false;
  Deref(item->Target).Invoke(item->FuncName);
  return true;
}

void Manager::BeginEdit() {
  before_.clear();
  for (const auto& item : items_) before_.push_back(item->Key);
}

}  // namespace quorvane::chordtrap
