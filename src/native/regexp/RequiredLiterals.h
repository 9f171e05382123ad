#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::native {

/// Told of a pattern's tokens from left to right, it finds ASCII texts of which every match holds at least one, so that
/// a text without any of them need not be searched.
class RequiredLiterals {
 public:
  /// `foldsBeyondAscii`: letters outside ASCII may match ASCII ones, so that the letters of such pairs (k and s) are
  /// nothing to rely on.
  explicit RequiredLiterals(bool foldsBeyondAscii);

  /// One unit that matches itself, in either case when case does not count.
  void Literal(char16_t c);
  /// Something that matches other text: a class, a dot, a back reference.
  void Other();
  /// Something that takes no text, such as ^ or \b: what stands on its two sides still touches.
  void Assertion() { CommitAtom(); }
  void OpenGroup(bool isLookAhead);
  void CloseGroup();
  void Alternative();
  /// The token before may be left out when `least` is 0.
  void Quantifier(std::size_t least);

  /// After the last token: the texts, none longer than it helps; empty when there are none to rely on.
  std::vector<std::string> Take();

 private:
  using Texts = std::vector<std::string>;  ///< one of them is in every match; empty: nothing is known

  /// What is known of a sequence so far.
  struct Sequence {
    Texts best;
    std::string run;  ///< ASCII literals that touch, up to the last committed token
  };
  struct Group {
    Sequence outside;          ///< of what stands before the group
    Texts alternatives;        ///< of those that are complete
    bool known = true;         ///< each complete alternative had something
    bool isLookAhead = false;  ///< takes no text, and may even hold where it does not match
  };
  enum class Atom { None, Literal, Texts };

  static bool Better(const Texts& a, const Texts& b);
  void CommitAtom();
  void EndRun();
  void EndAlternative();
  Texts EndGroup();

  bool foldsBeyondAscii_;
  std::vector<Group> groups_;  ///< open ones; the first is the pattern itself
  Sequence sequence_;          ///< of the innermost
  Atom atom_ = Atom::None;     ///< the last token, as long as a quantifier may follow
  char literal_ = 0;
  Texts texts_;
};

}  // namespace quorvane::native
