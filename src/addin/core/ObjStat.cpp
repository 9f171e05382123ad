#include "addin/core/ObjStat.h"

#include <unordered_map>

namespace quorvane {

namespace {

/// Class name to number of living objects; an entry that reaches 0 goes. Never destroyed: objects with static storage
/// report here until the very end.
auto& Table() {
  static auto& table = *new std::unordered_map<std::string_view, std::int32_t>;
  return table;
}

}  // namespace

void ObjStat::Change(std::string_view className, std::int32_t amount) {
  const auto entry = Table().try_emplace(className, 0).first;
  entry->second += amount;
  if (entry->second == 0) Table().erase(entry);
}

std::int32_t ObjStat::Count(std::string_view className) {
  const auto entry = Table().find(className);
  return entry == Table().end() ? 0 : entry->second;
}

std::int32_t ObjStat::ClassCount() {
  return static_cast<std::int32_t>(Table().size());
}

}  // namespace quorvane
