#include "addin/results/ListPainter.h"

#include <cmath>

#include "addin/results/FilterManager.h"
#include "addin/results/Page.h"
#include "addin/results/ResultLineParts.h"
#include "base/Checked.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/forms/OwnerDrawList.h"

namespace quorvane {

// A row is painted in four pieces, one after the other from the left: what the stylesheet put before the line of code,
// the line up to the match, the match in bold, the rest. Each step is tried by itself, so that a row with a fault is
// still painted as far as possible. A row in which the line of code is not found again is painted plain.

namespace {

constexpr Color kPrefixColor = 0x404000;
constexpr std::int32_t kMargin = 5;  // pixels
constexpr std::int32_t kNormalWeight = 400;
constexpr std::int32_t kBoldWeight = 700;

Color SysColor(std::int32_t index) {
  return ThePlatform().Windows().GetSysColor(index);
}

/// The height of characters of that many points, as a font wants it: below 0.
std::int32_t HeightOfPoints(double points, std::int32_t pixelsAnInch) {
  const double whole = std::nearbyint(points);
  return -Checked32(std::llround(whole * pixelsAnInch / 72));
}

}  // namespace

ListPainter::ListPainter()
    : mcrHighlight(SysColor(kHighlightColor)),
      mcrHighlightText(SysColor(kHighlightTextColor)),
      mcrWindow(SysColor(kWindowColor)),
      mcrWindowText(SysColor(kWindowTextColor)) {}

ListPainter::~ListPainter() = default;

void ListPainter::Setup(Page& p) {
  mobjParent = &p;
  mobjList = p.mlstResultList;
  mobjFont = Deref(mobjList).Font();
  onDrawItem_ =
      mobjList->DrawItem.Subscribe([this](std::int32_t itemID, Canvas& canvas, bool selected,
                                          const CanvasRect& rcItem) { DrawItem(itemID, canvas, selected, rcItem); });
}

void ListPainter::TearDown() {
  onDrawItem_.Reset();
  mobjParent = nullptr;
  mobjList.reset();
  mobjFont = {};
}

void ListPainter::ResetScroll() {
  mlngMaxExtent = 0;
  Deref(mobjList).SetHorizontalExtent(0);
}

void ListPainter::DrawItem(std::int32_t itemID, Canvas& canvas, bool selected, const CanvasRect& rcItem) {
  if (itemID == -1) return;
  DrawRecord record{itemID, 0, canvas, rcItem};
  SkipErrors([&] { record.itemData = Deref(mobjList).ItemData(itemID); });
  SkipErrors([&] { canvas.FillRect(rcItem, selected ? mcrHighlight : mcrWindow); });
  SkipErrors([&] { canvas.SetBkColor(selected ? mcrHighlight : mcrWindow); });
  SkipErrors([&] { DrawItemText(record, selected); });
  SkipErrors([&] {
    if (selected && Deref(mobjList).HasFocus()) canvas.DrawFocusRect(rcItem);
  });
}

void ListPainter::DrawItemText(const DrawRecord& record, bool selected) {
  MakeFonts(record.canvas);
  const auto item = Deref(Deref(mobjParent).mobjFilter).Item(record.itemData);
  const std::u16string_view text = Deref(mobjList).List(record.itemID);
  std::int32_t x = record.rcItem.Left + kMargin;
  const auto parts = FindMatchInResultLine(text, item.Text(MatchField::Line), item.Number(MatchField::StartPos),
                                           item.Number(MatchField::EndPos));
  const Color plain = selected ? mcrHighlightText : mcrWindowText;
  if (!parts) {
    record.canvas.SetTextColor(plain);
    DrawTextPart(record, text, x, mhFontNormal);
    return;
  }
  record.canvas.SetTextColor(selected ? mcrHighlightText : kPrefixColor);
  x = DrawTextPart(record, parts->Prefix(text), x, mhFontNormal);
  record.canvas.SetTextColor(plain);
  x = DrawTextPart(record, parts->BeforeMatch(text), x, mhFontNormal);
  x = DrawTextPart(record, parts->Match(text), x, mhFontBold);
  x = DrawTextPart(record, parts->Rest(text), x, mhFontNormal);
  WidenTo(x + kMargin);
}

std::int32_t ListPainter::DrawTextPart(const DrawRecord& record, std::u16string_view piece, std::int32_t x,
                                       const std::shared_ptr<CanvasFont>& font) {
  const auto before = record.canvas.SelectFont(font);
  record.canvas.TextOut(x, record.rcItem.Top, piece);
  const std::int32_t next = Checked32(std::int64_t{x} + record.canvas.TextWidth(piece));
  record.canvas.SelectFont(before);
  return next;
}

void ListPainter::MakeFonts(Canvas& canvas) {
  const auto make = [&](std::shared_ptr<CanvasFont>& font, bool bold) {
    if (font) return;
    mobjFont.Bold = bold;
    font = CreateHFont(canvas);
  };
  make(mhFontBold, true);
  make(mhFontNormal, false);
}

std::shared_ptr<CanvasFont> ListPainter::CreateHFont(Canvas& canvas) const {
  LogFont font;
  font.FaceName = mobjFont.Name;
  font.Height = HeightOfPoints(mobjFont.Size, canvas.LogPixelsY());
  font.Weight = mobjFont.Bold ? kBoldWeight : kNormalWeight;
  font.Italic = mobjFont.Italic;
  font.Underline = mobjFont.Underline;
  font.StrikeOut = mobjFont.Strikethrough;
  font.CharSet = mobjFont.Charset;
  return canvas.CreateFont(font);
}

void ListPainter::WidenTo(std::int32_t extent) {
  if (extent <= mlngMaxExtent) return;
  mlngMaxExtent = extent;
  mobjList->SetHorizontalExtent(extent);
  mobjList->Refresh();
}

}  // namespace quorvane
