#include "native/codepages/DoubleByteCodePage.h"

#include <array>
#include <map>

#include "native/codepages/AsciiRun.h"
#include "native/codepages/ByteEscape.h"
#include "native/codepages/Charset.h"
#include "native/codepages/EncodeLoop.h"

namespace quorvane::native {

/// Both directions as flat tables. A code is a byte, or lead byte * 256 + second byte.
/// invariant: a unit in Codes decodes back to that unit
struct DoubleByteTables {
  std::array<char16_t, 65536> Units{};  ///< by code; 0: no character
  std::array<char16_t, 65536> Codes{};  ///< by unit; 0: the page lacks it
};

namespace {

std::string BytesOf(unsigned code) {
  if (code < 0x100) return {static_cast<char>(code)};
  return {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
}

void AddCode(DoubleByteTables& tables, const Charset& charset, unsigned code, char16_t unit) {
  tables.Units[code] = unit;
  char16_t& known = tables.Codes[unit];
  // Some characters have two codes: the one that the charset itself writes wins.
  if (known == 0 || charset.Encode(unit) == BytesOf(code)) known = static_cast<char16_t>(code);
}

/// Single bytes that the platform gives a character and the system's own tables none.
void AddPlatformBytes(DoubleByteTables& tables, DoubleByteCodePage::Page page) {
  const auto add = [&tables](unsigned byte, char16_t unit) {
    if (tables.Units[byte] != 0) return;
    tables.Units[byte] = unit;
    if (tables.Codes[unit] == 0) tables.Codes[unit] = static_cast<char16_t>(byte);
  };
  add(0x80, 0x80);
  if (page != DoubleByteCodePage::Page::Japanese) return;
  add(0xA0, 0xA0);
  add(0xFD, 0xF8F1);
  add(0xFE, 0xF8F2);
  add(0xFF, 0xF8F3);
}

std::shared_ptr<const DoubleByteTables> Build(DoubleByteCodePage::Page page) {
  auto tables = std::make_shared<DoubleByteTables>();
  const Charset charset(static_cast<int>(page));
  for (unsigned byte = 0x80; byte < 0x100; ++byte) {
    if (const auto unit = charset.Decode(BytesOf(byte))) AddCode(*tables, charset, byte, *unit);
  }
  AddPlatformBytes(*tables, page);
  for (unsigned lead = 0x81; lead < 0xFF; ++lead) {
    if (tables->Units[lead] != 0) continue;
    for (unsigned trail = 0x40; trail < 0xFF; ++trail) {
      const unsigned code = (lead << 8) | trail;
      if (const auto unit = charset.Decode(BytesOf(code))) AddCode(*tables, charset, code, *unit);
    }
  }
  return tables;
}

/// Decodes one character at `i`, where a byte beyond ASCII stands; moves `i` after it.
char16_t DecodeOne(const DoubleByteTables& tables, std::string_view bytes, std::size_t& i) {
  const unsigned lead = static_cast<unsigned char>(bytes[i++]);
  if (tables.Units[lead] != 0) return tables.Units[lead];
  if (i < bytes.size()) {
    const char16_t unit = tables.Units[(lead << 8) | static_cast<unsigned char>(bytes[i])];
    if (unit != 0) {
      ++i;
      return unit;
    }
  }
  return EscapedByte(static_cast<unsigned char>(lead));
}

}  // namespace

const DoubleByteTables& DoubleByteCodePage::Tables() const {
  static std::map<Page, std::shared_ptr<const DoubleByteTables>> built;
  if (!tables_) {
    auto& shared = built[mePage];
    if (!shared) shared = Build(mePage);
    tables_ = shared;
  }
  return *tables_;
}

void DoubleByteCodePage::Decode(std::string_view bytes, std::u16string& out) const {
  const std::size_t begin = out.size();
  out.resize(begin + bytes.size());
  char16_t* to = out.data() + begin;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t run = AsciiRun(bytes, i);
    WidenAscii(bytes.data() + i, run, to);
    to += run;
    i += run;
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) >= 0x80) *to++ = DecodeOne(Tables(), bytes, i);
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

bool DoubleByteCodePage::Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const {
  return EncodeText(text, 2, out, failedAt, [this](std::u16string_view from, std::size_t& i, char*& to) {
    const unsigned code = IsEscapedByte(from[i]) ? UnescapedByte(from[i]) : Tables().Codes[from[i]];
    if (code == 0) return false;
    if (code > 0xFF) *to++ = static_cast<char>(code >> 8);
    *to++ = static_cast<char>(code & 0xFF);
    ++i;
    return true;
  });
}

bool DoubleByteCodePage::IsWideBeyondAscii(char16_t c) const {
  return Tables().Codes[c] > 0xFF;
}

}  // namespace quorvane::native
