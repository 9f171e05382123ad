#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/core/ILib.h"
#include "base/DateTime.h"
#include "base/Event.h"

namespace quorvane {

class GlobalSetting;
class HttpRequest;
class RegExp;

/// Finds out whether a newer version has been published: reads one web page and takes the first version number on it.
/// A passive check runs by the schedule and speaks only of a newer version that matters to the user; an active one
/// always tells its outcome. In a build that was given no address of the project's site a passive check does nothing,
/// and whoever asks for a check or a page is told so.
class Updater final : public ILib, private Counted<Updater> {
 public:
  static constexpr std::string_view ClassName = "Updater";

  Updater();
  ~Updater() override;

  std::int32_t menumUpdateInterval = 2;  ///< 0 every connection, 1 day, 2 week, 3 month, 4 never
  std::int32_t menumSensibility = 2;     ///< 0 first part, 1 second too, 2 fourth too

  /// An active check, behind the modal form "frmProcessing", whose load calls StartCheck.
  void CheckUpdate();
  /// Sends the request and returns at once. An error of the sending reaches the caller.
  void StartCheck();
  /// A passive check, if the schedule says so.
  void ScheduleUpdate();
  /// Ends the request without any further event.
  void CancelUpdate();
  /// Opens the project's site in a new browser window.
  void GotoProjectSite();
  /// Opens a page of the project's likewise; `path` begins with a slash.
  static void OpenPage(std::u16string_view path);
  /// Whether the build has an address of the project's site; the user is told when it has none.
  static bool MayGoOut();

  void Setup() override;
  void TearDown() override;

  Event<> TaskDone;                                    ///< the response has arrived in full; it is not yet looked at
  Event<std::int32_t, const std::u16string&> OnError;  ///< ErrorNumber, ErrorDescription

 private:
  void mobjSetting_LoadSetting(const std::u16string& appname, const std::u16string& section);
  void mobjSetting_SaveSetting(const std::u16string& appname, const std::u16string& section);
  void mobjHttp_OnResponseFinished();
  void TellOutcome();
  void OfferDownload(const std::u16string& published);
  bool IsDue();
  std::int32_t UnitsSinceLastUpdate() const;
  bool IsLatest(const std::u16string& current, const std::u16string& published);
  std::u16string CurrentVersion() const;
  std::u16string ParseVersion(const std::u16string& page);
  RegExp& VersionPattern();
  static std::u16string Url(std::u16string_view path);

  DateTime mdteLastUpdate;
  bool mblnPassive = false;
  std::unique_ptr<HttpRequest> mobjHttp;
  std::unique_ptr<RegExp> mobjRegExp;  ///< made at first use
  std::shared_ptr<GlobalSetting> mobjSetting;
  Subscription onLoad_;
  Subscription onSave_;
  Subscription onResponse_;
  Subscription onHttpError_;
};

}  // namespace quorvane
