#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quorvane {

class ILib;

/// The shared objects by class name, in the order of registering. Holds a reference to each beside its slot's own.
class ObjectRegistry {
 public:
  struct Entry {
    std::string ClassName;
    std::shared_ptr<void> Object;
    ILib* Lib = nullptr;  ///< the object's own, null when it implements none
  };

  /// Raises error 457 for a class that is there.
  void Add(std::string_view className, std::shared_ptr<void> object, ILib* lib);
  void Clear() { entries_.clear(); }

  const std::vector<Entry>& Entries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
};

/// The ILib of an object; null when it implements none.
template <class T>
ILib* LibOf(T& object) {
  if constexpr (std::is_convertible_v<T*, ILib*>) {
    return &object;
  } else if constexpr (std::is_polymorphic_v<T>) {
    return dynamic_cast<ILib*>(&object);
  } else {
    return nullptr;
  }
}

}  // namespace quorvane
