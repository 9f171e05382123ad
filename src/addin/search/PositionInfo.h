#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/search/ICondInfo.h"

namespace quorvane {

class OffsetIndex;
class ResultCollection;

namespace vbide {
class CodeModule;
class CodePane;
class VBComponent;
class VBProject;
}  // namespace vbide

/// A range of text in one module: a region to search, or a match.
///
/// It holds places alone and reads all text from the host when asked, so that after an edit it points at whatever now
/// stands there. Lines and characters are 1-based, the end is exclusive. Sums out of range raise error 6; so does an X
/// or a screen column above 32767 where one is turned into the other.
class PositionInfo : private Counted<PositionInfo> {
 public:
  static constexpr std::string_view ClassName = "PositionInfo";

  PositionInfo();
  ~PositionInfo();

  ResultCollection* mobjParent = nullptr;  ///< owner, set when added to a collection
  std::int32_t mlngID = 0;                 ///< 1-based number within the collection
  std::shared_ptr<vbide::CodeModule> mobjCodeObject;
  std::int32_t mlngY1 = 0;  ///< first line
  std::int32_t mlngY2 = 0;  ///< last line
  std::int32_t mlngX1 = 0;  ///< first character, in line Y1
  std::int32_t mlngX2 = 0;  ///< just after the last character, in line Y2; the line's length + 2 is its LF

  /// X as a screen column of the host: a character of two bytes takes two.
  std::int32_t ScreenX1() const;
  std::int32_t ScreenX2() const;
  /// Raises what ScreenX1 and ScreenX2 raise; reads no line when they cannot leave their range.
  void CheckScreenColumns() const;
  /// The characters from `start` to before `end` of `text`, as far as they exist; 1-based. Raises error 5 when `start`
  /// is below 1 or above `end`.
  static std::u16string_view Cut(std::u16string_view text, std::int32_t start, std::int32_t end);
  /// The text of the range, CR LF inside when it spans lines.
  std::u16string MatchStr() const;
  /// Whether a comment mark stands before the end of the range, on its lines or on the continued lines above.
  bool HaveComment() const;
  /// Number of pieces of `s` split at LF; 1 for the empty text.
  static std::int32_t GetLineCount(std::u16string_view s);
  std::shared_ptr<vbide::VBComponent> component() const;
  std::shared_ptr<vbide::VBProject> project() const;
  /// "Proc", "Let", "Set" or "Get": the kind of the procedure at Y1.
  std::u16string ProcType() const;
  /// The procedure at Y1, "(Declarations)" outside of one.
  std::u16string ProcName() const;
  /// The whole of line Y1.
  std::u16string line() const;
  /// Selects the range in the host and brings its code window to the front; yields once to the message loop.
  void Show() const;
  /// The range's lines with `rlc` lines around them; without `rlc` the setting for previews counts.
  std::u16string RelativeText(std::optional<std::int32_t> rlc = {}) const;
  /// 1-based offsets of the range's start and end in RelativeText(rlc).
  std::int32_t RelativeMatchStartPos(std::optional<std::int32_t> rlc = {}) const;
  std::int32_t RelativeMatchEndPos(std::optional<std::int32_t> rlc = {}) const;
  /// Loads the selection of a pane.
  void GetSelection(const vbide::CodePane& pane);
  /// Loads the procedure that the selection of a pane begins in, or the declarations section. Raises error 5 when the
  /// host, which is asked by name, gives a procedure that does not hold that line.
  void GetProcedure(const vbide::CodePane& pane);
  /// Loads a whole module.
  void GetAllCode(const std::shared_ptr<vbide::CodeModule>& code);
  /// Loads the region of an area; gsCurProject and gsAllProjects leave it alone. Raises error 0x80040202 when the area
  /// needs an active code pane and there is none.
  void GetSelInfo(gsArea area);
  void CheckActiveCodePane() const;
  void Setup() {}
  void TearDown();

  /// X1 from a screen column in line Y1, which must be set.
  void SetScreenX1(std::int32_t column);
  void SetScreenX2(std::int32_t column);
  /// Both at once: lines Y1 and Y2, if one, are read once.
  void SetScreenColumns(std::int32_t first, std::int32_t last);
  /// 1-based offset of the range's start in the text that begins at line `baseLine`.
  std::int32_t StartPos(std::int32_t baseLine) const;
  std::int32_t EndPos(std::int32_t baseLine) const;
  /// Y1 and X1 from such an offset. An index serves many positions of one text.
  void SetStartPos(std::int32_t baseLine, std::int32_t pos);
  void SetStartPos(std::int32_t baseLine, std::int32_t pos, OffsetIndex& index);
  void SetEndPos(std::int32_t baseLine, std::int32_t pos);
  void SetEndPos(std::int32_t baseLine, std::int32_t pos, OffsetIndex& index);

 private:
  vbide::CodeModule& Code() const;
  std::u16string LineText(std::int32_t y) const;
  std::int32_t Offset(std::int32_t baseLine, std::int32_t y, std::int32_t x) const;
  std::int32_t RelativeStartLine(std::int32_t rlc) const;
  void EndAtLineEnd();
  static std::int16_t SettingRelativeLineCount();
  static std::shared_ptr<vbide::CodePane> ActivePane();
};

}  // namespace quorvane
