// WindowSearch FILE TEXT COUNT: opens a group in the desktop's main window, searches it from the search dialog as a
// user would, and prints two times in milliseconds: from the press of the button until the result list stands on the
// screen with all its rows; and, with the same search begun again and the Cancel button due to be pressed in its midst,
// from that moment until the search has ended. Ends with status 1 unless there are COUNT rows, or the search was not
// cancelled. Shows its windows on the display that the toolkit finds; QT_QPA_PLATFORM=offscreen draws into memory.

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "addin/core/Globals.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/results/Page.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "desktop/platform/QtText.h"
#include "desktop/shell/Desktop.h"
#include "desktop/shell/MainWindow.h"
#include "platform/forms/Forms.h"
#include "platform/forms/OwnerDrawList.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::chrono::milliseconds kCancelAfter(80);

/// Until all is painted.
Milliseconds Search(quorvane::frmSearchDialog& dialog) {
  const Clock::time_point begin = Clock::now();
  dialog.cmdSearch->Press();
  QApplication::processEvents();
  return Clock::now() - begin;
}

int Rows() {
  using namespace quorvane;
  const auto page = std::dynamic_pointer_cast<Page>(Globals::gobjPageManager->ActivePage());
  return page ? page->mlstResultList->ListCount() : 0;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvane;
  qputenv("QUORVANE_PROJECT_HOST", "127.0.0.1:1");
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) return EXIT_FAILURE;
  const QTemporaryDir folder;
  desktop::QtPlatform::Setup setup;
  setup.codePage = "1252";
  setup.configFolder = setup.programFolder = folder.path().toStdString();
  desktop::Desktop desktop(setup);
  desktop.Start();
  desktop.Window().OpenFiles({arguments[1]});

  auto& dialog = dynamic_cast<frmSearchDialog&>(*forms::TheForms().Instance(u"frmSearchDialog"));
  dialog.ShowEx();
  const std::u16string text = desktop::FromQString(arguments[2]);
  dialog.cmbSearch->Edit(text, 0, 0);
  dialog.optAreaButtons[gsAllProjects]->Press();
  Globals::gobjSetting->menumIgnoreComment = gsIncludeComment;
  dialog.MemToScreen();
  QApplication::processEvents();

  const Milliseconds whole = Search(dialog);
  const int rows = Rows();

  QTimer::singleShot(kCancelAfter, &desktop.Window(), [&] { dialog.cmdCancel->Press(); });
  const Milliseconds cancelled = Search(dialog) - Milliseconds(kCancelAfter);
  std::printf("%.3f\n%.3f\n", whole.count(), cancelled.count());
  return rows == arguments[3].toInt() && Rows() < rows ? EXIT_SUCCESS : EXIT_FAILURE;
}
