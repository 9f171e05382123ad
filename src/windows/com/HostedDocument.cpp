#include "windows/com/HostedDocument.h"

namespace quorvane::com {

namespace {

std::weak_ptr<vbide::Document>& LastMade() {
  static std::weak_ptr<vbide::Document> last;
  return last;
}

}  // namespace

const void* ThisFile() {
  static const char place = 0;
  return &place;
}

std::shared_ptr<vbide::Document> DocumentBehind(IUnknown* object) {
  ComPtr<IHostedDocument> hosted;
  std::shared_ptr<vbide::Document> document;
  if (object != nullptr && SUCCEEDED(object->QueryInterface(__uuidof(IHostedDocument), hosted.PutVoid())) && hosted &&
      SUCCEEDED(hosted->GetDocument(ThisFile(), &document)) && document) {
    return document;
  }
  return LastMade().lock();
}

void NoteDocument(const std::shared_ptr<vbide::Document>& document) {
  LastMade() = document;
}

}  // namespace quorvane::com
