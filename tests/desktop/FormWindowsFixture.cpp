#include "FormWindowsFixture.h"

#include <QDesktopServices>
#include <QUrl>
#include <QWindow>
#include <exception>

#include "desktop/dialogs/FormWindow.h"
#include "desktop/dialogs/FormWindows.h"
#include "platform/forms/Dialog.h"

namespace quorvane::desktop {

AddressCatcher::AddressCatcher() {
  for (const char* scheme : {"http", "mailto"}) QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Take");
}

AddressCatcher::~AddressCatcher() {
  for (const char* scheme : {"http", "mailto"}) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
}

void AddressCatcher::Take(const QUrl& url) {
  addresses.append(url.toString());
}

void FormWindowsTest::Walk(const std::u16string& name, const std::function<void()>& open,
                           const std::function<void()>& walk) {
  bool walked = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    const auto form = forms::TheForms().Count() > 0 ? forms::TheForms().Open().back() : nullptr;
    if (!form || form->Name() != name || QApplication::activeWindow() != &WindowOf(*form)) return;
    watch.stop();
    walked = true;
    try {
      EXPECT_EQ(WindowOf(*form).windowModality(), Qt::ApplicationModal);
      walk();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    EXPECT_FALSE(form->Loaded()) << "the walk left it open";
    form->Unload();
  });
  watch.start(1);
  // From inside an event, as the user's input comes: what a menu deletes later must outlive the form that it opened.
  bool closed = false;
  QTimer::singleShot(0, [&] {
    open();
    closed = true;
  });
  while (!closed) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_TRUE(walked) << "the form did not come";
}

void FormWindowsTest::Walk(const std::u16string& name, From from, const std::function<void()>& walk) {
  const std::string entry = name == u"frmAbout" ? "About" : "Options";
  QWidget& surface = from == From::ResultMenu ? *List().viewport() : static_cast<QWidget&>(DialogWidget());
  QWindow* owner = surface.window()->windowHandle();
  QApplication::setActiveWindow(surface.window());
  QTest::mouseClick(&surface, Qt::RightButton, {}, QPoint(3, 3));
  const bool dots = from == From::SearchDialog || name == u"frmAbout";
  Walk(
      name, [&] { Choose(QString::fromStdString(entry + (dots ? " ..." : ""))); },
      [&] {
        EXPECT_EQ(WindowOf(*forms::TheForms().Open().back()).windowHandle()->transientParent(), owner);
        walk();
      });
}

QWidget& FormWindowsTest::WindowOf(const forms::Form& form) {
  FormWindow* window = desktop->Forms().WindowOf(form);
  return window != nullptr ? *window : throw std::runtime_error("the form has no window");
}

QWidget& FormWindowsTest::FindWidget(const forms::Dialog& form, const forms::Control& control) {
  QWidget* widget = Below<DialogView>(WindowOf(form)).WidgetOf(control);
  return widget != nullptr ? *widget : throw std::runtime_error(ToQString(control.Name()).toStdString());
}

void FormWindowsTest::Click(const forms::Dialog& form, const forms::Control& control) {
  QWidget& widget = FindWidget(form, control);
  EXPECT_TRUE(widget.isVisible() && widget.isEnabled()) << ToQString(control.Name()).toStdString();
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(10, widget.height() / 2));
}

void FormWindowsTest::Type(QWidget& box, const QString& text) {
  box.setFocus(Qt::MouseFocusReason);
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&box, text);
}

}  // namespace quorvane::desktop
