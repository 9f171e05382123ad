#pragma once

#include "addin/dialogs/frmSearchDialog.h"
#include "addin/results/Page.h"
#include "addin/results/PageManager.h"
#include "addin/results/ResultDialog.h"
#include "base/Event.h"
#include "platform/forms/DataObject.h"
#include "support/FakeWindows.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

/// A tool window of which only the visibility matters.
class PlainWindow final : public vbide::Window {
 public:
  std::u16string Caption() const override { return {}; }
  void SetCaption(const std::u16string&) override {}
  bool Visible() const override { return visible; }
  void SetVisible(bool value) override { visible = value; }
  void SetWindowState(std::int32_t) override {}
  void Close() override { visible = false; }

  bool visible = false;
};

/// The form's caption and those of its controls in their order, "|" between them.
std::string Captions(forms::Dialog& form);

/// What a drag of text brings, or of something else when it is no text.
class Dragged final : public forms::DataObject {
 public:
  explicit Dragged(std::u16string text, bool isText = true) : text_(std::move(text)), isText_(isText) {}
  bool GetFormat(std::int16_t format) const override { return isText_ && format == 1; }
  std::u16string GetData(std::int16_t) const override { return text_; }

 private:
  std::u16string text_;
  bool isText_;
};

/// The search dialog with the real pages and the embedded host. A view stands in for the dialog's window: handle 77,
/// 600 by 300 pixels, on a screen of 1000 by 800.
class DialogWorld : public SearchWorld {
 public:
  DialogWorld();
  ~DialogWorld();

  /// A host with these sources, as SearchWorld does it, and the fake windows around it.
  void OpenGroup(const Group& group);
  /// The one search dialog; another one after an unload.
  frmSearchDialog& Dialog();
  /// What the user types.
  void Type(forms::ComboBox& combo, const std::u16string& text);
  /// The active page's key and the rows of its list after their places.
  std::string Rows() const;
  /// "search|replace|area|mode|case|word|single line|comment" of the settings.
  std::string Condition();
  std::shared_ptr<Page> ActivePage();
  /// Enabled commands and captions: "search replace; cancel hidden; module".
  std::string Commands();

  FakeWindows windows;
  std::shared_ptr<ResultDialog> document = std::make_shared<ResultDialog>();
  std::shared_ptr<PlainWindow> toolWindow = std::make_shared<PlainWindow>();

  using SearchWorld::Condition;

 private:
  Subscription onOpened_;
};

class DialogFixture : public ::testing::Test, public DialogWorld {};

}  // namespace quorvane::test
