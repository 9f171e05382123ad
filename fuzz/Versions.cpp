// The page that names the newest version: a first byte chooses how the check came about, the rest is the page. What the
// user is shown is held against a search by hand.
#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "Input.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "base/Text.h"
#include "support/TestPlatform.h"

using namespace quorvane;

namespace {

using Version = std::array<std::u16string, 4>;

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

/// The version that begins at `at`, if one does.
std::optional<Version> VersionAt(std::u16string_view page, std::size_t at) {
  Version version;
  for (std::size_t part = 0; part < version.size(); ++part) {
    if (part > 0 && (at == page.size() || page[at++] != u'.')) return std::nullopt;
    while (at < page.size() && IsDigit(page[at])) version[part] += page[at++];
    if (version[part].empty()) return std::nullopt;
  }
  return version;
}

std::optional<Version> FirstVersion(std::u16string_view page) {
  for (std::size_t at = 0; at < page.size(); ++at) {
    if (const auto version = VersionAt(page, at)) return version;
  }
  return std::nullopt;
}

/// A number, 32768 for all that are larger than 32767.
int Value(const std::u16string& digits) {
  int value = 0;
  for (const char16_t digit : digits) value = std::min(32768, value * 10 + (digit - u'0'));
  return value;
}

/// "none", "error", "offer", "latest" or "silent".
std::string Expected(std::u16string_view page, const App& app, bool passive, int sensibility) {
  const auto version = FirstVersion(page);
  if (!version) return "none";
  const std::array<int, 3> theirs{Value((*version)[0]), Value((*version)[1]), Value((*version)[3])};
  for (const int part : theirs) {
    if (part > 32767) return "error";
  }
  const std::array<int, 3> mine{app.Major, app.Minor, app.Revision};
  const auto deciding = passive ? static_cast<std::size_t>(sensibility) + 1 : theirs.size();
  for (std::size_t step = 0; step < deciding; ++step) {
    if (theirs[step] > mine[step]) return "offer";
    if (theirs[step] < mine[step]) break;
  }
  return passive ? "silent" : "latest";
}

std::string Outcome(const std::vector<test::ScriptedPrompts::Box>& boxes, bool failed) {
  if (boxes.empty()) return failed ? "none" : "silent";
  const std::u16string& text = boxes.front().text;
  if (boxes.size() > 1 || failed) return "too much";
  if (text.starts_with(u"[VB Quorvane]")) return "offer";
  return text.starts_with(u"Current version is latest") ? "latest" : "error";
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return 0;
  static test::TestPlatform platform;
  const bool passive = bytes[0] % 4 != 3;
  Globals::gobjUpdater = std::make_shared<Updater>();
  Updater& updater = *Globals::gobjUpdater;
  bool failed = false;
  const Subscription onError = updater.OnError.Subscribe([&](std::int32_t, const std::u16string&) { failed = true; });
  if (passive) {
    updater.menumUpdateInterval = 0;
    updater.menumSensibility = bytes[0] % 4;
    updater.ScheduleUpdate();
  } else {
    updater.StartCheck();
  }
  const std::u16string page = FromUtf8({reinterpret_cast<const char*>(bytes) + 1, size - 1});
  platform.prompts.Shown.clear();
  platform.prompts.Answers = {kAnswerYes, kAnswerYes};
  platform.shell.Opened.clear();
  fuzz::Expect(platform.web.Answer(page));
  const std::string outcome = Outcome(platform.prompts.Shown, failed);
  fuzz::Expect(outcome == Expected(page, platform.app, passive, bytes[0] % 4));
  fuzz::Expect(platform.shell.Opened.size() == (outcome == "offer" ? 1u : 0u));
  platform.prompts.Answers.clear();
  platform.web.Calls.clear();
  return 0;
}
