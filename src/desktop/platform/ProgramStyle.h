#pragma once

#include <QProxyStyle>

namespace quorvane::desktop {

/// A style of the toolkit, but that all that can be closed inside a window shows the same cross, and that frames are
/// seen on dark ground while pages of tabs do not shine there.
class ProgramStyle final : public QProxyStyle {
 public:
  /// A style by its name; raises nothing for an unknown one, which gives the toolkit's first choice.
  explicit ProgramStyle(const QString& name) : QProxyStyle(name) {}

  /// The name of the style that draws all else.
  static QString NameOfCurrent();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
  QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace quorvane::desktop
