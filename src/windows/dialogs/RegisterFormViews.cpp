#include "windows/dialogs/RegisterFormViews.h"

#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmCodePreview.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "windows/dialogs/AboutView.h"
#include "windows/dialogs/CodePreviewView.h"
#include "windows/dialogs/OptionsView.h"
#include "windows/dialogs/ProcessingView.h"
#include "windows/dialogs/SearchDialogView.h"
#include "windows/forms/ViewFactory.h"

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
