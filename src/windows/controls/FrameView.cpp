#include "windows/controls/FrameView.h"

#include <algorithm>
#include <utility>

#include "platform/forms/Frame.h"
#include "windows/controls/DialogView.h"

namespace quorvane::windows {

namespace {

constexpr int kSide = 6;
constexpr int kTop = 11;
constexpr int kBottom = 5;

class Framed final : public Placeable {
 public:
  Framed(FrameView& frame, std::unique_ptr<Placeable> inside, const RECT& margins)
      : frame_(frame), inside_(std::move(inside)), margins_(margins) {}

  SIZE Least() const override {
    const SIZE inside = inside_->Least();
    return {std::max(inside.cx + margins_.left + margins_.right, frame_.Least().cx),
            inside.cy + margins_.top + margins_.bottom};
  }
  void Place(const RECT& room) override {
    frame_.Place(room);
    inside_->Place({room.left + margins_.left, room.top + margins_.top, room.right - margins_.right,
                    room.bottom - margins_.bottom});
  }

 private:
  FrameView& frame_;
  std::unique_ptr<Placeable> inside_;
  RECT margins_;
};

}  // namespace

FrameView::FrameView(DialogView& dialog, const std::shared_ptr<forms::Frame>& frame, HWND parent)
    : CaptionView(dialog, frame) {
  Make(parent, L"BUTTON", BS_GROUPBOX | WS_GROUP);
}

SIZE FrameView::Measure() const {
  const SIZE words = CaptionSize();
  return {words.cx + 4 * TheDialog().Units().Across(kSide), words.cy};
}

std::unique_ptr<Placeable> FrameView::Around(std::unique_ptr<Placeable> inside) {
  const DialogUnits& units = TheDialog().Units();
  const RECT margins{units.Across(kSide), units.Down(kTop), units.Across(kSide), units.Down(kBottom)};
  return std::make_unique<Framed>(*this, std::move(inside), margins);
}

}  // namespace quorvane::windows
