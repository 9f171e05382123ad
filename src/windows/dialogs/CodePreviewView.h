#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/Event.h"
#include "platform/Canvas.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/View.h"
#include "windows/forms/Window.h"

namespace quorvane {

class frmCodePreview;

namespace windows {

/// The text of the floating preview, in its colours, painted here: a window that may cost the focus nothing. Its window
/// text is the same text. Gives the form the measurer that goes with its font.
class CodePreviewView final : public Window, public View {
 public:
  /// The form outlives this.
  CodePreviewView(frmCodePreview& form, HWND parent);
  ~CodePreviewView() override;

  HWND Handle() const override { return Window::Handle(); }
  SIZE WantedSize() const override { return {}; }
  void TakeFocus() override {}

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  /// What stands in one line in one format.
  struct Piece {
    std::size_t line;
    std::u16string_view text;  ///< of the model's
    Color color;
    bool strikeThru;
  };

  void Follow();
  std::vector<Piece> Pieces() const;
  void Paint(HDC context, const RECT& room) const;

  frmCodePreview& form_;
  FontHandle plain_;
  FontHandle struck_;
  Subscription changed_;
};

}  // namespace windows
}  // namespace quorvane
