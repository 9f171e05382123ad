#include "desktop/navigate/ProcedureBars.h"

#include <QComboBox>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/navigate/ProcedureBar.h"

namespace quorvane::desktop {

ProcedureBars::ProcedureBars(CodeArea& code, const Texts& texts) : code_(code), texts_(texts) {
  opened_ = code_.Opened.Subscribe(
      [this](CodeWindow& window) { window.SetHeader(*new ProcedureBar(window.Editor(), texts_)); });
}

ProcedureBar* ProcedureBars::Of(CodeWindow& window) {
  return dynamic_cast<ProcedureBar*>(window.Header());
}

void ProcedureBars::UpdateTexts() {
  for (CodeWindow* window : code_.CodeWindows()) {
    if (ProcedureBar* bar = Of(*window)) bar->UpdateTexts();
  }
}

ProcedureBar* ProcedureBars::Current() const {
  CodeWindow* window = code_.Current();
  return window != nullptr ? Of(*window) : nullptr;
}

void ProcedureBars::OpenObjects() const {
  ProcedureBar* bar = Current();
  if (bar == nullptr) return;
  bar->Update();
  bar->Objects().setFocus();
  bar->Objects().showPopup();
}

}  // namespace quorvane::desktop
