#pragma once

#include <memory>

#include "base/Event.h"
#include "vbide/VBIDE.h"
#include "workbench/model/Desk.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

class HostWindow;

/// The view of one module: its selection and its window, without anything drawn. Closed with its project, a pane stays
/// whole for whoever holds it but cannot become active any more.
class Pane final : public vbide::CodePane {
 public:
  /// A pane of `module` on the desk, its window titled `caption` and not visible. The pane does not own the module.
  static std::shared_ptr<Pane> Open(std::shared_ptr<Desk> desk, const std::shared_ptr<vbide::CodeModule>& module,
                                    const CodePage& page, const std::u16string& caption);

  std::shared_ptr<vbide::CodeModule> CodeModule() const override { return module_.lock(); }
  std::shared_ptr<vbide::Window> Window() const override;
  /// Clipped to the text as it is now.
  vbide::Selection GetSelection() const override;
  /// Clipped to the text: lines 1 to CountOfLines, columns 1 to one after the last of their line. The ends of a
  /// selection given backwards change places.
  void SetSelection(const vbide::Selection& selection) override;
  void Show() override;

  const std::shared_ptr<HostWindow>& TheWindow() const { return window_; }

  Event<> SelectionChanged;

 private:
  Pane(std::shared_ptr<Desk> desk, std::weak_ptr<vbide::CodeModule> module, const CodePage& page,
       const std::u16string& caption);
  vbide::Selection Clipped(const vbide::Selection& selection) const;

  std::shared_ptr<Desk> desk_;
  std::weak_ptr<vbide::CodeModule> module_;
  const CodePage& page_;
  std::shared_ptr<HostWindow> window_;
  Subscription windowChanged_;
  vbide::Selection selection_;
};

}  // namespace quorvane::workbench
