#include "desktop/platform/QtPrompts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <array>
#include <utility>
#include <vector>

#include "addin/core/ErrorManager.h"
#include "base/Error.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "desktop/platform/ToldOnce.h"

namespace quorvane::desktop {

namespace {

using Choice = std::pair<QMessageBox::StandardButton, int>;

constexpr int kButtonMask = 0xF;
constexpr int kIconMask = 0xF0;
constexpr int kDefaultMask = 0xF00;
constexpr int kDefaultStep = 0x100;

constexpr Choice kOk{QMessageBox::Ok, kAnswerOk};
constexpr Choice kCancel{QMessageBox::Cancel, kAnswerCancel};
constexpr Choice kAbort{QMessageBox::Abort, kAnswerAbort};
constexpr Choice kRetry{QMessageBox::Retry, kAnswerRetry};
constexpr Choice kIgnore{QMessageBox::Ignore, kAnswerIgnore};
constexpr Choice kYes{QMessageBox::Yes, kAnswerYes};
constexpr Choice kNo{QMessageBox::No, kAnswerNo};

std::vector<Choice> ButtonsOf(int flags) {
  switch (flags & kButtonMask) {
    case kOkCancel:
      return {kOk, kCancel};
    case kAbortRetryIgnore:
      return {kAbort, kRetry, kIgnore};
    case kYesNoCancel:
      return {kYes, kNo, kCancel};
    case kYesNo:
      return {kYes, kNo};
    case kRetryCancel:
      return {kRetry, kCancel};
    default:
      return {kOk};
  }
}

QMessageBox::Icon IconOf(int flags) {
  switch (flags & kIconMask) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    case 48:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

/// "Words|*.XML|More words|*.*" as the toolkit has it: "Words (*.XML);;More words (*.*)". The words often name the
/// pattern already.
QString NameFilters(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString words = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    const QString pattern = parts[i + 1];
    // Files here are found with their case, in a dialog of another system without.
    const QString both = pattern == pattern.toLower() ? pattern : pattern.toLower() + QLatin1Char(' ') + pattern;
    filters << words + QLatin1String(" (") + both + QLatin1Char(')');
  }
  return filters.join(QLatin1String(";;"));
}

}  // namespace

int QtPrompts::MsgBox(const std::u16string& text, int flags, const std::u16string& caption) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(ToQString(caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(text));
  box.setIcon(IconOf(flags));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  const std::vector<Choice> choices = ButtonsOf(flags);
  const auto preset = static_cast<std::size_t>((flags & kDefaultMask) / kDefaultStep);
  for (std::size_t i = 0; i < choices.size(); ++i) {
    QPushButton* button = box.addButton(choices[i].first);
    if (i == preset) box.setDefaultButton(button);
  }
  const int pressed = box.exec();
  for (const Choice& choice : choices) {
    if (choice.first == pressed) return choice.second;
  }
  return choices.back().second;  // closed by force: the last button is the one that does the least
}

void QtPrompts::ShowError(const Error& error, const std::u16string& report, const std::u16string& caption) {
  const Texts texts = Texts::OfAddIn();
  if (error.Is(ErrorNumber::ObjectNotSet) && Tell && QApplication::activeModalWidget() == nullptr) {
    return Tell(texts(Text::NothingThere));
  }
  if (ToldOnce::Again(ToQString(report))) return;
  const QString description = ToQString(error.Description);
  QString sentence = texts.Reason(description);
  if (error.Number == kErrNoCodePane) sentence = texts(Text::NoCodeWindow);
  if (error.Is(ErrorNumber::ObjectNotSet)) sentence = texts(Text::NothingThere);
  QStringList rest = ToQString(report).split(QStringLiteral("\r\n"));
  // Which error it is stands below, without its words again.
  rest.removeIf([&](const QString& line) { return !description.isEmpty() && line.endsWith(description); });
  QMessageBox box(QMessageBox::NoIcon, ToQString(caption), sentence, QMessageBox::Ok, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(rest.join(QLatin1Char('\n')));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

std::optional<std::u16string> QtPrompts::AskSaveFileName(const FileDialogSetup& setup) {
  QFileDialog dialog(QApplication::activeWindow(), ToQString(setup.Title), QString(),
                     NameFilters(ToQString(setup.Filter)));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The dialog asks before it replaces a file, so that it has to know the whole name.
  QString extension = ToQString(setup.DefaultExt).toLower();
  while (extension.startsWith(QLatin1Char('.'))) extension.remove(0, 1);
  dialog.setDefaultSuffix(extension);
  if (!setup.FileName.empty()) dialog.selectFile(ToQString(setup.FileName));
  for (;;) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    if (extension.isEmpty() || chosen.suffix().compare(extension, Qt::CaseInsensitive) == 0) {
      return FromQString(chosen.filePath());
    }
    // Whoever asks would write nothing under another ending.
    const Texts texts = Texts::OfAddIn();
    QMessageBox(QMessageBox::Information, dialog.windowTitle(),
                texts(Text::OtherEnding).arg(chosen.fileName(), extension), QMessageBox::Ok,
                QApplication::activeWindow())
        .exec();
    dialog.selectFile(chosen.dir().filePath(chosen.completeBaseName() + QLatin1Char('.') + extension));
  }
}

}  // namespace quorvane::desktop
