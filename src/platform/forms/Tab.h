#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvane::forms {

class Control;
class TabControl;

/// One tab of a TabControl, made by its Add. A tab that has left its control keeps its properties.
class Tab {
 public:
  Tab(TabControl& owner, std::u16string key, std::u16string caption, std::int32_t iconIndex);
  ~Tab();
  Tab(const Tab&) = delete;
  Tab& operator=(const Tab&) = delete;

  const std::u16string& Key() const { return key_; }
  /// 0-based image of the control's image list, -1 for none.
  std::int32_t IconIndex() const { return iconIndex_; }

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(const std::u16string& caption);
  const std::u16string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(const std::u16string& text);
  bool CanClose() const { return canClose_; }
  void SetCanClose(bool canClose);

  bool Selected() const;
  /// Selects the tab; whether the whole bar is enabled plays no part. Error 91 for a tab that has left its control.
  void Select();

  /// Shown while the tab is selected, hidden otherwise; nothing at first.
  const std::shared_ptr<Control>& Panel() const { return panel_; }
  void SetPanel(std::shared_ptr<Control> panel);

 private:
  friend class TabControl;
  void ShowPanel() const;
  void Tell() const;

  TabControl* owner_;  ///< null after the removal
  std::u16string key_;
  std::u16string caption_;
  std::u16string toolTipText_;
  std::shared_ptr<Control> panel_;
  std::int32_t iconIndex_;
  bool canClose_ = true;
};

}  // namespace quorvane::forms
