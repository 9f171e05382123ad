#include "windows/platform/WindowsPlatform.h"

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "windows/forms/Window.h"
#include "windows/platform/OwnFile.h"
#include "windows/platform/WinHttpRequest.h"

namespace quorvane::windows {

namespace {

WindowsPlatform* installed = nullptr;

}  // namespace

WindowsPlatform::WindowsPlatform()
    : codePage_(native::NewCodePage(ToUtf8(ToText(static_cast<std::int64_t>(::GetACP()))))),
      profile_(ToUtf8(ConfigFolder())),
      forms_(views_) {
  DescribeOwnFile(app_);
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

std::unique_ptr<XmlTable> WindowsPlatform::NewXmlTable(const XmlTableShape& shape) {
  return std::make_unique<native::LibXmlTable>(shape);
}

std::unique_ptr<HttpRequest> WindowsPlatform::NewHttpRequest() {
  return std::make_unique<WinHttpRequest>();
}

void WindowsPlatform::SetMainWindow(HWND window) {
  mainWindow_ = window;
  prompts_.SetMainWindow(window);
  windows_.SetMainWindow(window);
  input_.SetHostWindow(window);
  forms_.SetOwner(window);
}

}  // namespace quorvane::windows
