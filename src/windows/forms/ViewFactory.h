#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/forms/Form.h"
#include "vbide/VBIDE.h"
#include "windows/forms/View.h"

namespace quorvane::windows {

/// Knows which view shows which document of a tool window and which form. Of a form it makes the inside: FormWindow
/// gives it its window, which follows caption, visibility, owner and modality of the model and hands closing by the
/// user to it.
///
/// The view of a form is made when the form is opened, before Form_Load; that of a document together with its window,
/// and anew when the host has destroyed that. `make(model, parent)` gives a std::unique_ptr<View> in the window
/// `parent`; the model outlives it.
class ViewFactory {
 public:
  template <class Model, class Make>
  void RegisterDocument(Make make) {
    documents_.push_back(Maker<Model, vbide::Document>(make));
  }
  template <class Model, class Make>
  void RegisterForm(Make make) {
    forms_.push_back(Maker<Model, forms::Form>(make));
  }

  /// Nothing for a model of a type that nobody registered.
  std::unique_ptr<View> MakeView(vbide::Document& document, HWND parent) const {
    return First(documents_, document, parent);
  }
  std::unique_ptr<View> MakeView(forms::Form& form, HWND parent) const { return First(forms_, form, parent); }

 private:
  template <class Base>
  using Make = std::function<std::unique_ptr<View>(Base&, HWND)>;

  template <class Model, class Base, class MakeOne>
  static Make<Base> Maker(MakeOne make) {
    return [make](Base& base, HWND parent) -> std::unique_ptr<View> {
      auto* model = dynamic_cast<Model*>(&base);
      return model != nullptr ? make(*model, parent) : nullptr;
    };
  }
  template <class Base>
  static std::unique_ptr<View> First(const std::vector<Make<Base>>& makers, Base& model, HWND parent) {
    for (const auto& make : makers) {
      if (auto view = make(model, parent)) return view;
    }
    return nullptr;
  }

  std::vector<Make<vbide::Document>> documents_;
  std::vector<Make<forms::Form>> forms_;
};

}  // namespace quorvane::windows
