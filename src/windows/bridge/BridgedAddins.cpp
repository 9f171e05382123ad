#include "windows/bridge/BridgedAddins.h"

#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "windows/bridge/BridgedWindow.h"

namespace quorvane::bridge {

std::shared_ptr<vbide::AddIn> BridgedAddins::Item(std::u16string_view progId) {
  std::shared_ptr<vbide::AddIn> known;
  try {
    known = Link().Wrap<BridgedAddIn>(Remote().Call(u"Item", progId).ToObject());
  } catch (const Error&) {
    known = OwnRecord(progId);
    if (!known) throw;
  }
  if (!known) known = OwnRecord(progId);
  if (!known) {
    RaiseError(ErrorNumber::SubscriptOutOfRange,
               ErrorText(ErrorNumber::SubscriptOutOfRange) + u": no add-in " + std::u16string(progId));
  }
  return known;
}

std::shared_ptr<vbide::AddIn> BridgedAddins::OwnRecord(std::u16string_view progId) const {
  auto own = Link().Wrap<BridgedAddIn>(Link().OwnAddIn());
  bool same = false;
  SkipErrors([&] { same = own && EqualsNoCaseAscii(own->ProgId(), progId); });
  return same ? own : nullptr;
}

std::shared_ptr<vbide::Window> BridgedWindows::CreateToolWindow(const std::shared_ptr<vbide::AddIn>& addIn,
                                                                std::u16string_view progId,
                                                                const std::u16string& caption,
                                                                std::u16string_view guidPosition,
                                                                std::shared_ptr<vbide::Document>& document) {
  Deref(addIn);
  const auto* known = dynamic_cast<const BridgedAddIn*>(addIn.get());
  if (known == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
  com::ComPtr<IDispatch> handed;
  const com::ComPtr<IDispatch> window =
      Remote()
          .Call(u"CreateToolWindow", known->Object(), progId, caption, guidPosition, com::Variant::To(handed))
          .ToObject();
  auto made = Link().Wrap<BridgedWindow>(window);
  Deref(made);
  document = Link().Documents() ? Link().Documents()(handed) : nullptr;
  return made;
}

}  // namespace quorvane::bridge
