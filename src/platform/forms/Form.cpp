#include "platform/forms/Form.h"

#include <utility>

#include "base/Error.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/forms/Forms.h"

namespace quorvane::forms {

Form::Form(std::u16string name) : name_(std::move(name)) {}

Form::~Form() = default;

void Form::Form_QueryUnload(bool&, UnloadMode) {}

void Form::Form_Unload(bool&) {}

void Form::SetCaption(const std::u16string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed.Raise();
}

void Form::Load() {
  if (loaded_) return;
  const auto self = shared_from_this();
  loaded_ = true;
  try {
    TheForms().Enter(self);
    Form_Load();
  } catch (...) {
    Leave();
    throw;
  }
  if (loaded_) Changed.Raise();
}

void Form::Show(FormModal modal, const std::shared_ptr<Form>& owner) {
  const auto self = shared_from_this();
  if (modal == FormModal::Modal && visible_) {
    RaiseError(ErrorNumber::AlreadyDisplayed, u"Form already displayed; can't show modally: " + name_);
  }
  Load();
  if (!loaded_) RaiseError(ErrorNumber::ObjectWasUnloaded, u"Object was unloaded: " + name_);
  owner_ = owner;
  modal_ = modal == FormModal::Modal;
  const bool again = visible_;
  SetVisible(true);
  if (again) ShownAgain.Raise();
  if (modal_) WaitModal();
}

void Form::WaitModal() {
  try {
    ThePlatform().Loop().WaitWhile([this] { return visible_; });
  } catch (...) {
    modal_ = false;
    SetVisible(false);
    throw;
  }
}

void Form::Hide() {
  SetVisible(false);
}

bool Form::Unload(UnloadMode mode) {
  if (!loaded_) return true;
  const auto self = shared_from_this();
  bool cancel = false;
  Form_QueryUnload(cancel, mode);
  if (cancel) return false;
  if (loaded_) Form_Unload(cancel);
  if (cancel) return false;
  Leave();
  return true;
}

void Form::Leave() {
  if (!loaded_) return;  // a handler has unloaded the form meanwhile
  loaded_ = false;
  visible_ = false;
  modal_ = false;
  TheForms().Leave(*this);
  Changed.Raise();
}

void Form::SetVisible(bool visible) {
  if (visible == visible_ || (visible && !loaded_)) return;
  visible_ = visible;
  if (!visible) modal_ = false;
  Changed.Raise();
}

}  // namespace quorvane::forms
