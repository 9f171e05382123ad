#pragma once

#include <QDialog>
#include <cstddef>
#include <optional>
#include <vector>

#include "desktop/navigate/PaletteRows.h"
#include "desktop/platform/Texts.h"

class QLabel;
class QLineEdit;
class QListView;

namespace quorvane::desktop {

/// A list to choose from by a few letters: a line to type in, the names that fit below it. Enter or a click chooses.
class Palette final : public QDialog {
 public:
  /// `title` names the list, to a screen reader too. `texts` and `parent` outlive this.
  Palette(const QString& title, std::vector<PaletteRows::Entry> entries, const Texts& texts, QWidget& parent);

  /// 0-based index into the entries; no value when the user leaves without a choice.
  std::optional<std::size_t> Ask();

  QLineEdit& Line() { return *line_; }
  QListView& List() { return *list_; }
  PaletteRows& Rows() { return *rows_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Filter();

  const Texts& texts_;
  QLineEdit* line_;
  QListView* list_;
  QLabel* count_;
  PaletteRows* rows_;
};

}  // namespace quorvane::desktop
