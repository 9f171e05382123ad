#include "workbench/project/GroupBuilder.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/FileKind.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {

namespace {

using vbide::ComponentType;

std::u16string FormHeader(std::u16string_view kind, const std::u16string& name) {
  return u"VERSION 5.00\r\nBegin " + std::u16string(kind) + u" " + name + u" \r\n   Caption = \"" + name +
         u"\"\r\nEnd\r\n";
}

std::u16string Header(ComponentType type, const std::u16string& name) {
  switch (type) {
    case ComponentType::StdModule:
    case ComponentType::ResFile:
    case ComponentType::RelatedDocument:
      return {};
    case ComponentType::ClassModule:
      return u"VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n";
    case ComponentType::MSForm:
    case ComponentType::ActiveXDesigner:
      return FormHeader(u"{C62A69F0-16DC-11CE-9E98-00AA00574A4F}", name);
    case ComponentType::VBForm:
      return FormHeader(u"VB.Form", name);
    case ComponentType::VBMDIForm:
      return FormHeader(u"VB.MDIForm", name);
    case ComponentType::PropPage:
      return FormHeader(u"VB.PropertyPage", name);
    case ComponentType::UserControl:
      return FormHeader(u"VB.UserControl", name);
    case ComponentType::DocObject:
      return FormHeader(u"VB.UserDocument", name);
  }
  return {};
}

}  // namespace

GroupBuilder::PlannedProject& GroupBuilder::Last() {
  if (projects_.empty()) Project(u"Project1");
  return projects_.back();
}

GroupBuilder& GroupBuilder::Project(const std::u16string& name) {
  projects_.push_back({name, {}});
  return *this;
}

GroupBuilder& GroupBuilder::Active() {
  Last();
  active_ = projects_.size() - 1;
  return *this;
}

GroupBuilder& GroupBuilder::Component(const std::u16string& name, ComponentType type, std::u16string_view code) {
  Last().components.push_back({name, type, std::u16string(code), {}, false});
  return *this;
}

GroupBuilder& GroupBuilder::Module(const std::u16string& name, std::u16string_view code) {
  return Component(name, ComponentType::StdModule, code);
}

GroupBuilder& GroupBuilder::Class(const std::u16string& name, std::u16string_view code) {
  return Component(name, ComponentType::ClassModule, code);
}

GroupBuilder& GroupBuilder::Form(const std::u16string& name, std::u16string_view code) {
  return Component(name, ComponentType::VBForm, code);
}

GroupBuilder& GroupBuilder::Resource(const std::u16string& name) {
  return Component(name, ComponentType::ResFile, {});
}

GroupBuilder& GroupBuilder::RelatedDocument(const std::u16string& name) {
  return Component(name, ComponentType::RelatedDocument, {});
}

GroupBuilder& GroupBuilder::File(const std::u16string& name, ComponentType type, std::string bytes) {
  Last().components.push_back({name, type, {}, std::move(bytes), true});
  return *this;
}

GroupBuilder& GroupBuilder::NoAddInsBar() {
  addInsBar_ = false;
  return *this;
}

std::string GroupBuilder::Bytes(const PlannedComponent& component, const CodePage& page) {
  if (component.raw) return component.bytes;
  const std::u16string text =
      Header(component.type, component.name) + u"Attribute VB_Name = \"" + component.name + u"\"\r\n" + component.code;
  std::string bytes;
  std::size_t failedAt = 0;
  if (!page.Encode(text, bytes, failedAt)) {
    RaiseError(ErrorNumber::InvalidProcedureCall,
               component.name + u": code page " + FromUtf8(page.Name()) + u" lacks '" + text[failedAt] + u"'");
  }
  return bytes;
}

std::unique_ptr<Workbench> GroupBuilder::Build(const CodePage& page) const {
  auto workbench = std::make_unique<Workbench>(page);
  if (!addInsBar_) workbench->TheCommandBars()->Remove(u"Add-Ins");
  for (const PlannedProject& planned : projects_) {
    const auto project = workbench->NewProject(planned.name);
    for (const PlannedComponent& component : planned.components) {
      workbench::Component::Parts parts;
      parts.name = component.name;
      parts.type = component.type;
      if (HoldsCode(component.type)) parts.file = std::make_shared<const SourceFile>(Bytes(component, page));
      project->Add(std::move(parts));
    }
    workbench->Add(project);
  }
  if (!projects_.empty()) workbench->SetActiveProject(workbench->Projects()[active_]);
  return workbench;
}

}  // namespace quorvane::workbench
