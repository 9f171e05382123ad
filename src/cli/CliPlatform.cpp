#include "cli/CliPlatform.h"

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "cli/Diagnostics.h"
#include "native/codepages/CodePages.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "vbide/VBIDE.h"

namespace quorvane::cli {

void CliLoop::DoEvents() {
  if (StopWanted && StopWanted()) Cancel();
}

int CliPrompts::MsgBox(const std::u16string& text, int, const std::u16string&) {
  TellWarning(ToUtf8(text));
  return 1;
}

CliPlatform::CliPlatform(const std::string& codePage, int language)
    : codePage_(native::NewCodePage(codePage.empty() ? native::CodePageOfLocale() : codePage)) {
  InstallPlatform(this);
  Globals::gobjErrorManager = std::make_shared<ErrorManager>();
  Globals::gobjUtilities = std::make_shared<Utilities>();
  Globals::gobjSetting = std::make_shared<GlobalSetting>();
  Globals::Language().Language = language;
}

CliPlatform::~CliPlatform() {
  Globals::gobjVBE.reset();
  Globals::gobjSetting.reset();
  Globals::gobjUtilities.reset();
  Globals::gobjErrorManager.reset();
  InstallPlatform(nullptr);
}

std::unique_ptr<RegExp> CliPlatform::NewRegExp() {
  return std::make_unique<native::PcreRegExp>();
}

std::shared_ptr<XmlDocument> CliPlatform::NewXmlDocument() {
  const auto document = std::make_shared<native::LibXmlDocument>();
  document->OnMessage = [](const std::u16string& words) { TellWarning("the stylesheet says: " + ToUtf8(words)); };
  return document;
}

std::unique_ptr<XmlTable> CliPlatform::NewXmlTable(const XmlTableShape& shape) {
  return std::make_unique<native::LibXmlTable>(shape);
}

NativeWindows& CliPlatform::Windows() {
  RaiseError(ErrorNumber::ObjectNotSet);
}

}  // namespace quorvane::cli
