#include "windows/results/ResultListAnswers.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/forms/OwnerDrawList.h"
#include "windows/results/ResultListView.h"

namespace quorvane::windows {

namespace {

constexpr LRESULT kMiss = 0x10000;  // a high word other than 0

/// As LB_ITEMFROMPOINT, but that a row has all 32 bits: what is no row is no row below the count either.
LRESULT RowFromPoint(const ResultListView& list, LPARAM place) {
  const int row = list.RowAt(static_cast<std::int16_t>(LOWORD(place)), static_cast<std::int16_t>(HIWORD(place)));
  return row >= 0 ? row : std::max<LRESULT>(kMiss, list.Model().ListCount());
}

}  // namespace

std::optional<LRESULT> AnswerListMessage(const ResultListView& list, UINT message, WPARAM wParam, LPARAM lParam) {
  const forms::OwnerDrawList& model = list.Model();
  const auto row = static_cast<std::int32_t>(wParam);
  const bool there = row >= 0 && row < model.ListCount();
  switch (message) {
    case LB_GETCOUNT:
      return model.ListCount();
    case LB_GETCURSEL:
      return model.ListIndex();
    case LB_GETTOPINDEX:
      return list.Place().row;
    case LB_ITEMFROMPOINT:
      return RowFromPoint(list, lParam);
    case LB_GETTEXTLEN:
      return there ? static_cast<LRESULT>(model.List(row).size()) : LB_ERR;
    case LB_GETTEXT: {
      if (!there || lParam == 0) return LB_ERR;
      const std::u16string& text = model.List(row);
      std::ranges::copy_n(text.c_str(), static_cast<std::ptrdiff_t>(text.size()) + 1,
                          reinterpret_cast<char16_t*>(lParam));
      return static_cast<LRESULT>(text.size());
    }
    case LB_GETITEMRECT:
      if (!there || lParam == 0) return LB_ERR;
      *reinterpret_cast<RECT*>(lParam) = list.RectOf(row);
      return TRUE;
    default:
      return std::nullopt;
  }
}

}  // namespace quorvane::windows
