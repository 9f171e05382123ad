#include "platform/forms/Tab.h"

#include <utility>

#include "base/Error.h"
#include "platform/forms/Control.h"
#include "platform/forms/TabControl.h"

namespace quorvane::forms {

Tab::Tab(TabControl& owner, std::u16string key, std::u16string caption, std::int32_t iconIndex)
    : owner_(&owner), key_(std::move(key)), caption_(std::move(caption)), iconIndex_(iconIndex) {}

Tab::~Tab() = default;

void Tab::SetCaption(const std::u16string& caption) {
  caption_ = caption;
  Tell();
}

void Tab::SetToolTipText(const std::u16string& text) {
  toolTipText_ = text;
  Tell();
}

void Tab::SetCanClose(bool canClose) {
  canClose_ = canClose;
  Tell();
}

bool Tab::Selected() const {
  return owner_ != nullptr && owner_->SelectedTab().get() == this;
}

void Tab::Select() {
  Deref(owner_).Select(*this);
}

void Tab::SetPanel(std::shared_ptr<Control> panel) {
  panel_ = std::move(panel);
  ShowPanel();
  Tell();
}

void Tab::ShowPanel() const {
  if (panel_) panel_->SetVisible(Selected());
}

void Tab::Tell() const {
  if (owner_ != nullptr) owner_->Changed.Raise();
}

}  // namespace quorvane::forms
