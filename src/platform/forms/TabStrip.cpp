#include "platform/forms/TabStrip.h"

#include "base/Error.h"
#include "platform/forms/PictureBox.h"

namespace quorvane::forms {

TabStrip::TabStrip(std::int16_t tabs) {
  for (std::int16_t tab = 0; tab < tabs; ++tab) {
    tabs_.push_back({{}, std::make_shared<PictureBox>()});
    tabs_.back().panel->SetVisible(tab == tab_);
  }
}

const TabStrip::Page& TabStrip::At(std::int16_t tab) const {
  if (tab < 0 || tab >= Tabs()) {
    RaiseError(ErrorNumber::InvalidPropertyValue, u"Invalid property value: the number of a tab");
  }
  return tabs_[static_cast<std::size_t>(tab)];
}

void TabStrip::SetTabCaption(std::int16_t tab, const std::u16string& caption) {
  if (caption == At(tab).caption) return;
  tabs_[static_cast<std::size_t>(tab)].caption = caption;
  Changed.Raise();
}

void TabStrip::SetTab(std::int16_t tab) {
  At(tab);
  if (tab == tab_) return;
  const std::int16_t previous = tab_;
  tab_ = tab;
  At(previous).panel->SetVisible(false);
  At(tab).panel->SetVisible(true);
  Changed.Raise();
  Click.Raise(previous);
}

void TabStrip::Pick(std::int16_t tab) {
  if (Enabled() && Visible()) SetTab(tab);
}

}  // namespace quorvane::forms
