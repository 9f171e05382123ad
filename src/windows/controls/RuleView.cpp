#include "windows/controls/RuleView.h"

#include "platform/forms/Line.h"

namespace quorvane::windows {

RuleView::RuleView(DialogView& dialog, const std::shared_ptr<forms::Line>& line, HWND parent)
    : ControlView(dialog, line) {
  Make(parent, L"STATIC", SS_ETCHEDHORZ | WS_GROUP);
}

}  // namespace quorvane::windows
