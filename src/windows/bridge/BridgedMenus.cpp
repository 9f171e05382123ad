#include "windows/bridge/BridgedMenus.h"

#include <utility>

#include "base/Error.h"
#include "base/Skip.h"
#include "windows/com/DispatchCall.h"

namespace quorvane::bridge {

namespace {

/// Arguments of Click.
constexpr std::size_t kHandled = 1;
constexpr std::size_t kCancelDefault = 2;

/// A flag that the caller may read and the listener may change; false when it was not given, or as something that is
/// no flag.
bool FlagOf(const com::DispatchCall& call, std::size_t index) {
  bool flag = false;
  SkipErrors([&] { flag = call.Has(index) && call.Bool(index); });
  return flag;
}

void GiveFlag(const com::DispatchCall& call, std::size_t index, bool flag) {
  SkipErrors([&] {
    if (call.Has(index) && (call.At(index).vt & VT_BYREF) != 0) call.Give(index, com::Variant::Of(flag));
  });
}

}  // namespace

std::shared_ptr<vbide::CommandBarControl> BridgedCommandBar::AddControl(std::int32_t type) {
  const com::LateBound controls(Get(u"Controls"), Link().Classes());
  return Link().Wrap<BridgedControl>(controls.Call(u"Add", type).ToObject());
}

std::shared_ptr<vbide::CommandBar> BridgedCommandBars::Item(std::u16string_view name) {
  try {
    return Link().Wrap<BridgedCommandBar>(Remote().Call(u"Item", name).ToObject());
  } catch (const Error&) {
    return nullptr;
  }
}

BridgedCommandBarEvents::BridgedCommandBarEvents(std::shared_ptr<HostLink> link, const com::ComPtr<IDispatch>& source,
                                                 std::shared_ptr<vbide::CommandBarControl> control)
    : HostObject(std::move(link), source), control_(std::move(control)) {
  connection_.emplace(com::IdentityOf(source), u"Click", [this](com::DispatchCall& call) { Clicked(call); });
}

void BridgedCommandBarEvents::Clicked(com::DispatchCall& call) {
  bool handled = FlagOf(call, kHandled);
  bool cancelDefault = FlagOf(call, kCancelDefault);
  Click.Raise(control_, handled, cancelDefault);
  GiveFlag(call, kHandled, handled);
  GiveFlag(call, kCancelDefault, cancelDefault);
}

void BridgedCommandBarEvents::Drop() {
  connection_.reset();
  HostObject::Drop();
}

std::shared_ptr<vbide::CommandBarEvents> BridgedEvents::CommandBarEvents(
    const std::shared_ptr<vbide::CommandBarControl>& control) {
  Deref(control);
  const auto* known = dynamic_cast<const BridgedControl*>(control.get());
  if (known == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
  const com::ComPtr<IDispatch> source = Remote().Call(u"CommandBarEvents", known->Object()).ToObject();
  if (!source) RaiseError(ErrorNumber::ObjectNotSet);
  return std::make_shared<BridgedCommandBarEvents>(Link().shared_from_this(), source, control);
}

}  // namespace quorvane::bridge
