#pragma once

#include "windows/controls/CaptionView.h"
#include "windows/forms/Fonts.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// A line of text.
class LabelView final : public CaptionView {
 public:
  enum class Look { Plain, Title };

  LabelView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent, Look look = Look::Plain);

 protected:
  SIZE Measure() const override;

 private:
  FontHandle large_;  ///< of a title
};

}  // namespace quorvane::windows
