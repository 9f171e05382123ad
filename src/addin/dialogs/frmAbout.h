#pragma once

#include <array>
#include <memory>

#include "addin/core/IVersionUI.h"
#include "addin/dialogs/FramedDialog.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Line.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TextBox.h"

namespace quorvane {

/// The about box: title, version, the read-me and licence texts that lie beside the program, and two links.
///
/// The view's side: picIcon is to show the add-in's icon; the text boxes have a vertical scroll bar and the form's own
/// background; the links raise Click by Label::Press.
class frmAbout final : public FramedDialog, public IVersionUI {
 public:
  frmAbout();
  ~frmAbout() override;

  const std::shared_ptr<PictureBox> picIcon = std::make_shared<PictureBox>();
  const std::shared_ptr<Label> lblTitle = std::make_shared<Label>();
  const std::shared_ptr<Label> lblVersion = std::make_shared<Label>();
  const std::shared_ptr<Frame> Frame说明 = std::make_shared<Frame>();
  const std::shared_ptr<TextBox> txt说明 = std::make_shared<TextBox>(TextBox::Lines::Many);
  const std::shared_ptr<Frame> Frame许可 = std::make_shared<Frame>();
  const std::shared_ptr<TextBox> txt许可 = std::make_shared<TextBox>(TextBox::Lines::Many);
  const std::array<std::shared_ptr<Line>, 2> Line1 = {std::make_shared<Line>(), std::make_shared<Line>()};
  const std::shared_ptr<Label> lbl网址 = std::make_shared<Label>();
  const std::shared_ptr<Label> lblProjectUrl = std::make_shared<Label>();
  const std::shared_ptr<Label> lbl邮箱 = std::make_shared<Label>();
  const std::shared_ptr<Label> lblEmail = std::make_shared<Label>();
  const std::shared_ptr<CommandButton> cmdOK = std::make_shared<CommandButton>();  ///< default and cancel button

  /// IVersionUI_Update: all captions.
  void Update() override;

 protected:
  void Form_Load() override;

 private:
  void PlaceControls();
  /// Fills `box` from a file in the program's folder; leaves it empty without one.
  static void LoadFile(TextBox& box, const std::u16string& name);
};

}  // namespace quorvane
