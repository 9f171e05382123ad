#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::native {

/// The attributes of one element in one run of bytes, in their order: for each the number of its name, the length of
/// its value in bytes, the value in UTF-8 and a NUL. Names are numbered by whoever owns the element.
class PackedAttributes {
 public:
  /// One attribute, valid until the next change.
  struct Item {
    std::size_t Name = 0;
    std::string_view Value;  ///< a NUL follows it
  };

  bool IsEmpty() const { return mstrBytes.empty(); }
  std::size_t Size() const { return mstrBytes.size(); }  ///< in bytes, of all
  void Reserve(std::size_t size) { mstrBytes.reserve(size); }
  /// Gives back memory when much of it is unused.
  void Trim();

  /// Writes the value of an attribute; a new one goes behind the others. `value` holds no NUL.
  void Set(std::size_t name, std::string_view value);
  std::optional<std::string_view> Find(std::size_t name) const;

  /// Calls `visit` with each Item in its order.
  template <class Visitor>
  void ForEach(Visitor visit) const {
    for (std::size_t at = 0; at < mstrBytes.size();) visit(Next(at));
  }

 private:
  Item Next(std::size_t& at) const;
  std::size_t NextNumber(std::size_t& at) const;
  static void AppendNumber(std::size_t number, std::string& out);

  std::string mstrBytes;
  std::uint64_t mlngNames = 0;  ///< bit n: the attribute of name n may be there, n taken modulo the number of bits
};

}  // namespace quorvane::native
