#pragma once

#include <memory>
#include <string>
#include <utility>

#include "workbench/model/HostWindow.h"

namespace quorvane::workbench {

/// A window that hosts a document of an add-in and keeps it alive.
class ToolWindow final : public HostWindow {
 public:
  ToolWindow(WindowHandle handle, const std::u16string& caption, std::shared_ptr<vbide::AddIn> addIn,
             std::u16string guidPosition, std::shared_ptr<vbide::Document> document)
      : HostWindow(handle, caption, false),
        addIn_(std::move(addIn)),
        guidPosition_(std::move(guidPosition)),
        document_(std::move(document)) {}

  const std::shared_ptr<vbide::AddIn>& TheAddIn() const { return addIn_; }
  const std::u16string& GuidPosition() const { return guidPosition_; }  ///< under which its place is remembered
  const std::shared_ptr<vbide::Document>& TheDocument() const { return document_; }

 private:
  std::shared_ptr<vbide::AddIn> addIn_;
  std::u16string guidPosition_;
  std::shared_ptr<vbide::Document> document_;
};

}  // namespace quorvane::workbench
