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

  const std::shared_ptr<forms::PictureBox> picIcon = std::make_shared<forms::PictureBox>();
  const std::shared_ptr<forms::Label> lblTitle = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::Label> lblVersion = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::Frame> Frame说明 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::TextBox> txt说明 = std::make_shared<forms::TextBox>(forms::TextBox::Lines::Many);
  const std::shared_ptr<forms::Frame> Frame许可 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::TextBox> txt许可 = std::make_shared<forms::TextBox>(forms::TextBox::Lines::Many);
  const std::array<std::shared_ptr<forms::Line>, 2> Line1 = {std::make_shared<forms::Line>(),
                                                             std::make_shared<forms::Line>()};
  const std::shared_ptr<forms::Label> lbl网址 = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::Label> lblProjectUrl = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::Label> lbl邮箱 = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::Label> lblEmail = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::CommandButton> cmdOK =
      std::make_shared<forms::CommandButton>();  ///< default and cancel button

  /// IVersionUI_Update: all captions.
  void Update() override;

 protected:
  void Form_Load() override;

 private:
  void PlaceControls();
  /// Fills `box` from a file in the program's folder; leaves it empty without one.
  static void LoadFile(forms::TextBox& box, const std::u16string& name);
};

}  // namespace quorvane
