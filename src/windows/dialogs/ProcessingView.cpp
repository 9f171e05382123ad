#include "windows/dialogs/ProcessingView.h"

#include "addin/dialogs/frmProcessing.h"
#include "windows/controls/ProgressView.h"

namespace quorvane::windows {

ProcessingView::ProcessingView(frmProcessing& form, HWND parent) : DialogView(form, parent) {
  auto all = MakeColumn(0);
  all->Add(Enter<ProgressView>(form.pb检查更新, Handle()));
  SetLayout(std::move(all), *form.pb检查更新);
}

}  // namespace quorvane::windows
