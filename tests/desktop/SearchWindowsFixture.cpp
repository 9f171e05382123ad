#include "SearchWindowsFixture.h"

#include "desktop/dialogs/FormWindow.h"
#include "desktop/dialogs/FormWindows.h"

namespace quorvane::desktop {

using namespace std::chrono_literals;

void SearchWindowsTest::StartInEnglish() {
  Start();
  Globals::Language().Language = 1;
  Globals::Language().UpdateAllUI();
  Window().SetLanguage(1);
}

void SearchWindowsTest::StartWithGroup() {
  StartInEnglish();
  Open("samples/Shop/Shop.vbg");
  QApplication::setActiveWindow(&Window());
}

void SearchWindowsTest::ShowDialog() {
  QTest::keyClick(&Window(), Qt::Key_Q, Qt::ControlModifier);
  ASSERT_TRUE(
      WaitUntil([this] { return Dialog().Visible() && QApplication::activeWindow() == DialogWidget().window(); }, 2s));
}

frmSearchDialog& SearchWindowsTest::Dialog() {
  return dynamic_cast<frmSearchDialog&>(*forms::TheForms().Instance(u"frmSearchDialog"));
}

ResultDialog& SearchWindowsTest::Document() {
  return dynamic_cast<ResultDialog&>(*Globals::gobjResultDoc);
}

std::shared_ptr<Page> SearchWindowsTest::CurrentPage() {
  return std::dynamic_pointer_cast<Page>(Globals::gobjPageManager->ActivePage());
}

DialogView& SearchWindowsTest::DialogWidget() {
  return Below<DialogView>(*desktop->Forms().WindowOf(Dialog()));
}

QWidget& SearchWindowsTest::WidgetOf(const forms::Control& control) {
  return *DialogWidget().WidgetOf(control);
}

ResultView& SearchWindowsTest::Results() {
  return Below<ResultView>(*Window().ToolDocks().at(0));
}

ResultListView& SearchWindowsTest::List() {
  ResultListView* list = Results().CurrentList();
  return list != nullptr ? *list : throw std::runtime_error("no list");
}

void SearchWindowsTest::TypeSearch(const QString& text) {
  QWidget& box = WidgetOf(*Dialog().cmbSearch);
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&box, text);
}

void SearchWindowsTest::Search(const QString& text) {
  if (!Dialog().Visible()) ShowDialog();
  TypeSearch(text);
  Dialog().optAreaButtons[2]->Press();
  QTest::keyClick(&WidgetOf(*Dialog().cmbSearch), Qt::Key_Return);
  QCoreApplication::processEvents();
}

QString SearchWindowsTest::SelectedCode() {
  CodeWindow* window = Window().Code().Current();
  return window != nullptr ? window->Editor().textCursor().selectedText() : QString();
}

void SearchWindowsTest::ClickRow(int row, bool twice) {
  const QPoint place = List().RectOf(row).center();
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place);
  if (twice) QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
}

QMenu* SearchWindowsTest::OpenMenu() {
  return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
}

void SearchWindowsTest::Choose(const QString& words) {
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }, 1s));
  QMenu* menu = OpenMenu();
  for (QAction* action : menu->actions()) {
    if (action->text().remove(QLatin1Char('&')) != words) continue;
    EXPECT_TRUE(action->isEnabled()) << words.toStdString();
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    return;
  }
  menu->close();
  FAIL() << "no such entry: " << words.toStdString();
}

}  // namespace quorvane::desktop
