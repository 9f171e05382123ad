#include "desktop/dialogs/StylesheetCheck.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextBlock>
#include <optional>

#include "addin/results/MatchField.h"
#include "base/Error.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"

namespace quorvane::desktop {

namespace {

constexpr int kSoon = 300;  // ms after an edit: nobody is interrupted within a word

/// Of a match that is as usual as can be: "Total" in `    Total = Price`.
std::u16string SampleText(MatchField field) {
  switch (field) {
    case MatchField::MatchStr:
      return u"Total";
    case MatchField::ComponentName:
      return u"Module1";
    case MatchField::ProjectName:
      return u"Project1";
    case MatchField::ProcName:
      return u"Main";
    case MatchField::ProcType:
      return u"Proc";
    default:
      return u"    Total = Price";
  }
}

/// What is wrong with `xsl`; no value when nothing is. `said` takes the last words of an xsl:message.
std::optional<std::u16string> FaultOf(const std::u16string& xsl, std::u16string& said) {
  native::LibXmlDocument stylesheet;
  stylesheet.OnMessage = [&said](const std::u16string& words) { said = words; };
  if (!stylesheet.LoadXml(xsl)) return stylesheet.LoadError();
  XmlTableShape shape{"SearchResult", "MatchItem", {}};
  for (const MatchFieldInfo& field : MatchFields()) shape.Columns.push_back({field.Name, field.IsNumber()});
  native::LibXmlTable table(shape);
  table.BeginRow();
  for (std::size_t i = 0; i < MatchFields().size(); ++i) {
    MatchFields()[i].IsNumber() ? table.AddNumber(1) : table.AddText(SampleText(static_cast<MatchField>(i)));
  }
  try {
    table.Transform(0, stylesheet);
  } catch (const Error& error) {
    return error.Description;
  }
  return std::nullopt;
}

}  // namespace

StylesheetCheck::StylesheetCheck(QPlainTextEdit& editor, QLabel& note, QObject* parent)
    : QObject(parent), editor_(editor), note_(note) {
  soon_.setSingleShot(true);
  soon_.setInterval(kSoon);
  connect(&soon_, &QTimer::timeout, this, [this] { Check(); });
  connect(&editor, &QPlainTextEdit::textChanged, &soon_, qOverload<>(&QTimer::start));
  note_.setTextFormat(Qt::PlainText);
  note_.setWordWrap(true);
  note_.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

QString StylesheetCheck::Fault() {
  Check();
  return fault_;
}

void StylesheetCheck::Check() {
  soon_.stop();
  std::u16string said;
  const auto fault = FaultOf(FromQString(editor_.toPlainText()), said);
  const Texts texts = Texts::OfAddIn();
  // The parser ends its words with "(line 3)", the compiler begins them with "… line 3 element …".
  static const QRegularExpression place(QStringLiteral("\\bline (\\d+)\\b"));
  static const QRegularExpression atTheEnd(QStringLiteral("\\s*\\(line \\d+\\)$"));
  const QString words = fault ? ToQString(*fault) : QString();
  const int line = place.match(words).captured(1).toInt();
  fault_ = texts.Reason(QString(words).remove(atTheEnd));
  if (line > 0) fault_ = texts(Text::SheetFault).arg(line).arg(fault_);
  Mark(line);
  note_.setText(fault          ? QStringLiteral("\u26A0 ") + fault_
                : said.empty() ? QString()
                               : texts(Text::SheetSays).arg(ToQString(said)));
}

void StylesheetCheck::Mark(int line) {
  QList<QTextEdit::ExtraSelection> marks;
  const QTextBlock block = editor_.document()->findBlockByNumber(line - 1);
  if (line > 0 && block.isValid()) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(block);
    mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    QColor ground(Qt::red);
    ground.setAlpha(50);
    mark.format.setBackground(ground);
    marks << mark;
  }
  editor_.setExtraSelections(marks);
}

}  // namespace quorvane::desktop
