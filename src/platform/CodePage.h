#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// An ANSI code page: bytes of files and screen columns on one side, UTF-16 on the other.
///
/// Every code page here is a superset of ASCII in this sense: a byte below 0x80 that starts a character is that ASCII
/// character, and an ASCII character is encoded as that one byte. Bytes 0x0A, 0x0D and 0x00 are never part of another
/// character. A byte that cannot be decoded becomes the lone low surrogate U+DC00 + byte, which Encode turns back.
class CodePage {
 public:
  virtual ~CodePage() = default;

  /// The name it was asked for by, in its usual spelling: "1252", "932", "UTF-8" …
  virtual std::string Name() const = 0;

  /// Appends the text of `bytes` to `out`.
  virtual void Decode(std::string_view bytes, std::u16string& out) const = 0;

  /// Appends the bytes of `text` to `out`. False when the page lacks a character; `failedAt` is then its 0-based place
  /// and what was appended before it stays.
  virtual bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const = 0;

  /// The bytes of `text`; no value when the page lacks a character of it.
  std::optional<std::string> Encoded(std::u16string_view text) const;
  /// The same with "?" for each unit that the page lacks.
  std::string EncodedOrAsked(std::u16string_view text) const;

  /// True when a byte below 0x80 can be the second byte of a character, as in 932, 936, 949 and 950.
  virtual bool AsciiTrailBytes() const = 0;

  /// Screen columns of a character: true for 2, false for 1. Characters of two bytes take 2 columns; under UTF-8 the
  /// East Asian wide ones do.
  bool IsWide(char16_t c) const { return c >= 0x80 && IsWideBeyondAscii(c); }

 protected:
  virtual bool IsWideBeyondAscii(char16_t c) const = 0;
};

}  // namespace quorvane
