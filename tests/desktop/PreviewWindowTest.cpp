#include <QApplication>
#include <QScreen>
#include <QTextBlock>
#include <QTextLayout>

#include "FormWindowsFixture.h"
#include "addin/dialogs/frmCodePreview.h"
#include "desktop/dialogs/CodePreviewView.h"
#include "desktop/editor/CodeColors.h"
#include "desktop/results/TabBarView.h"
#include "platform/forms/Screen.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

class PreviewWindowTest : public FormWindowsTest {
 protected:
  void StartWithResults() {
    StartWithGroup();
    Window().resize(1000, 700);
    Globals::gobjSetting->menumAutoHideSearchDlg = 0;
    Search(QStringLiteral("nextorderno"));
    QApplication::setActiveWindow(&Window());
    List().setFocus();
  }
  void ChooseInMenu(const char* entry) {
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, List().RectOf(0).center());
    Choose(QString::fromLatin1(entry));
    QCoreApplication::processEvents();
    QApplication::setActiveWindow(&Window());
  }
  /// The mouse comes to a row.
  void Hover(int row) {
    const QPoint place = List().RectOf(row).center();
    QTest::mouseMove(List().viewport(), place);
    QCoreApplication::processEvents();
  }
  QRect TabsPlace() {
    const QWidget& bar = Results().Bar();
    return {bar.mapToGlobal(QPoint(0, 0)), bar.size()};
  }
  QWidget& Preview() { return WindowOf(The<frmCodePreview>()); }
  CodePreviewView& Shown() { return Below<CodePreviewView>(Preview()); }

  /// What is marked in the text: colour, "-" when it is struck out, text.
  std::string Marks() {
    std::string all;
    for (QTextBlock block = Shown().document()->begin(); block.isValid(); block = block.next()) {
      for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextCharFormat format = at.fragment().charFormat();
        const QColor color = format.foreground().color();
        if (color.value() == 0) continue;
        all += color.name().toStdString() + (format.fontStrikeOut() ? "-" : " ") + at.fragment().text().toStdString() +
               "|";
      }
    }
    return all;
  }
  /// What stands on the screen in a colour, whoever gave it that.
  std::string Inked(const QColor& color) {
    std::string all;
    for (QTextBlock block = Shown().document()->begin(); block.isValid(); block = block.next()) {
      for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        if (range.format.foreground().color() != color) continue;
        all += block.text().mid(range.start, range.length).toStdString() + "|";
      }
    }
    return all;
  }
  std::string PlainText() { return Shown().toPlainText().toStdString(); }
  bool Comes(bool visible) {
    return WaitUntil([&] { return Preview().isVisible() == visible; }, 400ms);
  }
};

TEST_F(PreviewWindowTest, FollowsTheMouseOverTheList) {
  StartWithResults();
  Hover(1);
  ChooseInMenu("Code preview");
  EXPECT_TRUE(The<frmCodePreview>().CanShow());
  EXPECT_FALSE(Comes(true)) << "there is nothing in it yet";
  Hover(0);
  ASSERT_TRUE(Comes(true));
  EXPECT_EQ(Marks(), "#ff0000 NextOrderNo|");
  EXPECT_EQ(Inked(Qt::red), "NextOrderNo|");
  const std::string keywords = Inked(CodeColors::Of(Shown().palette()).keyword);
  EXPECT_NE(keywords.find("Public|"), std::string::npos) << keywords;
  EXPECT_GE(Shown().document()->documentMargin(), 6);
  const std::string first = PlainText();
  const QSizeF text = Shown().document()->size();
  EXPECT_GE(Preview().height(), text.height());
  EXPECT_GE(Preview().width(), Shown().document()->idealWidth());
  EXPECT_EQ(QApplication::activeWindow(), &Window());
  EXPECT_TRUE(List().hasFocus());
  EXPECT_FALSE(Preview().frameGeometry().intersects(TabsPlace()));
  // What is worked with is not covered.
  Dialog().Show();
  Dialog().Move(Preview().x(), Preview().y());
  QApplication::setActiveWindow(&Window());
  EXPECT_TRUE(Comes(false));
  EXPECT_FALSE(Comes(true));
  Dialog().Hide();
  QApplication::setActiveWindow(&Window());
  EXPECT_TRUE(Comes(true));

  Hover(2);
  EXPECT_NE(PlainText(), first);
  // At the screen's edge the form is narrow; its window is moved in.
  auto& form = The<frmCodePreview>();
  form.Move(forms::TheScreen().Left + forms::TheScreen().Width - 50, form.Top());
  form.SetSize(600, form.Height());
  EXPECT_EQ(form.Width(), 50);
  EXPECT_GE(Preview().width(), Shown().document()->idealWidth());
  EXPECT_TRUE(Preview().screen()->geometry().contains(Preview().frameGeometry()));

  ChooseInMenu("Code preview");
  EXPECT_FALSE(Preview().isVisible());
  EXPECT_FALSE(Comes(true)) << "it is off";
}

TEST_F(PreviewWindowTest, ShowsTheReplacementBehindTheOldText) {
  StartWithResults();
  Globals::gobjSetting->mstrReplaceStr = u"Number$1";
  ChooseInMenu("Code preview");
  ChooseInMenu("Relpace preview");
  Hover(1);
  ASSERT_TRUE(Comes(true));
  EXPECT_EQ(Marks(), "#ff0000-NextOrderNo|#0000ff Number$1|");
  Globals::gobjSetting->mstrReplaceStr = u"";
  Hover(2);
  EXPECT_EQ(Marks(), "#ff0000-NextOrderNo|");
}

TEST_F(PreviewWindowTest, ATextLargerThanTheScreenShowsItsMatch) {
  StartWithResults();
  std::u16string lines;
  for (int i = 0; i < 2'000; ++i) lines += u"' filler\r\n";
  workbench::Module& module = ModuleNamed(u"modMain");
  module.InsertLines(1, lines + u"Const kLong = \"" + std::u16string(3'000, u'x') + u" needle\"\r\n" + lines);
  Globals::gobjSetting->mintRelativeLineCount = 32'767;
  Search(QStringLiteral("needle"));
  ChooseInMenu("Code preview");
  Hover(0);
  ASSERT_TRUE(Comes(true));
  EXPECT_GT(The<frmCodePreview>().Height(), 30'000);
  EXPECT_TRUE(Preview().screen()->geometry().contains(Preview().frameGeometry()));
  QTextCursor cursor = Shown().document()->find(QStringLiteral("needle"));
  EXPECT_TRUE(Shown().viewport()->rect().contains(Shown().cursorRect(cursor)));
}

}  // namespace
}  // namespace quorvane::desktop
