// The host itself, its windows and its add-ins behind IDispatch.

#include "base/Error.h"
#include "windows/container/Exported.h"

namespace quorvane::container {

namespace {

using com::ComPtr;
using com::DispatchCall;
using com::kCalled;
using com::Variant;

class ExportedAddIn final : public Exported<ExportedAddIn, vbide::AddIn> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "AddIn";
  static const std::vector<com::DispatchMember<ExportedAddIn>>& Members() {
    using S = ExportedAddIn;
    static const auto members =
        Numbered<S>(1201, {{u"ProgId", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->ProgId())); }}});
    return members;
  }
};

class ExportedAddins final : public Exported<ExportedAddins, vbide::Addins> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "Addins";
  void Item(DispatchCall& call) const {
    if (TheExporter().TheMeanness.noAddIns) RaiseError(ErrorNumber::SubscriptOutOfRange);
    call.Return(Out(TheModel()->Item(call.Text(0))));
  }
  static const std::vector<com::DispatchMember<ExportedAddins>>& Members() {
    using S = ExportedAddins;
    static const auto members = Numbered<S>(1305, {{u"Item", kCalled, [](S& s, DispatchCall& c) { s.Item(c); }}});
    return members;
  }
};

/// Stands in front of a document that the host does not hand out as it is: everything but IUnknown comes from behind.
class DocumentWrapper final : public com::ComObject<IDispatch> {
 public:
  DocumentWrapper(std::shared_ptr<Exporter> exporter, ComPtr<IUnknown> document)
      : exporter_(std::move(exporter)), document_(std::move(document)) {
    exporter_->Living.Born("document wrapper");
  }
  ~DocumentWrapper() override { exporter_->Living.Died("document wrapper"); }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<Exporter> exporter_;
  ComPtr<IUnknown> document_;
};

class ExportedWindows final : public Exported<ExportedWindows, vbide::Windows> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "Windows";

  void CreateToolWindow(DispatchCall& call) const {
    const ComPtr<IDispatch> given = call.Object(0);
    const auto* addIn = dynamic_cast<ExportedAddIn*>(given.Get());
    if (addIn == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
    if (!TheExporter().MakeToolWindow) RaiseError(ErrorNumber::ActionNotSupported);
    ComPtr<IUnknown> document;
    const auto window =
        TheExporter().MakeToolWindow(addIn->TheModel(), call.Text(1), call.Text(2), call.Text(3), document);
    ComPtr<IDispatch> handed = document.As<IDispatch>();
    if (TheExporter().TheMeanness.wrapsDocument) {
      handed = com::MakeObject<DocumentWrapper>(TheExporter().shared_from_this(), document);
    }
    call.Give(4, Variant::Of(handed.Get()));
    call.Return(Out(window));
  }

  static const std::vector<com::DispatchMember<ExportedWindows>>& Members() {
    using S = ExportedWindows;
    static const auto members = Numbered<S>(
        1409, {{u"CreateToolWindow", DISPATCH_METHOD, [](S& s, DispatchCall& c) { s.CreateToolWindow(c); }}});
    return members;
  }
};

/// The open projects: an object of its own, over the host.
class ExportedProjects final : public Exported<ExportedProjects, vbide::VBE> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "VBProjects";

  void Item(DispatchCall& call) const {
    const auto projects = TheModel()->VBProjects();
    const std::int32_t index = call.Int32(0);
    if (index < 1 || static_cast<std::size_t>(index) > projects.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    call.Return(Out(projects[static_cast<std::size_t>(index) - 1]));
  }

  static const std::vector<com::DispatchMember<ExportedProjects>>& Members() {
    using S = ExportedProjects;
    static const auto members =
        Numbered<S>(1500, {{u"Item", kCalled, [](S& s, DispatchCall& c) { s.Item(c); }},
                           {u"Count", kCalled, [](S& s, DispatchCall& c) {
                              c.Return(Variant::Of(static_cast<std::int32_t>(s->VBProjects().size())));
                            }}});
    return members;
  }
};

class ExportedHost final : public Exported<ExportedHost, vbide::VBE> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "VBE";

  void VBProjects(DispatchCall& call) const {
    call.Return(Variant::Of(com::MakeObject<ExportedProjects>(TheExporter().shared_from_this(), TheModel()).Get()));
  }
  void CommandBars(DispatchCall& call) const {
    if (TheExporter().TheMeanness.noBars) RaiseError(ErrorNumber::ActionNotSupported);
    call.Return(Out(TheModel()->CommandBars()));
  }
  /// Nothing comes as a null object, an empty value or a null of the general kind, in turn.
  template <class Model>
  void Maybe(DispatchCall& call, const std::shared_ptr<Model>& model) {
    Meanness& meanness = TheExporter().TheMeanness;
    const bool before = std::exchange(meanness.freshObjects, meanness.freshObjects || meanness.freshActive);
    if (model) call.Return(Out(model));
    meanness.freshObjects = before;
    if (model) return;
    static constexpr VARTYPE kNothings[] = {VT_DISPATCH, VT_EMPTY, VT_UNKNOWN, VT_NULL};
    VARIANT nothing{};
    nothing.vt = kNothings[turn_++ % 4];
    call.Return(Variant::CopyOf(nothing));
  }

  static const std::vector<com::DispatchMember<ExportedHost>>& Members() {
    using S = ExportedHost;
    static const auto members = Numbered<S>(
        1999,
        {{u"ActiveCodePane", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.Maybe(c, s->ActiveCodePane()); }},
         {u"ActiveVBProject", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.Maybe(c, s->ActiveVBProject()); }},
         {u"VBProjects", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.VBProjects(c); }},
         {u"CommandBars", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { s.CommandBars(c); }},
         {u"Windows", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Windows())); }},
         {u"Events", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Events())); }},
         {u"Addins", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->Addins())); }},
         {u"MainWindow", DISPATCH_PROPERTYGET, [](S& s, DispatchCall& c) { c.Return(s.Out(s->MainWindow())); }}});
    return members;
  }

 private:
  unsigned turn_ = 0;
};

}  // namespace

ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::VBE>& host) {
  return One<ExportedHost>(host);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::Windows>& windows) {
  return One<ExportedWindows>(windows);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::Addins>& addins) {
  return One<ExportedAddins>(addins);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::AddIn>& addIn) {
  return One<ExportedAddIn>(addIn);
}

}  // namespace quorvane::container
