#include "desktop/controls/MemoView.h"

#include "base/FlagScope.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/TextBox.h"

namespace quorvane::desktop {

namespace {

/// The text as it is. The editor's own plain text has blanks where the text has others than that of the keyboard.
QString TextOf(const QTextDocument& document) {
  return document.toRawText()
      .replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
      .replace(QChar::LineSeparator, QLatin1Char('\n'));
}

/// As TextOf gives it.
QString WithPlainBreaks(const std::u16string& text) {
  return ToQString(text)
      .replace(QLatin1String("\r\n"), QLatin1String("\n"))
      .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace

MemoView::MemoView(forms::TextBox& box, QWidget* parent) : QPlainTextEdit(parent), box_(box) {
  setTabChangesFocus(box.Locked());
  changed_ = box.Changed.Subscribe([this] { Follow(); });
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    if (busy_) return;
    const FlagScope busy(busy_);
    box_.Edit(FromQString(TextOf(*document())));
  });
  Follow();
}

void MemoView::Follow() {
  if (busy_) return;
  const FlagScope busy(busy_);
  if (const QString text = WithPlainBreaks(box_.Text()); text != TextOf(*document())) setPlainText(text);
  setReadOnly(box_.Locked());
  FollowControl(*this, box_);
}

}  // namespace quorvane::desktop
