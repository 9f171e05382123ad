// Projects, components, code and panes behind IDispatch.

#include "base/Error.h"
#include "windows/container/Exported.h"

namespace quorvane::container {

namespace {

using com::DispatchCall;
using com::kCalled;
using com::kWritten;
using com::Variant;

class ExportedWindow final : public Exported<ExportedWindow, vbide::Window> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "Window";
  static const std::vector<com::DispatchMember<ExportedWindow>>& Members() {
    using S = ExportedWindow;
    static const auto members =
        Numbered<S>(9100, {{u"Caption", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->Caption())); }},
                           {u"Caption", kWritten, [](S& s, DispatchCall& c) { s->SetCaption(c.Text(0)); }},
                           {u"Visible", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->Visible())); }},
                           {u"Visible", kWritten, [](S& s, DispatchCall& c) { s->SetVisible(c.Bool(0)); }},
                           {u"WindowState", kWritten, [](S& s, DispatchCall& c) { s->SetWindowState(c.Int32(0)); }},
                           {u"Close", DISPATCH_METHOD, [](S& s, DispatchCall&) { s->Close(); }}});
    return members;
  }
};

class ExportedProject final : public Exported<ExportedProject, vbide::VBProject> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "VBProject";
  static const std::vector<com::DispatchMember<ExportedProject>>& Members() {
    using S = ExportedProject;
    static const auto members = Numbered<S>(
        2111, {{u"VBComponents", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s->VBComponents())); }},
               {u"Name", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->Name())); }}});
    return members;
  }
};

class ExportedComponents final : public Exported<ExportedComponents, vbide::VBComponents> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "VBComponents";

  std::shared_ptr<vbide::VBComponent> Find(const DispatchCall& call) const {
    const auto items = TheModel()->Items();
    if (call.At(0).vt == VT_BSTR) {
      for (const auto& item : items) {
        if (EqualsNoCaseAscii(item->Name(), call.Text(0))) return item;
      }
    } else {
      const std::int32_t index = call.Int32(0);
      if (index >= 1 && static_cast<std::size_t>(index) <= items.size())
        return items[static_cast<std::size_t>(index) - 1];
    }
    RaiseError(ErrorNumber::SubscriptOutOfRange);
  }

  static const std::vector<com::DispatchMember<ExportedComponents>>& Members() {
    using S = ExportedComponents;
    static const auto members = Numbered<S>(
        3070, {{u"Item", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s.Find(c))); }},
               {u"Count", kCalled,
                [](S& s, DispatchCall& c) { c.Return(Variant::Of(static_cast<std::int32_t>(s->Items().size()))); }},
               {u"Parent", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Parent())); }}});
    return members;
  }
};

class ExportedComponent final : public Exported<ExportedComponent, vbide::VBComponent> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "VBComponent";
  static const std::vector<com::DispatchMember<ExportedComponent>>& Members() {
    using S = ExportedComponent;
    static const auto members = Numbered<S>(
        4013,
        {{u"Collection", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Collection())); }},
         {u"Type", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(static_cast<std::int32_t>(s->Type()))); }},
         {u"CodeModule", kCalled,
          [](S& s, DispatchCall& c) {
            const auto code = s->CodeModule();
            if (code) c.Return(s.Out(code));  // else an empty value
          }},
         {u"Name", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->Name())); }}});
    return members;
  }
};

class ExportedModule final : public Exported<ExportedModule, vbide::CodeModule> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CodeModule";

  void Lines(DispatchCall& call) const {
    const std::int32_t start = call.Int32(0);
    const std::int32_t count = call.Int32(1);
    const std::int64_t last = std::int64_t{start} + count - 1;
    if (TheExporter().TheMeanness.strictLines && (start < 1 || count < 1 || last > TheModel()->CountOfLines())) {
      RaiseError(ErrorNumber::SubscriptOutOfRange);
    }
    call.Return(Variant::Of(TheModel()->Lines(start, count)));
  }
  void ProcOfLine(DispatchCall& call) const {
    vbide::ProcKind kind = vbide::ProcKind::Proc;
    const std::u16string name = TheModel()->ProcOfLine(call.Int32(0), kind);
    call.Give(1, Variant::Of(static_cast<std::int32_t>(kind)));
    call.Return(Variant::Of(name));
  }
  void Find(DispatchCall& call) const {
    vbide::Selection range{call.Int32(1), call.Int32(2), call.Int32(3), call.Int32(4)};
    const bool found = TheModel()->Find(call.Text(0), range, call.Has(5) && call.Bool(5), call.Has(6) && call.Bool(6),
                                        call.Has(7) && call.Bool(7));
    call.Give(1, Variant::Of(range.StartLine));
    call.Give(2, Variant::Of(range.StartColumn));
    call.Give(3, Variant::Of(range.EndLine));
    call.Give(4, Variant::Of(range.EndColumn));
    call.Return(Variant::Of(found));
  }
  static vbide::ProcKind Kind(const DispatchCall& call) { return static_cast<vbide::ProcKind>(call.Int32(1)); }

  static const std::vector<com::DispatchMember<ExportedModule>>& Members() {
    using S = ExportedModule;
    // What is a method and what a property differs from member to member, as it does between hosts.
    static const auto members = Numbered<S>(
        5999, {{u"Parent", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Parent())); }},
               {u"CodePane", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->CodePane())); }},
               {u"CountOfLines", DISPATCH_PROPERTYGET,
                [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->CountOfLines())); }},
               {u"CountOfDeclarationLines", DISPATCH_PROPERTYGET,
                [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->CountOfDeclarationLines())); }},
               {u"Lines", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.Lines(c); }},
               {u"InsertLines", DISPATCH_METHOD, [](S& s, DispatchCall& c) { s->InsertLines(c.Int32(0), c.Text(1)); }},
               {u"DeleteLines", DISPATCH_METHOD, [](S& s, DispatchCall& c) { s->DeleteLines(c.Int32(0), c.Int32(1)); }},
               {u"ProcOfLine", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.ProcOfLine(c); }},
               {u"ProcStartLine", DISPATCH_PROPERTYGET,
                [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->ProcStartLine(c.Text(0), Kind(c)))); }},
               {u"ProcCountLines", DISPATCH_PROPERTYGET,
                [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->ProcCountLines(c.Text(0), Kind(c)))); }},
               {u"Find", DISPATCH_METHOD, [](S& s, DispatchCall& c) { s.Find(c); }}});
    return members;
  }
};

class ExportedPane final : public Exported<ExportedPane, vbide::CodePane> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CodePane";

  void GetSelection(DispatchCall& call) const {
    const vbide::Selection place = TheModel()->GetSelection();
    call.Give(0, Variant::Of(place.StartLine));
    call.Give(1, Variant::Of(place.StartColumn));
    call.Give(2, Variant::Of(place.EndLine));
    call.Give(3, Variant::Of(place.EndColumn));
  }

  static const std::vector<com::DispatchMember<ExportedPane>>& Members() {
    using S = ExportedPane;
    static const auto members =
        Numbered<S>(6600, {{u"CodeModule", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s->CodeModule())); }},
                           {u"Window", kCalled, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Window())); }},
                           {u"GetSelection", DISPATCH_METHOD, [](S& s, DispatchCall& c) { s.GetSelection(c); }},
                           {u"SetSelection", DISPATCH_METHOD,
                            [](S& s, DispatchCall& c) {
                              s->SetSelection({c.Int32(0), c.Int32(1), c.Int32(2), c.Int32(3)});
                            }},
                           {u"Show", DISPATCH_METHOD, [](S& s, DispatchCall&) { s->Show(); }}});
    return members;
  }
};

}  // namespace

com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::VBProject>& project) {
  return One<ExportedProject>(project);
}
com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::VBComponents>& components) {
  return One<ExportedComponents>(components);
}
com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::VBComponent>& component) {
  return One<ExportedComponent>(component);
}
com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CodeModule>& code) {
  return One<ExportedModule>(code);
}
com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CodePane>& pane) {
  return One<ExportedPane>(pane);
}
com::ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::Window>& window) {
  return One<ExportedWindow>(window);
}

}  // namespace quorvane::container
