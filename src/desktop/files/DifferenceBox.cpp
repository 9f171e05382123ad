#include "desktop/files/DifferenceBox.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QSyntaxHighlighter>
#include <QVBoxLayout>

#include "desktop/editor/CodeColors.h"

namespace quorvane::desktop {

namespace {

constexpr QSize kFirstSize(760, 480);

/// What came and what went in two colours of code.
class Marks final : public QSyntaxHighlighter {
 public:
  Marks(QTextDocument* document, const CodeColors& colors) : QSyntaxHighlighter(document), colors_(colors) {}

 protected:
  void highlightBlock(const QString& line) override {
    const auto length = static_cast<int>(line.size());
    if (line.startsWith(QLatin1Char('+'))) setFormat(0, length, colors_.comment);
    if (line.startsWith(QLatin1Char('-'))) setFormat(0, length, colors_.text);
    if (line.startsWith(QLatin1Char('@'))) setFormat(0, length, colors_.keyword);
  }

 private:
  CodeColors colors_;
};

}  // namespace

DifferenceBox::DifferenceBox(const QString& title, const QString& difference, QWidget* parent) : QDialog(parent) {
  setWindowTitle(title);
  auto* text = new QPlainTextEdit;
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  new Marks(text->document(), CodeColors::Of(palette()));
  text->setPlainText(difference);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text);
  layout->addWidget(buttons);
  resize(kFirstSize);
}

}  // namespace quorvane::desktop
