#include "windows/bridge/BridgedVBE.h"

#include "base/Error.h"
#include "base/Skip.h"
#include "windows/bridge/BridgedAddins.h"
#include "windows/bridge/BridgedMenus.h"
#include "windows/bridge/BridgedPane.h"
#include "windows/bridge/BridgedProject.h"
#include "windows/bridge/BridgedWindow.h"
#include "windows/bridge/HostCollection.h"

namespace quorvane::bridge {

std::shared_ptr<vbide::CodePane> BridgedVBE::ActiveCodePane() const {
  return TheOne<BridgedPane>(u"ActiveCodePane");
}

std::shared_ptr<vbide::VBProject> BridgedVBE::ActiveVBProject() const {
  return TheOne<BridgedProject>(u"ActiveVBProject");
}

std::vector<std::shared_ptr<vbide::VBProject>> BridgedVBE::VBProjects() const {
  std::vector<std::shared_ptr<vbide::VBProject>> items;
  const HostCollection all(com::LateBound(Get(u"VBProjects"), Link().Classes()));
  const std::int32_t count = all.Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    if (auto item = Link().TheWrapper<BridgedProject>([&] { return all.Item(i); })) items.push_back(std::move(item));
  }
  return items;
}

/// A host without menus may raise: it has bars of which none is there.
std::shared_ptr<vbide::CommandBars> BridgedVBE::CommandBars() {
  if (Object() == nullptr) RaiseError(ErrorNumber::ObjectNotSet);
  com::ComPtr<IDispatch> bars;
  SkipErrors([&] { bars = Get(u"CommandBars"); });
  return std::make_shared<BridgedCommandBars>(Link().shared_from_this(), bars);
}

std::shared_ptr<vbide::Windows> BridgedVBE::Windows() {
  return One<BridgedWindows>(u"Windows");
}

std::shared_ptr<vbide::Events> BridgedVBE::Events() {
  return One<BridgedEvents>(u"Events");
}

std::shared_ptr<vbide::Addins> BridgedVBE::Addins() {
  return One<BridgedAddins>(u"Addins");
}

std::shared_ptr<vbide::Window> BridgedVBE::MainWindow() {
  return One<BridgedWindow>(u"MainWindow");
}

}  // namespace quorvane::bridge
