#include "desktop/navigate/PlaceHistory.h"

#include <QTextBlock>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "workbench/model/Module.h"

namespace quorvane::desktop {

namespace {

constexpr std::size_t kMost = 100;

}  // namespace

PlaceHistory::PlaceHistory(CodeArea& code) : code_(code) {
  soon_.setSingleShot(true);
  soon_.setInterval(0);
  QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { Settle(); });
  moved_ = code_.CurrentChanged.Subscribe([this] { Note(); });
}

std::optional<PlaceHistory::Place> PlaceHistory::Now() const {
  CodeWindow* window = code_.Current();
  if (window == nullptr || !window->TheComponent()) return std::nullopt;
  const QTextCursor cursor = window->Editor().textCursor();
  return Place{LineAnchor(window->Editor().TheModule(), cursor.blockNumber() + 1), cursor.positionInBlock()};
}

/// A command may open a window and then choose the line in it: what it led to is seen when its turn is over.
void PlaceHistory::Note() {
  CodeWindow* window = code_.Current();
  if (window != nullptr && window->Editor().Jumping()) jumped_ = true;
  soon_.start();
}

void PlaceHistory::Settle() {
  soon_.stop();
  const bool jumped = std::exchange(jumped_, false);
  std::optional<Place> place = Now();
  if (!place) return;
  if (now_ && now_->line.TheModule()) {
    const bool elsewhere = now_->line.TheModule() != place->line.TheModule();
    if (elsewhere || (jumped && now_->line.Line() != place->line.Line())) {
      back_.push_back(*now_);
      if (back_.size() > kMost) back_.erase(back_.begin());
      forward_.clear();
      Changed.Raise();
    }
  }
  now_ = std::move(place);
}

void PlaceHistory::Back() {
  Walk(back_, forward_);
}

void PlaceHistory::Forward() {
  Walk(forward_, back_);
}

void PlaceHistory::Walk(std::vector<Place>& from, std::vector<Place>& to) {
  Settle();
  while (!from.empty()) {
    Place place = std::move(from.back());
    from.pop_back();
    const auto module = place.line.TheModule();
    if (!module) continue;  // its project is closed
    if (now_) to.push_back(*now_);
    module->CodePane()->Show();
    if (CodeWindow* window = code_.Current(); window != nullptr && window->Editor().TheModule() == module) {
      CodeEdit& editor = window->Editor();
      editor.Refresh();
      const QTextBlock block = editor.document()->findBlockByNumber(place.line.Line() - 1);
      const int position = block.position() + std::clamp(place.column, 0, std::max(0, block.length() - 1));
      editor.Locate(position, position);
      editor.setFocus();
    }
    soon_.stop();
    jumped_ = false;
    now_ = Now();
    break;
  }
  Changed.Raise();
}

}  // namespace quorvane::desktop
