#include "workbench/model/Component.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "workbench/model/ComponentList.h"
#include "workbench/model/Desk.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"

namespace quorvane::workbench {

namespace {

/// A module refers to the clock of its desk, so that it keeps the desk, however long somebody holds it.
struct ModuleOnDesk {
  ModuleOnDesk(std::shared_ptr<const SourceFile> file, const CodePage& page, const CodePage& columns,
               std::shared_ptr<Desk> itsDesk)
      : desk(std::move(itsDesk)), module(std::move(file), page, desk->Clock, &columns) {}

  std::shared_ptr<Desk> desk;
  Module module;
};

}  // namespace

std::shared_ptr<Component> Component::Make(Parts parts, const std::shared_ptr<Desk>& desk, const CodePage& page,
                                           const std::shared_ptr<ComponentList>& list) {
  std::shared_ptr<Component> component(new Component(std::move(parts)));
  component->desk_ = desk;
  component->list_ = list;
  if (component->parts_.file) {
    // The module remembers what its file holds; a second reference here would keep it after a save.
    const CodePage& written = component->parts_.page != nullptr ? *component->parts_.page : page;
    auto held = std::make_shared<ModuleOnDesk>(std::move(component->parts_.file), written, page, desk);
    component->module_ = std::shared_ptr<Module>(held, &held->module);
    component->module_->SetParent(component);
    component->module_->SetPaneMaker([weak = std::weak_ptr(component), &page]() -> std::shared_ptr<vbide::CodePane> {
      const std::shared_ptr<Component> alive = weak.lock();
      return alive ? alive->MakePane(page) : nullptr;
    });
  }
  return component;
}

std::shared_ptr<vbide::CodePane> Component::MakePane(const CodePage& page) const {
  const std::shared_ptr<ComponentList> list = list_.lock();
  const std::shared_ptr<vbide::VBProject> project = list ? list->Parent() : nullptr;
  const std::u16string caption = (project ? project->Name() + u" - " : u"") + Name() + u" (Code)";
  std::shared_ptr<Pane> pane = Pane::Open(desk_, module_, page, caption);
  if (!project) desk_->Remove(*pane);
  return pane;
}

std::shared_ptr<vbide::CodeModule> Component::CodeModule() const {
  return module_;
}

std::shared_ptr<vbide::VBComponents> Component::Collection() const {
  return list_.lock();
}

void Component::Reopen(const CodePage& page) {
  Deref(module_);
  std::u16string name;
  page.Decode(module_->Saved()->Name(), name);
  if (!name.empty()) parts_.name = std::move(name);
  module_->Reopen(page);
}

std::u16string Component::FileName() const {
  return FromUtf8(parts_.path);
}

std::u16string Component::FullName() const {
  const std::shared_ptr<ComponentList> list = list_.lock();
  const std::shared_ptr<vbide::VBProject> project = list ? list->Parent() : nullptr;
  return project ? project->Name() + u"." + Name() : Name();
}

void Component::Detach() {
  list_.reset();
  if (!module_) return;
  for (const std::shared_ptr<Pane>& pane : desk_->Panes()) {
    if (pane->CodeModule() == module_) desk_->Remove(*pane);
  }
  module_->SetParent({});
}

}  // namespace quorvane::workbench
