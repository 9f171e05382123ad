// A journal is a file of settings: the section "journal/opened" lists what was open, and a section "edit/<path>" for
// each module holds its text whole, so that a journal can be read without the files it is about. Its name is the mark
// of its process, which tells whether that still runs.
#include "desktop/files/EditJournal.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "base/CommonEnds.h"
#include "base/FilePath.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "native/files/ProcessMark.h"
#include "native/settings/SettingsFile.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

using native::SettingsFile;
using workbench::Component;
using workbench::Module;
using workbench::Workbench;

constexpr char kEnding[] = ".journal";
constexpr char16_t kHead[] = u"journal";
constexpr char16_t kOpened[] = u"opened";
constexpr char16_t kEdit[] = u"edit";
constexpr char16_t kName[] = u"name";
constexpr char16_t kBase[] = u"base";
constexpr char16_t kText[] = u"text";

/// FNV-1a in 64 bits, and the length.
std::u16string NameOf(const std::string& bytes) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  return FromUtf8(std::to_string(hash) + "-" + std::to_string(bytes.size()));
}

std::string Absolute(const std::string& path) {
  std::error_code failed;
  const auto absolute = std::filesystem::absolute(FilePath(path), failed);
  return failed ? path : PathText(absolute.lexically_normal());
}

std::vector<std::shared_ptr<Component>> Modules(const Workbench& workbench) {
  std::vector<std::shared_ptr<Component>> modules;
  for (const auto& project : workbench.Projects()) {
    for (const auto& component : project->Components()) {
      if (component->TheModule() && !component->Path().empty()) modules.push_back(component);
    }
  }
  return modules;
}

std::optional<EditJournal::Found> Read(const std::string& path) {
  EditJournal::Found found{path, {}, {}};
  SettingsFile file(path);
  if (!SkipErrors([&] { file.Read(); })) return std::nullopt;
  for (const auto& section : file.Read()) {
    if (section.group == kHead) {
      for (const auto& [number, name] : section.values) found.opened.push_back(ToUtf8(name));
    }
    if (section.group != kEdit) continue;
    EditJournal::Edit edit{ToUtf8(section.name), {}, {}, {}};
    for (const auto& [key, value] : section.values) {
      if (key == kName) edit.name = value;
      if (key == kBase) edit.base = value;
      if (key == kText) edit.text = value;
    }
    found.edits.push_back(std::move(edit));
  }
  if (found.edits.empty()) return std::nullopt;
  return found;
}

/// Edits only the run of lines that differs, so that hidden lines elsewhere keep their places.
void SetText(Module& module, const std::u16string& text) {
  const std::u16string before = module.Text();
  const auto old = Split(before, kCrLf);
  const auto now = Split(text, kCrLf);
  const CommonEnds common = FindCommonEnds(old, now);
  const auto at = static_cast<std::int32_t>(common.head) + 1;
  const auto inner = [&](const auto& lines) { return lines.size() - common.head - common.tail; };
  const auto gone = std::min(static_cast<std::int32_t>(inner(old)), module.CountOfLines() - at + 1);
  if (gone > 0) module.DeleteLines(at, gone);
  std::u16string added;
  for (std::size_t i = common.head; i < common.head + inner(now); ++i) {
    added.append(i == common.head ? u"" : kCrLf).append(now[i]);
  }
  if (inner(now) > 0) module.InsertLines(at, added);
}

/// The module of an edit; of several with its file the one with its name.
std::shared_ptr<Component> ModuleOf(const Workbench& workbench, const EditJournal::Edit& edit) {
  std::shared_ptr<Component> found;
  for (const auto& component : Modules(workbench)) {
    if (Absolute(component->Path()) != edit.path) continue;
    if (!found || component->FullName() == edit.name) found = component;
  }
  return found;
}

}  // namespace

std::string EditJournal::Own() const {
  const std::string& mark = native::ProcessMark();
  return folder_ + "/" + (mark.empty() ? "unmarked" : mark) + kEnding;
}

void EditJournal::Write(const Workbench& workbench, const std::vector<std::string>& opened) const {
  SettingsFile file(Own());
  auto& sections = file.ReadOrReplace();
  sections.assign(1, {kHead, kOpened, {}});
  for (const std::string& name : opened) {
    const auto number = static_cast<std::int64_t>(sections[0].values.size()) + 1;
    sections[0].values.emplace_back(ToText(number), FromUtf8(Absolute(name)));
  }
  for (const auto& component : Modules(workbench)) {
    const Module& module = *component->TheModule();
    if (!module.Modified()) continue;
    sections.push_back(
        {kEdit,
         FromUtf8(Absolute(component->Path())),
         {{kName, component->FullName()}, {kBase, NameOf(module.Saved()->Bytes())}, {kText, module.Text()}}});
  }
  if (sections.size() == 1) return Remove();
  file.Write();
}

void EditJournal::Remove() const {
  std::error_code gone;
  std::filesystem::remove(FilePath(Own()), gone);
}

std::vector<EditJournal::Found> EditJournal::Left() const {
  std::vector<Found> left;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(FilePath(folder_), none)) {
    const std::string path = PathText(entry.path());
    if (entry.path().extension() != kEnding || path == Own()) continue;
    if (!native::SurelyEnded(PathText(entry.path().stem()))) continue;
    if (auto found = Read(path)) left.push_back(std::move(*found));
  }
  return left;
}

EditJournal::Outcome EditJournal::BringBack(Workbench& workbench, const Found& found) {
  Outcome outcome;
  for (const Edit& edit : found.edits) {
    const auto component = ModuleOf(workbench, edit);
    if (!component || component->TheModule()->Modified()) {
      outcome.left.push_back(edit);
      continue;
    }
    Module& module = *component->TheModule();
    if (module.Text() == edit.text) continue;  // saved meanwhile
    workbench.Turns().Next();
    SetText(module, edit.text);
    workbench.Turns().Next();
    outcome.made.push_back(edit);
    if (NameOf(module.Saved()->Bytes()) != edit.base) outcome.newer.push_back(edit);
  }
  return outcome;
}

void EditJournal::Delete(const Found& found) {
  std::error_code gone;
  std::filesystem::remove(FilePath(found.journal), gone);
}

}  // namespace quorvane::desktop
