#include "windows/bridge/BridgedPane.h"

#include "windows/bridge/BridgedModule.h"
#include "windows/bridge/BridgedWindow.h"

namespace quorvane::bridge {

std::u16string BridgedPane::NameOf(const com::LateBound& object, com::ClassIds& classes) {
  return BridgedModule::NameOf(com::LateBound(object.Call(u"CodeModule").ToObject(), classes), classes);
}

std::shared_ptr<vbide::CodeModule> BridgedPane::CodeModule() const {
  return TheOne<BridgedModule>(u"CodeModule");
}

std::shared_ptr<vbide::Window> BridgedPane::Window() const {
  return One<BridgedWindow>(u"Window");
}

vbide::Selection BridgedPane::GetSelection() const {
  vbide::Selection place;
  Remote().Call(u"GetSelection", com::Variant::To(place.StartLine), com::Variant::To(place.StartColumn),
                com::Variant::To(place.EndLine), com::Variant::To(place.EndColumn));
  return place;
}

void BridgedPane::SetSelection(const vbide::Selection& selection) {
  Remote().Call(u"SetSelection", selection.StartLine, selection.StartColumn, selection.EndLine, selection.EndColumn);
}

void BridgedPane::Show() {
  Remote().Call(u"Show");
}

}  // namespace quorvane::bridge
