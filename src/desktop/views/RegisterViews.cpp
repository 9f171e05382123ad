#include "desktop/views/RegisterViews.h"

#include "desktop/ViewFactory.h"
#include "desktop/views/ResultView.h"
#include "desktop/views/SearchDialogView.h"
#include "dialogs/frmSearchDialog.h"
#include "results/ResultDialog.h"

namespace quorvane::desktop {

void RegisterViews(ViewFactory& factory, QtWindows& windows) {
  factory.RegisterDocument<ResultDialog>(
      [&windows](ResultDialog& document, QWidget* parent) { return new ResultView(document, windows, parent); });
  factory.RegisterForm<frmSearchDialog>(
      [](frmSearchDialog& form, QWidget* parent) { return new SearchDialogView(form, parent); });
}

}  // namespace quorvane::desktop
