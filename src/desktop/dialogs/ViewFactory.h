#pragma once

#include <functional>
#include <memory>
#include <vector>

class QWidget;

namespace quorvane::forms {
class Form;
}  // namespace quorvane::forms

namespace quorvane {

namespace vbide {
class Document;
}

namespace desktop {

/// Knows which widget shows which document of a tool window and which form. A view shows its model and feeds the user's
/// input back to it; it holds no logic. The desktop gives it its window: a dock for a document, a dialog for a form,
/// which follow caption, visibility, owner and modality of the model and hand closing by the user to it.
///
/// The view of a form is made when the form is opened, before Form_Load; that of a document together with its dock. It
/// goes with that window. It is a child of `parent`, which owns it, and says by its focus proxy where focus begins. Of
/// a Dialog the window sets handle, place and size; focus and keys are the view's.
class ViewFactory {
 public:
  /// `make(model, parent)` gives a new view; `model` outlives it.
  template <class Model, class Make>
  void RegisterDocument(Make make) {
    documents_.push_back([make](vbide::Document& document, QWidget* parent) -> QWidget* {
      auto* model = dynamic_cast<Model*>(&document);
      return model != nullptr ? make(*model, parent) : nullptr;
    });
  }
  template <class Model, class Make>
  void RegisterForm(Make make) {
    forms_.push_back([make](forms::Form& form, QWidget* parent) -> QWidget* {
      auto* model = dynamic_cast<Model*>(&form);
      return model != nullptr ? make(*model, parent) : nullptr;
    });
  }

  /// Null for a model of a type that nobody registered.
  QWidget* MakeView(vbide::Document& document, QWidget* parent) const { return First(documents_, document, parent); }
  QWidget* MakeView(forms::Form& form, QWidget* parent) const { return First(forms_, form, parent); }

 private:
  template <class Model>
  using Makers = std::vector<std::function<QWidget*(Model&, QWidget*)>>;

  template <class Model>
  static QWidget* First(const Makers<Model>& makers, Model& model, QWidget* parent) {
    for (const auto& make : makers) {
      if (QWidget* view = make(model, parent)) return view;
    }
    return nullptr;
  }

  Makers<vbide::Document> documents_;
  Makers<forms::Form> forms_;
};

}  // namespace desktop
}  // namespace quorvane
