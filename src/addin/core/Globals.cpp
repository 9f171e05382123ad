#include "addin/core/Globals.h"

#include "addin/core/ErrorManager.h"
#include "addin/core/FileSystem.h"
#include "addin/core/ILib.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjectRegistry.h"
#include "addin/core/Utilities.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "vbide/VBIDE.h"

namespace quorvane::Globals {

std::shared_ptr<vbide::VBE> gobjVBE;
std::shared_ptr<Connect> gobjConnect;
std::shared_ptr<Utilities> gobjUtilities;
std::shared_ptr<ErrorManager> gobjErrorManager;
std::shared_ptr<GlobalSetting> gobjSetting;
std::shared_ptr<PageManager> gobjPageManager;
std::shared_ptr<Updater> gobjUpdater;
std::shared_ptr<HotkeyProxy> gobjHotkeyProxy;
std::shared_ptr<IResultListDoc> gobjResultDoc;
std::shared_ptr<vbide::Window> gobjToolWindow;

namespace {

std::unique_ptr<LanguageManager> gobjLanguage;
std::unique_ptr<FileSystem> gobjFileSystem;
std::unique_ptr<ObjectRegistry> gobjRegistry;

template <class T>
T& MadeAtFirstUse(std::unique_ptr<T>& slot) {
  if (!slot) slot = std::make_unique<T>();
  return *slot;
}

}  // namespace

LanguageManager& Language() {
  return MadeAtFirstUse(gobjLanguage);
}

FileSystem& Files() {
  return MadeAtFirstUse(gobjFileSystem);
}

ObjectRegistry& Registry() {
  return MadeAtFirstUse(gobjRegistry);
}

void SetupObjects() {
  const auto entries = Registry().Entries();
  for (const auto& entry : entries) {
    if (entry.Lib != nullptr) entry.Lib->Setup();
  }
}

void UnloadForms() {
  for (std::int32_t left = forms::TheForms().Count(); left > 0; --left) forms::TheForms().Item(0)->Unload();
}

void TearDownObjects() {
  const auto entries = Registry().Entries();
  for (const auto& entry : entries) {
    SkipErrors([&] {
      if (entry.Lib != nullptr) entry.Lib->TearDown();
    });
  }
}

void ReleaseObjects() {
  gobjUtilities.reset();
  gobjErrorManager.reset();
  gobjSetting.reset();
  gobjPageManager.reset();
  gobjUpdater.reset();
  gobjHotkeyProxy.reset();
  gobjResultDoc.reset();
  Registry().Clear();
}

void EndOfCode() {
  ReleaseObjects();
  gobjToolWindow.reset();
  gobjConnect.reset();
  gobjVBE.reset();
  gobjRegistry.reset();
  gobjFileSystem.reset();
  gobjLanguage.reset();
}

std::u16string ReplaceArgs(std::u16string_view src, const std::vector<std::u16string>& args) {
  std::u16string text(src);
  for (std::size_t i = args.size(); i-- > 0;) {
    text = ReplaceAll(text, u"%" + ToText(static_cast<std::int64_t>(i)), args[i]);
  }
  return text;
}

}  // namespace quorvane::Globals
