#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "windows/com/DispatchObject.h"
#include "windows/container/Exporter.h"
#include "windows/container/StubTypeInfo.h"

namespace quorvane::container {

/// A member without its id.
template <class Self>
struct Entry {
  const char16_t* name;
  WORD kinds;
  void (*call)(Self& self, com::DispatchCall& call);
};

/// Gives the members ids that nobody would guess: they begin at `seed`, go down and leave gaps.
template <class Self>
std::vector<com::DispatchMember<Self>> Numbered(DISPID seed, std::initializer_list<Entry<Self>> entries) {
  std::vector<com::DispatchMember<Self>> members;
  for (const Entry<Self>& entry : entries) {
    DISPID id = seed - 17 * static_cast<DISPID>(members.size());
    for (const auto& member : members) {
      if (std::u16string_view(member.name) == entry.name) id = member.id;
    }
    members.push_back({entry.name, id, entry.kinds, entry.call});
  }
  return members;
}

/// A thing of the host behind IDispatch. Self gives `kKind`, the name of its class, and Members(), with its ids from
/// Numbered.
template <class Self, class Model, class... Rest>
class Exported : public com::DispatchObject<Self, IDispatch, Rest...> {
  using Base = com::DispatchObject<Self, IDispatch, Rest...>;

 public:
  Exported(std::shared_ptr<Exporter> exporter, std::shared_ptr<Model> model)
      : exporter_(std::move(exporter)), model_(std::move(model)) {
    exporter_->Living.Born(Self::kKind);
    if (!exporter_->TheMeanness.typeInformation) shift_ = exporter_->NextShift();
  }
  ~Exported() override {
    exporter_->Living.Died(Self::kKind);
    exporter_->Gone(model_.get(), this);
  }

  Model& operator*() const { return *model_; }
  Model* operator->() const { return model_.get(); }
  const std::shared_ptr<Model>& TheModel() const { return model_; }
  Exporter& TheExporter() const { return *exporter_; }

  template <class Other>
  com::Variant Out(const std::shared_ptr<Other>& other) const {
    return com::Variant::Of(exporter_->Export(other).Get());
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    if (!exporter_->TheMeanness.typeInformation) return Base::GetTypeInfo(index, locale, info);
    StubTypeInfo::Ids ids;
    for (const auto& member : Self::Members()) ids.emplace_back(member.name, member.id);
    const GUID id = exporter_->TheMeanness.oneClassId ? IID_IDispatch : ClassId();
    *info = com::MakeObject<StubTypeInfo>(id, std::move(ids)).Detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    const HRESULT result = Base::GetIDsOfNames(iid, names, count, locale, ids);
    if (SUCCEEDED(result)) ids[0] += shift_;
    return result;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
    return Base::Invoke(id - shift_, iid, locale, flags, arguments, result, exception, wrong);
  }

 private:
  static GUID ClassId() {
    return {static_cast<unsigned long>(Self::Members()[0].id), 0x5157, 0x4F54, {1, 2, 3, 4, 5, 6, 7, 8}};
  }

  std::shared_ptr<Exporter> exporter_;
  std::shared_ptr<Model> model_;
  DISPID shift_ = 0;
};

}  // namespace quorvane::container
