#include "workbench/model/Pane.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "platform/ScreenColumns.h"
#include "workbench/model/HostWindow.h"

namespace quorvane::workbench {

Pane::Pane(std::shared_ptr<Desk> desk, std::weak_ptr<vbide::CodeModule> module, const CodePage& page,
           const std::u16string& caption)
    : desk_(std::move(desk)),
      module_(std::move(module)),
      page_(page),
      window_(std::make_shared<HostWindow>(desk_->NewHandle(), caption, false)),
      windowChanged_(window_->Changed.Subscribe([this] { desk_->Refresh(); })) {}

std::shared_ptr<Pane> Pane::Open(std::shared_ptr<Desk> desk, const std::shared_ptr<vbide::CodeModule>& module,
                                 const CodePage& page, const std::u16string& caption) {
  std::shared_ptr<Pane> pane(new Pane(std::move(desk), module, page, caption));
  pane->desk_->Add(pane);
  return pane;
}

std::shared_ptr<vbide::Window> Pane::Window() const {
  return window_;
}

vbide::Selection Pane::Clipped(const vbide::Selection& selection) const {
  const std::shared_ptr<vbide::CodeModule> module = CodeModule();
  if (!module) return {};
  const std::int32_t lines = std::max(1, module->CountOfLines());
  const auto clip = [&](std::int32_t& line, std::int32_t& column) {
    if (line < 1) std::tie(line, column) = std::pair(1, 1);
    if (line > lines) std::tie(line, column) = std::pair(lines, std::numeric_limits<std::int32_t>::max());
    if (column > 1) {
      const std::u16string text = module->Lines(line, 1);
      column = static_cast<std::int32_t>(std::min<std::int64_t>(column, ColumnOfUnit(page_, text, text.size())));
    }
    column = std::max(column, 1);
  };
  vbide::Selection clipped = selection;
  clip(clipped.StartLine, clipped.StartColumn);
  clip(clipped.EndLine, clipped.EndColumn);
  return clipped;
}

vbide::Selection Pane::GetSelection() const {
  return Clipped(selection_);
}

void Pane::SetSelection(const vbide::Selection& selection) {
  vbide::Selection wanted = selection;
  if (std::tie(wanted.EndLine, wanted.EndColumn) < std::tie(wanted.StartLine, wanted.StartColumn)) {
    std::swap(wanted.StartLine, wanted.EndLine);
    std::swap(wanted.StartColumn, wanted.EndColumn);
  }
  wanted = Clipped(wanted);
  if (wanted == selection_) return;
  selection_ = wanted;
  SelectionChanged.Raise();
}

void Pane::Show() {
  if (!desk_->BringForward(*this)) return;
  window_->SetVisible(true);
}

}  // namespace quorvane::workbench
