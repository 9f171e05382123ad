#pragma once

#include <QWidget>

namespace quorvane::desktop {

class CodeEdit;

/// The strip beside an editor's scroll bar: a line for each line of the text that has a mark, at its share of the
/// height. A click goes to the nearest such line.
class MarkRuler final : public QWidget {
 public:
  static constexpr int kWidth = 10;  // pixels

  /// The editor is the parent.
  explicit MarkRuler(CodeEdit& editor);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  CodeEdit& editor_;
};

}  // namespace quorvane::desktop
