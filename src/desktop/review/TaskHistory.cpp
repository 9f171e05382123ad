#include "desktop/review/TaskHistory.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "platform/CodePage.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/text/LineDiff.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::desktop {

namespace {

std::u16string SavedText(const workbench::SourceFile& file, const CodePage& page) {
  std::u16string text;
  for (std::size_t i = 0; i < file.Lines().size(); ++i) {
    if (i > 0) text += kCrLf;
    page.Decode(file.LineBytes(i), text);
  }
  return text;
}

/// Lines that differ; one that was rewritten counts once.
std::int32_t CountChanged(const std::u16string& before, const std::u16string& after) {
  const auto lines = [](const std::u16string& text) {
    std::vector<std::string_view> bytes;
    for (const std::u16string_view line : Split(text, kCrLf)) {
      bytes.emplace_back(reinterpret_cast<const char*>(line.data()), line.size() * sizeof(char16_t));
    }
    return bytes;
  };
  std::int32_t count = 0;
  for (const auto& hunk : workbench::DiffLines(lines(before), lines(after))) {
    count += std::max(hunk.beforeEnd - hunk.beforeBegin, hunk.afterEnd - hunk.afterBegin);
  }
  return count;
}

template <class Visit>
void EachModule(const workbench::Workbench& workbench, Visit visit) {
  for (const auto& project : workbench.Projects()) {
    for (const auto& component : project->Components()) {
      if (component->TheModule()) visit(component);
    }
  }
}

}  // namespace

void TaskHistory::Begin() {
  running_ = true;
  states_.clear();
  edited_.clear();
  EachModule(workbench_, [this](const auto& component) {
    const workbench::Module& module = *component->TheModule();
    states_[component.get()] = module.State();
    if (module.Modified()) edited_[component.get()] = module.Text();
  });
}

void TaskHistory::Done() {
  if (!std::exchange(running_, false)) return;
  Task task;
  EachModule(workbench_, [&](const auto& component) {
    const workbench::Module& module = *component->TheModule();
    const auto before = states_.find(component.get());
    if (before == states_.end() || before->second == module.State()) return;
    const auto text = edited_.find(component.get());
    task.changes.push_back({component, before->second, module.State()});
    task.lines +=
        CountChanged(text != edited_.end() ? text->second : SavedText(*module.Saved(), module.Page()), module.Text());
  });
  states_.clear();
  edited_.clear();
  if (task.changes.empty()) return;
  done_.push_back(std::move(task));
  undone_.clear();
  Changed.Raise();
}

bool TaskHistory::IsOpen(const Task& task) {
  return std::ranges::any_of(task.changes, [](const Change& change) { return !change.component.expired(); });
}

const TaskHistory::Task* TaskHistory::LastDone() {
  while (!done_.empty() && !IsOpen(done_.back())) done_.pop_back();
  return done_.empty() ? nullptr : &done_.back();
}

const TaskHistory::Task* TaskHistory::LastUndone() {
  while (!undone_.empty() && !IsOpen(undone_.back())) undone_.pop_back();
  return undone_.empty() ? nullptr : &undone_.back();
}

TaskHistory::ComponentList TaskHistory::EditedSince(const Task& task, bool undone) const {
  ComponentList edited;
  for (const Change& change : task.changes) {
    const auto component = change.component.lock();
    if (!component) continue;
    const workbench::Module& module = *component->TheModule();
    const bool asLeft = undone ? module.State() == change.before && module.CanRedo() : module.State() == change.after;
    const bool thereAlready = module.State() == (undone ? change.after : change.before);
    if (!asLeft && !thereAlready) edited.push_back(component);
  }
  return edited;
}

/// A task that the user typed into may be several steps of a module.
void TaskHistory::Walk(const Task& task, bool undo) const {
  const ComponentList edited = EditedSince(task, !undo);
  workbench_.Turns().Next();
  for (const Change& change : task.changes) {
    const auto component = change.component.lock();
    if (!component || std::ranges::find(edited, component) != edited.end()) continue;
    workbench::Module& module = *component->TheModule();
    const std::uint64_t goal = undo ? change.before : change.after;
    while (module.State() != goal && (undo ? module.Undo() : module.Redo())) {
    }
  }
  workbench_.Turns().Next();
}

void TaskHistory::Undo() {
  if (LastDone() == nullptr) return;
  Task task = std::move(done_.back());
  done_.pop_back();
  Walk(task, true);
  undone_.push_back(std::move(task));
  Changed.Raise();
}

void TaskHistory::Redo() {
  if (LastUndone() == nullptr) return;
  Task task = std::move(undone_.back());
  undone_.pop_back();
  Walk(task, false);
  done_.push_back(std::move(task));
  Changed.Raise();
}

}  // namespace quorvane::desktop
