#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

#include "desktop/dialogs/DialogView.h"

class QLabel;
class QLayout;

namespace quorvane::forms {
class Frame;
}  // namespace quorvane::forms

namespace quorvane {

class frmSearchDialog;

namespace desktop {

class ComboView;
class StatusLabel;

/// The search dialog: both texts above, the frames side by side below them with the line that names the module being
/// searched, the buttons in a column on the right. What the user should know besides: how a search or a replace ended,
/// and that a replace leaves comments out as little as strings.
class SearchDialogView final : public DialogView {
 public:
  using Tell = std::function<void(const QString&)>;

  /// The form outlives this. `tell` shows a line outside of the dialog, which may be hidden.
  SearchDialogView(frmSearchDialog& form, Tell tell, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLayout* MakeTexts();
  QLayout* MakeFrames();
  QLayout* MakeButtons();
  void AddHint(QWidget& choices);
  void Listen();
  void FollowHint();
  void HoldBack(bool& held);
  void SearchEnded(std::int32_t matches);
  void ReplaceEnded(std::int32_t places, std::int32_t modules) const;

  frmSearchDialog& form_;
  Tell tell_;
  ComboView* find_ = nullptr;
  StatusLabel* status_ = nullptr;
  QLabel* hint_ = nullptr;
  std::vector<Subscription> listening_;
};

}  // namespace desktop
}  // namespace quorvane
