#include "cli/PathGlobs.h"

#include <algorithm>

namespace quorvane::cli {

namespace {

unsigned char Lower(char c) {
  return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
}

/// Bytes of the character that `text` begins with.
std::size_t CharacterLength(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
  return length;
}

/// Takes the set that `glob` begins with off it and tells whether `c` is one of its; nothing is taken when it has no
/// end.
bool TakeSet(std::string_view& glob, char c, bool& inSet) {
  const bool negated = glob.size() > 1 && (glob[1] == '!' || glob[1] == '^');
  const std::size_t first = negated ? 2 : 1;
  const std::size_t end = glob.find(']', first + 1);
  if (end == std::string_view::npos) return false;
  bool found = false;
  for (std::size_t at = first; at < end; ++at) {
    if (at + 2 < end && glob[at + 1] == '-') {
      found = found || (Lower(glob[at]) <= Lower(c) && Lower(c) <= Lower(glob[at + 2]));
      at += 2;
    } else {
      found = found || Lower(glob[at]) == Lower(c);
    }
  }
  inSet = found != negated;
  glob.remove_prefix(end + 1);
  return true;
}

/// Takes one character that is no star off `glob` when it matches what `text` begins with, and that off `text`.
bool TakeOne(std::string_view& glob, std::string_view& text) {
  if (glob.empty() || text.empty()) return false;
  bool inSet = false;
  if (glob.front() == '?' && text.front() != '/') {
    glob.remove_prefix(1);
    text.remove_prefix(CharacterLength(text));
    return true;
  }
  if (glob.front() == '[' && text.front() != '/' && TakeSet(glob, text.front(), inSet)) {
    text.remove_prefix(CharacterLength(text));
    return inSet;
  }
  if (Lower(glob.front()) != Lower(text.front())) return false;
  glob.remove_prefix(1);
  text.remove_prefix(1);
  return true;
}

/// A star to come back to: what of the glob follows it, and where in the text that is tried next.
struct Star {
  std::string_view glob;
  std::string_view text;
  bool set = false;
};

/// Lets the star take one character more; false when it cannot.
bool Lengthen(Star& star, bool overFolders) {
  if (!star.set || star.text.empty() || (!overFolders && star.text.front() == '/')) return false;
  star.text.remove_prefix(1);
  return true;
}

bool MatchesPath(std::string_view glob, std::string_view path) {
  const std::string_view rooted = glob.substr(glob.starts_with('/') ? 1 : 0);
  return MatchesGlob(glob, path) || MatchesGlob("**/" + std::string(rooted), path);
}

}  // namespace

// Two stars are remembered, the last `*` and the last `**`: what an earlier one of the same kind could take besides,
// the last one can take as well. So no text takes longer than the product of the two lengths and that of the names.
bool MatchesGlob(std::string_view glob, std::string_view text) {
  Star one, all;
  for (;;) {
    if (glob.starts_with("**")) {
      glob.remove_prefix(2);
      if (glob.starts_with('/') && MatchesGlob(glob.substr(1), text)) return true;  // no folder at all
      all = {glob, text, true};
      one = {};
    } else if (glob.starts_with('*')) {
      glob.remove_prefix(1);
      one = {glob, text, true};
    } else if (glob.empty() && text.empty()) {
      return true;
    } else if (std::string_view g = glob, t = text; TakeOne(g, t)) {
      glob = g;
      text = t;
    } else if (Lengthen(one, false)) {
      glob = one.glob;
      text = one.text;
    } else if (Lengthen(all, true)) {
      glob = all.glob;
      text = all.text;
      one = {};
    } else {
      return false;
    }
  }
}

bool PathGlobs::Wants(std::string_view path) const {
  const auto matches = [&](const std::string& glob) {
    const bool named = glob.find('/') == std::string::npos;
    for (std::size_t end = path.size(); end != std::string_view::npos && end > 0; end = path.rfind('/', end - 1)) {
      const std::string_view place = path.substr(0, end);
      if (named ? MatchesGlob(glob, place.substr(place.rfind('/') + 1)) : MatchesPath(glob, place)) return true;
    }
    return false;
  };
  if (!include.empty() && std::ranges::none_of(include, matches)) return false;
  return std::ranges::none_of(exclude, matches);
}

}  // namespace quorvane::cli
