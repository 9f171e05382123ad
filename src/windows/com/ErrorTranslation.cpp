#include "windows/com/ErrorTranslation.h"

#include <string>
#include <string_view>

#include "base/Text.h"
#include "windows/com/Bstr.h"
#include "windows/com/ComPtr.h"

namespace quorvane::com {

namespace {

constexpr std::uint32_t kVisualBasic = 0x800A0000U;
constexpr std::uint32_t kFacilityMask = 0xFFFF0000U;

/// What Windows says about `result`, without the line break at its end; empty when it says nothing.
std::u16string WindowsWords(HRESULT result) {
  wchar_t* buffer = nullptr;
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  std::u16string words = length != 0 ? FromWide(buffer, length) : std::u16string();
  LocalFree(buffer);
  while (!words.empty() && (words.back() <= u' ' || words.back() == u'.')) words.pop_back();
  return words;
}

std::u16string WordsFor(std::int32_t number, HRESULT result) {
  if (number > 0) return ErrorText(static_cast<ErrorNumber>(number));
  const std::u16string words = WindowsWords(result);
  return words.empty() ? ErrorText(static_cast<ErrorNumber>(0)) : words;
}

void Free(EXCEPINFO& exception) {
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  exception = {};
}

}  // namespace

HRESULT HResultOf(const Error& error) {
  if (error.Number < 0) return error.Number;
  if (error.Number == 0 || error.Number > 0xFFFF) return E_FAIL;
  return static_cast<HRESULT>(kVisualBasic | static_cast<std::uint32_t>(error.Number));
}

std::int32_t NumberOf(HRESULT result) {
  if ((static_cast<std::uint32_t>(result) & kFacilityMask) == kVisualBasic) return result & 0xFFFF;
  switch (result) {
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_UNKNOWNNAME:
      return static_cast<std::int32_t>(ErrorNumber::NoSuchMember);
    case DISP_E_NONAMEDARGS:
    case DISP_E_PARAMNOTFOUND:
      return static_cast<std::int32_t>(ErrorNumber::NoSuchNamedArgument);
    case DISP_E_PARAMNOTOPTIONAL:
      return static_cast<std::int32_t>(ErrorNumber::ArgumentNotOptional);
    case DISP_E_BADPARAMCOUNT:
      return static_cast<std::int32_t>(ErrorNumber::WrongArgumentCount);
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
    case E_NOINTERFACE:
      return static_cast<std::int32_t>(ErrorNumber::TypeMismatch);
    case DISP_E_OVERFLOW:
      return static_cast<std::int32_t>(ErrorNumber::Overflow);
    case DISP_E_BADINDEX:
      return static_cast<std::int32_t>(ErrorNumber::SubscriptOutOfRange);
    case E_OUTOFMEMORY:
      return static_cast<std::int32_t>(ErrorNumber::OutOfMemory);
    case E_INVALIDARG:
      return static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall);
    case E_NOTIMPL:
      return static_cast<std::int32_t>(ErrorNumber::ActionNotSupported);
    case REGDB_E_CLASSNOTREG:
    case CO_E_CLASSSTRING:
      return static_cast<std::int32_t>(ErrorNumber::CannotCreateObject);
    default:
      return result;
  }
}

void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  const std::int32_t number = NumberOf(result);
  throw Error(number, WordsFor(number, result));
}

Error ErrorOf(HRESULT result, EXCEPINFO& exception) {
  if (result != DISP_E_EXCEPTION) {
    Free(exception);
    const std::int32_t number = NumberOf(result);
    return Error(number, WordsFor(number, result));
  }
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const HRESULT code = FAILED(exception.scode) ? exception.scode : E_FAIL;
  const std::int32_t number = exception.wCode != 0 ? exception.wCode : NumberOf(code);
  std::u16string words = Bstr::TextOf(exception.bstrDescription);
  if (words.empty()) words = WordsFor(number, code);
  Error error(number, std::move(words), Bstr::TextOf(exception.bstrSource), Bstr::TextOf(exception.bstrHelpFile),
              static_cast<std::int32_t>(exception.dwHelpContext));
  Free(exception);
  return error;
}

HRESULT Tell(const Error& error, EXCEPINFO* exception) {
  if (exception == nullptr) return HResultOf(error);
  *exception = {};
  try {
    exception->scode = HResultOf(error);
    exception->bstrSource = Bstr(error.Source).Detach();
    exception->bstrDescription = Bstr(error.Description).Detach();
    exception->bstrHelpFile = Bstr(error.HelpFile).Detach();
    exception->dwHelpContext = static_cast<DWORD>(error.HelpContext);
  } catch (...) {
    // No memory for the words: the number goes alone.
  }
  return DISP_E_EXCEPTION;
}

HRESULT Tell(const Error& error) {
  ComPtr<ICreateErrorInfo> made;
  if (SUCCEEDED(CreateErrorInfo(made.Put()))) {
    made->SetSource(const_cast<wchar_t*>(Wide(error.Source)));
    made->SetDescription(const_cast<wchar_t*>(Wide(error.Description)));
    made->SetHelpFile(const_cast<wchar_t*>(Wide(error.HelpFile)));
    made->SetHelpContext(static_cast<DWORD>(error.HelpContext));
    SetErrorInfo(0, made.As<IErrorInfo>().Get());
  }
  return HResultOf(error);
}

}  // namespace quorvane::com
