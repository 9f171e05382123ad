// Numbers are written seven bits a byte, lowest first, the top bit set while more follow: nearly all take one byte. A
// mask of the names tells for most new attributes at once that they are new.

#include "native/xml/PackedAttributes.h"

namespace quorvane::native {

namespace {

std::uint64_t BitOf(std::size_t name) {
  return std::uint64_t{1} << (name % 64);
}

}  // namespace

void PackedAttributes::Trim() {
  if (mstrBytes.capacity() > mstrBytes.size() + mstrBytes.size() / 4) mstrBytes.shrink_to_fit();
}

void PackedAttributes::Set(std::size_t name, std::string_view value) {
  if ((mlngNames & BitOf(name)) != 0) {
    for (std::size_t at = 0; at < mstrBytes.size();) {
      const std::size_t begin = at;
      if (Next(at).Name != name) continue;
      std::string changed;
      AppendNumber(name, changed);
      AppendNumber(value.size(), changed);
      changed.append(value).push_back('\0');
      mstrBytes.replace(begin, at - begin, changed);
      return;
    }
  }
  mlngNames |= BitOf(name);
  AppendNumber(name, mstrBytes);
  AppendNumber(value.size(), mstrBytes);
  mstrBytes.append(value).push_back('\0');
}

std::optional<std::string_view> PackedAttributes::Find(std::size_t name) const {
  if ((mlngNames & BitOf(name)) == 0) return std::nullopt;
  for (std::size_t at = 0; at < mstrBytes.size();) {
    const Item item = Next(at);
    if (item.Name == name) return item.Value;
  }
  return std::nullopt;
}

PackedAttributes::Item PackedAttributes::Next(std::size_t& at) const {
  const std::size_t name = NextNumber(at);
  const std::size_t length = NextNumber(at);
  const std::string_view value(mstrBytes.data() + at, length);
  at += length + 1;
  return {name, value};
}

std::size_t PackedAttributes::NextNumber(std::size_t& at) const {
  std::size_t number = 0;
  for (unsigned shift = 0;; shift += 7) {
    const auto byte = static_cast<unsigned char>(mstrBytes[at++]);
    number |= static_cast<std::size_t>(byte & 0x7F) << shift;
    if (byte < 0x80) return number;
  }
}

void PackedAttributes::AppendNumber(std::size_t number, std::string& out) {
  for (; number >= 0x80; number >>= 7) out.push_back(static_cast<char>((number & 0x7F) | 0x80));
  out.push_back(static_cast<char>(number));
}

}  // namespace quorvane::native
