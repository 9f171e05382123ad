#pragma once

#include "base/Event.h"
#include "desktop/platform/Texts.h"

namespace quorvane::desktop {

class CodeArea;
class CodeWindow;
class ProcedureBar;

/// Gives each code window its boxes of objects and procedures.
class ProcedureBars {
 public:
  /// Both outlive this.
  ProcedureBars(CodeArea& code, const Texts& texts);

  void UpdateTexts();
  /// That of the code window in front; null when there is none.
  ProcedureBar* Current() const;
  /// Opens the box of objects of the code window in front, for the keyboard.
  void OpenObjects() const;

 private:
  static ProcedureBar* Of(CodeWindow& window);

  CodeArea& code_;
  const Texts& texts_;
  Subscription opened_;
};

}  // namespace quorvane::desktop
