// WindowSearch FILE TEXT COUNT: opens a group in the desktop's main window, searches it from the search dialog as a
// user would, and prints four times in milliseconds: from the press of the button until the result list stands on the
// screen with all its rows; with the same search begun again and the Cancel button due to be pressed in its midst, from
// that moment until the search has ended; from the empty window until the group stands in its tree; and from a change
// of the stylesheet until all rows stand there anew. Ends with status 1 unless there are COUNT rows, or the search was
// not cancelled. Shows its windows on the display that the toolkit finds; QT_QPA_PLATFORM=offscreen draws into memory.

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
template <class Action>
Milliseconds TimeOf(const Action& action) {
  const Clock::time_point begin = Clock::now();
  action();
  QApplication::processEvents();
  return Clock::now() - begin;
}

/// What the user does who adds a word to the stylesheet: all rows are shown anew.
void ChangeStylesheet(quorvane::GlobalSetting& setting) {
  constexpr std::u16string_view kEnd = u"</xsl:template>";
  std::u16string sheet = setting.XSL();
  setting.SetXSL(sheet.insert(sheet.rfind(kEnd), u"<xsl:text>.</xsl:text>"));
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
  desktop.Window().show();
  QApplication::processEvents();
  const Milliseconds opened = TimeOf([&] { desktop.Window().OpenFiles({arguments[1]}); });

  auto& dialog = dynamic_cast<frmSearchDialog&>(*forms::TheForms().Instance(u"frmSearchDialog"));
  dialog.ShowEx();
  const std::u16string text = desktop::FromQString(arguments[2]);
  dialog.cmbSearch->Edit(text, 0, 0);
  dialog.optAreaButtons[gsAllProjects]->Press();
  Globals::gobjSetting->menumIgnoreComment = gsIncludeComment;
  dialog.MemToScreen();
  QApplication::processEvents();

  const auto search = [&] { dialog.cmdSearch->Press(); };
  const Milliseconds whole = TimeOf(search);
  const int rows = Rows();
  const Milliseconds restyled = TimeOf([] { ChangeStylesheet(*Globals::gobjSetting); });
  const bool allAgain = Rows() == rows;

  QTimer::singleShot(kCancelAfter, &desktop.Window(), [&] { dialog.cmdCancel->Press(); });
  const Milliseconds cancelled = TimeOf(search) - Milliseconds(kCancelAfter);
  std::printf("%.3f\n%.3f\n%.3f\n%.3f\n", whole.count(), cancelled.count(), opened.count(), restyled.count());
  return rows == arguments[3].toInt() && allAgain && Rows() < rows ? EXIT_SUCCESS : EXIT_FAILURE;
}
