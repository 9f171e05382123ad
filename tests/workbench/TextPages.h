#pragma once

#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace quorvane::workbench {

/// Each byte is the character of its number, all narrow.
class LatinPage final : public CodePage {
 public:
  std::string Name() const override { return "latin"; }
  void Decode(std::string_view bytes, std::u16string& out) const override {
    for (const char c : bytes) out.push_back(static_cast<unsigned char>(c));
  }
  bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const override {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] > 0xFF) {
        failedAt = i;
        return false;
      }
      out.push_back(static_cast<char>(text[i]));
    }
    return true;
  }
  bool AsciiTrailBytes() const override { return false; }

 protected:
  bool IsWideBeyondAscii(char16_t) const override { return false; }
};

/// Characters of two bytes in the manner of 932: the second byte may look like an ASCII letter, bracket or backslash.
/// They decode to U+4E00 and on and are wide. The leads E0 and E1 are two spellings of the same characters; E0 is the
/// one that Encode gives. A lead without a trail cannot be decoded.
class TwoBytePage final : public CodePage {
 public:
  std::string Name() const override { return "two"; }
  void Decode(std::string_view bytes, std::u16string& out) const override {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const unsigned b = static_cast<unsigned char>(bytes[i]);
      if (b < 0x80) {
        out.push_back(static_cast<char16_t>(b));
      } else if (IsLead(b) && i + 1 < bytes.size() && IsTrail(static_cast<unsigned char>(bytes[i + 1]))) {
        const unsigned lead = b == 0xE1 ? 0xE0 : b;
        out.push_back(
            static_cast<char16_t>(0x4E00 + (lead - 0x80) * 0xC0 + static_cast<unsigned char>(bytes[++i]) - 0x40));
      } else {
        out.push_back(static_cast<char16_t>(0xDC00 + b));
      }
    }
  }
  bool Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const override {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const unsigned c = text[i];
      if (c < 0x80 || (c >= 0xDC80 && c <= 0xDCFF)) {
        out.push_back(static_cast<char>(c & 0xFF));
      } else if (IsWideBeyondAscii(text[i])) {
        out.push_back(static_cast<char>((c - 0x4E00) / 0xC0 + 0x80));
        out.push_back(static_cast<char>((c - 0x4E00) % 0xC0 + 0x40));
      } else {
        failedAt = i;
        return false;
      }
    }
    return true;
  }
  bool AsciiTrailBytes() const override { return true; }

 protected:
  bool IsWideBeyondAscii(char16_t c) const override {
    if (c < 0x4E00 || c >= 0x4E00 + 0x80 * 0xC0) return false;
    const unsigned lead = (c - 0x4E00U) / 0xC0 + 0x80;
    return IsLead(lead) && lead != 0xE1 && IsTrail((c - 0x4E00U) % 0xC0 + 0x40);
  }

 private:
  static bool IsLead(unsigned b) { return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC); }
  static bool IsTrail(unsigned b) { return b >= 0x40 && b <= 0xFC && b != 0x7F; }
};

}  // namespace quorvane::workbench
