#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <ostream>

#include "base/Text.h"
#include "cli/Program.h"

namespace quorvane::test {
namespace {

/// Commands and what they print, as find.sessions tells at its top.
struct Session {
  std::string where;
  std::vector<std::string> lines;

  friend std::ostream& operator<<(std::ostream& out, const Session& session) { return out << session.where; }
};

std::vector<Session> Sessions() {
  std::vector<Session> all;
  for (const std::string file : {"find", "replace", "list"}) {
    std::ifstream stream(QUORVANE_SOURCE_DIR "/tests/cli/" + file + ".sessions");
    for (std::string line; std::getline(stream, line);) {
      if (line.starts_with("=== ")) {
        all.push_back({file + ", " + line.substr(4), {}});
      } else if (!line.empty() && !line.starts_with(";;")) {
        all.back().lines.push_back(line);
      }
    }
  }
  return all;
}

constexpr char kPrelude[] = R"(exec 2>&1
W=$(mktemp -d) && trap 'rm -rf "$W"' EXIT && cp -r . "$W/shop" && cd "$W/shop"
q() {
  "$Q" "$@" 2>"$W/err"
  s=$?
  grep -v 'Gone.cls: not found' "$W/err"
  [ $s = 0 ] || echo "status $s"
}
)";

std::string Replaced(const std::string& text, std::u16string_view from, std::u16string_view to) {
  return ToUtf8(ReplaceAll(FromUtf8(text), from, to));
}

/// Whether a line is what was expected, where "…" stands for any text.
bool Fits(std::u16string_view line, const std::u16string& expected) {
  const auto parts = Split(expected, u"…");
  if (parts.size() == 1) return line == expected;
  if (!line.starts_with(parts.front()) || !line.ends_with(parts.back())) return false;
  for (const auto part : parts) {
    const std::size_t at = line.find(part);
    if (at == line.npos) return false;
    line.remove_prefix(at + part.size());
  }
  return true;
}

class SessionTest : public testing::TestWithParam<Session>, protected Program {};

TEST_P(SessionTest, PrintsWhatItSays) {
  WriteShop(folder);
  std::string script = kPrelude;
  for (const std::string& line : GetParam().lines) {
    if (line.starts_with("$ ")) script += "echo '" + Replaced(line, u"'", u"'\\''") + "'\n" + line.substr(2) + "\n";
  }
  const std::string printed = Replaced(Replaced(Shell(script).out, u"\r", u"␍"), u"\033", u"␛");
  std::vector<std::string> expected = GetParam().lines;
  const std::u16string text = FromUtf8(printed);
  const auto lines = Split(text, u"\n");
  for (std::size_t i = 0; i < expected.size() && i < lines.size(); ++i) {
    if (Fits(lines[i], FromUtf8(expected[i]))) expected[i] = ToUtf8(lines[i]);
  }
  std::string all;
  for (const std::string& line : expected) all += line + "\n";
  EXPECT_EQ(printed, all);
}

INSTANTIATE_TEST_SUITE_P(Cli, SessionTest, testing::ValuesIn(Sessions()), [](const auto& row) {
  std::string name = row.param.where;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
});

}  // namespace
}  // namespace quorvane::test
