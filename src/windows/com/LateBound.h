#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/com/Variant.h"

namespace quorvane::com {

/// The ids that one class of objects gives its members, learnt at the first call of each.
class MemberIds {
 public:
  /// Raises error 438, naming the member, when the object has none of that name. Upper and lower case are the object's
  /// matter.
  DISPID IdOf(IDispatch& object, const char16_t* name);
  /// Whether it has been learnt already.
  bool Knows(const char16_t* name) const;

 private:
  std::vector<std::pair<std::u16string_view, DISPID>> known_;  ///< the names are literals
};

/// Finds the ids of a class by the class's identifier in its type information. An object without type information
/// tells of no class, so its ids are its own.
class ClassIds {
 public:
  std::shared_ptr<MemberIds> Of(IDispatch& object);

 private:
  std::vector<std::pair<GUID, std::shared_ptr<MemberIds>>> classes_;
};

/// An object of another program, called by the names of its members. It holds one reference; `names` must be literals.
/// What the object raises comes as our Error, with its number and its words; a call of nothing raises error 91.
class LateBound {
 public:
  LateBound() = default;
  LateBound(ComPtr<IDispatch> object, ClassIds& classes);

  /// A method, or the reading of a property: which one, it is for the object to know.
  template <class... Arguments>
  Variant Call(const char16_t* name, Arguments&&... arguments) const {
    // The last argument goes first.
    Variant left[sizeof...(arguments) + 1] = {Argument(std::forward<Arguments>(arguments))...};
    VARIANT given[sizeof...(arguments) + 1];
    for (std::size_t i = 0; i < sizeof...(arguments); ++i) given[i] = left[sizeof...(arguments) - 1 - i].Get();
    return Invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, given, sizeof...(arguments));
  }
  void Put(const char16_t* name, const Variant& value) const;

  IDispatch* Object() const { return object_.Get(); }
  explicit operator bool() const { return static_cast<bool>(object_); }

 private:
  static Variant Argument(Variant&& value) { return std::move(value); }
  template <class Value>
  static Variant Argument(const Value& value) {
    return Variant::Of(value);
  }
  Variant Invoke(const char16_t* name, WORD flags, VARIANT* reversed, std::size_t count) const;
  HRESULT Ask(IDispatch& object, const char16_t* name, WORD flags, DISPPARAMS& arguments, VARIANT* result,
              EXCEPINFO& exception) const;

  ComPtr<IDispatch> object_;
  std::shared_ptr<MemberIds> ids_;
};

}  // namespace quorvane::com
