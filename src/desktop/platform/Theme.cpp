#include "desktop/platform/Theme.h"

#include <QApplication>
#include <QStyle>

#include "desktop/platform/ProgramStyle.h"

namespace quorvane::desktop {

namespace {

struct Colors {
  QColor window;
  QColor text;
  QColor base;
  QColor alternate;
  QColor button;
  QColor faint;
  QColor highlight;
  QColor highlightText;
  QColor link;
  QColor tip;
};

const Colors kLight{QColor(0xF3, 0xF4, 0xF6), QColor(0x1B, 0x1E, 0x22), QColor(0xFF, 0xFF, 0xFF),
                    QColor(0xF7, 0xF8, 0xFA), QColor(0xF6, 0xF7, 0xF9), QColor(0x92, 0x98, 0xA0),
                    QColor(0x2F, 0x6F, 0xC1), QColor(0xFF, 0xFF, 0xFF), QColor(0x1F, 0x66, 0xC2),
                    QColor(0xFF, 0xFF, 0xF0)};
// The style draws boxes and circles to tick in the colour of the base, with hardly a line round them on dark ground:
// the window must be clearly lighter than that.
const Colors kDark{QColor(0x3A, 0x3E, 0x44), QColor(0xE2, 0xE5, 0xE9), QColor(0x1F, 0x21, 0x24),
                   QColor(0x27, 0x2A, 0x2D), QColor(0x4A, 0x4F, 0x56), QColor(0x8A, 0x91, 0x99),
                   QColor(0x2F, 0x68, 0xB0), QColor(0xFF, 0xFF, 0xFF), QColor(0x6F, 0xB0, 0xF5),
                   QColor(0x3A, 0x3E, 0x44)};

QPalette PaletteOf(const Colors& colors) {
  QPalette palette(colors.button, colors.window);
  palette.setColor(QPalette::WindowText, colors.text);
  palette.setColor(QPalette::Base, colors.base);
  palette.setColor(QPalette::AlternateBase, colors.alternate);
  palette.setColor(QPalette::Text, colors.text);
  palette.setColor(QPalette::ButtonText, colors.text);
  palette.setColor(QPalette::PlaceholderText, colors.faint);
  palette.setColor(QPalette::ToolTipBase, colors.tip);
  palette.setColor(QPalette::ToolTipText, colors.text);
  palette.setColor(QPalette::Highlight, colors.highlight);
  palette.setColor(QPalette::HighlightedText, colors.highlightText);
  palette.setColor(QPalette::Link, colors.link);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, colors.faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, colors.faint);
  return palette;
}

}  // namespace

Theme::Theme() : systemPalette_(QApplication::palette()), systemStyle_(ProgramStyle::NameOfCurrent()) {
  QApplication::setStyle(new ProgramStyle(systemStyle_));
}

void Theme::Apply(Choice choice) {
  if (choice == current_) return;
  current_ = choice;
  // A chosen palette needs a style that draws with palettes alone.
  const QString style = choice == Choice::System ? systemStyle_ : QStringLiteral("fusion");
  if (ProgramStyle::NameOfCurrent() != style) QApplication::setStyle(new ProgramStyle(style));
  switch (choice) {
    case Choice::System:
      return QApplication::setPalette(systemPalette_);
    case Choice::Light:
      return QApplication::setPalette(PaletteOf(kLight));
    case Choice::Dark:
      return QApplication::setPalette(PaletteOf(kDark));
  }
}

}  // namespace quorvane::desktop
