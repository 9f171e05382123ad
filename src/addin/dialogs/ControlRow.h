#pragma once

#include <memory>
#include <span>
#include <string>

namespace quorvane::forms {
class Control;
class Controls;
}  // namespace quorvane::forms

namespace quorvane {

/// A line of a form's table of controls.
struct ControlRow {
  std::u16string name;
  std::shared_ptr<forms::Control> control;
  std::u16string buttons = {};  ///< the name shared by the option buttons in a frame; empty when it has none
};

/// Enters the rows in the form's controls; the order is that of the Tab key.
void PlaceRows(forms::Controls& controls, std::span<const ControlRow> rows);

}  // namespace quorvane
