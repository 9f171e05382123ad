#include "ResultDocumentFixture.h"
#include "addin/core/RegistrationData.h"
#include "windows/com/Variant.h"
#include "windows/forms/Handles.h"
#include "windows/results/DocumentClassInfo.h"

namespace quorvane::test {

using com::ComPtr;

class DocumentControlTest : public ResultDocumentTest {};

/// What a host asks before it takes a control, in the one way or the other.
TEST_F(DocumentControlTest, HasTheFacesOfAControl) {
  const IID* const faces[] = {&IID_IOleObject,        &IID_IOleWindow,     &IID_IOleInPlaceObject,
                              &IID_IOleControl,       &IID_IViewObject,    &IID_IOleInPlaceActiveObject,
                              &IID_IViewObject2,      &IID_IDataObject,    &IID_IPersist,
                              &IID_IPersistStorage,   &IID_IQuickActivate, &IID_IPersistStreamInit,
                              &IID_IProvideClassInfo, &IID_IDispatch,      &IID_IPersistPropertyBag};
  const ComPtr<IUnknown> self = com::IdentityOf(object);
  for (const IID* face : faces) {
    ComPtr<IUnknown> answered;
    ASSERT_EQ(object->QueryInterface(*face, answered.PutVoid()), S_OK) << face->Data1;
    EXPECT_EQ(com::IdentityOf(answered).Get(), self.Get());
  }
  DWORD status = 0;
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);

  QACONTAINER container{};
  container.cbSize = sizeof(container);
  container.pClientSite = site->Client();
  QACONTROL answer{};
  answer.cbSize = sizeof(answer);
  EXPECT_EQ(control.As<IQuickActivate>()->QuickActivate(&container, &answer), S_OK);
  EXPECT_EQ(answer.dwMiscStatus, status);
  ComPtr<IOleClientSite> taken;
  EXPECT_EQ(object->GetClientSite(taken.Put()), S_OK);
  EXPECT_EQ(taken.Get(), site->Client());

  const CLSID id = windows::ClassIdOf(registration::kResultDialog.classId);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(control.As<IProvideClassInfo>()->GetClassInfo(info.Put()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, id));
  info->ReleaseTypeAttr(attributes);
  LPOLESTR name = nullptr;
  EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
  EXPECT_STREQ(name, L"VBQuorvane search results");
  ::CoTaskMemFree(name);
}

TEST_F(DocumentControlTest, SavesNothingAndLoadsIt) {
  ComPtr<IStream> stream;
  ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()), S_OK);
  const auto state = control.As<IPersistStreamInit>();
  EXPECT_EQ(state->InitNew(), S_OK);
  EXPECT_EQ(state->IsDirty(), S_FALSE);
  EXPECT_EQ(state->Save(stream.Get(), TRUE), S_OK);
  STATSTG size{};
  stream->Stat(&size, STATFLAG_NONAME);
  EXPECT_EQ(size.cbSize.QuadPart, 0U);
  EXPECT_EQ(state->Load(stream.Get()), S_OK);
}

TEST_F(DocumentControlTest, GivesItsWindowByName) {
  const auto dispatch = control.As<IDispatch>();
  wchar_t word[] = L"hWnd";
  LPOLESTR name = word;
  DISPID id = 0;
  ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
  EXPECT_EQ(id, DISPID_HWND);
  DISPPARAMS none{};
  com::Variant result;
  ASSERT_EQ(dispatch->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, result.Put(), nullptr, nullptr), S_OK);
  EXPECT_EQ(result.ToInt32(), windows::HandleOf(DocumentHandle()));
}

/// A host that shows a control without activating it paints it so.
TEST_F(DocumentControlTest, PaintsItsRows) {
  MakeRows(20);
  Activate();
  world.List().SetListIndex(0);
  Pump();
  RECT rect{0, 0, 300, 120};
  const HDC screen = ::GetDC(nullptr);
  const HDC dc = ::CreateCompatibleDC(screen);
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), rect.right, -rect.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = ::SelectObject(dc, bitmap);
  EXPECT_EQ(::OleDraw(object.Get(), DVASPECT_CONTENT, dc, &rect), S_OK);
  RECT row = RectOf(0);
  ::MapWindowPoints(ListHandle(), DocumentHandle(), reinterpret_cast<POINT*>(&row), 2);
  EXPECT_EQ(::GetPixel(dc, row.left + 250, row.top + 4), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(::GetPixel(dc, row.left + 250, row.bottom + 4), ::GetSysColor(COLOR_WINDOW));
  ::SelectObject(dc, before);
  ::DeleteObject(bitmap);
  ::DeleteDC(dc);
  ::ReleaseDC(nullptr, screen);
}

}  // namespace quorvane::test
