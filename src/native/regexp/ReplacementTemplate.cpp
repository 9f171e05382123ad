#include "native/regexp/ReplacementTemplate.h"

namespace quorvane::native {

namespace {

/// The value of the digit at `at`, -1 when none stands there.
int DigitAt(std::u16string_view text, std::size_t at) {
  return at < text.size() && text[at] >= u'0' && text[at] <= u'9' ? text[at] - u'0' : -1;
}

}  // namespace

ReplacementTemplate::ReplacementTemplate(std::u16string_view replacement, std::size_t groupCount) {
  std::size_t begin = 0;
  for (std::size_t at = replacement.find(u'$'); at != replacement.npos; at = replacement.find(u'$', at)) {
    Piece token;
    const std::size_t length = ReadToken(replacement.substr(at), groupCount, token);
    if (length == 0) {
      ++at;
      continue;
    }
    if (at > begin) pieces_.push_back({Kind::Literal, replacement.substr(begin, at - begin)});
    pieces_.push_back(token);
    at += length;
    begin = at;
  }
  if (begin < replacement.size()) pieces_.push_back({Kind::Literal, replacement.substr(begin)});
}

std::size_t ReplacementTemplate::ReadToken(std::u16string_view text, std::size_t groupCount, Piece& token) {
  switch (text.size() > 1 ? text[1] : u'\0') {
    case u'$':
      token.Text = text.substr(0, 1);
      return 2;
    case u'&':
      token.Is = Kind::Group;
      return 2;
    case u'`':
      token.Is = Kind::Before;
      return 2;
    case u'\'':
      token.Is = Kind::Behind;
      return 2;
    default:
      break;
  }
  const int one = DigitAt(text, 1);
  const int two = one >= 0 && DigitAt(text, 2) >= 0 ? one * 10 + DigitAt(text, 2) : -1;
  const auto isGroup = [&](int number) { return number > 0 && static_cast<std::size_t>(number) <= groupCount; };
  if (!isGroup(two) && !isGroup(one)) return 0;
  token.Is = Kind::Group;
  token.Group = static_cast<std::size_t>(isGroup(two) ? two : one);
  return isGroup(two) ? 3 : 2;
}

void ReplacementTemplate::AppendTo(std::u16string& out, std::u16string_view text,
                                   std::span<const std::size_t> bounds) const {
  for (const Piece& piece : pieces_) {
    switch (piece.Is) {
      case Kind::Literal:
        out.append(piece.Text);
        break;
      case Kind::Before:
        out.append(text.substr(0, bounds[0]));
        break;
      case Kind::Behind:
        out.append(text.substr(bounds[1]));
        break;
      case Kind::Group:
        if (const std::size_t at = piece.Group * 2; at + 1 < bounds.size() && bounds[at] <= text.size()) {
          out.append(text.substr(bounds[at], bounds[at + 1] - bounds[at]));
        }
        break;
    }
  }
}

}  // namespace quorvane::native
