#include "windows/results/DocumentClassInfo.h"

#include <string>

#include "windows/com/ErrorTranslation.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

using com::Check;
using com::ComPtr;

namespace {

wchar_t* Name(std::u16string& name) {
  return reinterpret_cast<wchar_t*>(name.data());
}

ComPtr<ITypeInfo> MakeInterface(ICreateTypeLib2& library, std::u16string name, const GUID& id) {
  ComPtr<ICreateTypeInfo> made;
  Check(library.CreateTypeInfo(Name(name), TKIND_DISPATCH, made.Put()));
  Check(made->SetGuid(id));
  Check(made->SetTypeFlags(TYPEFLAG_FDISPATCHABLE));
  Check(made->LayOut());
  return made.As<ITypeInfo>();
}

}  // namespace

CLSID ClassIdOf(std::u16string_view classId) {
  CLSID id{};
  Check(::CLSIDFromString(const_cast<wchar_t*>(Wide(std::u16string(classId))), &id));
  return id;
}

ComPtr<ITypeInfo> MakeClassInfo(std::u16string_view name, std::u16string_view classId) {
  std::u16string className(name);
  const CLSID id = ClassIdOf(classId);
  GUID interfaceId = id;
  ++interfaceId.Data1;
  ComPtr<ICreateTypeLib2> library;
  Check(::CreateTypeLib2(SYS_WIN32, Wide(className), library.Put()));
  const ComPtr<ITypeInfo> members = MakeInterface(*library, u"_" + className, interfaceId);
  ComPtr<ICreateTypeInfo> made;
  Check(library->CreateTypeInfo(Name(className), TKIND_COCLASS, made.Put()));
  Check(made->SetGuid(id));
  HREFTYPE reference = 0;
  Check(made->AddRefTypeInfo(members.Get(), &reference));
  Check(made->AddImplType(0, reference));
  Check(made->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT));
  Check(made->LayOut());
  return made.As<ITypeInfo>();
}

}  // namespace quorvane::windows
