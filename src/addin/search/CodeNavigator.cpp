#include "addin/search/CodeNavigator.h"

#include <cstdint>

#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::int32_t kMaximized = 2;

}  // namespace

void ShowInHost(vbide::CodeModule& code, const vbide::Selection& range) {
  const auto pane = code.CodePane();
  Deref(pane).SetSelection(range);
  pane->Show();
  const auto window = pane->Window();
  if (Deref(Globals::gobjSetting).mblnMaximizeWhenLocate) Deref(window).SetWindowState(kMaximized);
  Deref(Globals::gobjUtilities).ActivateCodeWindow(Deref(window));
  ThePlatform().Loop().DoEvents();
}

}  // namespace quorvane
