#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// Counts the living objects by class. Counted reports here.
class ObjStat {
 public:
  /// `amount` objects of the class came, or went when it is below 0.
  static void Change(std::string_view className, std::int32_t amount);
  /// The living objects of a class; 0 when it has no entry.
  static std::int32_t Count(std::string_view className);
  /// Number of classes with an entry.
  static std::int32_t ClassCount();
};

}  // namespace quorvane
