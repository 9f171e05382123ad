#include "desktop/shell/RegisterViews.h"

#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmCodePreview.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/results/ResultDialog.h"
#include "desktop/dialogs/AboutView.h"
#include "desktop/dialogs/CodePreviewView.h"
#include "desktop/dialogs/OptionsView.h"
#include "desktop/dialogs/ProcessingView.h"
#include "desktop/dialogs/SearchDialogView.h"
#include "desktop/dialogs/ViewFactory.h"
#include "desktop/results/ResultView.h"

namespace quorvane::desktop {

void RegisterViews(ViewFactory& factory, QtWindows& windows, const std::function<void(const QString&)>& tell) {
  factory.RegisterDocument<ResultDialog>(
      [&windows](ResultDialog& document, QWidget* parent) { return new ResultView(document, windows, parent); });
  factory.RegisterForm<frmSearchDialog>(
      [tell](frmSearchDialog& form, QWidget* parent) { return new SearchDialogView(form, tell, parent); });
  factory.RegisterForm<frmCodePreview>(
      [](frmCodePreview& form, QWidget* parent) { return new CodePreviewView(form, parent); });
  factory.RegisterForm<frmOption>([](frmOption& form, QWidget* parent) { return new OptionsView(form, parent); });
  factory.RegisterForm<frmAbout>([](frmAbout& form, QWidget* parent) { return new AboutView(form, parent); });
  factory.RegisterForm<frmProcessing>(
      [](frmProcessing& form, QWidget* parent) { return new ProcessingView(form, parent); });
}

}  // namespace quorvane::desktop
