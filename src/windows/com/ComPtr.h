#pragma once

#include <cstddef>
#include <utility>

#include "windows/com/Win32.h"

namespace quorvane::com {

/// Set when the process ends under our feet, without a disconnection: whose objects are still there nobody knows then,
/// so that no reference is given back any more.
inline bool processEnds = false;

/// Holds one reference to a COM object, or nothing. Reading through nothing is for the caller to avoid, by Deref where
/// the host may have given nothing.
template <class I>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference of its own.
  explicit ComPtr(I* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class J>
  ComPtr(ComPtr<J>&& other) noexcept : object_(other.Detach()) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() { Reset(); }

  /// Takes over the reference that the caller holds.
  static ComPtr Adopt(I* object) {
    ComPtr adopted;
    adopted.object_ = object;
    return adopted;
  }

  I* Get() const { return object_; }
  I* operator->() const { return object_; }
  I& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  void Reset() {
    I* held = std::exchange(object_, nullptr);
    if (held != nullptr && !processEnds) held->Release();
  }
  /// The caller holds the reference from now on.
  [[nodiscard]] I* Detach() { return std::exchange(object_, nullptr); }

  /// Where a call puts the reference that it gives; what was held goes first.
  I** Put() {
    Reset();
    return &object_;
  }
  void** PutVoid() { return reinterpret_cast<void**>(Put()); }

  /// The same object by another interface; nothing when it does not answer it.
  template <class J>
  ComPtr<J> As() const {
    ComPtr<J> other;
    if (object_ == nullptr || FAILED(object_->QueryInterface(__uuidof(J), other.PutVoid()))) return {};
    return other;
  }

 private:
  I* object_ = nullptr;
};

/// The interface by which an object is told from others: the same pointer each time while it is held.
template <class I>
ComPtr<IUnknown> IdentityOf(const ComPtr<I>& object) {
  return object.template As<IUnknown>();
}

}  // namespace quorvane::com
