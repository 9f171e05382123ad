#include "addin/connect/Updater.h"

#include <array>
#include <vector>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/LanguageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "addin/settings/StoredSection.h"
#include "base/Convert.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/Clock.h"
#include "platform/HttpRequest.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/RegExp.h"
#include "platform/Shell.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"

namespace quorvane {

// The page is asked for in the background and tells by events; a check that the user asked for shows a window
// meanwhile, one by the schedule shows nothing unless there is something new. When the answer comes the connection may
// be ending, so that this keeps itself alive until it is told.

namespace {

constexpr std::u16string_view kVersionPage = u"/p/vbquorvane/wiki/Update";
constexpr std::u16string_view kDownloadPage = u"/p/vbquorvane/downloads";
constexpr std::u16string_view kSite = u"/p/vbquorvane/";
constexpr std::u16string_view kVersionPattern = uR"((\d+)\.(\d+)\.(\d+)\.(\d+))";

constexpr std::int32_t kDefaultInterval = 2;
constexpr std::int32_t kDefaultSensibility = 2;
constexpr std::int32_t kDaysPerWeek = 7;

std::int32_t RoundedDownWeeks(std::int32_t days) {
  return days >= 0 ? days / kDaysPerWeek : -((-days + kDaysPerWeek - 1) / kDaysPerWeek);
}

/// The parts of a version that are compared: the first, second and fourth.
std::array<std::int16_t, 3> CountingParts(const std::u16string& version) {
  const auto parts = Split(version, u".");
  return {ToInteger(parts[0]), ToInteger(parts[1]), ToInteger(parts[3])};
}

}  // namespace

Updater::Updater() : mobjHttp(ThePlatform().NewHttpRequest()) {
  onResponse_ = mobjHttp->OnResponseFinished.Subscribe([this] { mobjHttp_OnResponseFinished(); });
  onHttpError_ = mobjHttp->OnError.Subscribe(
      [this](std::int32_t number, const std::u16string& description) { OnError.Raise(number, description); });
}

Updater::~Updater() = default;

void Updater::Setup() {
  mobjSetting = Globals::gobjSetting;
  onLoad_ = Deref(mobjSetting).LoadSetting.Subscribe([this](const std::u16string& appname, const auto& section) {
    mobjSetting_LoadSetting(appname, section);
  });
  onSave_ = mobjSetting->SaveSetting.Subscribe(
      [this](const std::u16string& appname, const auto& section) { mobjSetting_SaveSetting(appname, section); });
}

void Updater::TearDown() {
  onLoad_.Reset();
  onSave_.Reset();
  mobjSetting.reset();
}

void Updater::mobjSetting_LoadSetting(const std::u16string& appname, const std::u16string& section) {
  const StoredSection stored(appname, section);
  menumUpdateInterval = stored.Long(u"UpdateInterval", kDefaultInterval);
  mdteLastUpdate = stored.Date(u"LastUpdate", ThePlatform().TheClock().Now().Date());
  menumSensibility = stored.Long(u"UpdateSensibility", kDefaultSensibility);
}

void Updater::mobjSetting_SaveSetting(const std::u16string& appname, const std::u16string& section) {
  const StoredSection stored(appname, section);
  stored.Write(u"UpdateInterval", ToText(menumUpdateInterval));
  stored.Write(u"LastUpdate", DateText(mdteLastUpdate, ThePlatform().TheClock().Format()));
  stored.Write(u"UpdateSensibility", ToText(menumSensibility));
}

void Updater::CheckUpdate() {
  if (!MayGoOut()) return;
  mblnPassive = false;
  Deref(forms::TheForms().Instance(u"frmProcessing")).Show(forms::FormModal::Modal);
}

void Updater::StartCheck() {
  mobjHttp->Open(u"GET", Url(kVersionPage), true);
  mobjHttp->Send();
}

void Updater::ScheduleUpdate() {
  mblnPassive = true;
  if (ThePlatform().TheApp().HasProjectHost() && IsDue()) StartCheck();
}

void Updater::CancelUpdate() {
  mobjHttp->Abort();
}

void Updater::GotoProjectSite() {
  OpenPage(kSite);
}

void Updater::OpenPage(std::u16string_view path) {
  if (MayGoOut()) ThePlatform().TheShell().OpenAddress(Url(path));
}

bool Updater::MayGoOut() {
  if (ThePlatform().TheApp().HasProjectHost()) return true;
  ThePlatform().MessageBoxes().MsgBox(Globals::Language().GetString(StringId::NoProjectAddress), kOkOnly,
                                      ThePlatform().TheApp().Title);
  return false;
}

/// Whether the schedule asks for a check now. A check by the schedule is noted before it is made, so that a server that
/// does not answer is not asked again before its time.
bool Updater::IsDue() {
  switch (menumUpdateInterval) {
    case 0:
      break;
    case 1:
    case 2:
    case 3:
      if (UnitsSinceLastUpdate() < 1) return false;
      break;
    case 4:
      return false;
    default:
      return true;
  }
  mdteLastUpdate = ThePlatform().TheClock().Now();
  return true;
}

/// Days, weeks or months from the last check to today, by the interval. Times of day play no part, nor does the day of
/// the month with months.
std::int32_t Updater::UnitsSinceLastUpdate() const {
  const DateTime today = ThePlatform().TheClock().Now();
  const std::int32_t days = today.Day - mdteLastUpdate.Day;
  if (menumUpdateInterval == 1) return days;
  if (menumUpdateInterval == 2) return RoundedDownWeeks(days);
  return today.MonthNumber() - mdteLastUpdate.MonthNumber();
}

void Updater::mobjHttp_OnResponseFinished() {
  // A message box lets the host end the connection before this ends.
  const std::shared_ptr<Updater> alive = Globals::gobjUpdater;
  Guarded([this] {
    TaskDone.Raise();
    TellOutcome();
  });
}

void Updater::TellOutcome() {
  mdteLastUpdate = ThePlatform().TheClock().Now();
  const std::u16string published = ParseVersion(mobjHttp->ResponseText());
  if (published.empty()) return;
  if (!IsLatest(CurrentVersion(), published)) {
    OfferDownload(published);
  } else if (!mblnPassive) {
    const LanguageManager& language = Globals::Language();
    ThePlatform().MessageBoxes().MsgBox(language.GetString(StringId::VersionIsLatest, {CurrentVersion()}), kOkOnly,
                                        language.GetString(StringId::UpdateTitle));
  }
}

void Updater::OfferDownload(const std::u16string& published) {
  const LanguageManager& language = Globals::Language();
  const std::u16string line(kCrLf);
  const std::u16string text = language.GetString(StringId::UpdateHead) + line + line +
                              language.GetString(StringId::NewVersion) + published + line +
                              language.GetString(StringId::CurrentVersion) + CurrentVersion() + line + line +
                              language.GetString(StringId::UpdateQuestion);
  if (ThePlatform().MessageBoxes().MsgBox(text, kYesNo, language.GetString(StringId::UpdateTitle)) != kAnswerYes)
    return;
  OpenPage(kDownloadPage);
}

/// True if there is nothing to report. The third part of a version counts in no case; any other part that is no 16-bit
/// number raises error 6, also after one that decides.
bool Updater::IsLatest(const std::u16string& current, const std::u16string& published) {
  const auto mine = CountingParts(current);
  const auto theirs = CountingParts(published);
  for (std::size_t step = 0; step < mine.size(); ++step) {
    if (theirs[step] != mine[step]) return theirs[step] < mine[step];
    if (mblnPassive && menumSensibility == static_cast<std::int32_t>(step)) return true;
  }
  return true;
}

std::u16string Updater::CurrentVersion() const {
  const App& app = ThePlatform().TheApp();
  return ToText(app.Major) + u"." + ToText(app.Minor) + u".0." + ToText(app.Revision);
}

/// The first version number of the page, markup included; empty, after OnError, when there is none.
std::u16string Updater::ParseVersion(const std::u16string& page) {
  const std::vector<RegExpMatch> matches = VersionPattern().Execute(page);
  if (matches.empty()) {
    OnError.Raise(kErrNoVersion, Globals::Language().GetString(StringId::VersionUnreadable));
    return {};
  }
  return page.substr(static_cast<std::size_t>(matches.front().FirstIndex),
                     static_cast<std::size_t>(matches.front().Length));
}

RegExp& Updater::VersionPattern() {
  if (!mobjRegExp) {
    mobjRegExp = ThePlatform().NewRegExp();
    mobjRegExp->Pattern = kVersionPattern;
    mobjRegExp->Global = true;
    mobjRegExp->Multiline = true;
  }
  return *mobjRegExp;
}

std::u16string Updater::Url(std::u16string_view path) {
  return u"http://" + ThePlatform().TheApp().ProjectHost + std::u16string(path);
}

}  // namespace quorvane
