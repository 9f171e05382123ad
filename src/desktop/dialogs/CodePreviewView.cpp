#include "desktop/dialogs/CodePreviewView.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "addin/dialogs/frmCodePreview.h"
#include "desktop/dialogs/PreviewHighlighter.h"
#include "desktop/platform/QtColor.h"
#include "desktop/platform/QtText.h"

namespace quorvane::desktop {

namespace {

constexpr int kTabColumns = 4;
constexpr int kDocumentMargin = 6;

/// Code is read in columns: where the font that is asked for is not installed, the system's font of fixed width stands
/// in, not whatever letters come first.
QFont FontOf(const forms::Font& font) {
  const QString family = ToQString(font.Name);
  QFont made = QFontDatabase::hasFamily(family) ? QFont(family) : QFontDatabase::systemFont(QFontDatabase::FixedFont);
  made.setPointSizeF(font.Size);
  return made;
}

double TabWidth(const QFont& font) {
  return QFontMetricsF(font).horizontalAdvance(QLatin1Char(' ')) * kTabColumns;
}

class ScreenMeasurer final : public forms::TextMeasurer {
 public:
  std::int32_t LineHeight(const forms::Font& font) const override { return QFontMetrics(FontOf(font)).lineSpacing(); }

  std::int32_t LineWidth(const forms::Font& font, std::u16string_view line) const override {
    const QFont shown = FontOf(font);
    QTextLayout layout(ToQString(line), shown);
    QTextOption option(Qt::AlignLeft);
    option.setTabStopDistance(TabWidth(shown));
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine laid = layout.createLine();
    layout.endLayout();
    return laid.isValid() ? static_cast<std::int32_t>(laid.naturalTextWidth() + 0.999) : 0;
  }
};

/// The platform's colours are made for white ground.
QColor ColorOf(Color color, const QPalette& palette) {
  const QColor shown = ToQColor(color);
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  return dark ? QColor::fromHsl(shown.hslHue(), shown.hslSaturation() * 3 / 4, 175) : shown;
}

}  // namespace

CodePreviewView::CodePreviewView(frmCodePreview& form, QWidget* parent)
    : QTextEdit(parent), form_(form), follow_([this] { Follow(); }) {
  setReadOnly(true);
  setFocusPolicy(Qt::NoFocus);
  setTextInteractionFlags(Qt::NoTextInteraction);
  setLineWrapMode(QTextEdit::NoWrap);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setMinimumSize(0, 0);
  document()->setDocumentMargin(kDocumentMargin);
  document()->setUndoRedoEnabled(false);
  highlighter_ = new PreviewHighlighter(document(), CodeColors::Of(palette()));
  form_.SetMeasurer(std::make_shared<ScreenMeasurer>());
  changed_ = form_.rtPreview->Changed.Subscribe([this] {
    room_ = {};
    follow_.Ask();
  });
  Follow();
}

CodePreviewView::~CodePreviewView() = default;

void CodePreviewView::Follow() {
  const QFont font = FontOf(form_.Font());
  setFont(font);
  setTabStopDistance(TabWidth(font));
  clear();
  highlighter_->SetColors(CodeColors::Of(palette()));
  QTextCursor cursor(document());
  const QString text = ToQString(form_.rtPreview->Text());
  match_ = 0;
  for (const forms::RichTextBox::Run& run : form_.rtPreview->Runs()) {
    if (match_ == 0 && run.Color != 0) match_ = cursor.position();
    QTextCharFormat format;
    if (run.Color != 0) format.setForeground(ColorOf(run.Color, palette()));
    format.setFontStrikeOut(run.StrikeThru);
    cursor.insertText(text.mid(run.Start, run.Length).remove(QLatin1Char('\r')), format);
  }
  ShowMatch();
}

QSize CodePreviewView::sizeHint() const {
  if (room_.isValid()) return room_;
  const int around = 2 * (kDocumentMargin + frameWidth()) + 1;
  const ScreenMeasurer measurer;
  const std::u16string& text = form_.rtPreview->Text();
  room_ = {measurer.TextWidth(form_.Font(), text) + around, measurer.TextHeight(form_.Font(), text) + around};
  return room_;
}

/// Of a text that is larger than the window, the part with the match; any other from its start.
void CodePreviewView::ShowMatch() {
  QTextCursor cursor(document());
  cursor.setPosition(match_);
  QScrollBar& bar = *verticalScrollBar();
  bar.setValue(bar.value() + cursorRect(cursor).center().y() - viewport()->height() / 2);
  QScrollBar& across = *horizontalScrollBar();
  const int x = across.value() + cursorRect(cursor).left();
  const int width = viewport()->width();
  across.setValue(x < width * 3 / 4 ? 0 : x - width / 2);
}

void CodePreviewView::resizeEvent(QResizeEvent* event) {
  QTextEdit::resizeEvent(event);
  ShowMatch();
}

}  // namespace quorvane::desktop
