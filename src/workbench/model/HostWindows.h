#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "vbide/VBIDE.h"
#include "workbench/model/Desk.h"
#include "workbench/model/ToolWindow.h"

namespace quorvane::workbench {

/// Makes tool windows around documents that are known by ProgID, upper and lower case alike.
class HostWindows final : public vbide::Windows {
 public:
  using DocumentFactory = std::function<std::shared_ptr<vbide::Document>()>;

  explicit HostWindows(std::shared_ptr<Desk> desk) : desk_(std::move(desk)) {}

  /// A second factory of one ProgID takes the place of the first.
  void RegisterDocumentFactory(const std::u16string& progId, DocumentFactory factory);

  /// The window is not visible yet. Error 91 without an add-in, 429 for a ProgID without a factory.
  std::shared_ptr<vbide::Window> CreateToolWindow(const std::shared_ptr<vbide::AddIn>& addIn,
                                                  std::u16string_view progId, const std::u16string& caption,
                                                  std::u16string_view guidPosition,
                                                  std::shared_ptr<vbide::Document>& document) override;

  /// Hides and drops the windows of an add-in that leaves. Whoever still holds one has it, and its document, whole, but
  /// nothing shows it any more.
  void Remove(const vbide::AddIn& addIn);

  const std::vector<std::shared_ptr<ToolWindow>>& ToolWindows() const { return toolWindows_; }

  Event<const std::shared_ptr<ToolWindow>&> Created;  ///< before the add-in has its document
  Event<const std::shared_ptr<ToolWindow>&> Removed;  ///< it is no more among ToolWindows

 private:
  std::shared_ptr<Desk> desk_;
  std::vector<std::pair<std::u16string, DocumentFactory>> factories_;
  std::vector<std::shared_ptr<ToolWindow>> toolWindows_;
};

}  // namespace quorvane::workbench
