#include "addin/dialogs/frmCodePreview.h"

#include <cmath>
#include <utility>

#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "addin/results/IResultListDoc.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "addin/search/ICondInfo.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Checked.h"
#include "base/Error.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/RegExp.h"
#include "platform/forms/Screen.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr Color kBlack = 0;
constexpr Color kRed = 0xFF;
constexpr Color kBlue = 0xFF0000;

constexpr double kHeightFactor = 1.1;
constexpr double kWidthFactor = 1.3;
constexpr double kMargin = 100;             // twips around the text, both sides together
constexpr std::int32_t kBoxMargin = 20;     // twips that the box is smaller than the form
constexpr std::int32_t kRightOfMouse = 40;  // pixels

const Utilities& Util() {
  return Deref(Globals::gobjUtilities);
}

std::int32_t PixelsOf(double twips) {
  return Checked32(std::llround(twips / forms::TheScreen().TwipsPerPixel));
}

std::shared_ptr<IResultPage> ActivePage() {
  return Deref(Globals::gobjPageManager).ActivePage();
}

}  // namespace

frmCodePreview::frmCodePreview() : Dialog(u"frmCodePreview", forms::FormBorder::None) {
  constexpr std::int16_t kChineseSimplified = 134;
  forms::Font font{u"宋体", 9};
  font.Charset = kChineseSimplified;
  rtPreview->SetFont(font);
  Controls().Place(u"rtPreview", rtPreview);
  onTimer_ = TimerSetVisible.Tick.Subscribe([this] { TimerSetVisible_Timer(); });
}

frmCodePreview::~frmCodePreview() = default;

void frmCodePreview::SetMeasurer(std::shared_ptr<const forms::TextMeasurer> measurer) {
  Deref(measurer);
  measurer_ = std::move(measurer);
}

void frmCodePreview::SetMode(std::int32_t mode) {
  const auto self = shared_from_this();
  mlngMode = mode;
  TimerSetVisible.SetEnabled(mode != kPreviewOff);
  if (mode == kPreviewOff) {
    Hide();
  } else {
    Show();
  }
}

void frmCodePreview::Update(const std::shared_ptr<PositionInfo>& pi, ICondInfo& cond) {
  const PositionInfo& match = Deref(pi);
  forms::RichTextBox& box = *rtPreview;
  box.SetText({});
  box.SetSelStrikeThru(false);
  box.SetSelColor(kBlack);
  box.SetText(match.RelativeText());
  box.SetSelStart(match.RelativeMatchStartPos() - 1);
  box.SetSelLength(match.RelativeMatchEndPos() - match.RelativeMatchStartPos());
  if (mlngMode == kPreviewCode) {
    box.SetSelColor(kRed);
    box.SetSelLength(0);
  } else if (mlngMode == kPreviewReplace) {
    ShowReplacement(match, cond);
  }
  FitSize();
}

/// The old text stays, and the new one stands after it.
void frmCodePreview::ShowReplacement(const PositionInfo& pi, const ICondInfo& cond) {
  forms::RichTextBox& box = *rtPreview;
  box.SetSelColor(kRed);
  box.SetSelStrikeThru(true);
  const std::u16string old = box.SelText();
  box.SetSelStart(pi.RelativeMatchEndPos() - 1);
  box.SetSelStrikeThru(false);
  box.SetSelColor(kBlue);
  box.SetSelText(Replacement(old, cond));
}

/// What the live replacement text makes of a match, which is taken alone: a pattern that looks at the text around it
/// may not find it again.
std::u16string frmCodePreview::Replacement(const std::u16string& old, const ICondInfo& cond) {
  const std::u16string& text = Deref(Globals::gobjSetting).mstrReplaceStr;
  if (cond.Mode() != gsRegular) return text;
  if (!mobjRegExp) mobjRegExp = ThePlatform().NewRegExp();
  mobjRegExp->Global = true;
  mobjRegExp->Multiline = true;
  mobjRegExp->IgnoreCase = !cond.MatchCase();
  mobjRegExp->Pattern = cond.SearchStr();
  return mobjRegExp->Replace(old, Util().ReplaceSpecialChar(text));
}

void frmCodePreview::FitSize() {
  const double twips = forms::TheScreen().TwipsPerPixel;
  const double height = measurer_->TextHeight(Font(), rtPreview->Text()) * twips;
  const double width = measurer_->TextWidth(Font(), rtPreview->Text()) * twips;
  SetSize(Width(), PixelsOf(height * kHeightFactor + kMargin));
  SetSize(PixelsOf(width * kWidthFactor + kMargin), Height());
}

void frmCodePreview::Form_Resize() {
  const forms::Screen& screen = forms::TheScreen();
  if (Top() < screen.Top) Move(Left(), screen.Top);
  const std::int32_t room = screen.Left + screen.Width - Left();
  if (room < Width()) SetSize(room, Height());
  const std::int32_t unit = screen.TwipsPerPixel;
  rtPreview->Move(0, 0, Width() * unit - kBoxMargin, Height() * unit - kBoxMargin);
  rtPreview->Refresh();
}

void frmCodePreview::UpdatePreviewPos() {
  if (!CanShow()) return;
  SetWindowVisible(true);
  Util().SetZOrder(hWnd(), kTopWindow);
  Move(Util().MouseX() + kRightOfMouse, Util().MouseY() - Height());
}

bool frmCodePreview::CanShow() {
  const auto page = ActivePage();
  return Deref(Deref(page).Result()).Count() != 0 && mlngMode != kPreviewOff &&
         Deref(Globals::gobjToolWindow).Visible() && IsPointerInside() && IsHostInFront();
}

bool frmCodePreview::IsPointerInside() const {
  const auto page = ActivePage();
  const std::int32_t x = Util().MouseX();
  const std::int32_t y = Util().MouseY();
  return Util().IsPointInWindow(Deref(page).ListHWnd(), x, y) || (Visible() && Util().IsPointInWindow(hWnd(), x, y));
}

/// Whether the window in front is one of the host's or of the preview, or lies in one.
bool frmCodePreview::IsHostInFront() const {
  const WindowHandle document = Deref(Globals::gobjResultDoc).hwnd();
  const WindowHandle host = Util().VBHandle(Deref(Globals::gobjVBE));
  for (WindowHandle h = Util().GetForegroundWindow(); h != 0; h = Util().GetParent(h)) {
    if (h == document || h == host || h == hWnd()) return true;
  }
  return false;
}

void frmCodePreview::SetWindowVisible(bool visible) {
  Util().SetWindowVisible(hWnd(), visible ? 1 : 0);
  SetVisible(visible);
}

void frmCodePreview::TimerSetVisible_Timer() {
  try {
    SetWindowVisible(CanShow());
  } catch (...) {
    TimerSetVisible.SetEnabled(false);
  }
}

void frmCodePreview::Form_LostFocus() {
  Hide();
}

/// A window that is gone has no timer, whoever may still hold the form.
void frmCodePreview::Form_Unload(bool&) {
  TimerSetVisible.SetEnabled(false);
}

}  // namespace quorvane
