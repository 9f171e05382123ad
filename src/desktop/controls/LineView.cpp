#include "desktop/controls/LineView.h"

#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/TextBox.h"

namespace quorvane::desktop {

LineView::LineView(forms::TextBox& box, QWidget* parent) : QLineEdit(parent), box_(box) {
  changed_ = box.Changed.Subscribe([this] { Follow(); });
  connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) { box_.Edit(FromQString(edited)); });
  Follow();
}

void LineView::Follow() {
  if (const QString shown = ToQString(box_.Text()); shown != text()) setText(shown);
  setReadOnly(box_.Locked());
  FollowControl(*this, box_);
}

}  // namespace quorvane::desktop
