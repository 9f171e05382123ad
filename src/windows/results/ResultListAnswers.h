#pragma once

#include <optional>

#include "windows/forms/Win32.h"

namespace quorvane::windows {

class ResultListView;

/// The list's answer to those messages of a list box by which others read it: count, text, selection, first row, a
/// row's place, the row at a point. Rows and places have 32 bits, where a list box may have 16. Nothing for any other
/// message.
std::optional<LRESULT> AnswerListMessage(const ResultListView& list, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace quorvane::windows
