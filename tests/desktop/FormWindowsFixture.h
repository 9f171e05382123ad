#pragma once

#include <QObject>
#include <QStringList>

#include "SearchWindowsFixture.h"

class QUrl;

namespace quorvane::forms {
class Control;
class Dialog;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// Stands in for the browser and the mail program of the system.
class AddressCatcher final : public QObject {
  Q_OBJECT

 public:
  AddressCatcher();
  ~AddressCatcher() override;

  QStringList addresses;

 public Q_SLOTS:
  void Take(const QUrl& url);
};

/// The add-in's other windows, driven as a user does.
class FormWindowsTest : public SearchWindowsTest {
 protected:
  enum class From { ResultMenu, SearchDialog };

  /// Opens a modal form by `open` and runs `walk` when its window is there; the walk has to close it.
  void Walk(const std::u16string& name, const std::function<void()>& open, const std::function<void()>& walk);
  /// The same from one of the two menus. The form's window stays above that of the menu.
  void Walk(const std::u16string& name, From from, const std::function<void()>& walk);

  /// The open form of that class.
  template <class Model>
  static Model& The() {
    for (const auto& form : forms::TheForms().Open()) {
      if (auto* found = dynamic_cast<Model*>(form.get())) return *found;
    }
    throw std::runtime_error("no such form is open");
  }
  QWidget& WindowOf(const forms::Form& form);
  using SearchWindowsTest::WidgetOf;
  /// The widget of a control of an open form.
  template <class Widget = QWidget>
  Widget& WidgetOf(const forms::Dialog& form, const forms::Control& control) {
    return dynamic_cast<Widget&>(FindWidget(form, control));
  }
  void Click(const forms::Dialog& form, const forms::Control& control);
  /// Types a text in the place of what a box holds.
  static void Type(QWidget& box, const QString& text);

  AddressCatcher system;

 private:
  QWidget& FindWidget(const forms::Dialog& form, const forms::Control& control);
};

}  // namespace desktop
}  // namespace quorvane
