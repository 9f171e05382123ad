#pragma once

#include <atomic>
#include <new>
#include <tuple>
#include <utility>

#include "windows/com/ComPtr.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/ModuleReference.h"

namespace quorvane::com {

/// The interfaces that stand above an interface, IUnknown aside. To be specialised for each that has some:
///
///     template <> struct Above<IDTExtensibility2> { using Interfaces = std::tuple<IDispatch>; };
template <class I>
struct Above {
  using Interfaces = std::tuple<>;
};

/// An object of ours that others hold by counted reference: answers the interfaces named, those above them and
/// ISupportErrorInfo. It begins with no reference; make it by `MakeObject`. It keeps the module loaded while it lives.
///
///     class Sink final : public ComObject<IDispatch> { … };
template <class First, class... Rest>
class ComObject : public First, public Rest..., public ISupportErrorInfo {
 public:
  ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = Answer(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --references_;
    if (left == 0) {
      const ModuleReference alive;  // the last one to go: after the end of this object
      delete this;
    }
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

 protected:
  virtual ~ComObject() = default;

  /// For interfaces that are known only at run time: the pointer to hand out, nothing when there is none.
  virtual void* AnswerOther(REFIID) { return nullptr; }

 private:
  template <class I>
  static bool Names(REFIID iid) {
    return IsEqualIID(iid, __uuidof(I)) || NamesAbove(iid, static_cast<typename Above<I>::Interfaces*>(nullptr));
  }
  template <class... Bases>
  static bool NamesAbove(REFIID iid, std::tuple<Bases...>*) {
    return (Names<Bases>(iid) || ...);
  }
  template <class I>
  bool Take(REFIID iid, void*& answer) {
    if (!Names<I>(iid)) return false;
    answer = static_cast<I*>(this);
    return true;
  }
  void* Answer(REFIID iid) {
    if (IsEqualIID(iid, IID_IUnknown)) return static_cast<First*>(this);
    void* answer = nullptr;
    if (Take<First>(iid, answer) || (Take<Rest>(iid, answer) || ...)) return answer;
    if (IsEqualIID(iid, IID_ISupportErrorInfo)) return static_cast<ISupportErrorInfo*>(this);
    return AnswerOther(iid);
  }

  std::atomic<long> references_{0};
  ModuleReference module_;
};

/// A new object, held.
template <class Object, class... Args>
ComPtr<Object> MakeObject(Args&&... args) {
  return ComPtr<Object>(new Object(std::forward<Args>(args)...));
}

}  // namespace quorvane::com
