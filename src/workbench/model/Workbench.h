#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "vbide/VBIDE.h"
#include "workbench/model/Desk.h"
#include "workbench/model/Project.h"

namespace quorvane::workbench {

class HostAddins;
class HostCommandBars;
class HostEvents;
class HostWindow;
class HostWindows;

/// The embedded host: open projects, windows, command bars and add-ins. Everything that it hands out stays whole for
/// whoever holds it after the project or the workbench is gone; the ways back then give nothing.
class Workbench final : public vbide::VBE {
 public:
  /// `page` decodes and encodes the files; it outlives the workbench and all modules.
  explicit Workbench(const CodePage& page);
  ~Workbench() override;
  Workbench(const Workbench&) = delete;
  Workbench& operator=(const Workbench&) = delete;

  std::shared_ptr<vbide::CodePane> ActiveCodePane() const override;
  std::shared_ptr<vbide::VBProject> ActiveVBProject() const override;
  std::vector<std::shared_ptr<vbide::VBProject>> VBProjects() const override;
  std::shared_ptr<vbide::CommandBars> CommandBars() override;
  std::shared_ptr<vbide::Windows> Windows() override;
  std::shared_ptr<vbide::Events> Events() override;
  std::shared_ptr<vbide::Addins> Addins() override;
  std::shared_ptr<vbide::Window> MainWindow() override;

  const CodePage& ThePage() const { return page_; }
  const std::vector<std::shared_ptr<Project>>& Projects() const { return projects_; }

  /// A project that is not open yet: fill it, then Add it.
  std::shared_ptr<Project> NewProject(std::u16string name, std::string path = {}) const;
  /// The first project becomes the active one.
  void Add(std::shared_ptr<Project> project);
  /// Its panes go, and another project becomes the active one where it was. Nothing is saved.
  void Close(const std::shared_ptr<Project>& project);

  /// Raises error 5 for a project that is not open.
  void SetActiveProject(const std::shared_ptr<Project>& project);
  /// Shows the pane; its project becomes the active one. Raises error 91 for nothing.
  void SetActivePane(const std::shared_ptr<vbide::CodePane>& pane);

  /// To be advanced once a turn of the message loop: edits of one turn are undone together.
  TurnClock& Turns() { return desk_->Clock; }

  const std::shared_ptr<Desk>& TheDesk() const { return desk_; }
  const std::shared_ptr<HostWindow>& TheMainWindow() const { return mainWindow_; }
  const std::shared_ptr<HostCommandBars>& TheCommandBars() const { return commandBars_; }
  const std::shared_ptr<HostWindows>& TheWindows() const { return windows_; }
  const std::shared_ptr<HostAddins>& TheAddins() const { return addins_; }

 private:
  void FollowActivePane();

  const CodePage& page_;
  std::shared_ptr<Desk> desk_;
  std::shared_ptr<HostWindow> mainWindow_;
  std::shared_ptr<HostCommandBars> commandBars_;
  std::shared_ptr<HostEvents> events_;
  std::shared_ptr<HostWindows> windows_;
  std::shared_ptr<HostAddins> addins_;
  std::vector<std::shared_ptr<Project>> projects_;
  std::shared_ptr<Project> active_;  ///< invariant: one of projects_, null only when there is none
  Subscription paneChanged_;

 public:
  Event<>& ActivePaneChanged = desk_->ActivePaneChanged;
  Event<> ProjectsChanged;  ///< projects opened or closed, or another one active
};

}  // namespace quorvane::workbench
