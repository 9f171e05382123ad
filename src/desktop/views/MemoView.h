#pragma once

#include <QPlainTextEdit>

#include "base/Event.h"

namespace quorvane {

class TextBox;

namespace desktop {

/// A text of several lines.
class MemoView final : public QPlainTextEdit {
 public:
  /// The model outlives this.
  MemoView(TextBox& box, QWidget* parent);

 private:
  void Follow();

  TextBox& box_;
  bool busy_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
