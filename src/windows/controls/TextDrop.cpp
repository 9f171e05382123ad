#include "windows/controls/TextDrop.h"

#include <string>
#include <utility>

#include "base/Error.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "platform/forms/DataObject.h"
#include "windows/forms/Entry.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

bool Has(IDataObject& data, CLIPFORMAT format) {
  FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  return data.QueryGetData(&wanted) == S_OK;
}

/// The bytes in a format, up to the end of what the source gives.
std::string BytesOf(IDataObject& data, CLIPFORMAT format) {
  FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM given{};
  if (data.GetData(&wanted, &given) != S_OK || given.tymed != TYMED_HGLOBAL) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The dropped data has no such format");
  }
  std::string bytes;
  if (const void* start = ::GlobalLock(given.hGlobal)) {
    bytes.assign(static_cast<const char*>(start), ::GlobalSize(given.hGlobal));
    ::GlobalUnlock(given.hGlobal);
  }
  ::ReleaseStgMedium(&given);
  return bytes;
}

std::u16string WideTextOf(IDataObject& data) {
  const std::string bytes = BytesOf(data, CF_UNICODETEXT);
  const std::u16string text(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t));
  return text.substr(0, text.find(u'\0'));
}

std::u16string AnsiTextOf(IDataObject& data) {
  const std::string bytes = BytesOf(data, CF_TEXT);
  std::u16string text;
  ThePlatform().AnsiCodePage().Decode(bytes.substr(0, bytes.find('\0')), text);
  return text;
}

class Dragged final : public forms::DataObject {
 public:
  explicit Dragged(IDataObject& data) : data_(data) {}

  bool GetFormat(std::int16_t format) const override {
    return format == forms::kPlainText && (Has(data_, CF_UNICODETEXT) || Has(data_, CF_TEXT));
  }
  std::u16string GetData(std::int16_t format) const override {
    if (!GetFormat(format)) RaiseError(ErrorNumber::InvalidProcedureCall, u"The dropped data has no such format");
    return Has(data_, CF_UNICODETEXT) ? WideTextOf(data_) : AnsiTextOf(data_);
  }

 private:
  IDataObject& data_;
};

}  // namespace

/// Lives on as long as the system holds it, without doing anything then. It does not keep this program's file loaded,
/// as other objects do: the system holds it for as long as the window is there, and the windows go with the code.
class TextDrop::Target final : public IDropTarget {
 public:
  explicit Target(std::function<void(const forms::DataObject&)> take) : take_(std::move(take)) {}
  virtual ~Target() = default;

  void Forget() { take_ = nullptr; }

  STDMETHODIMP QueryInterface(REFIID id, void** found) override {
    if (found == nullptr) return E_POINTER;
    const bool known = ::IsEqualIID(id, IID_IUnknown) || ::IsEqualIID(id, IID_IDropTarget);
    *found = known ? static_cast<IDropTarget*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    takes_ = data != nullptr && take_ && Dragged(*data).GetFormat(forms::kPlainText);
    return Answer(effect);
  }
  STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) override { return Answer(effect); }
  STDMETHODIMP DragLeave() override { return S_OK; }
  STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    Enter([&] {
      if (data != nullptr && take_) take_(Dragged(*data));
    });
    return Answer(effect);
  }

 private:
  HRESULT Answer(DWORD* effect) const {
    if (effect == nullptr) return E_POINTER;
    *effect = takes_ ? *effect & DROPEFFECT_COPY : DROPEFFECT_NONE;
    return S_OK;
  }

  std::function<void(const forms::DataObject&)> take_;
  ULONG references_ = 1;
  bool takes_ = false;
};

TextDrop::TextDrop(HWND window, std::function<void(const forms::DataObject&)> take)
    : window_(window), target_(new Target(std::move(take))) {
  ::RegisterDragDrop(window_, target_);
}

TextDrop::~TextDrop() {
  target_->Forget();
  if (::IsWindow(window_)) ::RevokeDragDrop(window_);
  target_->Release();
}

}  // namespace quorvane::windows
