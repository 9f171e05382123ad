#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/settings/GlobalSetting.h"
#include "native/codepages/CodePages.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "vbide/VBIDE.h"

namespace quorvane::test {

int ScriptedPrompts::MsgBox(const std::u16string& text, int flags, const std::u16string& caption) {
  Shown.push_back({text, flags, caption});
  if (Answers.empty()) {
    ADD_FAILURE() << "unexpected message box: " << ToUtf8(text);
    return 1;
  }
  const int answer = Answers.front();
  Answers.pop_front();
  return answer;
}

std::optional<std::u16string> ScriptedPrompts::AskSaveFileName(const FileDialogSetup& setup) {
  FileDialogs.push_back(setup);
  if (FileNames.empty()) {
    ADD_FAILURE() << "unexpected file dialog: " << ToUtf8(setup.Title);
    return std::nullopt;
  }
  const auto answer = FileNames.front();
  FileNames.pop_front();
  return answer;
}

TestPlatform::TestPlatform(const std::string& codePage) : codePage_(native::NewCodePage(codePage)) {
  InstallPlatform(this);
  app.ProjectHost = u"host.example";
  Globals::gobjErrorManager = std::make_shared<ErrorManager>();
  Globals::gobjUtilities = std::make_shared<Utilities>();
  Globals::gobjSetting = std::make_shared<GlobalSetting>();
  Globals::Language().Language = 1;
}

TestPlatform::~TestPlatform() {
  EXPECT_TRUE(prompts.Answers.empty()) << "message boxes that never came";
  Globals::EndOfCode();
  InstallPlatform(nullptr);
}

std::unique_ptr<RegExp> TestPlatform::NewRegExp() {
  return std::make_unique<native::PcreRegExp>();
}

std::shared_ptr<XmlDocument> TestPlatform::NewXmlDocument() {
  return std::make_shared<native::LibXmlDocument>();
}

std::unique_ptr<XmlTable> TestPlatform::NewXmlTable(const XmlTableShape& shape) {
  return std::make_unique<native::LibXmlTable>(shape);
}

NativeWindows& TestPlatform::Windows() {
  return Deref(windows);
}

}  // namespace quorvane::test
