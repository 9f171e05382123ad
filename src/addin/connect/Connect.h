#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/core/IVersionUI.h"
#include "base/Event.h"
#include "vbide/VBIDE.h"

namespace quorvane {

/// The add-in's entry into the host: starts and stops everything else in a fixed order, and keeps one entry in the
/// host's "Add-Ins" menu, which shows the search dialog. The host makes one for a connection, by make_shared.
class Connect final : public vbide::AddInInstance,
                      public IVersionUI,
                      public std::enable_shared_from_this<Connect>,
                      private Counted<Connect> {
 public:
  static constexpr std::string_view ClassName = "Connect";

  Connect();
  ~Connect() override;

  std::shared_ptr<vbide::CommandBarControl> mcbMenuCommandBar;  ///< null when no entry was made

  /// ShowEx of the one search dialog, made if needed.
  void Show();
  /// The name from which all ProgIDs are formed.
  std::u16string ProjectName() const { return u"QuorvaneForVB6"; }
  /// Adds the menu entry; null when the host has no such bar. An error is shown; null then, too.
  std::shared_ptr<vbide::CommandBarControl> AddToAddInCommandBar(const std::u16string& sCaption);

  /// AddinInstance_OnConnection. An error is shown and ends the start where it happened.
  void OnConnection(const std::shared_ptr<vbide::VBE>& Application, vbide::ConnectMode connectMode,
                    const std::shared_ptr<vbide::AddIn>& AddInInst) override;
  /// AddinInstance_OnDisconnection. A failing step is skipped and the next one runs.
  void OnDisconnection(vbide::DisconnectMode RemoveMode) override;

  /// IVersionUI_Update: the application title and the caption of the menu entry.
  void Update() override;

 private:
  void MakeMenu();
  void FollowLanguage();
  void mobjMenuHandler_Click();

  std::shared_ptr<vbide::CommandBarEvents> mobjMenuHandler;
  Subscription onClick_;
  Subscription onLanguage_;
};

}  // namespace quorvane
