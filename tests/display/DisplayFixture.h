#pragma once

#include <QPoint>
#include <QProcess>
#include <QStringList>
#include <future>
#include <type_traits>

#include "desktop/SearchWindowsFixture.h"

class QWidget;

namespace quorvane::desktop {

/// The program on a real display, used by a person with a mouse and a keyboard of the window system. The person is a
/// thread of its own, so that a dialog that waits for an answer stops nobody; what the program shows is looked at in
/// the program's thread.
class DisplayTest : public SearchWindowsTest {
 protected:
  // Both are looked at in the program's thread.
  using Place = std::function<QPoint()>;    ///< on the screen
  using Shown = std::function<QWidget&()>;  ///< a window

  void SetUp() override;

  /// Lets the program run while the person acts. Whatever is open after that and waits for an answer is closed.
  void Walk(const std::function<void()>& person);

  // What the person does.

  /// A command of the tool for input; gives what it printed.
  static QString Input(const QStringList& command);
  static void Press(const QString& keys);
  static void Type(const QString& text);
  /// Another keyboard, by its name for the window system.
  static void SetLayout(const QString& name);
  /// Puts the pointer on a thing as soon as that can be seen.
  static void Point(const Place& place);
  static void Click(const Place& place, int button = 1, int times = 1);

  // What the person sees. Give true as soon as that holds, false when it does not come.

  static bool Soon(const std::function<bool()>& holds, std::chrono::milliseconds limit = std::chrono::seconds(10));
  /// A window has the keyboard and its place, for the program and for the window system.
  static bool IsInFront(const Shown& window);
  /// One window lies over the other, by the order of the window system.
  static bool LiesAbove(const Shown& upper, const Shown& lower);

  /// Does something in the program's thread, which may throw, and gives its result.
  template <class Action>
  static auto See(Action action) {
    auto task = std::make_shared<std::packaged_task<std::invoke_result_t<Action>()>>(std::move(action));
    auto result = task->get_future();
    InProgram([task] { (*task)(); });
    return result.get();
  }

  /// Ends the walk when something does not come that has to.
  static void Must(bool came, const std::string& what);

  // Things on the screen, for the program's thread; throw when they cannot be seen.

  static QPoint On(QWidget& widget);
  static QPoint On(QWidget& widget, const QPoint& place);
  QPoint OnRow(int row);
  /// An entry of the menu or menu bar that is open, by its words without the mark of a key.
  static QPoint OnEntry(QWidget& menu, const QString& words);
  /// The button in the frame of a window with which it is closed.
  static QPoint OnCloseBox(const QWidget& window);
  static QWidget& WindowTitled(const QString& title);
  static QWidget& Box();
  QWidget& DialogWindow();
  Shown Main();
  Shown SearchDialog();

  // Roads that several tests go.

  void OpenModule(const QString& name);
  void ShowDialogByKey();
  /// A search in the group, from the main window, with keys.
  void SearchByKeys(const QString& text);

 private:
  static constexpr std::chrono::seconds kLimit{10};
  static bool Comes(const std::function<bool()>& holds, std::chrono::milliseconds limit = kLimit);
  static void InProgram(std::function<void()> action);
};

}  // namespace quorvane::desktop
