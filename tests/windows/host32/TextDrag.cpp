#include "windows/host32/TextDrag.h"

#include <ole2.h>

#include <cstring>
#include <string>

#include "windows/com/ComObject.h"
#include "windows/com/ComPtr.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

namespace {

class DropSource final : public com::ComObject<IDropSource> {
 public:
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape != FALSE) return DRAGDROP_S_CANCEL;
    return (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

/// A text for a drag: what the clipboard gives of it.
com::ComPtr<IDataObject> DataOf(const std::u16string& text) {
  OpenClipboard(nullptr);
  EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  std::memcpy(GlobalLock(memory), text.c_str(), bytes);
  GlobalUnlock(memory);
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
  com::ComPtr<IDataObject> data;
  com::Check(OleGetClipboard(data.Put()));
  return data;
}

}  // namespace

bool DragSelection(HWND field, LPARAM press) {
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const POINT at{static_cast<short>(LOWORD(press)), static_cast<short>(HIWORD(press))};
  const auto row = HIWORD(SendMessageW(field, EM_CHARFROMPOS, 0, press));
  // A place of a long text does not fit into sixteen bits: it is counted from its row.
  const auto first = static_cast<DWORD>(SendMessageW(field, EM_LINEINDEX, row, 0));
  const DWORD place = first + static_cast<WORD>(LOWORD(SendMessageW(field, EM_CHARFROMPOS, 0, press)) - LOWORD(first));
  if (place < start || place >= end) return false;
  POINT screen = at;
  ClientToScreen(field, &screen);
  if (DragDetect(field, screen) == FALSE) {
    PostMessageW(field, WM_LBUTTONUP, 0, press);  // it has taken the release
    return false;
  }
  std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, u'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(field, com::Wide(text.data()), static_cast<int>(text.size()))));
  DWORD effect = DROPEFFECT_NONE;
  DoDragDrop(DataOf(text.substr(start, end - start)).Get(), com::MakeObject<DropSource>().Get(),
             DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
  return true;
}

}  // namespace quorvane::container
