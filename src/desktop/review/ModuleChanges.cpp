#include "desktop/review/ModuleChanges.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/Text.h"
#include "platform/CodePage.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/text/SourceFile.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::desktop {

using workbench::DiffHunk;

namespace {

/// The units of a text as bytes, for a comparison that knows bytes alone.
template <class LineRange>
std::vector<std::string_view> AsBytes(const LineRange& lines) {
  std::vector<std::string_view> bytes;
  bytes.reserve(lines.size());
  for (const auto& line : lines) {
    bytes.emplace_back(reinterpret_cast<const char*>(line.data()), line.size() * sizeof(char16_t));
  }
  return bytes;
}

}  // namespace

ModuleChanges::ModuleChanges(std::shared_ptr<workbench::Component> component) : component_(std::move(component)) {}

workbench::Module& ModuleChanges::TheModule() const {
  return *component_->TheModule();
}

bool ModuleChanges::IsCurrent() const {
  return saved_ == TheModule().Saved() && revision_ == TheModule().Revision();
}

bool ModuleChanges::Update() {
  if (IsCurrent()) return false;
  const workbench::Module& module = TheModule();
  if (saved_ != module.Saved()) {
    saved_ = module.Saved();
    before_.assign(saved_->Lines().size(), {});
    for (std::size_t i = 0; i < before_.size(); ++i) TheModule().Page().Decode(saved_->LineBytes(i), before_[i]);
  }
  revision_ = module.Revision();
  after_.clear();
  text_ = module.Text();
  if (module.CountOfLines() > 0) {
    for (const std::u16string_view line : Split(text_, kCrLf)) after_.push_back(line);
  }
  hunks_ = workbench::DiffLines(AsBytes(before_), AsBytes(after_));
  return true;
}

std::int32_t ModuleChanges::Added() const {
  return std::accumulate(hunks_.begin(), hunks_.end(), 0,
                         [](std::int32_t sum, const DiffHunk& hunk) { return sum + hunk.afterEnd - hunk.afterBegin; });
}

std::int32_t ModuleChanges::Removed() const {
  return std::accumulate(hunks_.begin(), hunks_.end(), 0, [](std::int32_t sum, const DiffHunk& hunk) {
    return sum + hunk.beforeEnd - hunk.beforeBegin;
  });
}

std::vector<std::u16string> ModuleChanges::HiddenLines(std::size_t hunk) const {
  const DiffHunk& lines = hunks_[hunk];
  std::vector<std::u16string> names;
  for (const auto& hidden : saved_->Hidden()) {
    if (hidden.after <= lines.beforeBegin || hidden.after > lines.beforeEnd) continue;
    std::string_view bytes = std::string_view(saved_->Bytes()).substr(hidden.begin, hidden.end - hidden.begin);
    bytes = bytes.substr(0, bytes.find_last_not_of("\r\n") + 1);
    TheModule().Page().Decode(bytes, names.emplace_back());
  }
  return names;
}

std::u16string ModuleChanges::ProcedureOf(std::size_t hunk) const {
  const std::int32_t line = std::min(hunks_[hunk].afterBegin + 1, CountAfter());
  const auto& procedures = TheModule().Procedures();
  const auto next = std::ranges::upper_bound(procedures, line, {}, &workbench::Procedure::startLine);
  return next == procedures.begin() ? std::u16string() : std::prev(next)->name;
}

void ModuleChanges::PutBack(const DiffHunk& hunk) const {
  workbench::Module& module = TheModule();
  if (hunk.afterEnd > hunk.afterBegin) module.DeleteLines(hunk.afterBegin + 1, hunk.afterEnd - hunk.afterBegin);
  if (hunk.beforeEnd == hunk.beforeBegin) return;
  std::u16string text;
  for (std::int32_t line = hunk.beforeBegin; line < hunk.beforeEnd; ++line) {
    if (line > hunk.beforeBegin) text += kCrLf;
    text += Before(line);
  }
  module.InsertLines(hunk.afterBegin + 1, text);
}

bool ModuleChanges::Revert(std::size_t hunk, workbench::TurnClock& turns) const {
  if (!IsCurrent() || hunk >= hunks_.size()) return false;
  turns.Next();
  PutBack(hunks_[hunk]);
  turns.Next();
  return true;
}

/// From the last hunk up, so that the places of the others stay.
bool ModuleChanges::RevertAll(workbench::TurnClock& turns) const {
  if (!IsCurrent()) return false;
  turns.Next();
  for (std::size_t i = hunks_.size(); i-- > 0;) PutBack(hunks_[i]);
  turns.Next();
  return true;
}

}  // namespace quorvane::desktop
