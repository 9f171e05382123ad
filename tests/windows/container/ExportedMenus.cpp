// The host's menus behind IDispatch, with their clicks raised through a connection point.

#include <map>
#include <vector>

#include "base/Error.h"
#include "windows/container/Exported.h"

namespace quorvane::container {

namespace {

using com::ComPtr;
using com::DispatchCall;
using com::kCalled;
using com::kWritten;
using com::Variant;

constexpr GUID kClickEvents = {0x0C0FFEE1, 0x5157, 0x4F54, {8, 7, 6, 5, 4, 3, 2, 1}};
/// Told by the type information of the source; a source without it raises by 1.
constexpr DISPID kClick = 4711;
constexpr DISPID kClickUntold = 1;

class ExportedControl final : public Exported<ExportedControl, vbide::CommandBarControl> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CommandBarControl";
  static const std::vector<com::DispatchMember<ExportedControl>>& Members() {
    using S = ExportedControl;
    static const auto members =
        Numbered<S>(7003, {{u"Caption", kWritten, [](S& s, DispatchCall& c) { s->SetCaption(c.Text(0)); }},
                           {u"Visible", kWritten, [](S& s, DispatchCall& c) { s->SetVisible(c.Bool(0)); }},
                           {u"Enabled", kCalled, [](S& s, DispatchCall& c) { c.Return(Variant::Of(s->Enabled())); }},
                           {u"Delete", DISPATCH_METHOD, [](S& s, DispatchCall&) { s->Delete(); }}});
    return members;
  }
};

/// The controls of a bar: an object of its own, over the bar.
class ExportedControls final : public Exported<ExportedControls, vbide::CommandBar> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CommandBarControls";
  static const std::vector<com::DispatchMember<ExportedControls>>& Members() {
    using S = ExportedControls;
    static const auto members = Numbered<S>(
        7501, {{u"Add", DISPATCH_METHOD, [](S& s, DispatchCall& c) { c.Return(s.Out(s->AddControl(c.Int32(0)))); }}});
    return members;
  }
};

class ExportedBar final : public Exported<ExportedBar, vbide::CommandBar> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CommandBar";
  void Controls(DispatchCall& call) const {
    const auto controls = com::MakeObject<ExportedControls>(TheExporter().shared_from_this(), TheModel());
    call.Return(Variant::Of(controls.Get()));
  }
  static const std::vector<com::DispatchMember<ExportedBar>>& Members() {
    using S = ExportedBar;
    static const auto members =
        Numbered<S>(7777, {{u"Controls", kCalled, [](S& s, DispatchCall& c) { s.Controls(c); }}});
    return members;
  }
};

class ExportedBars final : public Exported<ExportedBars, vbide::CommandBars> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "CommandBars";
  void Item(DispatchCall& call) const {
    const auto bar = TheExporter().TheMeanness.refusesMenu ? nullptr : TheModel()->Item(call.Text(0));
    if (!bar) RaiseError(ErrorNumber::InvalidProcedureCall);
    call.Return(Out(bar));
  }
  static const std::vector<com::DispatchMember<ExportedBars>>& Members() {
    using S = ExportedBars;
    static const auto members = Numbered<S>(8123, {{u"Item", kCalled, [](S& s, DispatchCall& c) { s.Item(c); }}});
    return members;
  }
};

class ClickSource;

/// A connection point of a source of clicks. The source may go before it.
class ClickPoint final : public com::ComObject<IConnectionPoint> {
 public:
  explicit ClickPoint(Census& living, const GUID& events = kClickEvents) : living_(living), events_(events) {}

  void Raise(const ComPtr<IDispatch>& control, DISPID event, bool& handled, bool& cancelDefault) {
    const auto sinks = sinks_;  // a listener may leave
    for (const auto& [cookie, sink] : sinks) {
      VARIANT_BOOL flags[] = {cancelDefault ? VARIANT_TRUE : VARIANT_FALSE, handled ? VARIANT_TRUE : VARIANT_FALSE};
      const Variant arguments[] = {Variant::To(flags[0]), Variant::To(flags[1]), Variant::Of(control.Get())};
      VARIANT reversed[] = {arguments[0].Get(), arguments[1].Get(), arguments[2].Get()};
      DISPPARAMS given{reversed, nullptr, 3, 0};
      sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr, nullptr, nullptr);
      cancelDefault = flags[0] != VARIANT_FALSE;
      handled = flags[1] != VARIANT_FALSE;
    }
  }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override {
    *iid = events_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override {
    *container = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    ComPtr<IDispatch> listener;
    if (FAILED(sink->QueryInterface(events_, listener.PutVoid()))) return CONNECT_E_CANNOTCONNECT;
    *cookie = ++last_;
    sinks_[*cookie] = listener;
    living_.Born("sink");
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    if (sinks_.erase(cookie) == 0) return CONNECT_E_NOCONNECTION;
    living_.Died("sink");
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  Census& living_;
  GUID events_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD last_ = 100;
};

/// Gives each point once, the last of them first.
class Points final : public com::ComObject<IEnumConnectionPoints> {
 public:
  explicit Points(std::vector<ComPtr<IConnectionPoint>> points) : points_(std::move(points)) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override {
    if (fetched != nullptr) *fetched = 0;
    if (count == 0 || points_.empty()) return S_FALSE;
    *points = points_.back().Detach();
    points_.pop_back();
    if (fetched != nullptr) *fetched = 1;
    return count == 1 ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

 private:
  std::vector<ComPtr<IConnectionPoint>> points_;
};

class ClickSource final
    : public Exported<ClickSource, vbide::CommandBarEvents, IConnectionPointContainer, IProvideClassInfo> {
 public:
  ClickSource(std::shared_ptr<Exporter> exporter, std::shared_ptr<vbide::CommandBarEvents> model)
      : Exported(std::move(exporter), std::move(model)),
        point_(com::MakeObject<ClickPoint>(TheExporter().Living)),
        clicks_(TheModel()->Click.Subscribe(
            [this](const std::shared_ptr<vbide::CommandBarControl>& control, bool& handled, bool& cancelDefault) {
              const ComPtr<ClickSource> alive(this);
              point_->Raise(TheExporter().Export(control), Told() ? kClick : kClickUntold, handled, cancelDefault);
            })) {}
  static constexpr const char* kKind = "CommandBarEvents";
  static const std::vector<com::DispatchMember<ClickSource>>& Members() {
    static const auto members = Numbered<ClickSource>(8800, {{u"About", kCalled, [](ClickSource&, DispatchCall&) {}}});
    return members;
  }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
    std::vector<ComPtr<IConnectionPoint>> all = {ComPtr<IConnectionPoint>(point_.Get())};
    if (TheExporter().TheMeanness.otherPoints) {
      all.emplace_back(com::MakeObject<ClickPoint>(TheExporter().Living, IID_IPropertyNotifySink));
    }
    *points = com::MakeObject<Points>(std::move(all)).Detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
    *point = nullptr;
    if (!IsEqualIID(iid, kClickEvents)) return CONNECT_E_NOCONNECTION;
    *point = ComPtr<IConnectionPoint>(point_.Get()).Detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    *info = nullptr;
    if (!Told()) return E_NOTIMPL;
    ComPtr<ITypeInfo> events =
        com::MakeObject<StubTypeInfo>(kClickEvents, StubTypeInfo::Ids{{u"Other", 12}, {u"Click", kClick}}, nullptr,
                                      TheExporter().TheMeanness.otherPoints);
    *info = com::MakeObject<StubTypeInfo>(GUID_NULL, StubTypeInfo::Ids{}, std::move(events)).Detach();
    return S_OK;
  }

 private:
  bool Told() const { return TheExporter().TheMeanness.typeInformation; }

  ComPtr<ClickPoint> point_;
  Subscription clicks_;
};

class ExportedEvents final : public Exported<ExportedEvents, vbide::Events> {
 public:
  using Exported::Exported;
  static constexpr const char* kKind = "Events";
  void CommandBarEvents(DispatchCall& call) const {
    const ComPtr<IDispatch> given = call.Object(0);
    const auto* control = dynamic_cast<ExportedControl*>(given.Get());
    if (control == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
    call.Return(Out(TheModel()->CommandBarEvents(control->TheModel())));
  }
  static const std::vector<com::DispatchMember<ExportedEvents>>& Members() {
    using S = ExportedEvents;
    static const auto members =
        Numbered<S>(8999, {{u"CommandBarEvents", kCalled, [](S& s, DispatchCall& c) { s.CommandBarEvents(c); }}});
    return members;
  }
};

}  // namespace

ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CommandBars>& bars) {
  return One<ExportedBars>(bars);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CommandBar>& bar) {
  return One<ExportedBar>(bar);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CommandBarControl>& control) {
  return One<ExportedControl>(control);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::Events>& events) {
  return One<ExportedEvents>(events);
}
ComPtr<IDispatch> Exporter::Export(const std::shared_ptr<vbide::CommandBarEvents>& events) {
  return One<ClickSource>(events);
}

}  // namespace quorvane::container
