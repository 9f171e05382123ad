#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "base/Event.h"
#include "desktop/navigate/ModuleOutline.h"
#include "desktop/platform/Texts.h"

class QComboBox;

namespace quorvane::desktop {

class CodeEdit;

/// The two boxes above a code window: objects at the left, the procedures of the chosen one at the right. They follow
/// the caret a moment behind it; choosing one goes there.
class ProcedureBar final : public QWidget {
 public:
  /// Both outlive this.
  ProcedureBar(CodeEdit& editor, const Texts& texts);

  void UpdateTexts();
  /// As text and caret are now, at once.
  void Update();
  QComboBox& Objects() { return *objects_; }
  QComboBox& Procedures() { return *procedures_; }
  CodeEdit& Editor() { return editor_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Read();
  void ShowObject(const QString& object);
  void ChooseObject(int index);
  void ChooseProcedure(int index);
  void GoTo(std::int32_t line);

  CodeEdit& editor_;
  const Texts& texts_;
  QComboBox* objects_;
  QComboBox* procedures_;
  QTimer soon_;
  ModuleOutline outline_;
  std::uint64_t read_ = 0;           ///< revision of the module that outline_ shows; 0: none yet
  QString object_;                   ///< whose procedures are listed; empty: those of none
  std::vector<std::int32_t> lines_;  ///< 1-based starts of the procedures listed
  Subscription changed_;
};

}  // namespace quorvane::desktop
