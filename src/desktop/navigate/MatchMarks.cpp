#include "desktop/navigate/MatchMarks.h"

#include <QLabel>
#include <QStatusBar>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <chrono>

#include "addin/core/Globals.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "base/Skip.h"
#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeMarks.h"
#include "desktop/editor/CodeWindow.h"
#include "workbench/model/Module.h"

namespace quorvane::desktop {

namespace {

constexpr std::chrono::milliseconds kDelay{60};

/// 0-based place in the document of a 1-based line and character; the end of the line for one behind it.
int PlaceOf(const QTextDocument& document, std::int32_t line, std::int32_t character) {
  const QTextBlock block = document.findBlockByNumber(line - 1);
  return block.isValid() ? block.position() + std::clamp(character - 1, 0, block.length() - 1) : -1;
}

}  // namespace

MatchMarks::MatchMarks(CodeArea& code, QStatusBar& bar, const Texts& texts)
    : code_(code), texts_(texts), status_(new QLabel) {
  bar.addPermanentWidget(status_);
  soon_.setSingleShot(true);
  soon_.setInterval(kDelay);
  QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { Update(); });
  begin_ = TaskManager::AnyBegin().Subscribe([this](std::int32_t) { Attach(); });
  done_ = TaskManager::AnyDone().Subscribe([this](std::int32_t) { soon_.start(); });
  current_ = code_.CurrentChanged.Subscribe([this] {
    Spread();
    ShowPlace();
  });
}

/// The pages come and go with the add-in; before its first task there is nothing to mark.
void MatchMarks::Attach() {
  if (const auto manager = Globals::gobjPageManager; manager != manager_.lock()) {
    manager_ = manager;
    tab_ = manager ? manager->TabChange.Subscribe([this] { soon_.start(); }) : Subscription();
  }
  if (!soon_.isActive()) soon_.start();
}

std::shared_ptr<IResultPage> MatchMarks::ThePage() const {
  std::shared_ptr<IResultPage> page;
  if (const auto manager = manager_.lock()) SkipErrors([&] { page = manager->ActivePage(); });
  return page;
}

void MatchMarks::Step(int step) {
  Update();
  SkipErrors([&] {
    const auto page = ThePage();
    if (!page || taken_ == 0) return;
    step > 0 ? page->LocateNextResult() : page->LocatePrevResult();
  });
  Update();
}

void MatchMarks::Forget() {
  taken_ = 0;
  ++clearing_;
  matches_.clear();
}

void MatchMarks::Update() {
  soon_.stop();
  const auto page = ThePage();
  const auto results = page ? page->Result() : nullptr;
  if (results != results_.lock()) {
    Forget();
    results_ = results;
    added_ = results ? results->OnAdd.Subscribe([this](const auto&) {
      if (!soon_.isActive()) soon_.start();
    })
                     : Subscription();
    cleared_ = results ? results->OnClear.Subscribe([this] {
      Forget();
      soon_.start();
    })
                       : Subscription();
  }
  if (results) Take(*results);
  Spread();
  ShowPlace();
}

void MatchMarks::Take(const ResultCollection& results) {
  while (taken_ < results.Count()) {
    const auto& place = results.Item(++taken_);
    SkipErrors([&] { matches_[place->mobjCodeObject.get()].push_back({place, place->MatchStr()}); });
  }
}

void MatchMarks::Spread() {
  const std::vector<CodeWindow*> windows = code_.CodeWindows();
  std::erase_if(shown_, [&](const auto& entry) { return std::ranges::find(windows, entry.first) == windows.end(); });
  for (CodeWindow* window : windows) {
    const auto found = matches_.find(window->Editor().TheModule().get());
    const std::size_t count = found == matches_.end() ? 0 : found->second.size();
    const auto [shown, isNew] = shown_.try_emplace(window);
    if (!isNew && shown->second.count == count && shown->second.clearing == clearing_) continue;
    shown->second.count = count;
    shown->second.clearing = clearing_;
    Fill(*window, count == 0 ? std::vector<Match>() : found->second);
  }
}

/// A match whose text is no longer there was edited since it was found.
void MatchMarks::Fill(CodeWindow& window, const std::vector<Match>& matches) const {
  std::vector<CodeMarks::Place> places;
  CodeEdit& editor = window.Editor();
  if (!matches.empty()) editor.Refresh();
  for (const Match& match : matches) {
    const PositionInfo& place = *match.place;
    std::u16string text;
    SkipErrors([&] { text = place.MatchStr(); });
    if (text != match.text) continue;
    places.push_back({PlaceOf(*editor.document(), place.mlngY1, place.mlngX1),
                      PlaceOf(*editor.document(), place.mlngY2, place.mlngX2), place.mlngID});
  }
  editor.Marks().Set(std::move(places));
}

void MatchMarks::ShowPlace() {
  CodeWindow* window = code_.Current();
  const std::int32_t number = window != nullptr ? window->Editor().Marks().NumberAtCursor() : 0;
  status_->setText(number > 0 ? texts_(Text::StatusMatch).arg(number).arg(taken_) : QString());
}

}  // namespace quorvane::desktop
