#pragma once

#include <QPlainTextEdit>

#include "base/Event.h"

namespace quorvane::forms {
class TextBox;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A text of several lines.
class MemoView final : public QPlainTextEdit {
 public:
  /// The model outlives this.
  MemoView(forms::TextBox& box, QWidget* parent);

 private:
  void Follow();

  forms::TextBox& box_;
  bool busy_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
