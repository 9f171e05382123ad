#include "native/codepages/Iconv.h"

#include <cstring>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

namespace {

const iconv_t kNone = reinterpret_cast<iconv_t>(-1);

/// Converts `in` as a whole; false when a part of it has no counterpart. A charset with combining letters holds a
/// letter back to wait for its accent: the flush at the end gets it out.
bool Convert(iconv_t handle, std::string_view in, char* out, std::size_t room, std::size_t& written) {
  iconv(handle, nullptr, nullptr, nullptr, nullptr);
  char* from = const_cast<char*>(in.data());
  std::size_t left = in.size();
  char* to = out;
  std::size_t roomLeft = room;
  constexpr std::size_t kFailed = static_cast<std::size_t>(-1);
  if (iconv(handle, &from, &left, &to, &roomLeft) == kFailed) return false;
  if (iconv(handle, nullptr, nullptr, &to, &roomLeft) == kFailed) return false;
  written = room - roomLeft;
  return true;
}

}  // namespace

Iconv::Iconv(const std::string& charset)
    : mhndToText(iconv_open("UTF-16LE", charset.c_str())), mhndToBytes(iconv_open(charset.c_str(), "UTF-16LE")) {
  if (mhndToText != kNone && mhndToBytes != kNone) return;
  if (mhndToText != kNone) iconv_close(mhndToText);
  if (mhndToBytes != kNone) iconv_close(mhndToBytes);
  RaiseError(ErrorNumber::InvalidProcedureCall, u"The C library of this system lacks the charset " + FromUtf8(charset));
}

Iconv::~Iconv() {
  iconv_close(mhndToText);
  iconv_close(mhndToBytes);
}

std::optional<char16_t> Iconv::Decode(std::string_view bytes) const {
  unsigned char out[16];
  std::size_t written = 0;
  if (!Convert(mhndToText, bytes, reinterpret_cast<char*>(out), sizeof out, written) || written != 2) return {};
  return static_cast<char16_t>(out[0] | (out[1] << 8));
}

std::string Iconv::Encode(char16_t unit) const {
  const char in[2] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  char out[16];
  std::size_t written = 0;
  if (!Convert(mhndToBytes, {in, 2}, out, sizeof out, written)) return {};
  return {out, written};
}

}  // namespace quorvane::native
