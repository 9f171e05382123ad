#include "addin/core/ErrorManager.h"

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane {

void ErrorManager::ShowErr() const {
  const Error error = CurrentError();
  if (error.Number == kErrUserCanceled || error.Number == 0 || error.Is(ErrorNumber::DialogCanceled)) return;
  std::u16string text;
  // Without a language that has texts, and that may be the very error, its own words must do.
  if (!SkipErrors([&] { text = GetErrStr(); })) text = ToText(error.Number) + u": " + error.Description;
  ThePlatform().MessageBoxes().ShowError(error, text, ThePlatform().TheApp().Title);
}

std::u16string ErrorManager::GetErrStr() const {
  const Error error = CurrentError();
  LanguageManager& language = Globals::Language();
  std::u16string text = language.GetString(StringId::ErrorNumber) + ToText(error.Number);
  text.append(kCrLf).append(language.GetString(StringId::ErrorDescription) + error.Description);
  text.append(kCrLf).append(language.GetString(StringId::ErrorSource) + error.Source);
  return text;
}

void ErrorManager::Raise(std::int32_t e, std::u16string_view msg, const std::vector<std::u16string>& arg) const {
  std::u16string text(msg);
  for (std::size_t i = 0; i < arg.size(); ++i) {
    text = ReplaceAll(text, u"%" + ToText(static_cast<std::int64_t>(i)), arg[i]);
  }
  throw Error(e, text);
}

void ErrorManager::RaiseAgain() const {
  if (CurrentError().Number != 0) throw CurrentError();
}

void ShowHandledError() {
  const auto shared = Globals::gobjErrorManager;  // the user's answer may empty the slot
  if (shared) return shared->ShowErr();
  ErrorManager().ShowErr();
}

}  // namespace quorvane
