#include "windows/platform/WindowsPlatform.h"

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "native/files/UserFolders.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "windows/platform/WideText.h"
#include "windows/platform/WinHttpRequest.h"
#include "windows/platform/Window.h"

namespace quorvane::windows {

namespace {

WindowsPlatform* installed = nullptr;

/// The folder of this program's own file, which is not the host's.
std::u16string OwnFolder() {
  std::u16string path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length =
        ::GetModuleFileNameW(Instance(), reinterpret_cast<wchar_t*>(path.data()), static_cast<DWORD>(path.size()));
    if (length == 0) RaiseLastError(u"GetModuleFileName");
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  const std::size_t end = path.find_last_of(u'\\');
  return end == path.npos ? std::u16string() : path.substr(0, end);
}

}  // namespace

WindowsPlatform::WindowsPlatform()
    : codePage_(native::NewCodePage(ToUtf8(ToText(static_cast<std::int64_t>(::GetACP()))))),
      profile_(native::ConfigFolder()),
      forms_(views_) {
  app_.Path = OwnFolder();
  InstallPlatform(this);
  installed = this;
}

WindowsPlatform::~WindowsPlatform() {
  installed = nullptr;
  InstallPlatform(nullptr);
}

WindowsPlatform& WindowsPlatform::The() {
  return Deref(installed);
}

std::unique_ptr<RegExp> WindowsPlatform::NewRegExp() {
  return std::make_unique<native::PcreRegExp>();
}

std::shared_ptr<XmlDocument> WindowsPlatform::NewXmlDocument() {
  return std::make_shared<native::LibXmlDocument>();
}

std::unique_ptr<HttpRequest> WindowsPlatform::NewHttpRequest() {
  return std::make_unique<WinHttpRequest>();
}

void WindowsPlatform::SetMainWindow(HWND window) {
  mainWindow_ = window;
  prompts_.SetMainWindow(window);
  input_.SetHostWindow(window);
  forms_.SetOwner(window);
}

}  // namespace quorvane::windows
