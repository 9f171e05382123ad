#pragma once

#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QWidget>

#include "DesktopFixture.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/results/Page.h"
#include "addin/results/PageManager.h"
#include "addin/results/ResultDialog.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "chordtrap/Manager.h"
#include "desktop/dialogs/DialogView.h"
#include "desktop/results/ResultListView.h"
#include "desktop/results/ResultView.h"
#include "platform/forms/Forms.h"
#include "platform/forms/OwnerDrawList.h"
#include "vbide/VBIDE.h"

class QMenu;

namespace quorvane::desktop {

class DialogView;
class ResultListView;
class ResultView;

/// The whole program in English, with the sample group open and the add-in's windows at hand.
class SearchWindowsTest : public DesktopTest {
 protected:
  void StartInEnglish();
  void StartWithGroup();
  /// As the hotkey does.
  void ShowDialog();

  static frmSearchDialog& Dialog();
  static ResultDialog& Document();
  static std::shared_ptr<Page> CurrentPage();
  DialogView& DialogWidget();
  /// The first of that class below a widget, which must be there.
  template <class Widget>
  static Widget& Below(const QWidget& above) {
    for (QWidget* widget : above.findChildren<QWidget*>()) {
      if (auto* found = dynamic_cast<Widget*>(widget)) return *found;
    }
    throw std::runtime_error("no such widget");
  }
  /// The widget of a control of the search dialog.
  QWidget& WidgetOf(const forms::Control& control);
  ResultView& Results();
  ResultListView& List();

  /// Types a text into the dialog's first box.
  void TypeSearch(const QString& text);
  /// A whole search in the group with what the dialog says otherwise.
  void Search(const QString& text);
  /// What is selected in the code window in front.
  QString SelectedCode();
  void ClickRow(int row, bool twice);

  /// The one menu that is open; it must come.
  static QMenu* OpenMenu();
  /// Chooses an entry of the open menu by its words, without the mark of its key.
  static void Choose(const QString& words);
};

}  // namespace quorvane::desktop
