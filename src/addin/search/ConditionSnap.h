#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/search/ICondInfo.h"
#include "base/Event.h"

namespace quorvane {

/// The condition of a page's search, frozen, so that the page can repeat it; it can also be read as a line of text.
/// Empty until the first TakeSnap. The replacement text alone is not frozen.
class ConditionSnap final : public ICondInfo, private Counted<ConditionSnap> {
 public:
  static constexpr std::string_view ClassName = "ConditionSnap";

  ConditionSnap();
  ~ConditionSnap() override;

  std::shared_ptr<PositionInfo> mobjPosInfo;  ///< the region; made with this object

  std::u16string ModeDescription() const;
  std::u16string MatchCaseDescription() const;
  std::u16string IgnoreCommentDescription() const;
  std::u16string WholeWordDescription() const;
  std::u16string RegSingleLineDescription() const;
  /// Copies the live condition and raises Named. Raises error 0x80040202 when the area needs an active
  /// code pane: the region then stays as it was, and nothing is raised.
  void TakeSnap();
  /// The pieces above after each other, with commas between them.
  std::u16string Description() const;

  std::u16string SearchStr() const override { return mstrSearchStr; }
  gsArea Area() const override { return menumArea; }
  gsMode Mode() const override { return menumMode; }
  bool MatchCase() const override { return mblnMatchCase; }
  gsCommentStat IgnoreComment() const override { return menumIgnoreComment; }
  bool WholeWord() const override { return mblnWholeWord; }
  bool RegSingleLine() const override { return mblnRegSingleLine; }
  /// The live replacement text.
  std::u16string ReplaceStr() const override;
  std::shared_ptr<PositionInfo> PosInfo() override { return mobjPosInfo; }

  Event<const std::u16string&> Named;  ///< a snap was taken: the caption for the page's tab

 private:
  std::u16string AreaDescription() const;

  std::u16string mstrSearchStr;
  gsArea menumArea = gsCurModule;
  gsMode menumMode = gsCommon;
  bool mblnMatchCase = false;
  gsCommentStat menumIgnoreComment = gsIncludeComment;
  bool mblnWholeWord = false;
  bool mblnRegSingleLine = false;
  std::u16string mstrActiveProject;
};

}  // namespace quorvane
