#include "workbench/model/HostWindows.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::workbench {

void HostWindows::RegisterDocumentFactory(const std::u16string& progId, DocumentFactory factory) {
  std::erase_if(factories_, [&](const auto& known) { return EqualsNoCaseAscii(known.first, progId); });
  factories_.emplace_back(progId, std::move(factory));
}

std::shared_ptr<vbide::Window> HostWindows::CreateToolWindow(const std::shared_ptr<vbide::AddIn>& addIn,
                                                             std::u16string_view progId, const std::u16string& caption,
                                                             std::u16string_view guidPosition,
                                                             std::shared_ptr<vbide::Document>& document) {
  Deref(addIn);
  const auto factory =
      std::ranges::find_if(factories_, [&](const auto& known) { return EqualsNoCaseAscii(known.first, progId); });
  if (factory == factories_.end()) {
    RaiseError(ErrorNumber::CannotCreateObject, u"Cannot create the object " + std::u16string(progId));
  }
  std::shared_ptr<vbide::Document> made = factory->second();
  Deref(made);
  auto window = std::make_shared<ToolWindow>(desk_->NewHandle(), caption, addIn, std::u16string(guidPosition), made);
  toolWindows_.push_back(window);
  Created.Raise(window);
  document = std::move(made);
  return window;
}

void HostWindows::Remove(const vbide::AddIn& addIn) {
  const auto isOfAddIn = [&](const auto& window) { return window->TheAddIn().get() == &addIn; };
  for (;;) {
    const auto found = std::ranges::find_if(toolWindows_, isOfAddIn);
    if (found == toolWindows_.end()) return;
    const std::shared_ptr<ToolWindow> window = *found;
    toolWindows_.erase(found);
    window->SetVisible(false);
    Removed.Raise(window);
  }
}

}  // namespace quorvane::workbench
