#include "addin/dialogs/ControlRow.h"

#include "base/Error.h"
#include "platform/forms/Controls.h"
#include "platform/forms/Frame.h"
#include "platform/forms/OptionButton.h"

namespace quorvane {

void PlaceRows(forms::Controls& controls, std::span<const ControlRow> rows) {
  for (const ControlRow& row : rows) {
    controls.Place(row.name, row.control);
    if (row.buttons.empty()) continue;
    for (const auto& child : Deref(std::dynamic_pointer_cast<forms::Frame>(row.control)).Children()) {
      const auto button = std::dynamic_pointer_cast<forms::OptionButton>(child);
      controls.Place(row.buttons, Deref(button).Index(), child);
    }
  }
}

}  // namespace quorvane
