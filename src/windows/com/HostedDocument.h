#pragma once

#include <memory>

#include "windows/com/ComPtr.h"

namespace quorvane::vbide {
class Document;
}

/// By which an object of ours tells that it is the document of a tool window. It never leaves this program file:
/// another copy of it in the same process has objects of its own, so `file`, which is ThisFile() of the caller, must be
/// that of the object, else the answer is E_ACCESSDENIED.
struct IHostedDocument : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetDocument(const void* file,
                                                std::shared_ptr<quorvane::vbide::Document>* document) = 0;

 protected:
  ~IHostedDocument() = default;
};

__CRT_UUID_DECL(IHostedDocument, 0xFC5810DE, 0x38F7, 0x4E25, 0x85, 0x9E, 0x37, 0xF2, 0xD9, 0x6A, 0xEA, 0x96)

namespace quorvane::com {

/// Another address in each copy of this program file.
const void* ThisFile();

/// The document behind what the host hands out for it, be that a wrapper of its own that does not know IHostedDocument,
/// or nothing: then it is the last one made that is still there. Nothing when there is none.
std::shared_ptr<vbide::Document> DocumentBehind(IUnknown* object);
/// To be told by each object that is a document, when it is made.
void NoteDocument(const std::shared_ptr<vbide::Document>& document);

}  // namespace quorvane::com
