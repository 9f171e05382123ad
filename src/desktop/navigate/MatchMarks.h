#pragma once

#include <QTimer>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "desktop/platform/Texts.h"

class QLabel;
class QStatusBar;

namespace quorvane {

class IResultPage;
class PageManager;
class PositionInfo;
class ResultCollection;

namespace vbide {
class CodeModule;
}

namespace desktop {

class CodeArea;
class CodeWindow;

/// The matches of the chosen result tab, marked in all code windows and told in the status bar: "3 of 16". Follows the
/// results a moment behind them.
class MatchMarks {
 public:
  /// All three outlive this.
  MatchMarks(CodeArea& code, QStatusBar& bar, const Texts& texts);

  /// Shows the next (1) or previous (-1) match of the chosen tab, as the list does.
  void Step(int step);
  /// Everything as it is now, at once.
  void Update();
  const QLabel& Status() const { return *status_; }

 private:
  struct Match {
    std::shared_ptr<PositionInfo> place;
    std::u16string text;  ///< when it was found
  };
  struct Shown {
    std::size_t count = 0;  ///< of the module's matches
    std::uint64_t clearing = 0;
  };

  void Attach();
  std::shared_ptr<IResultPage> ThePage() const;
  void Forget();
  void Take(const ResultCollection& results);
  void Spread();
  void Fill(CodeWindow& window, const std::vector<Match>& matches) const;
  void ShowPlace();

  CodeArea& code_;
  const Texts& texts_;
  QLabel* status_;
  QTimer soon_;
  std::weak_ptr<PageManager> manager_;
  std::weak_ptr<ResultCollection> results_;
  std::int32_t taken_ = 0;      ///< of the results
  std::uint64_t clearing_ = 0;  ///< counts how often the matches went
  std::map<const vbide::CodeModule*, std::vector<Match>> matches_;
  std::map<const CodeWindow*, Shown> shown_;
  Subscription begin_, done_, tab_, added_, cleared_, current_;
};

}  // namespace desktop
}  // namespace quorvane
