#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

#include "base/Event.h"

class QCommandLinkButton;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace quorvane::desktop {

class Texts;

/// What stands in the place of the code while nothing is open: what was opened last, the open dialog, and a sample.
class StartPage final : public QWidget {
 public:
  /// Covers `area` whenever it is shown. `texts` outlives this.
  StartPage(const Texts& texts, QWidget& area);

  /// The newest first; each entry is what was opened together.
  void SetRecent(const QList<QStringList>& entries);
  void UpdateTexts();

  /// The buttons of the recent entries, in their order.
  const QList<QPushButton*>& Recent() const { return recent_; }
  QPushButton& OpenButton() { return *open_; }
  QPushButton& SampleButton() { return *sample_; }

  Event<const QStringList&> RecentWanted;
  Event<> OpenWanted;
  Event<> SampleWanted;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Build();
  QPushButton* NewEntry(const QStringList& files);

  const Texts& texts_;
  QWidget& area_;
  QLabel* title_;
  QLabel* hint_;
  QLabel* recentTitle_;
  QVBoxLayout* entries_;
  QList<QPushButton*> recent_;
  QPushButton* open_;
  QPushButton* sample_;
};

}  // namespace quorvane::desktop
