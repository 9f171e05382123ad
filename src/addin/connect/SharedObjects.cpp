#include "addin/connect/SharedObjects.h"

#include "addin/connect/Connect.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjectRegistry.h"
#include "addin/core/Utilities.h"
#include "addin/results/IResultListDoc.h"
#include "addin/results/PageManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "vbide/VBIDE.h"

namespace quorvane::Globals {

namespace {

/// Under which the host remembers the place of the tool window.
constexpr std::u16string_view kToolWindowPosition = u"{CCE2FDE8-B0EC-4528-9A82-23AE56A913CB}";

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

void CreateObjects() {
  MakeObject(gobjUtilities);
  MakeObject(gobjErrorManager);
  MakeObject(gobjSetting);
  MakeObject(gobjPageManager);
  MakeObject(gobjUpdater);
  MakeObject(gobjHotkeyProxy);
  RegisterObject(gobjResultDoc, CreateResultDialog(), "ResultDialog");
}

std::shared_ptr<IResultListDoc> CreateResultDialog() {
  vbide::VBE& host = Deref(gobjVBE);
  const std::u16string project = Deref(gobjConnect).ProjectName();
  const auto addIn = Deref(host.Addins()).Item(project + u".Connect");
  const std::u16string progId = project + u".ResultDialog";
  std::shared_ptr<vbide::Document> doc;
  gobjToolWindow =
      Deref(host.Windows())
          .CreateToolWindow(addIn, progId, Language().GetString(StringId::ToolWindowTitle), kToolWindowPosition, doc);
  auto resultDoc = std::dynamic_pointer_cast<IResultListDoc>(doc);
  if (!resultDoc) {
    RaiseError(ErrorNumber::TypeMismatch,
               ErrorText(ErrorNumber::TypeMismatch) + u": " + progId + u" is no result list");
  }
  return resultDoc;
}

}  // namespace quorvane::Globals
