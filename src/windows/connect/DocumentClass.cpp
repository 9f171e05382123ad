#include "windows/connect/DocumentClass.h"

#include "addin/results/ResultDialog.h"
#include "windows/connect/Code.h"
#include "windows/results/DocumentControl.h"

namespace quorvane::windows {

com::ComPtr<IUnknown> NewDocumentObject() {
  ViewFactory& views = Code::The().Views();
  const std::shared_ptr<vbide::Document> document = std::make_shared<ResultDialog>();
  const auto view = [&views, shown = document.get()](HWND parent) { return views.MakeView(*shown, parent); };
  return com::MakeObject<DocumentControl>(document, view).As<IUnknown>();
}

}  // namespace quorvane::windows
