#include "windows/host32/Options.h"

#include <string_view>

#include "base/Convert.h"
#include "base/Error.h"
#include "base/Text.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

namespace {

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
    if (word == "--fresh") {
      options.meanness.freshObjects = true;
    } else if (word == "--no-type-info") {
      options.meanness.typeInformation = false;
    } else if (word == "--strict-lines") {
      options.meanness.strictLines = true;
    } else if (word == "--wrap-document") {
      options.meanness.wrapsDocument = true;
    } else if (word == "--no-menu") {
      options.meanness.refusesMenu = true;
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
