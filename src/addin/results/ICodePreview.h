#pragma once

#include <cstdint>
#include <memory>

namespace quorvane {

class ICondInfo;
class PositionInfo;

/// What the preview shows: nothing, the code around a match, or that with the replacement.
enum PreviewMode : std::int32_t { kPreviewOff = 0, kPreviewCode = 1, kPreviewReplace = 2 };

/// What the result pages and their menu need of the form "frmCodePreview".
class ICodePreview {
 public:
  virtual ~ICodePreview() = default;

  /// A PreviewMode.
  virtual std::int32_t Mode() const = 0;
  virtual void SetMode(std::int32_t mode) = 0;
  /// Fills the preview for a match that `cond` found; neither shows nor moves it.
  virtual void Update(const std::shared_ptr<PositionInfo>& pi, ICondInfo& cond) = 0;
  /// Whether the preview may be on the screen now.
  virtual bool CanShow() = 0;
  /// Shows the preview beside the mouse when it may be on the screen.
  virtual void UpdatePreviewPos() = 0;
};

}  // namespace quorvane
