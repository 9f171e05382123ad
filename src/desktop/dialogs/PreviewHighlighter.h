#pragma once

#include "desktop/editor/VbHighlighter.h"

namespace quorvane::desktop {

/// Colours of code, but for characters whose own format has a foreground: those stay as they are.
class PreviewHighlighter final : public VbHighlighter {
 public:
  using VbHighlighter::VbHighlighter;

 protected:
  void highlightBlock(const QString& text) override;
};

}  // namespace quorvane::desktop
