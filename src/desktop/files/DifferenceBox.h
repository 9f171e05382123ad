#pragma once

#include <QDialog>

namespace quorvane::desktop {

/// Shows how two texts differ, line by line, until it is closed.
class DifferenceBox final : public QDialog {
 public:
  /// `difference` in the form of a unified diff.
  DifferenceBox(const QString& title, const QString& difference, QWidget* parent);
};

}  // namespace quorvane::desktop
