#pragma once

#include <oleacc.h>

#include <tuple>

#include "windows/com/ComObject.h"

namespace quorvane::com {

template <>
struct Above<IAccessible> {
  using Interfaces = std::tuple<IDispatch>;
};

}  // namespace quorvane::com

namespace quorvane::windows {

class ResultListView;

/// What screen readers and tests are told of a result list: the list as object 0, its rows as objects 1 and on, which
/// have no object of their own. Others may hold it longer than the window lives: then each call answers that it is no
/// longer connected.
class ResultListAccessible final : public com::ComObject<IAccessible> {
 public:
  explicit ResultListAccessible(ResultListView& list) : list_(&list) {}

  /// The list goes. Whoever holds this from another process loses it.
  void Disconnect();

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override;

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override;
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override;
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override;
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
  HRESULT STDMETHODCALLTYPE accSelect(LONG how, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accNavigate(LONG way, VARIANT start, VARIANT* end) override;
  HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override;
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override;

 private:
  /// Runs `body(child)` while the list lives and `child` is it (0) or one of its rows; its result is what the call
  /// gives.
  template <class Body>
  HRESULT With(const VARIANT& child, Body body) noexcept;
  template <class Body>
  HRESULT WithList(Body body) noexcept;
  LONG RowCount() const;
  LONG StateOf(LONG child) const;
  HRESULT Choose(LONG how, LONG child);

  ResultListView* list_;  ///< nothing after Disconnect
};

}  // namespace quorvane::windows
