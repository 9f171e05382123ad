#pragma once

#include <QWidget>

namespace quorvane::desktop {

class CodeEdit;

/// The strip at the left of an editor.
class LineNumbers final : public QWidget {
 public:
  explicit LineNumbers(CodeEdit& editor);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  CodeEdit& editor_;
};

}  // namespace quorvane::desktop
