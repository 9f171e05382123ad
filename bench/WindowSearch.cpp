// WindowSearch FILE TEXT COUNT: opens a group in the desktop's main window, searches it once from the search dialog as
// a user would, and prints the milliseconds from the press of the button until the result list stands on the screen
// with all its rows. Ends with status 1 unless there are COUNT rows. Shows its windows on the display that the toolkit
// finds; QT_QPA_PLATFORM=offscreen draws into memory.

#include <QApplication>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "desktop/Desktop.h"
#include "desktop/MainWindow.h"
#include "desktop/QtText.h"
#include "dialogs/frmSearchDialog.h"
#include "host/Globals.h"
#include "platform/forms/Forms.h"
#include "platform/forms/OwnerDrawList.h"
#include "results/Page.h"
#include "results/PageManager.h"
#include "services/GlobalSetting.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  using Clock = std::chrono::steady_clock;
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

  auto& dialog = dynamic_cast<frmSearchDialog&>(*TheForms().Instance(u"frmSearchDialog"));
  dialog.ShowEx();
  const std::u16string text = desktop::FromQString(arguments[2]);
  dialog.cmbSearch->Edit(text, 0, 0);
  dialog.optAreaButtons[gsAllProjects]->Press();
  Globals::gobjSetting->menumIgnoreComment = gsIncludeComment;
  dialog.MemToScreen();
  QApplication::processEvents();

  const Clock::time_point begin = Clock::now();
  dialog.cmdSearch->Press();
  QApplication::processEvents();
  const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
  std::printf("%.3f\n", taken.count());
  const auto page = std::dynamic_pointer_cast<Page>(Globals::gobjPageManager->ActivePage());
  return page && page->mlstResultList->ListCount() == arguments[3].toInt() ? EXIT_SUCCESS : EXIT_FAILURE;
}
