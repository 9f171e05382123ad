#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// Counts the living objects by class. Constructors and destructors report here; a class has its name as ClassName.
class ObjStat {
 public:
  template <class T>
  static void AddObject(const T*) {
    Change(T::ClassName, 1);
  }
  template <class T>
  static void RemoveObject(const T*) {
    Change(T::ClassName, -1);
  }

  /// The living objects of a class; 0 when it has no entry.
  static std::int32_t Count(std::string_view className);
  /// Number of classes with an entry.
  static std::int32_t ClassCount();

 private:
  static void Change(std::string_view className, std::int32_t amount);
};

}  // namespace quorvane
