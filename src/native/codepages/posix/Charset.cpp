#include "native/codepages/Charset.h"

#include <iconv.h>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr int kLatin1 = 28591;
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

void Close(iconv_t handle) {
  if (handle != kNone) iconv_close(handle);
}

}  // namespace

struct Charset::Converters {
  explicit Converters(const std::string& name)
      : ToText(iconv_open("UTF-16LE", name.c_str())), ToBytes(iconv_open(name.c_str(), "UTF-16LE")) {}
  ~Converters() {
    Close(ToText);
    Close(ToBytes);
  }
  Converters(const Converters&) = delete;
  Converters& operator=(const Converters&) = delete;

  iconv_t ToText;
  iconv_t ToBytes;
};

Charset::Charset(int page) {
  const std::string name = page == kLatin1 ? "ISO-8859-1" : "CP" + std::to_string(page);
  auto converters = std::make_unique<Converters>(name);
  if (converters->ToText == kNone || converters->ToBytes == kNone) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The C library of this system lacks the charset " + FromUtf8(name));
  }
  converters_ = std::move(converters);
}

Charset::~Charset() = default;

std::optional<char16_t> Charset::Decode(std::string_view bytes) const {
  unsigned char out[16];
  std::size_t written = 0;
  if (!Convert(converters_->ToText, bytes, reinterpret_cast<char*>(out), sizeof out, written) || written != 2)
    return {};
  return static_cast<char16_t>(out[0] | (out[1] << 8));
}

std::string Charset::Encode(char16_t unit) const {
  const char in[2] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  char out[16];
  std::size_t written = 0;
  if (!Convert(converters_->ToBytes, {in, 2}, out, sizeof out, written)) return {};
  return {out, written};
}

}  // namespace quorvane::native
