#include "windows/platform/Win32Prompts.h"

#include <commdlg.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/forms/DisabledWindows.h"
#include "windows/forms/FormWindow.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr std::size_t kLongestPath = 32768;
constexpr int kLastAnswer[] = {kAnswerOk,     kAnswerCancel, kAnswerIgnore,
                               kAnswerCancel, kAnswerNo,     kAnswerCancel};  // by buttons: the one that does the least

/// "Words|*.XML|More words|*.*" with a zero after each part, and one more at the end.
std::u16string FilterOf(const std::u16string& filter) {
  std::u16string parts = filter;
  std::ranges::replace(parts, u'|', u'\0');
  parts.append(2, u'\0');
  return parts;
}

std::u16string WithoutDot(const std::u16string& extension) {
  const std::size_t begin = extension.find_first_not_of(u'.');
  return begin == extension.npos ? std::u16string() : extension.substr(begin);
}

/// The focus comes back to where it was before a box. Its owner, the host's main window, would give it to the code,
/// though it may have been in a dialog that is a child of that window.
class KeptFocus {
 public:
  KeptFocus() : before_(::GetFocus()) {}
  ~KeptFocus() {
    if (before_ == nullptr || !::IsWindowVisible(before_) || !::IsWindowEnabled(before_)) return;
    if (::GetAncestor(before_, GA_ROOT) == ::GetActiveWindow()) ::SetFocus(before_);
  }
  KeptFocus(const KeptFocus&) = delete;
  KeptFocus& operator=(const KeptFocus&) = delete;

 private:
  HWND before_;
};

}  // namespace

HWND Win32Prompts::Owner() const {
  const HWND modal = FormWindow::ModalInFront();
  return modal != nullptr ? modal : mainWindow_;
}

int Win32Prompts::MsgBox(const std::u16string& text, int flags, const std::u16string& caption) {
  const KeptFocus focus;
  const HWND owner = Owner();
  const DisabledWindows others(owner);
  const int answer = ::MessageBoxW(owner, Wide(text), Wide(caption), static_cast<UINT>(flags));
  if (answer > 0) return answer;
  const auto buttons = static_cast<std::size_t>(flags & 0xF);
  return buttons < std::size(kLastAnswer) ? kLastAnswer[buttons] : kAnswerOk;
}

std::optional<std::u16string> Win32Prompts::AskSaveFileName(const FileDialogSetup& setup) {
  const KeptFocus focus;
  const HWND owner = Owner();
  const DisabledWindows others(owner);
  const std::u16string filter = FilterOf(setup.Filter);
  const std::u16string extension = WithoutDot(setup.DefaultExt);
  std::vector<wchar_t> path(kLongestPath, L'\0');
  std::copy_n(setup.FileName.begin(), std::min(setup.FileName.size(), kLongestPath - 1), path.begin());
  OPENFILENAMEW ask{};
  ask.lStructSize = sizeof(ask);
  ask.hwndOwner = owner;
  ask.lpstrFilter = setup.Filter.empty() ? nullptr : Wide(filter);
  ask.lpstrFile = path.data();
  ask.nMaxFile = static_cast<DWORD>(path.size());
  ask.lpstrTitle = setup.Title.empty() ? nullptr : Wide(setup.Title);
  ask.lpstrDefExt = extension.empty() ? nullptr : Wide(extension);
  ask.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  if (::GetSaveFileNameW(&ask)) return FromWide(path.data());
  const DWORD failure = ::CommDlgExtendedError();
  if (failure == FNERR_INVALIDFILENAME) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"No file name: " + setup.FileName);
  }
  if (failure != 0) {
    RaiseError(ErrorNumber::Internal, u"The file dialog failed with " + ToText(static_cast<std::int64_t>(failure)));
  }
  return std::nullopt;
}

}  // namespace quorvane::windows
