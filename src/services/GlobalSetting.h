#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Event.h"
#include "search/ICondInfo.h"

namespace quorvane {

/// The shared settings: the preferences, and the live search condition that the search dialog edits.
class GlobalSetting final : public ICondInfo {
 public:
  static constexpr std::string_view ClassName = "GlobalSetting";

  GlobalSetting();
  ~GlobalSetting() override;
  GlobalSetting(const GlobalSetting&) = delete;
  GlobalSetting& operator=(const GlobalSetting&) = delete;

  std::int16_t mintRelativeLineCount = DefaultRelativeLineCount();  ///< lines around a match in previews
  std::u16string mstrSearchStr;
  std::u16string mstrReplaceStr;
  gsArea menumArea = gsCurProject;
  gsMode menumMode = gsCommon;
  bool mblnMatchCase = false;
  bool mblnRegSingleLine = false;
  gsCommentStat menumIgnoreComment = gsExcludeComment;
  bool mblnWholeWord = false;
  bool mblnMaximizeWhenLocate = true;  ///< maximise the code window when locating a match

  static constexpr std::int16_t DefaultRelativeLineCount() { return 12; }
  static std::u16string DefaultXSL();

  const std::u16string& XSL() const { return mstrXSL; }
  /// Raises PropertyChange when the text differs, in case too.
  void SetXSL(std::u16string_view xsl);

  Event<const std::u16string&> PropertyChange;  ///< PropName

  std::u16string SearchStr() const override { return mstrSearchStr; }
  gsArea Area() const override { return menumArea; }
  gsMode Mode() const override { return menumMode; }
  bool MatchCase() const override { return mblnMatchCase; }
  gsCommentStat IgnoreComment() const override { return menumIgnoreComment; }
  bool WholeWord() const override { return mblnWholeWord; }
  bool RegSingleLine() const override { return mblnRegSingleLine; }
  std::u16string ReplaceStr() const override { return mstrReplaceStr; }
  /// Each read takes the region anew from the host, so it may fail as GetSelInfo does.
  std::shared_ptr<PositionInfo> PosInfo() override;

 private:
  std::u16string mstrXSL = DefaultXSL();
  std::shared_ptr<PositionInfo> mobjPosInfo;  ///< made at first use
};

}  // namespace quorvane
