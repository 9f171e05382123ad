#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "addin/core/RegistrationData.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "windows/com/AddInObject.h"
#include "windows/com/Bstr.h"
#include "windows/com/ClassFactory.h"
#include "windows/com/LateBound.h"
#include "windows/com/Registration.h"
#include "windows/com/RegistryKey.h"

namespace quorvane::com {
namespace {

Variant Raw(VARTYPE type, std::int64_t value) {
  Variant made;
  VARIANT& raw = *made.Put();
  raw.vt = type;
  if (type == VT_R8) {
    raw.dblVal = static_cast<double>(value);
  } else {
    raw.llVal = value;
  }
  return made;
}

TEST(Variant, ReadsWhatAHostMayGive) {
  std::int32_t number = 7;
  VARIANT_BOOL truth = VARIANT_TRUE;
  Variant text = Variant::Of(u"12");
  EXPECT_EQ(Raw(VT_I2, -3).ToInt32(), -3);
  EXPECT_EQ(Raw(VT_R8, 41).ToInt32(), 41);
  EXPECT_EQ(Variant::To(number).ToInt32(), 7);
  EXPECT_EQ(Variant::To(text).ToInt32(), 12);
  EXPECT_EQ(Variant().ToInt32(), 0);
  EXPECT_TRUE(Raw(VT_I4, 5).ToBool());
  EXPECT_TRUE(Variant::To(truth).ToBool());
  EXPECT_EQ(Raw(VT_I4, 5).ToText(), u"5");
  EXPECT_EQ(Variant::To(text).ToText(), u"12");
  EXPECT_EQ(Variant::Of(std::u16string_view(u"a\0b", 3)).ToText(), std::u16string_view(u"a\0b", 3));
  EXPECT_EQ(test::Raised([] { Variant::Of(u"x").ToInt32(); }), 13);
  EXPECT_EQ(test::Raised([] { Raw(VT_R8, 1ll << 40).ToInt32(); }), 6);
  for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_DISPATCH, VT_UNKNOWN, VT_ERROR}) {
    EXPECT_FALSE(Raw(static_cast<VARTYPE>(type), 0).ToObject()) << type;
  }
  EXPECT_EQ(test::Raised([] { Variant::Of(u"x").ToObject(); }), 13);
}

HRESULT STDAPICALLTYPE FillLater(EXCEPINFO* exception) {
  exception->scode = static_cast<SCODE>(0x800A0005);
  exception->bstrDescription = SysAllocString(L"later");
  return S_OK;
}

TEST(ErrorTranslation, NumbersGoThereAndBack) {
  for (const std::int32_t number : {5, 9, 91, 449, 32755, static_cast<std::int32_t>(0x80040201)}) {
    EXCEPINFO exception{};
    const Error sent(number, u"what", u"where", u"help.hlp", 12);
    EXPECT_EQ(Tell(sent, &exception), DISP_E_EXCEPTION);
    const Error come = ErrorOf(DISP_E_EXCEPTION, exception);
    EXPECT_EQ(come.Number, number);
    EXPECT_EQ(come.Description + come.Source + come.HelpFile, u"whatwherehelp.hlp");
    EXPECT_EQ(come.HelpContext, 12);
  }
  const std::vector<std::pair<HRESULT, std::int32_t>> rows = {
      {DISP_E_MEMBERNOTFOUND, 438},
      {DISP_E_TYPEMISMATCH, 13},
      {DISP_E_BADPARAMCOUNT, 450},
      {E_OUTOFMEMORY, 7},
      {E_INVALIDARG, 5},
      {static_cast<HRESULT>(0x800A01B6), 438},
      {E_FAIL, E_FAIL},
      {REGDB_E_CLASSNOTREG, 429},
  };
  for (const auto& [result, number] : rows) {
    EXCEPINFO exception{};
    const Error come = ErrorOf(result, exception);
    EXPECT_EQ(come.Number, number);
    EXPECT_FALSE(come.Description.empty()) << number;
  }
  EXCEPINFO byCode{};
  byCode.wCode = 1004;
  EXPECT_EQ(ErrorOf(DISP_E_EXCEPTION, byCode).Number, 1004);
  EXCEPINFO deferred{};
  deferred.pfnDeferredFillIn = FillLater;
  const Error filled = ErrorOf(DISP_E_EXCEPTION, deferred);
  EXPECT_EQ(ToText(filled.Number) + filled.Description, u"5later");
}

/// Writes what it is told to where its argument leads.
class Giver final : public DispatchObject<Giver> {
 public:
  static const std::vector<DispatchMember<Giver>>& Members() {
    static const std::vector<DispatchMember<Giver>> members = {
        {u"Number", 8, kCalled, [](Giver&, DispatchCall& c) { c.Give(0, Variant::Of(3)); }},
        {u"Text", -8, kCalled, [](Giver&, DispatchCall& c) { c.Give(0, Variant::Of(u"x")); }},
        {u"Itself", 9, kCalled, [](Giver& s, DispatchCall& c) { c.Give(0, Variant::Of(static_cast<IDispatch*>(&s))); }},
        {u"Second", 10, kCalled, [](Giver&, DispatchCall& c) { c.Return(Variant::Of(c.Has(1) ? c.Int32(1) : -1)); }},
        {u"Fails", 11, kWritten, [](Giver&, DispatchCall& c) { throw Error(c.Int32(0), u"as told"); }}};
    return members;
  }
};

TEST(LateBound, GivesAndTakesByReference) {
  ClassIds classes;
  const auto giver = MakeObject<Giver>();
  const LateBound object(ComPtr<IDispatch>(giver.Get()), classes);
  std::int32_t number = 0;
  VARIANT_BOOL truth = VARIANT_FALSE;
  Variant any = Variant::Of(u"before");
  ComPtr<IDispatch> held(giver.Get());
  object.Call(u"number", Variant::To(number));
  object.Call(u"Number", Variant::To(truth));
  object.Call(u"Text", Variant::To(any));
  object.Call(u"Itself", Variant::To(held));
  EXPECT_EQ(number, 3);
  EXPECT_EQ(truth, VARIANT_TRUE);
  EXPECT_EQ(any.ToText(), u"x");
  EXPECT_EQ(held.Get(), static_cast<IDispatch*>(giver.Get()));
  EXPECT_EQ(giver->AddRef(), 4U);  // giver, object, held and this one
  giver->Release();
  EXPECT_EQ(object.Call(u"Second", 1, 2, 3).ToInt32(), 2);
  EXPECT_EQ(object.Call(u"Second", 1).ToInt32(), -1);
  EXPECT_EQ(test::Raised([&] { object.Call(u"Number", 1); }), 13);
  EXPECT_EQ(test::Raised([&] { object.Call(u"Number"); }), 449);
  EXPECT_EQ(test::Raised([&] { object.Put(u"Fails", Variant::Of(-2147220992)); }), -2147220992);
  EXPECT_EQ(test::Raised([&] { object.Call(u"Fails", 5); }), 438);
  EXPECT_EQ(test::Raised([&] { LateBound().Call(u"Number"); }), 91);
  try {
    object.Call(u"Missing");
    ADD_FAILURE();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number, 438);
    EXPECT_NE(e.Description.find(u"Missing"), e.Description.npos);
  }
}

class Heard final : public AddInListener {
 public:
  explicit Heard(std::string& log) : log_(log) {}
  void OnConnection(const ComPtr<IDispatch>& application, std::int32_t mode, const ComPtr<IDispatch>& addIn) override {
    log_ += (application ? "+" : "-") + std::to_string(mode) + (addIn ? "+" : "-") + " ";
    if (mode == 2) throw Error(1004, u"not today", u"VBQuorvane");
  }
  void OnDisconnection(std::int32_t mode) override { log_ += "gone " + std::to_string(mode) + " "; }

 private:
  std::string& log_;
};

TEST(AddInObject, HearsTheHostInAnyWay) {
  std::string log;
  ClassIds classes;
  const auto host = MakeObject<Giver>();
  const ComPtr<IDispatch> application(host.Get());
  const auto object = MakeObject<AddInObject>(std::make_unique<Heard>(log));
  const auto events = object.As<IDTExtensibility2>();
  ASSERT_TRUE(events);
  EXPECT_EQ(events->OnConnection(application.Get(), 1, nullptr, nullptr), S_OK);
  EXPECT_EQ(events->OnStartupComplete(nullptr), S_OK);
  EXPECT_EQ(events->OnConnection(application.Get(), 2, application.Get(), nullptr), static_cast<HRESULT>(0x800A03EC));
  ComPtr<IErrorInfo> told;
  Bstr words;
  ASSERT_EQ(GetErrorInfo(0, told.Put()), S_OK);
  told->GetDescription(words.Put());
  EXPECT_EQ(words.Text(), u"not today");
  EXPECT_EQ(events->OnDisconnection(0, nullptr), S_OK);

  const LateBound byName(object.As<IDispatch>(), classes);
  byName.Call(u"OnConnection", application.Get(), 0, application.Get(), Variant());
  byName.Call(u"AddinInstance_OnDisconnection", 1, Variant());
  EXPECT_EQ(log, "+1- +2+ gone 0 +0+ gone 1 ");

  const GUID older = {0x01DE4EF0, 0x7A57, 0x4C11, {0x90, 1, 2, 3, 4, 5, 6, 7}};
  const std::u16string key = u"Software\\Classes\\Interface\\{01DE4EF0-7A57-4C11-9001-020304050607}";
  ComPtr<IDTExtensibility2> byOlder;
  for (const char16_t* name : {u"", u"IDTOther", u"_IDTExtensibility", u"IDTExtensibility"}) {
    WriteText(HKEY_CURRENT_USER, key, u"", name);
    const bool known = std::u16string_view(name).ends_with(u"IDTExtensibility");
    ASSERT_EQ(object->QueryInterface(older, byOlder.PutVoid()) == S_OK, known) << ToUtf8(name);
    if (known) {
      EXPECT_EQ(byOlder->OnDisconnection(7, nullptr), S_OK);
    }
  }
  DeleteValue(HKEY_CURRENT_USER, key, u"");
  DeleteKeyIfEmpty(HKEY_CURRENT_USER, key);
  EXPECT_EQ(log, "+1- +2+ gone 0 +0+ gone 1 gone 7 gone 7 ");
}

int ended;

TEST(ModuleReference, TheLastOneEndsTheCode) {
  ended = 0;
  ModuleReference::WhenUnused([] {
    EXPECT_EQ(ModuleReference::Count(), 0);
    ++ended;
    MakeObject<Giver>();  // made and gone on the way out
  });
  auto factory = MakeObject<ClassFactory>(
      []() -> ComPtr<IUnknown> { return ComPtr<IUnknown>(static_cast<IDispatch*>(new Giver)); });
  ComPtr<IDispatch> object;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.PutVoid()), S_OK);
  ComPtr<IUnknown> part;
  EXPECT_EQ(factory->CreateInstance(object.Get(), IID_IUnknown, part.PutVoid()), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IOleObject, object.PutVoid()), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.PutVoid()), S_OK);
  factory->LockServer(TRUE);
  {
    const ModuleReference entry;
    object.Reset();
    factory->LockServer(FALSE);
    EXPECT_EQ(ModuleReference::Count(), 2);  // the factory and the entry
    factory.Reset();
    EXPECT_EQ(ended, 0);
  }
  EXPECT_EQ(ended, 1);
  MakeObject<Giver>();
  EXPECT_EQ(ended, 2);
  ModuleReference::WhenUnused(nullptr);

  auto failing = MakeObject<ClassFactory>([]() -> ComPtr<IUnknown> { throw Error(7, u"no"); });
  EXPECT_EQ(failing->CreateInstance(nullptr, IID_IUnknown, object.PutVoid()), static_cast<HRESULT>(0x800A0007));
}

TEST(Registration, TakesOutWhatItWroteAndNothingElse) {
  const std::u16string classes = u"Software\\Classes\\";
  const std::u16string connect = classes + std::u16string(registration::kConnect.progId);
  const std::u16string server =
      classes + u"CLSID\\" + std::u16string(registration::kResultDialog.classId) + u"\\InprocServer32";
  const std::u16string host = std::u16string(registration::kHostKey) + u"\\" +
                              std::u16string(registration::kHostAddIns) + u"\\" +
                              std::u16string(registration::kConnect.progId);
  RegisterServer(u"C:\\插件\\QuorvaneForVB6.dll");
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, connect + u"\\CLSID", u""), u"{66143A36-9E5A-4150-B0AF-4DA3302E65B6}");
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, server, u""), u"C:\\插件\\QuorvaneForVB6.dll");
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, server, u"ThreadingModel"), u"Apartment");
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, host, u"FriendlyName"), u"VBQuorvane插件(VB6)");
  WriteText(HKEY_CURRENT_USER, host, u"Mine", u"stays");
  UnregisterServer();
  UnregisterServer();
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, host, u"Mine"), u"stays");
  EXPECT_EQ(ReadText(HKEY_CURRENT_USER, host, u"FriendlyName"), u"");
  DeleteValue(HKEY_CURRENT_USER, host, u"Mine");
  DeleteKeyIfEmpty(HKEY_CURRENT_USER, host);
  for (const auto& known : {registration::kConnect, registration::kResultDialog}) {
    for (const std::u16string& key :
         {classes + std::u16string(known.progId), classes + u"CLSID\\" + std::u16string(known.classId), host}) {
      HKEY open = nullptr;
      EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Wide(key), 0, KEY_READ, &open), ERROR_FILE_NOT_FOUND) << ToUtf8(key);
    }
  }
}

}  // namespace
}  // namespace quorvane::com
