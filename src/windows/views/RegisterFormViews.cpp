#include "windows/views/RegisterFormViews.h"

#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmCodePreview.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "windows/platform/ViewFactory.h"
#include "windows/views/AboutView.h"
#include "windows/views/CodePreviewView.h"
#include "windows/views/OptionsView.h"
#include "windows/views/ProcessingView.h"
#include "windows/views/SearchDialogView.h"

namespace quorvane::windows {

namespace {

template <class Shown>
std::unique_ptr<View> Make(auto& form, HWND parent) {
  return std::make_unique<Shown>(form, parent);
}

}  // namespace

void RegisterFormViews(ViewFactory& views) {
  views.RegisterForm<frmSearchDialog>([](auto& form, HWND parent) { return Make<SearchDialogView>(form, parent); });
  views.RegisterForm<frmCodePreview>([](auto& form, HWND parent) { return Make<CodePreviewView>(form, parent); });
  views.RegisterForm<frmOption>([](auto& form, HWND parent) { return Make<OptionsView>(form, parent); });
  views.RegisterForm<frmAbout>([](auto& form, HWND parent) { return Make<AboutView>(form, parent); });
  views.RegisterForm<frmProcessing>([](auto& form, HWND parent) { return Make<ProcessingView>(form, parent); });
}

}  // namespace quorvane::windows
