#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "addin/core/IVersionUI.h"
#include "addin/dialogs/FramedDialog.h"
#include "base/Event.h"
#include "platform/forms/ProgressBar.h"
#include "platform/forms/Timer.h"

namespace quorvane {

class Updater;

/// The progress window of an update check that the user asked for. Its load starts the check; it goes when the check is
/// done or has failed, and closing it cancels the check. The bar measures nothing.
///
/// The view's side: nothing but the bar and the close box.
class frmProcessing final : public FramedDialog, public IVersionUI {
 public:
  frmProcessing();
  ~frmProcessing() override;

  const std::shared_ptr<forms::ProgressBar> pb检查更新 = std::make_shared<forms::ProgressBar>(0, 100);
  forms::Timer Timer进度条{200, true};

  /// IVersionUI_Update: the caption.
  void Update() override;

 protected:
  void Form_Load() override;
  void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
  void Form_Unload(bool& cancel) override;

 private:
  void Timer进度条_Timer();
  void mobjUpdater_TaskDone();
  void mobjUpdater_OnError(std::int32_t number, const std::u16string& description);

  std::shared_ptr<Updater> mobjUpdater;  ///< from Form_Load to Form_Unload
  Subscription onTaskDone_;
  Subscription onError_;
};

}  // namespace quorvane
