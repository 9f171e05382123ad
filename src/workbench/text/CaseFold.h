#pragma once

namespace quorvane::workbench {

/// Letters of the basic plane that differ in case alone have one value in common. An ASCII letter equals ASCII letters
/// only, so that the bytes of a file tell where one can match. One table of all units, made at first use.
class CaseFold {
 public:
  static char16_t Of(char16_t c) { return c < 0x80 ? OfAscii(c) : Table()[c]; }

  /// The capital letter, by the same rule; other units are their own.
  static char16_t Capital(char16_t c);

 private:
  static constexpr char16_t OfAscii(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }
  static const char16_t* Table();
};

/// Letters of any script, digits and the underscore: what may not stand beside a whole word. Half of a character
/// outside the basic plane is none.
bool IsWordUnit(char16_t c);

}  // namespace quorvane::workbench
