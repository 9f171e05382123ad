#include "addin/core/FileSystem.h"

namespace quorvane {

namespace {

constexpr std::u16string_view kSeparators = u"/\\";

}  // namespace

std::u16string FileSystem::GetExtensionName(std::u16string_view path) const {
  const std::size_t slash = path.find_last_of(kSeparators);
  const std::u16string_view name = slash == path.npos ? path : path.substr(slash + 1);
  const std::size_t dot = name.rfind(u'.');
  return dot == name.npos ? std::u16string() : std::u16string(name.substr(dot + 1));
}

}  // namespace quorvane
