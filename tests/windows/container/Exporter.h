#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

#include "vbide/VBIDE.h"
#include "windows/com/ComPtr.h"
#include "windows/container/Census.h"
#include "windows/container/Meanness.h"

namespace quorvane::container {

/// Puts a host that is known as our interfaces behind IDispatch, as its own program would: one object for one thing
/// while someone holds it, or a fresh one at each call.
class Exporter final : public std::enable_shared_from_this<Exporter> {
 public:
  explicit Exporter(const Meanness& meanness) : TheMeanness(meanness) {}

  Meanness TheMeanness;
  Census Living;

  /// Makes the object of a ProgID for a tool window and says what to hand out for it; without it, tool windows cannot
  /// be made. Arguments as of Windows.CreateToolWindow.
  using ToolWindowMaker = std::function<std::shared_ptr<vbide::Window>(
      const std::shared_ptr<vbide::AddIn>& addIn, const std::u16string& progId, const std::u16string& caption,
      const std::u16string& guidPosition, com::ComPtr<IUnknown>& document)>;
  ToolWindowMaker MakeToolWindow;

  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::VBE>& host);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::VBProject>& project);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::VBComponents>& components);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::VBComponent>& component);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CodeModule>& code);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CodePane>& pane);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::Window>& window);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::Windows>& windows);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::Addins>& addins);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::AddIn>& addIn);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CommandBars>& bars);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CommandBar>& bar);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CommandBarControl>& control);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::Events>& events);
  com::ComPtr<IDispatch> Export(const std::shared_ptr<vbide::CommandBarEvents>& events);

  /// The object of a thing that is exported already, or a new one; nothing for nothing.
  template <class Object, class Model>
  com::ComPtr<IDispatch> One(const std::shared_ptr<Model>& model) {
    if (!model) return {};
    if (!TheMeanness.freshObjects) {
      const auto known = objects_.find(model.get());
      if (known != objects_.end()) return com::ComPtr<IDispatch>(known->second);
    }
    auto made = com::ComPtr<Object>(new Object(shared_from_this(), model));
    if (!TheMeanness.freshObjects) objects_[model.get()] = made.Get();
    return made;
  }
  /// An object ends that may be the one of `model`.
  void Gone(const void* model, const IDispatch* object) {
    const auto known = objects_.find(model);
    if (known != objects_.end() && known->second == object) objects_.erase(known);
  }
  /// A number for each object, for those whose ids are their own.
  DISPID NextShift() { return shift_ += 1000; }

 private:
  std::unordered_map<const void*, IDispatch*> objects_;  ///< the objects themselves take their entries out
  DISPID shift_ = 0;
};

}  // namespace quorvane::container
