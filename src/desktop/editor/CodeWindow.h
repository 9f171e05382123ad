#pragma once

#include <QMdiSubWindow>
#include <memory>
#include <utility>
#include <vector>

#include "base/Event.h"

namespace quorvane {

class CodePage;

namespace workbench {
class Component;
class Pane;
class TurnClock;
}  // namespace workbench

namespace desktop {

class CodeEdit;
class PaneBinding;

/// The window of one code pane. Closing it hides the pane; the text and its history stay with the module.
class CodeWindow final : public QMdiSubWindow {
 public:
  CodeWindow(std::shared_ptr<workbench::Pane> pane, workbench::TurnClock& turns, const CodePage& page);
  ~CodeWindow() override;

  const std::shared_ptr<workbench::Pane>& ThePane() const { return pane_; }
  CodeEdit& Editor() { return *editor_; }
  /// Puts a widget above the code; the window then owns it. Once.
  void SetHeader(QWidget& header);
  /// Null when there is none.
  QWidget* Header() const { return header_; }
  /// Null when the project is closed.
  std::shared_ptr<workbench::Component> TheComponent() const;

  /// Title and modified mark as they are now.
  void UpdateTitle();
  /// As the pane's window is to be shown: normal, minimized or maximized.
  void FollowState();
  /// Keeps a subscription for as long as the window lives.
  void Hold(Subscription subscription) { held_.push_back(std::move(subscription)); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::shared_ptr<workbench::Pane> pane_;
  CodeEdit* editor_;
  QWidget* header_ = nullptr;
  std::unique_ptr<PaneBinding> binding_;
  Subscription textChanged_;
  std::vector<Subscription> held_;
};

}  // namespace desktop
}  // namespace quorvane
