#pragma once

#include <QComboBox>
#include <cstdint>

#include "base/Event.h"

namespace quorvane::forms {
class ComboBox;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A text to edit with its list. A text that is dropped on it goes to the model, which decides what becomes of it.
class ComboView final : public QComboBox {
 public:
  enum class Kind { Editable, ListOnly };

  /// The model outlives this. With ListOnly a text can only be picked.
  ComboView(forms::ComboBox& combo, Kind kind, QWidget* parent);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Follow();
  void FollowList();
  void FollowText();
  void Edited();

  forms::ComboBox& combo_;
  bool busy_ = false;
  std::int32_t selStart_ = 0;  ///< the model's selection when it was last shown
  std::int32_t selLength_ = 0;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
