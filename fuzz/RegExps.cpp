// Regular expressions: a line with options and pattern, one with the replacement, then the text.
#include "Input.h"
#include "base/Error.h"
#include "base/Text.h"
#include "native/regexp/PcreRegExp.h"

using namespace quorvane;

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::string_view head = input.Line();
  const std::string_view replacement = input.Line();
  if (head.empty()) return 0;
  native::PcreRegExp regExp;
  regExp.Global = true;
  regExp.Multiline = (head[0] & 1) != 0;
  regExp.IgnoreCase = (head[0] & 2) != 0;
  regExp.Pattern = FromUtf8(head.substr(1));
  const std::u16string text = FromUtf8(input.Rest().substr(0, 2000));
  try {
    std::int32_t at = 0;
    const auto matches = regExp.Execute(text);
    for (const RegExpMatch& match : matches) {
      fuzz::Expect(match.FirstIndex >= at && match.Length >= 0);
      at = match.FirstIndex + match.Length;
    }
    fuzz::Expect(at <= static_cast<std::int32_t>(text.size()) && regExp.Test(text) == !matches.empty());
    if (matches.size() < 100) regExp.Replace(text, FromUtf8(replacement));
  } catch (const Error&) {
  }
  return 0;
}
