#include "windows/host32/Options.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/Convert.h"
#include "base/Error.h"
#include "base/Text.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

namespace {

struct Flag {
  std::string_view word;
  bool Meanness::*member;
  bool value;
};

constexpr Flag kFlags[] = {
    {"--fresh", &Meanness::freshObjects, true},       {"--no-type-info", &Meanness::typeInformation, false},
    {"--strict-lines", &Meanness::strictLines, true}, {"--wrap-document", &Meanness::wrapsDocument, true},
    {"--no-menu", &Meanness::refusesMenu, true},      {"--fresh-active", &Meanness::freshActive, true},
    {"--one-class-id", &Meanness::oneClassId, true},  {"--other-points", &Meanness::otherPoints, true},
    {"--no-bars", &Meanness::noBars, true},           {"--no-add-ins", &Meanness::noAddIns, true},
};

ConnectBy WayNamed(const std::string& name) {
  if (name == "vtable") return ConnectBy::Vtable;
  if (name == "dispatch") return ConnectBy::Dispatch;
  if (name == "older") return ConnectBy::OlderInterface;
  RaiseError(ErrorNumber::InvalidProcedureCall, u"--connect-by knows vtable, dispatch and older");
}

}  // namespace

Options Options::Parse(int argc, wchar_t** argv) {
  Options options;
  const auto text = [&](int i) { return ToUtf8(com::FromWide(argv[i])); };
  for (int i = 1; i < argc; ++i) {
    const std::string word = text(i);
    const auto value = [&] {
      if (i + 1 >= argc) RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8(word + " needs a value"));
      return text(++i);
    };
    const auto flag = std::ranges::find(kFlags, word, &Flag::word);
    if (flag != std::end(kFlags)) {
      options.meanness.*flag->member = flag->value;
    } else if (word == "--connect-by") {
      options.connectBy = WayNamed(value());
    } else if (word == "--codepage") {
      options.codePage = value();
    } else if (word == "--connect") {
      options.connectMode = std::stoi(value());
    } else if (word.starts_with("--")) {
      RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8("unknown option " + word));
    } else {
      options.files.push_back(word);
    }
  }
  return options;
}

}  // namespace quorvane::container
