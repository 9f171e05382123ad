#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <map>

#include "QtFixture.h"
#include "desktop/platform/KeyboardLayout.h"
#include "desktop/platform/ProgramStyle.h"
#include "desktop/platform/QtCanvas.h"
#include "desktop/platform/QtKeys.h"
#include "desktop/platform/QtMessageLoop.h"
#include "desktop/platform/QtPrompts.h"
#include "support/Rows.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

class QtPlatformTest : public QtTest {};

TEST_F(QtPlatformTest, YieldsAreCheapAndLetEventsHappenInTime) {
  QtMessageLoop loop;
  SteadyClock::time_point happened;
  const auto begin = SteadyClock::now();
  QTimer::singleShot(0, [&] { happened = SteadyClock::now(); });
  int yields = 0;
  while (happened == SteadyClock::time_point() && SteadyClock::now() - begin < 1s) {
    loop.DoEvents();
    ++yields;
  }
  EXPECT_NE(happened, SteadyClock::time_point());
  EXPECT_GT(yields, 0);

  // What always has something to do gets its turn now and then, not at each yield.
  int ticks = 0;
  QTimer eager;
  QObject::connect(&eager, &QTimer::timeout, [&] { ++ticks; });
  eager.start(0);
  const auto busy = SteadyClock::now();
  for (yields = 0; SteadyClock::now() - busy < 200ms; ++yields) loop.DoEvents();
  EXPECT_GE(ticks, 2);
  EXPECT_LE(ticks, 40);
  EXPECT_GT(yields, 10'000);
}

TEST_F(QtPlatformTest, ASlowEventDoesNotMakeTheLoopDeaf) {
  QtMessageLoop loop;
  QTimer slow;
  QObject::connect(&slow, &QTimer::timeout, [] { QTest::qSleep(200); });
  slow.start(0);
  loop.DoEvents();
  bool cancelled = false;
  QTimer::singleShot(0, [&] { cancelled = true; });
  const auto begin = SteadyClock::now();
  while (!cancelled && SteadyClock::now() - begin < 3s) loop.DoEvents();
  EXPECT_LT(SteadyClock::now() - begin, 750ms);  // one slow event and a short pause; by its cost it would be 800 ms
}

TEST_F(QtPlatformTest, TimersTickUntilTheyAreStopped) {
  QtMessageLoop loop;
  int first = 0;
  int second = 0;
  MessageLoop::TimerId id = 0;
  id = loop.StartTimer(5, [&] {
    if (++first == 3) loop.StopTimer(id);
  });
  const auto other = loop.StartTimer(5, [&] { ++second; });
  EXPECT_NE(id, other);
  WaitUntil([&] { return second >= 10; }, 2s);
  EXPECT_EQ(first, 3);
  loop.StopTimer(other);
  loop.StopTimer(other);
  const int before = second;
  QTest::qWait(30);
  EXPECT_EQ(second, before);
}

TEST_F(QtPlatformTest, WaitsAsLongAsAsked) {
  QtMessageLoop loop;
  int asked = 0;
  loop.WaitWhile([&] { return ++asked < 1; });
  EXPECT_EQ(asked, 1);
  bool waiting = true;
  QTimer::singleShot(10, [&] { waiting = false; });
  loop.WaitWhile([&] { return waiting; });
  EXPECT_FALSE(waiting);
}

TEST_F(QtPlatformTest, KeysHaveThePlatformsCodes) {
  struct Case {
    int key;
    Qt::KeyboardModifiers modifiers;
    int code;
  };
  const Case cases[] = {
      {Qt::Key_Q, Qt::ControlModifier, 81},     {Qt::Key_F3, Qt::NoModifier, 114},
      {Qt::Key_F12, Qt::NoModifier, 123},       {Qt::Key_Escape, Qt::NoModifier, 27},
      {Qt::Key_Return, Qt::NoModifier, 13},     {Qt::Key_Enter, Qt::KeypadModifier, 13},
      {Qt::Key_5, Qt::KeypadModifier, 101},     {Qt::Key_5, Qt::NoModifier, 53},
      {Qt::Key_Percent, Qt::ShiftModifier, 53}, {Qt::Key_Plus, Qt::KeypadModifier, 107},
      {Qt::Key_Plus, Qt::ShiftModifier, 187},   {Qt::Key_Delete, Qt::NoModifier, 46},
      {Qt::Key_PageDown, Qt::NoModifier, 34},   {Qt::Key_Backtab, Qt::ShiftModifier, 9},
      {Qt::Key_MediaPlay, Qt::NoModifier, 0},
  };
  for (const Case& row : cases) {
    const QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers);
    EXPECT_EQ(VirtualKeyOf(event), row.code) << row.key;
  }
  EXPECT_EQ(ShiftStateOf(Qt::ShiftModifier | Qt::AltModifier | Qt::KeypadModifier), 5);
  EXPECT_EQ(ShiftStateOf(Qt::ControlModifier), 2);
}

TEST_F(QtPlatformTest, SignsHaveTheKeysOfTheLayout) {
  std::map<std::string, std::vector<KeyboardLayout::Key>> layouts;
  const std::vector<test::Row> rows = test::Rows("desktop/QtPlatform.rows", "Signs");
  for (const test::Row& row : rows) {
    auto& keys = layouts[row.Bytes(0)];
    keys.resize(128);
    keys[static_cast<std::size_t>(row.Number(1))] = {static_cast<std::uint32_t>(row.Number(2)),
                                                     static_cast<std::uint32_t>(row.Number(3))};
  }
  for (const test::Row& row : rows) {
    const KeyboardLayout layout(layouts[row.Bytes(0)]);
    EXPECT_EQ(layout.CodeOf(static_cast<std::uint32_t>(row.Number(1))), row.Number(4)) << row.Where();
    EXPECT_EQ(layout.CodeOf(200), 0);
  }
}

TEST_F(QtPlatformTest, MessageBoxHasButtonsAndDefaultOfItsFlags) {
  struct Case {
    int flags;
    std::vector<QMessageBox::StandardButton> buttons;
    QMessageBox::StandardButton preset;
    QMessageBox::StandardButton press;
    int answer;
  };
  const Case cases[] = {
      {16, {QMessageBox::Ok}, QMessageBox::Ok, QMessageBox::Ok, 1},
      {1, {QMessageBox::Ok, QMessageBox::Cancel}, QMessageBox::Ok, QMessageBox::Cancel, 2},
      {2 | 256,
       {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore},
       QMessageBox::Retry,
       QMessageBox::Ignore,
       5},
      {4 | 32, {QMessageBox::Yes, QMessageBox::No}, QMessageBox::Yes, QMessageBox::Yes, 6},
      {4 | 32 | 256, {QMessageBox::Yes, QMessageBox::No}, QMessageBox::No, QMessageBox::No, 7},
  };
  for (const Case& row : cases) {
    QTimer::singleShot(0, [&] {
      auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text(), QStringLiteral("<b>text</b>"));
      EXPECT_EQ(box->buttons().size(), static_cast<qsizetype>(row.buttons.size()));
      EXPECT_EQ(box->standardButton(box->defaultButton()), row.preset);
      ASSERT_NE(box->button(row.press), nullptr);
      box->button(row.press)->click();
    });
    EXPECT_EQ(QtPrompts().MsgBox(u"<b>text</b>", row.flags, u"title"), row.answer) << row.flags;
  }
}

/// The colour that most of the drawn characters have.
QColor InkOn(const QPalette& palette, Color text, Color background) {
  QImage image(60, 40, QImage::Format_RGB32);
  QPainter painter(&image);
  QtCanvas canvas(painter, palette);
  canvas.FillRect({0, 0, 60, 40}, background);
  canvas.SetBkColor(background);
  canvas.SetTextColor(text);
  LogFont font;
  font.Height = -30;
  font.Weight = 700;
  canvas.SelectFont(canvas.CreateFont(font));
  canvas.TextOut(2, 2, u"\u2588\u2588");
  painter.end();
  return image.pixelColor(14, 20);
}

TEST_F(QtPlatformTest, CanvasNamesTheColorsOfThePalette) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Text, QColor(220, 220, 220));
  dark.setColor(QPalette::Highlight, QColor(40, 80, 160));
  dark.setColor(QPalette::HighlightedText, QColor(250, 250, 250));
  EXPECT_EQ(InkOn(dark, 0x000000, 0xFFFFFF), QColor(220, 220, 220));
  EXPECT_EQ(InkOn(dark, 0xFFFFFF, 0xD77800), QColor(250, 250, 250));
  EXPECT_GT(InkOn(dark, 0x404000, 0xFFFFFF).lightness(), 120);  // too dark for this ground as it is

  QPalette light;
  light.setColor(QPalette::Base, Qt::white);
  EXPECT_EQ(InkOn(light, 0x404000, 0xFFFFFF), QColor(0, 0x40, 0x40));
}

TEST_F(QtPlatformTest, FramesAreSeenOnDarkGroundAndPagesDoNotShine) {
  ProgramStyle style(QStringLiteral("fusion"));
  const QPalette dark(QColor(0x4A, 0x4F, 0x56), QColor(0x3A, 0x3E, 0x44));
  const auto apart = [&](QWidget& widget, const QPoint& place) {
    widget.setStyle(&style);
    widget.setPalette(dark);
    widget.resize(200, 100);
    widget.show();
    return widget.grab().toImage().pixelColor(place).lightness() - dark.color(QPalette::Window).lightness();
  };
  QGroupBox box(QStringLiteral("Title"));
  EXPECT_GT(apart(box, {100, 99}), 15);
  QTabWidget tabs;
  tabs.addTab(new QWidget, QStringLiteral("Tab"));
  EXPECT_LT(apart(tabs, {100, 80}), 25);
}

TEST_F(QtPlatformTest, CanvasTextIsPlainAndAddsUp) {
  QImage image(400, 40, QImage::Format_RGB32);
  QPainter painter(&image);
  QtCanvas canvas(painter, QPalette());
  EXPECT_EQ(canvas.TextWidth(u"a\tb"), canvas.TextWidth(u"a b"));
  EXPECT_GT(canvas.TextWidth(u"a&b"), canvas.TextWidth(u"ab"));
  EXPECT_EQ(canvas.TextWidth(u""), 0);
  const auto bold = canvas.CreateFont({u"", -20, 700, false, false, false, 0});
  const auto normal = canvas.CreateFont({u"", -20, 400, false, false, false, 0});
  EXPECT_EQ(canvas.SelectFont(normal), nullptr);
  const auto width = canvas.TextWidth(u"mmmm");
  EXPECT_EQ(canvas.SelectFont(bold), normal);
  EXPECT_GT(canvas.TextWidth(u"mmmm"), width);
}

}  // namespace
}  // namespace quorvane::desktop
