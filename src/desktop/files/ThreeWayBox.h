#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "desktop/files/ThreeWay.h"
#include "desktop/platform/Texts.h"

class QPlainTextEdit;

namespace quorvane::desktop {

/// Three forms of one module side by side: as it was opened, as it is here, as it is on disk now. Rows stand beside
/// each other and scroll together; what either side changed is coloured.
class ThreeWayBox final : public QDialog {
 public:
  enum class Answer { None, Reload, Keep };

  struct Forms {
    std::u16string opened, mine, theirs;  ///< lines end with CR LF but for the last
  };

  ThreeWayBox(const QString& title, const Forms& forms, const Texts& texts, QWidget* parent);

  Answer Ask();
  /// As opened, mine, on disk.
  const std::array<QPlainTextEdit*, 3>& Panes() const { return panes_; }

 private:
  void Fill(const Forms& forms);
  void ScrollTogether();

  std::array<QPlainTextEdit*, 3> panes_{};
  Answer answer_ = Answer::None;
};

}  // namespace quorvane::desktop
