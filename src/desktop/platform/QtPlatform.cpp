#include "desktop/platform/QtPlatform.h"

#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "desktop/platform/QtHttpRequest.h"
#include "native/codepages/CodePages.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "platform/CodePage.h"
#include "platform/NativeWindows.h"

namespace quorvane::desktop {

namespace {

std::vector<std::string> FaultQuestion(const std::string& program) {
  if (program.empty()) return {};
  return {program, "--fault-box"};
}

}  // namespace

QtPlatform::QtPlatform(const Setup& setup)
    : codePage_(native::NewCodePage(setup.codePage.empty() ? native::CodePageOfLocale() : setup.codePage)),
      settings_(setup.configFolder + "/settings"),
      registry_(setup.configFolder + "/registry", *codePage_),
      profile_(setup.configFolder),
      faults_(FaultQuestion(setup.faultQuestion)) {
  app_.Path = FromUtf8(setup.programFolder);
  InstallPlatform(this);
}

QtPlatform::~QtPlatform() {
  InstallPlatform(nullptr);
}

std::unique_ptr<RegExp> QtPlatform::NewRegExp() {
  return std::make_unique<native::PcreRegExp>();
}

std::shared_ptr<XmlDocument> QtPlatform::NewXmlDocument() {
  return std::make_shared<native::LibXmlDocument>();
}

std::unique_ptr<XmlTable> QtPlatform::NewXmlTable(const XmlTableShape& shape) {
  return std::make_unique<native::LibXmlTable>(shape);
}

std::unique_ptr<HttpRequest> QtPlatform::NewHttpRequest() {
  return std::make_unique<QtHttpRequest>();
}

NativeWindows& QtPlatform::Windows() {
  return Deref(windows_);
}

}  // namespace quorvane::desktop
