#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Event.h"

namespace quorvane::forms {

/// Why a form is being unloaded, as QueryUnload is told.
enum class UnloadMode : std::int16_t {
  FormControlMenu = 0,  ///< the user closed it
  FormCode = 1,         ///< code unloads it
  AppWindows = 2,       ///< the session ends
  AppTaskManager = 3,
  FormMDIForm = 4,
  FormOwner = 5,
};

enum class FormModal : std::int32_t { Modeless = 0, Modal = 1 };

/// A window of the add-in as a model: nothing is drawn here. A view listens to Changed and to the list of open forms. A
/// form is made unloaded; while it is loaded it stands in TheForms(), which keeps it alive. Made by make_shared alone.
class Form : public std::enable_shared_from_this<Form> {
 public:
  explicit Form(std::u16string name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::u16string& Name() const { return name_; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(const std::u16string& caption);

  bool Loaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  /// Whether Show(Modal) is waiting for this form.
  bool ShownModal() const { return modal_; }
  /// The form that the last Show named as owner; null when there is none or it is gone.
  std::shared_ptr<Form> Owner() const { return owner_.lock(); }

  /// Runs Form_Load unless the form is loaded. The form stands in the list of open forms from before Form_Load on; when
  /// that raises, it leaves the list and the error reaches the caller.
  void Load();
  /// Loads if needed and makes visible. Modal: returns when the form is hidden or unloaded; the message loop runs
  /// meanwhile. Error 400 for a visible form to be shown modally, 364 when Form_Load unloaded the form.
  void Show(FormModal modal = FormModal::Modeless, const std::shared_ptr<Form>& owner = nullptr);
  /// Does nothing with a form that is not loaded.
  void Hide();
  /// Asks Form_QueryUnload, then Form_Unload; either may cancel. False when cancelled. A form that is not loaded is
  /// left alone.
  bool Unload(UnloadMode mode = UnloadMode::FormCode);
  /// The user's close box.
  bool CloseByUser() { return Unload(UnloadMode::FormControlMenu); }

  Event<> Changed;     ///< caption, visibility or loaded
  Event<> ShownAgain;  ///< Show of a form that was visible: it comes to the front

 protected:
  virtual void Form_Load() {}
  /// `cancel` true keeps the form loaded.
  virtual void Form_QueryUnload(bool& cancel, UnloadMode mode);
  virtual void Form_Unload(bool& cancel);
  /// Neither loads nor waits; a form that is not loaded stays invisible. For a form that shows or hides its window by
  /// the handle, which leaves Visible behind.
  void SetVisible(bool visible);

 private:
  void Leave();
  void WaitModal();

  std::u16string name_;
  std::u16string caption_;
  std::weak_ptr<Form> owner_;
  bool loaded_ = false;
  bool visible_ = false;  ///< invariant: false unless loaded_
  bool modal_ = false;
};

}  // namespace quorvane::forms
