#include "host/Globals.h"

#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "host/Connect.h"
#include "host/FileSystem.h"
#include "host/ILib.h"
#include "host/ObjectRegistry.h"
#include "host/Utilities.h"
#include "host/VBIDE.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "results/IResultListDoc.h"
#include "results/PageManager.h"
#include "services/ErrorManager.h"
#include "services/GlobalSetting.h"
#include "services/HotkeyProxy.h"
#include "services/LanguageManager.h"
#include "services/Updater.h"

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

constexpr std::int32_t kToolWindowTitle = 240;
/// Under which the host remembers the place of the tool window.
constexpr std::u16string_view kToolWindowPosition = u"{CCE2FDE8-B0EC-4528-9A82-23AE56A913CB}";

std::unique_ptr<LanguageManager> gobjLanguage;
std::unique_ptr<FileSystem> gobjFileSystem;
std::unique_ptr<ObjectRegistry> gobjRegistry;

template <class T>
T& MadeAtFirstUse(std::unique_ptr<T>& slot) {
  if (!slot) slot = std::make_unique<T>();
  return *slot;
}

/// Fills a slot, then enters the object under its class name. A second object of one class raises error 457.
template <class T>
void RegisterObject(std::shared_ptr<T>& target, std::shared_ptr<T> obj, std::string_view className) {
  target = std::move(obj);
  Registry().Add(className, target, LibOf(Deref(target)));
}

template <class T>
void MakeObject(std::shared_ptr<T>& target) {
  RegisterObject(target, std::make_shared<T>(), T::ClassName);
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

void CreateObjects() {
  MakeObject(gobjUtilities);
  MakeObject(gobjErrorManager);
  MakeObject(gobjSetting);
  MakeObject(gobjPageManager);
  MakeObject(gobjUpdater);
  MakeObject(gobjHotkeyProxy);
  RegisterObject(gobjResultDoc, CreateResultDialog(), "ResultDialog");
}

void SetupObjects() {
  const auto entries = Registry().Entries();
  for (const auto& entry : entries) {
    if (entry.Lib != nullptr) entry.Lib->Setup();
  }
}

void UnloadForms() {
  for (std::int32_t left = TheForms().Count(); left > 0; --left) TheForms().Item(0)->Unload();
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

std::shared_ptr<IResultListDoc> CreateResultDialog() {
  vbide::VBE& host = Deref(gobjVBE);
  const std::u16string project = Deref(gobjConnect).ProjectName();
  const auto addIn = Deref(host.Addins()).Item(project + u".Connect");
  const std::u16string progId = project + u".ResultDialog";
  std::shared_ptr<vbide::Document> doc;
  gobjToolWindow =
      Deref(host.Windows())
          .CreateToolWindow(addIn, progId, Language().GetString(kToolWindowTitle), kToolWindowPosition, doc);
  auto resultDoc = std::dynamic_pointer_cast<IResultListDoc>(doc);
  if (!resultDoc) {
    RaiseError(ErrorNumber::TypeMismatch,
               ErrorText(ErrorNumber::TypeMismatch) + u": " + progId + u" is no result list");
  }
  return resultDoc;
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
