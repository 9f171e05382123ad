#include "windows/results/ResultListAccessible.h"

#include <string_view>

#include "platform/forms/OwnerDrawList.h"
#include "windows/com/Bstr.h"
#include "windows/forms/Entry.h"
#include "windows/forms/Metrics.h"
#include "windows/results/ResultListView.h"

namespace quorvane::windows {

namespace {

void SetNumber(VARIANT* value, LONG number) {
  value->vt = VT_I4;
  value->lVal = number;
}

/// The text that there is nothing to say of.
HRESULT None(BSTR* text) {
  if (text == nullptr) return E_POINTER;
  *text = nullptr;
  return S_FALSE;
}

HRESULT Give(BSTR* text, std::u16string_view words) {
  *text = com::Bstr(words).Detach();
  return S_OK;
}

}  // namespace

template <class Body>
HRESULT ResultListAccessible::WithList(Body body) noexcept {
  if (list_ == nullptr) return CO_E_OBJNOTCONNECTED;
  const com::ComPtr<ResultListAccessible> held(this);
  return Enter<HRESULT>(E_FAIL, body);
}

template <class Body>
HRESULT ResultListAccessible::With(const VARIANT& child, Body body) noexcept {
  return WithList([&]() -> HRESULT {
    if (child.vt != VT_I4 || child.lVal < CHILDID_SELF || child.lVal > RowCount()) return E_INVALIDARG;
    return body(child.lVal);
  });
}

void ResultListAccessible::Disconnect() {
  list_ = nullptr;
  ::CoDisconnectObject(static_cast<IAccessible*>(this), 0);
}

LONG ResultListAccessible::RowCount() const {
  return list_->Model().ListCount();
}

// Whoever reads a list has its interface; by name nothing can be called.

HRESULT ResultListAccessible::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ResultListAccessible::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT ResultListAccessible::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
  return DISP_E_UNKNOWNNAME;
}

HRESULT ResultListAccessible::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT ResultListAccessible::get_accParent(IDispatch** parent) {
  if (parent == nullptr) return E_POINTER;
  *parent = nullptr;
  return WithList([&] {
    return ::AccessibleObjectFromWindow(list_->Handle(), static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                        reinterpret_cast<void**>(parent));
  });
}

HRESULT ResultListAccessible::get_accChildCount(LONG* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return WithList([&]() -> HRESULT {
    *count = RowCount();
    return S_OK;
  });
}

/// Rows are no objects: they are asked for by their number.
HRESULT ResultListAccessible::get_accChild(VARIANT child, IDispatch** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  return With(child, [](LONG) { return S_FALSE; });
}

HRESULT ResultListAccessible::get_accName(VARIANT child, BSTR* name) {
  if (name == nullptr) return E_POINTER;
  *name = nullptr;
  return With(child, [&](LONG row) -> HRESULT {
    if (row != CHILDID_SELF) return Give(name, list_->Model().List(row - 1));
    return list_->Name ? Give(name, list_->Name()) : S_FALSE;
  });
}

HRESULT ResultListAccessible::get_accValue(VARIANT, BSTR* value) {
  return None(value);
}

HRESULT ResultListAccessible::get_accDescription(VARIANT, BSTR* description) {
  return None(description);
}

HRESULT ResultListAccessible::get_accRole(VARIANT child, VARIANT* role) {
  if (role == nullptr) return E_POINTER;
  ::VariantInit(role);
  return With(child, [&](LONG row) -> HRESULT {
    SetNumber(role, row == CHILDID_SELF ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM);
    return S_OK;
  });
}

LONG ResultListAccessible::StateOf(LONG child) const {
  const forms::OwnerDrawList& model = list_->Model();
  LONG state = STATE_SYSTEM_FOCUSABLE;
  if (!::IsWindowVisible(list_->Handle())) state |= STATE_SYSTEM_INVISIBLE;
  if (child == CHILDID_SELF) return model.HasFocus() && model.ListIndex() < 0 ? state | STATE_SYSTEM_FOCUSED : state;
  state |= STATE_SYSTEM_SELECTABLE;
  if (!list_->Shows(child - 1)) state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
  if (model.ListIndex() != child - 1) return state;
  return state | STATE_SYSTEM_SELECTED | (model.HasFocus() ? STATE_SYSTEM_FOCUSED : 0);
}

HRESULT ResultListAccessible::get_accState(VARIANT child, VARIANT* state) {
  if (state == nullptr) return E_POINTER;
  ::VariantInit(state);
  return With(child, [&](LONG row) -> HRESULT {
    SetNumber(state, StateOf(row));
    return S_OK;
  });
}

HRESULT ResultListAccessible::get_accHelp(VARIANT, BSTR* help) {
  return None(help);
}

HRESULT ResultListAccessible::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
  if (topic != nullptr) *topic = 0;
  return None(file);
}

HRESULT ResultListAccessible::get_accKeyboardShortcut(VARIANT, BSTR* key) {
  return None(key);
}

HRESULT ResultListAccessible::get_accFocus(VARIANT* child) {
  if (child == nullptr) return E_POINTER;
  ::VariantInit(child);
  return WithList([&]() -> HRESULT {
    if (!list_->Model().HasFocus()) return S_FALSE;
    SetNumber(child, list_->Model().ListIndex() + 1);
    return S_OK;
  });
}

HRESULT ResultListAccessible::get_accSelection(VARIANT* children) {
  if (children == nullptr) return E_POINTER;
  ::VariantInit(children);
  return WithList([&]() -> HRESULT {
    if (list_->Model().ListIndex() < 0) return S_FALSE;
    SetNumber(children, list_->Model().ListIndex() + 1);
    return S_OK;
  });
}

/// In the system's own language and words, such as "Double Click".
HRESULT ResultListAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
  if (action == nullptr) return E_POINTER;
  *action = nullptr;
  return With(child,
              [&](LONG row) -> HRESULT { return row == CHILDID_SELF ? S_FALSE : Give(action, u"Double Click"); });
}

HRESULT ResultListAccessible::Choose(LONG how, LONG child) {
  if ((how & (SELFLAG_ADDSELECTION | SELFLAG_EXTENDSELECTION)) != 0) return E_INVALIDARG;
  if ((how & SELFLAG_TAKEFOCUS) != 0) ::SetFocus(list_->Handle());
  if (child == CHILDID_SELF) return S_OK;
  if ((how & SELFLAG_TAKESELECTION) != 0) list_->Choose(child - 1);
  if ((how & SELFLAG_REMOVESELECTION) != 0 && list_->Model().ListIndex() == child - 1) list_->Choose(-1);
  return S_OK;
}

HRESULT ResultListAccessible::accSelect(LONG how, VARIANT child) {
  return With(child, [&](LONG row) { return Choose(how, row); });
}

HRESULT ResultListAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
  if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_POINTER;
  *left = *top = *width = *height = 0;
  return With(child, [&](LONG row) -> HRESULT {
    RECT place{};
    ::GetClientRect(list_->Handle(), &place);
    if (row != CHILDID_SELF) place = list_->RectOf(row - 1);
    ::MapWindowPoints(list_->Handle(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    *left = place.left;
    *top = place.top;
    *width = Width(place);
    *height = Height(place);
    return S_OK;
  });
}

/// From row to row, and from the list to its first and last one.
HRESULT ResultListAccessible::accNavigate(LONG way, VARIANT start, VARIANT* end) {
  if (end == nullptr) return E_POINTER;
  ::VariantInit(end);
  return With(start, [&](LONG from) -> HRESULT {
    LONG to = 0;
    if (from == CHILDID_SELF && way == NAVDIR_FIRSTCHILD) to = 1;
    if (from == CHILDID_SELF && way == NAVDIR_LASTCHILD) to = RowCount();
    if (from != CHILDID_SELF && (way == NAVDIR_NEXT || way == NAVDIR_DOWN)) to = from + 1;
    if (from != CHILDID_SELF && (way == NAVDIR_PREVIOUS || way == NAVDIR_UP)) to = from - 1;
    if (to < 1 || to > RowCount()) return S_FALSE;
    SetNumber(end, to);
    return S_OK;
  });
}

HRESULT ResultListAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
  if (child == nullptr) return E_POINTER;
  ::VariantInit(child);
  return WithList([&]() -> HRESULT {
    POINT place{left, top};
    ::ScreenToClient(list_->Handle(), &place);
    RECT inside{};
    ::GetClientRect(list_->Handle(), &inside);
    if (!::PtInRect(&inside, place)) return S_FALSE;
    SetNumber(child, list_->RowAt(place.x, place.y) + 1);
    return S_OK;
  });
}

/// What a double click on the row does.
HRESULT ResultListAccessible::accDoDefaultAction(VARIANT child) {
  return With(child, [&](LONG row) -> HRESULT {
    if (row == CHILDID_SELF) return DISP_E_MEMBERNOTFOUND;
    list_->Choose(row - 1);
    list_->Model().DblClick.Raise();
    return S_OK;
  });
}

HRESULT ResultListAccessible::put_accName(VARIANT, BSTR) {
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT ResultListAccessible::put_accValue(VARIANT, BSTR) {
  return DISP_E_MEMBERNOTFOUND;
}

}  // namespace quorvane::windows
