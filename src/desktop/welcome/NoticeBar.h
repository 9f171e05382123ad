#pragma once

#include <QFrame>
#include <QStringList>

#include "desktop/platform/Texts.h"

class QLabel;
class QListWidget;
class QToolButton;

namespace quorvane::desktop {

/// A quiet line above the code about things that went wrong without stopping anybody, with the list of them on demand.
/// Hidden while there is nothing to tell.
class NoticeBar final : public QFrame {
 public:
  /// `texts` outlives this.
  explicit NoticeBar(const Texts& texts, QWidget* parent = nullptr);

  /// Tells of `lines`, in the form of `text` that their number takes; without lines the bar goes.
  void Tell(Text text, const QStringList& lines);
  void UpdateTexts();

  QToolButton& ListButton() { return *list_; }
  QToolButton& CloseButton() { return *close_; }
  /// Hidden until it is asked for.
  QListWidget& Lines() { return *lines_; }

 private:
  void ShowLines(bool shown);

  const Texts& texts_;
  Text text_ = Text::NotAllOpened;
  QStringList told_;
  QLabel* label_;
  QToolButton* list_;
  QToolButton* close_;
  QListWidget* lines_;
};

}  // namespace quorvane::desktop
