#include "windows/com/HostedDocument.h"

namespace quorvane::com {

namespace {

std::weak_ptr<vbide::Document>& LastMade() {
  static std::weak_ptr<vbide::Document> last;
  return last;
}

}  // namespace

std::shared_ptr<vbide::Document> DocumentBehind(IUnknown* object) {
  ComPtr<IHostedDocument> hosted;
  std::shared_ptr<vbide::Document> document;
  if (object != nullptr && SUCCEEDED(object->QueryInterface(__uuidof(IHostedDocument), hosted.PutVoid())) && hosted &&
      SUCCEEDED(hosted->GetDocument(&document)) && document) {
    return document;
  }
  return LastMade().lock();
}

void NoteDocument(const std::shared_ptr<vbide::Document>& document) {
  LastMade() = document;
}

}  // namespace quorvane::com
