#include <QAccessible>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSet>
#include <QSlider>
#include <QTabWidget>

#include "FormWindowsFixture.h"
#include "addin/connect/Connect.h"
#include "addin/connect/Updater.h"
#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmOption.h"
#include "desktop/results/ResultListView.h"
#include "desktop/shell/AddInsMenu.h"

namespace quorvane::desktop {
namespace {

class OptionWindowsTest : public FormWindowsTest {
 protected:
  void StartWithResults() {
    StartWithGroup();
    Globals::gobjSetting->menumAutoHideSearchDlg = 2;
    Search(QStringLiteral("nextorderno"));
  }

  frmOption& Options() { return The<frmOption>(); }
  QTabWidget& Tabs() { return WidgetOf<QTabWidget>(Options(), *Options().SSTab设定); }
  void PickTab(int index) {
    QTest::mouseClick(Tabs().tabBar(), Qt::LeftButton, {}, Tabs().tabBar()->tabRect(index).center());
    EXPECT_EQ(Options().SSTab设定->Tab(), index);
  }
  void PressOk() { Click(Options(), *Options().cmd确定); }
  void PressCancel() { Click(Options(), *Options().cmd取消); }
  QPlainTextEdit& Editor() { return WidgetOf<QPlainTextEdit>(Options(), *Options().TextXsl); }
  void PickLanguage(int index) {
    PickTab(OptionControls::kLanguageTab);
    auto& combo = WidgetOf<QComboBox>(Options(), *Options().Combo语言);
    combo.setFocus();
    QTest::keyClick(&combo, index == 0 ? Qt::Key_Home : Qt::Key_End);
    EXPECT_EQ(Options().Combo语言->ListIndex(), index);
  }

  /// "lines interval hide to maximize sensibility language".
  static std::string Memory() {
    const GlobalSetting& setting = *Globals::gobjSetting;
    std::string all;
    for (const std::int32_t value :
         {std::int32_t{setting.mintRelativeLineCount}, Globals::gobjUpdater->menumUpdateInterval,
          setting.menumAutoHideSearchDlg, setting.menumDefaultSearchTo, std::int32_t{setting.mblnMaximizeWhenLocate},
          Globals::gobjUpdater->menumSensibility, Globals::Language().Language}) {
      all += std::to_string(value) + " ";
    }
    return all;
  }

  /// Uses every control of the first tab.
  void EditGeneralTab() {
    frmOption& o = Options();
    auto& lines = WidgetOf<QLineEdit>(o, *o.txt预览行数);
    Type(lines, QStringLiteral("99"));
    Click(o, *o.cmd恢复默认预览行数);
    EXPECT_EQ(lines.text(), QStringLiteral("12"));
    Type(lines, QStringLiteral("7"));
    for (const auto& choices : {o.optIntervalButtons[0], o.optIntervalButtons[4], o.optAutoHideSearchDlgButtons[1],
                                o.opt默认搜索位置Buttons[0]}) {
      Click(o, *choices);
    }
    EXPECT_FALSE(WidgetOf<QRadioButton>(o, *o.optIntervalButtons[0]).isChecked());
    Click(o, *o.chk定位时将代码窗口最大化);
    auto& slider = WidgetOf<QSlider>(o, *o.Slider灵敏度);
    auto& words = WidgetOf<QLabel>(o, *o.lbl灵敏度);
    for (const char* expected : {"Sensitivity:mediam(Minor)", "Sensitivity:low(Major)", "Sensitivity:low(Major)"}) {
      QTest::keyClick(&slider, Qt::Key_Left);
      EXPECT_EQ(words.text().toStdString(), expected);
      EXPECT_EQ(words.toolTip(), slider.toolTip());
    }
    EXPECT_EQ(words.toolTip(), QStringLiteral("Only prompt when major version number is changed"));
  }
};

/// Name and description of a part and of all in it that is seen, as a screen reader has them. What cannot be used
/// without a name, and what holds markup, is a failure; the user's own words, such as entries of lists, are left out.
void Hear(QAccessibleInterface* part, QStringList& all) {
  if (part == nullptr || part->state().invisible) return;
  const auto* widget = dynamic_cast<QWidget*>(part->object());
  const QString name = part->text(QAccessible::Name);
  const bool usable = widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
  const bool tabs = part->role() == QAccessible::PageTabList;  // named as its tab is, or nothing
  EXPECT_TRUE(!usable || tabs || !name.isEmpty()) << widget->metaObject()->className();
  const bool result = part->parent() != nullptr && dynamic_cast<ResultListView*>(part->parent()->object()) != nullptr;
  const bool data = result || part->role() == QAccessible::TreeItem || part->role() == QAccessible::ComboBox;
  for (const QString& text : {name, part->text(QAccessible::Description)}) {
    EXPECT_FALSE(Qt::mightBeRichText(text) || text.contains(QLatin1String("&lt;"))) << text.toStdString();
    const bool path = text.startsWith(QLatin1Char('/'));
    const bool told = text.contains(QLatin1String("module:"));  // by a search, in the language of its time
    if (!data && !path && !told && text.contains(QRegularExpression(QStringLiteral("\\pL")))) all << text;
  }
  for (int i = 0; i < part->childCount(); ++i) Hear(part->child(i), all);
}

QSet<QString> HeardNow() {
  QStringList all;
  for (QWidget* window : QApplication::topLevelWidgets()) Hear(QAccessible::queryAccessibleInterface(window), all);
  return {all.begin(), all.end()};
}

constexpr char kBefore[] = "12 2 2 1 1 2 1 ";

TEST_F(OptionWindowsTest, TheGeneralTabIsKeptByOkAlone) {
  StartWithResults();
  Walk(u"frmOption", From::ResultMenu, [&] {
    EXPECT_EQ(WindowOf(Options()).windowTitle(), QStringLiteral("Quorvane Options"));
    EditGeneralTab();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
      QTest::keyClick(&WidgetOf(Options(), *Options().txt预览行数), key);
      QTest::keyClick(&WidgetOf(Options(), *Options().optIntervalButtons[2]), key);
      QTest::keyClick(&Tabs(), key);
    }
    EXPECT_EQ(Memory(), kBefore);
    PressCancel();
  });
  EXPECT_EQ(Memory(), kBefore);
  Walk(u"frmOption", From::SearchDialog, [&] {
    EditGeneralTab();
    PressOk();
  });
  EXPECT_EQ(Memory(), "7 4 1 0 0 0 1 ");
}

TEST_F(OptionWindowsTest, TheStylesheetIsAppliedAtOnce) {
  StartWithResults();
  GlobalSetting& setting = *Globals::gobjSetting;
  const auto row = [this] { return CurrentPage()->mlstResultList->List(0); };
  const std::u16string first = row();
  const std::u16string mine = ReplaceAll(setting.XSL(), u"<xsl:text>[</xsl:text>", u"<xsl:text>\u00a0at </xsl:text>");
  Walk(u"frmOption", From::ResultMenu, [&] {
    PickTab(OptionControls::kFilterTab);
    EXPECT_TRUE(Editor().isVisible());
    Editor().selectAll();
    Editor().insertPlainText(ToQString(mine));
    EXPECT_EQ(row(), first);
    Click(Options(), *Options().cmd应用过滤器);
    EXPECT_EQ(row(), ReplaceAll(first, u"[", u"\u00a0at "));
    Click(Options(), *Options().cmd过滤器帮助);
    EXPECT_EQ(system.addresses.join(QLatin1Char(' ')),
              QStringLiteral("http://127.0.0.1:1/p/vbquorvane/wiki/Options_Filter"));
    Click(Options(), *Options().cmd重置过滤器);
    EXPECT_EQ(Options().TextXsl->Text(), GlobalSetting::DefaultXSL());
    Editor().moveCursor(QTextCursor::Start);
    QTest::keyClick(&Editor(), Qt::Key_Return);
    PressCancel();
  });
  EXPECT_EQ(setting.XSL(), mine) << "neither reset nor typing was applied";
  Walk(u"frmOption", From::ResultMenu, [&] {
    PickTab(OptionControls::kFilterTab);
    Editor().moveCursor(QTextCursor::End);
    QTest::keyClick(&Editor(), Qt::Key_Return);
    PressOk();
  });
  EXPECT_EQ(setting.XSL(), mine + u"\r\n") << "every other character is as it was";
}

TEST_F(OptionWindowsTest, AStylesheetWithAFaultIsMarkedAndAskedAbout) {
  StartWithResults();
  Search(QStringLiteral("nextorderno"));
  const std::u16string before = Globals::gobjSetting->XSL();
  const int rows = CurrentPage()->mlstResultList->ListCount();
  const QString sheet = QStringLiteral(
      "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>\n"
      "<xsl:template match='MatchItem'>\n%1\n</xsl:template></xsl:stylesheet>");
  const QString fatal = sheet.arg(QStringLiteral("<xsl:message terminate='yes'>no</xsl:message>"));
  Walk(u"frmOption", From::ResultMenu, [&] {
    PickTab(OptionControls::kFilterTab);
    const auto note = [&](const QString& text) {
      const QLabel& label = *Editor().parentWidget()->findChild<QLabel*>();
      const QString old = label.text();
      Editor().setPlainText(text);
      EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() != old; }));
      std::string said;
      for (const auto& mark : Editor().extraSelections()) said += std::to_string(mark.cursor.blockNumber() + 1) + " ";
      return said + label.text().toStdString();
    };
    EXPECT_EQ(note(sheet.arg(QStringLiteral("<b>"))).substr(0, 10), "3 \u26A0 Line");
    EXPECT_EQ(note(sheet.arg(QStringLiteral("<xsl:message>hello</xsl:message>"))), "The stylesheet says: hello");
    EXPECT_EQ(note(sheet.arg(QString())), "");
    Editor().setPlainText(sheet.arg(QStringLiteral("<xsl:value-of select='('/>")));
    QString asked;
    AnswerNext(QMessageBox::Cancel, &asked);
    Click(Options(), *Options().cmd应用过滤器);
    EXPECT_TRUE(asked.contains(QStringLiteral("Line 3"))) << asked.toStdString();
    EXPECT_EQ(Globals::gobjSetting->XSL(), before);
    EXPECT_EQ(CurrentPage()->mlstResultList->ListCount(), rows);
    Editor().setPlainText(fatal);
    AnswerNext(QMessageBox::Apply);
    AnswerNext(QMessageBox::Ok, &asked);  // of two pages one tells
    PressOk();
    EXPECT_TRUE(asked.contains(QStringLiteral("no"))) << asked.toStdString();
  });
  EXPECT_EQ(ReplaceAll(Globals::gobjSetting->XSL(), u"\r\n", u"\n"), FromQString(fatal));
}

TEST_F(OptionWindowsTest, AnotherLanguageIsEverywhereAtOnce) {
  StartWithResults();
  const auto words = [this] {
    std::string all;
    const QString shown[] = {WindowOf(Dialog()).windowTitle(),
                             WidgetOf<QPushButton>(Dialog(), *Dialog().cmdSearch).text(),
                             ToQString(Document().mnuAbout.Caption()),
                             Window().ToolDocks().at(0)->windowTitle(),
                             ToQString(Document().mnuCloseTab.Caption()),
                             Window().findChild<AddInsMenu*>()->actions().at(0)->text(),
                             Window().Menu().Find(Text::FileSave)->text()};
    for (const QString& text : shown) all += text.toStdString() + "|";
    return all;
  };
  const std::string english = words();
  EXPECT_NE(english.find("|Search result|"), std::string::npos) << english;
  Walk(u"frmOption", From::SearchDialog, [&] {
    PickLanguage(0);
    EXPECT_EQ(words(), english);
    PressOk();
  });
  EXPECT_EQ(words(), "Quorvane|搜索(&S)|关于(&A) ...|搜索结果|关闭当前页面(&C)|Quorvane插件(&D)\tCtrl+Q|保存(&S)|");
  Walk(
      u"frmOption", [] { forms::TheForms().Instance(u"frmOption")->Show(forms::FormModal::Modal); },
      [&] {
        EXPECT_EQ(Tabs().tabText(3), QStringLiteral("语言"));
        PickLanguage(1);
        PressOk();
      });
  EXPECT_EQ(words(), english);

  Globals::gobjConnect->mcbMenuCommandBar->Delete();
  Walk(u"frmOption", From::SearchDialog, [&] {
    PickLanguage(0);
    PressOk();
  });
  EXPECT_EQ(Window().Menu().Find(Text::FileSave)->text(), QStringLiteral("保存(&S)"));
}

/// All windows at once: what is the same in both languages is no word of the program.
TEST_F(OptionWindowsTest, AScreenReaderHearsTheLanguageAndNoMarkup) {
  StartInEnglish();
  QSet<QString> english = HeardNow();
  Open("samples/Shop/Shop.vbg");
  QApplication::setActiveWindow(&Window());
  Search(QStringLiteral("<"));
  ShowDialog();
  EditorOf(u"modMain");
  Walk(u"frmAbout", From::SearchDialog, [&] {
    english += HeardNow();
    Click(The<frmAbout>(), *The<frmAbout>().cmdOK);
  });
  auto& changes = *Window().findChild<QDockWidget*>(QStringLiteral("Changes"));  // lies over the results
  changes.show();
  Walk(u"frmOption", From::SearchDialog, [&] {
    for (const int tab : {0, 1, 2}) {
      PickTab(tab);
      english += HeardNow();
    }
    PickLanguage(0);
    PressOk();
  });
  for (const QString& text : english) {
    EXPECT_FALSE(text.contains(QRegularExpression(QStringLiteral("\\p{Han}")))) << text.toStdString();
  }
  QSet<QString> chinese;
  const auto show = [](const char16_t* form) {
    return [form] { forms::TheForms().Instance(form)->Show(forms::FormModal::Modal); };
  };
  Walk(u"frmAbout", show(u"frmAbout"), [&] {
    chinese += HeardNow();
    changes.hide();
    Click(The<frmAbout>(), *The<frmAbout>().cmdOK);
  });
  Walk(u"frmOption", show(u"frmOption"), [&] {
    for (const int tab : {0, 1, 2, 3}) {
      PickTab(tab);
      chinese += HeardNow();
    }
    PressCancel();
  });
  QStringList same = (english & chinese).values();
  same.sort();
  EXPECT_EQ(same.join(QLatin1Char('|')).toStdString(),
            "Quorvane|Search '<'|Shop.modMain|Shop.vbg - Quorvane|quorvane@127.0.0.1");
}

TEST_F(OptionWindowsTest, ALoadThatFailsRevertsNothing) {
  StartWithResults();
  const auto key = [] { return chordtrap::KeyText(Globals::gobjHotkeyProxy->Manager->Items()[1]->Key); };
  Walk(u"frmOption", From::ResultMenu, [&] {
    Options().ChordTrapControl1.Select(1);
    Options().ChordTrapControl1.Press({'F', chordtrap::kCtrl | chordtrap::kShift});
    Options().ChordTrapControl1.Add();
    PressOk();
  });
  Globals::gobjUpdater->menumUpdateInterval = 9;
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  Walk(u"frmOption", From::ResultMenu, [&] { PressCancel(); });
  EXPECT_TRUE(told.contains(QStringLiteral("9"))) << told.toStdString();
  EXPECT_EQ(key(), u"Ctrl+Shift+F");
}

}  // namespace
}  // namespace quorvane::desktop
