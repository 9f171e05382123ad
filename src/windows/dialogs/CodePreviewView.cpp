#include "windows/dialogs/CodePreviewView.h"

#include <algorithm>
#include <memory>

#include "addin/dialogs/frmCodePreview.h"
#include "windows/dialogs/CodeMeasurer.h"
#include "windows/forms/CodeFont.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

constexpr int kMargin = 3;  // pixels at 96 an inch

/// Paints into a bitmap first, so that nothing flickers while the mouse moves on from match to match.
class Buffered {
 public:
  Buffered(HDC screen, const RECT& room)
      : screen_(screen),
        room_(room),
        context_(::CreateCompatibleDC(screen)),
        bitmap_(::CreateCompatibleBitmap(screen, std::max(Width(room), 1), std::max(Height(room), 1))),
        before_(::SelectObject(context_, bitmap_)) {}
  ~Buffered() {
    ::BitBlt(screen_, 0, 0, Width(room_), Height(room_), context_, 0, 0, SRCCOPY);
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(context_);
  }
  Buffered(const Buffered&) = delete;
  Buffered& operator=(const Buffered&) = delete;

  HDC Handle() const { return context_; }

 private:
  HDC screen_;
  RECT room_;
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
};

}  // namespace

CodePreviewView::CodePreviewView(frmCodePreview& form, HWND parent) : form_(form) {
  Making making;
  making.style = WS_CHILD | WS_VISIBLE;
  making.parent = parent;
  Create(making);
  form_.SetMeasurer(std::make_shared<CodeMeasurer>());
  forms::Font font = form_.Font();
  plain_ = CodeFont(font);
  font.Strikethrough = true;
  struck_ = CodeFont(font);
  changed_ = form_.rtPreview->Changed.Subscribe([this] { Follow(); });
}

CodePreviewView::~CodePreviewView() = default;

/// Filling the box changes it many times; the window system asks for the painting once.
void CodePreviewView::Follow() {
  if (Handle() != nullptr) ::InvalidateRect(Handle(), nullptr, FALSE);
}

std::vector<CodePreviewView::Piece> CodePreviewView::Pieces() const {
  std::vector<Piece> pieces;
  const std::u16string_view text = form_.rtPreview->Text();
  std::size_t line = 0;
  for (const forms::RichTextBox::Run& run : form_.rtPreview->Runs()) {
    std::u16string_view rest = text.substr(static_cast<std::size_t>(run.Start), static_cast<std::size_t>(run.Length));
    for (;;) {
      const std::size_t end = rest.find(u'\n');
      std::u16string_view part = rest.substr(0, end);
      while (part.ends_with(u'\r')) part.remove_suffix(1);
      pieces.push_back({line, part, run.Color, run.StrikeThru});
      if (end == rest.npos) break;
      ++line;
      rest.remove_prefix(end + 1);
    }
  }
  return pieces;
}

/// Of a text that is higher than the window, the part with the match; any other from its start.
void CodePreviewView::Paint(HDC context, const RECT& room) const {
  ::FillRect(context, &room, ::GetSysColorBrush(COLOR_WINDOW));
  ::SetBkMode(context, 1 /* the ground stays */);
  const HGDIOBJ before = ::SelectObject(context, plain_.Get());
  const int height = CodeMeasurer::HeightOfLine(context);
  const int margin = Scaled(kMargin);
  const std::vector<Piece> pieces = Pieces();
  int top = margin;
  if (!pieces.empty()) {
    const auto lines = static_cast<int>(pieces.back().line) + 1;
    const auto match = std::ranges::find_if(pieces, [](const Piece& piece) { return piece.color != 0; });
    if (match != pieces.end() && lines * height + margin > Height(room)) {
      top = std::min(top, Height(room) / 2 - static_cast<int>(match->line) * height);
    }
  }
  std::size_t line = 0;
  int x = 0;
  for (const Piece& piece : pieces) {
    if (piece.line != line) x = 0;
    line = piece.line;
    const int y = top + static_cast<int>(line) * height;
    ::SelectObject(context, piece.strikeThru ? struck_.Get() : plain_.Get());
    ::SetTextColor(context, piece.color != 0 ? piece.color : ::GetSysColor(COLOR_WINDOWTEXT));
    x = CodeMeasurer::ForEachPart(context, piece.text, x, [&](int at, std::u16string_view part) {
      ::TextOutW(context, margin + at, y, reinterpret_cast<const wchar_t*>(part.data()), static_cast<int>(part.size()));
    });
  }
  ::SelectObject(context, before);
}

LRESULT CodePreviewView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      PAINTSTRUCT paint{};
      const HDC screen = ::BeginPaint(Handle(), &paint);
      RECT room{};
      ::GetClientRect(Handle(), &room);
      {
        const Buffered buffer(screen, room);
        Paint(buffer.Handle(), room);
      }
      ::EndPaint(Handle(), &paint);
      return 0;
    }
    case WM_SIZE:
      ::InvalidateRect(Handle(), nullptr, FALSE);
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(form_.rtPreview->Text().size());
    case WM_GETTEXT: {
      const std::u16string& text = form_.rtPreview->Text();
      if (wParam == 0) return 0;
      const std::size_t length = std::min<std::size_t>(text.size(), wParam - 1);
      auto* target = reinterpret_cast<wchar_t*>(lParam);
      std::copy_n(text.begin(), length, target);
      target[length] = L'\0';
      return static_cast<LRESULT>(length);
    }
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace quorvane::windows
