#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "addin/core/Counted.h"
#include "base/Event.h"
#include "platform/Canvas.h"
#include "platform/forms/Font.h"

namespace quorvane::forms {
class OwnerDrawList;
}  // namespace quorvane::forms

namespace quorvane {

class Page;

/// Draws the rows of one page's list: the stylesheet's words in a colour of their own, the match in bold. Keeps the
/// horizontal range of the list at the widest row drawn so far.
class ListPainter : private Counted<ListPainter> {
 public:
  static constexpr std::string_view ClassName = "ListPainter";

  /// Takes the system's colours, for good.
  ListPainter();
  ~ListPainter();

  Page* mobjParent = nullptr;  ///< from Setup to TearDown

  /// The next row drawn is the widest so far.
  void ResetScroll();
  void Setup(Page& p);
  void TearDown();

 private:
  /// What one row is drawn from.
  struct DrawRecord {
    std::int32_t itemID = 0;
    std::int32_t itemData = 0;
    Canvas& canvas;
    CanvasRect rcItem;
  };

  void DrawItem(std::int32_t itemID, Canvas& canvas, bool selected, const CanvasRect& rcItem);
  void DrawItemText(const DrawRecord& record, bool selected);
  std::int32_t DrawTextPart(const DrawRecord& record, std::u16string_view piece, std::int32_t x,
                            const std::shared_ptr<CanvasFont>& font);
  void MakeFonts(Canvas& canvas);
  std::shared_ptr<CanvasFont> CreateHFont(Canvas& canvas) const;
  void WidenTo(std::int32_t extent);

  std::shared_ptr<forms::OwnerDrawList> mobjList;
  forms::Font mobjFont;  ///< copy of the list's font, from which both fonts are made
  std::shared_ptr<CanvasFont> mhFontBold;
  std::shared_ptr<CanvasFont> mhFontNormal;
  std::int32_t mlngMaxExtent = 0;  ///< pixels; the widest row so far
  Color mcrHighlight;
  Color mcrHighlightText;
  Color mcrWindow;
  Color mcrWindowText;
  Subscription onDrawItem_;
};

}  // namespace quorvane
