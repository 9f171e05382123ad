#include "DisplayFixture.h"

#include <QEventLoop>
#include <QMenuBar>
#include <QTreeWidget>
#include <QWindow>
#include <thread>

#include "desktop/results/TabBarView.h"
#include "desktop/shell/ProjectTree.h"

namespace quorvane::desktop {

using namespace std::chrono_literals;

namespace {

constexpr int kToolTime = 20'000;  // ms

QString Output(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished(kToolTime) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    throw std::runtime_error((program + QLatin1Char(' ') + arguments.join(QLatin1Char(' ')) + QLatin1String(": ") +
                              process.errorString() + QString::fromUtf8(process.readAllStandardError()))
                                 .toStdString());
  }
  return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

/// Without the mark of its key, and the keys that stand behind a tab.
QString Plain(QString words) {
  return words.section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
}

/// As the window system's tools have it.
QString Id(const QWidget& window) {
  return QStringLiteral("0x%1").arg(window.effectiveWinId(), 0, 16);
}

/// The windows that a property of the window system lists.
QStringList RootProperty(const char* name) {
  const QString told = Output(QStringLiteral("xprop"), {QStringLiteral("-root"), QString::fromLatin1(name)});
  return told.section(QLatin1Char('#'), 1).remove(QLatin1Char(' ')).split(QLatin1Char(','));
}

/// Where a window begins inside its frame, from what the window system's tool tells of it.
QPoint PlaceIn(const QString& facts) {
  const auto number = [&](const char* name) {
    return facts.section(QString::fromLatin1(name), 1).trimmed().section(QLatin1Char('\n'), 0, 0).toInt();
  };
  return {number("Absolute upper-left X:"), number("Absolute upper-left Y:")};
}

/// What waits for an answer goes without one.
void CloseWaiting() {
  QWidget* waiting = QApplication::activePopupWidget();
  if (waiting == nullptr) waiting = QApplication::activeModalWidget();
  if (waiting != nullptr) waiting->close();
}

}  // namespace

void DisplayTest::SetUp() {
  ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "to be run by scripts/with-display";
  QGuiApplication::setQuitOnLastWindowClosed(false);
  Input({QStringLiteral("mousemove"), QStringLiteral("0"), QStringLiteral("0")});
}

void DisplayTest::Walk(const std::function<void()>& person) {
  QEventLoop loop;
  std::thread thread([&] {
    try {
      Must(IsInFront(Main()), "the main window");
      person();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    Soon([] {
      CloseWaiting();
      return QApplication::activeModalWidget() == nullptr;
    });
    See([&loop] { loop.quit(); });
  });
  loop.exec();
  thread.join();
}

void DisplayTest::InProgram(std::function<void()> action) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(action), Qt::QueuedConnection);
}

QString DisplayTest::Input(const QStringList& command) {
  return Output(QStringLiteral("xdotool"), command);
}

void DisplayTest::Press(const QString& keys) {
  Input({QStringLiteral("key"), keys});
}

void DisplayTest::Type(const QString& text) {
  Input({QStringLiteral("type"), QStringLiteral("--"), text});
}

void DisplayTest::SetLayout(const QString& name) {
  Output(QStringLiteral("setxkbmap"), {name});
}

void DisplayTest::Point(const Place& place) {
  QPoint found;
  std::string why;
  const bool seen = Soon([&] {
    try {
      found = place();
      return true;
    } catch (const std::exception& error) {
      why = error.what();
      return false;
    }
  });
  if (!seen) throw std::runtime_error("nothing to point at: " + why);
  Input({QStringLiteral("mousemove"), QString::number(found.x()), QString::number(found.y())});
}

void DisplayTest::Click(const Place& place, int button, int times) {
  Point(place);
  Input({QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times), QStringLiteral("--delay"),
         QStringLiteral("30"), QString::number(button)});
}

void DisplayTest::Must(bool came, const std::string& what) {
  if (!came) throw std::runtime_error("waited in vain: " + what);
}

bool DisplayTest::Comes(const std::function<bool()>& holds, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  for (;;) {
    bool held = false;
    try {
      held = holds();
    } catch (const std::exception&) {  // what it looks at is not there yet
    }
    if (held || std::chrono::steady_clock::now() > end) return held;
    std::this_thread::sleep_for(10ms);
  }
}

bool DisplayTest::Soon(const std::function<bool()>& holds, std::chrono::milliseconds limit) {
  return Comes([&] { return See(holds); }, limit);
}

bool DisplayTest::IsInFront(const Shown& window) {
  return Comes([&] {
    const auto [id, place] = See([&] {
      const QWidget& widget = window();
      if (!widget.isActiveWindow()) throw std::runtime_error("it is not active");
      return std::pair(Id(widget), widget.geometry().topLeft());
    });
    const QString facts = Output(QStringLiteral("xwininfo"), {QStringLiteral("-id"), id});
    return RootProperty("_NET_ACTIVE_WINDOW").contains(id) && PlaceIn(facts) == place;
  });
}

bool DisplayTest::LiesAbove(const Shown& upper, const Shown& lower) {
  return Comes([&] {
    const auto [upperId, lowerId] = See([&] { return std::pair(Id(upper()), Id(lower())); });
    const QStringList order = RootProperty("_NET_CLIENT_LIST_STACKING");
    return order.contains(lowerId) && order.indexOf(upperId) > order.indexOf(lowerId);
  });
}

QPoint DisplayTest::On(QWidget& widget) {
  return On(widget, widget.rect().center());
}

QPoint DisplayTest::On(QWidget& widget, const QPoint& place) {
  const QWindow* window = widget.window()->windowHandle();
  if (!widget.isVisible() || window == nullptr || !window->isExposed()) throw std::runtime_error("it is hidden");
  return widget.mapToGlobal(place);
}

QPoint DisplayTest::OnRow(int row) {
  const QRect rect = List().RectOf(row);
  if (rect.isNull()) throw std::runtime_error("the row is not on the screen");
  return On(*List().viewport(), {60, rect.center().y()});
}

QPoint DisplayTest::OnEntry(QWidget& menu, const QString& words) {
  for (QAction* action : menu.actions()) {
    if (Plain(action->text()) != words) continue;
    const auto* bar = dynamic_cast<const QMenuBar*>(&menu);
    const QRect rect =
        bar != nullptr ? bar->actionGeometry(action) : dynamic_cast<const QMenu&>(menu).actionGeometry(action);
    return On(menu, rect.center());
  }
  throw std::runtime_error("no entry " + words.toStdString());
}

/// As the window manager's own look has it: at the right end of the title.
QPoint DisplayTest::OnCloseBox(const QWidget& window) {
  const int title = window.geometry().top() - window.frameGeometry().top();
  if (title <= 0) throw std::runtime_error("the window has no frame");
  return window.frameGeometry().topRight() + QPoint(-title / 2, title / 2);
}

QWidget& DisplayTest::WindowTitled(const QString& title) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && widget->windowTitle() == title) return *widget;
  }
  throw std::runtime_error("no window " + title.toStdString());
}

QWidget& DisplayTest::Box() {
  QWidget* const box = QApplication::activeModalWidget();
  if (dynamic_cast<QDialog*>(box) == nullptr) throw std::runtime_error("no box");
  return *box;
}

QWidget& DisplayTest::DialogWindow() {
  return *DialogWidget().window();
}

DisplayTest::Shown DisplayTest::Main() {
  return [this]() -> QWidget& { return Window(); };
}

DisplayTest::Shown DisplayTest::SearchDialog() {
  return [this]() -> QWidget& { return DialogWindow(); };
}

void DisplayTest::OpenModule(const QString& name) {
  Click(
      [&] {
        QTreeWidgetItem* item = ItemNamed(name);
        QTreeWidget& tree = Window().Tree().Tree();
        return On(*tree.viewport(), tree.visualItemRect(item).center());
      },
      1, 2);
  Must(Soon([&] { return Window().Code().Current()->windowTitle().contains(name); }), "the code window");
}

void DisplayTest::ShowDialogByKey() {
  Press(QStringLiteral("ctrl+q"));
  Must(IsInFront(SearchDialog()), "the search dialog");
}

void DisplayTest::SearchByKeys(const QString& text) {
  ShowDialogByKey();
  Type(text);
  Press(QStringLiteral("alt+g"));
  Press(QStringLiteral("Return"));
  const QString caption = QStringLiteral("Search '%1'").arg(text);
  const auto done = [&] {
    const TabBarView& bar = Results().Bar();
    return bar.tabText(bar.currentIndex()) == caption && !CurrentPage()->Task()->Running();
  };
  Must(Soon(done), "the results");
  Press(QStringLiteral("Escape"));
  Must(IsInFront(Main()), "the main window");
}

}  // namespace quorvane::desktop
