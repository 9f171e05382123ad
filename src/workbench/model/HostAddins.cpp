#include "workbench/model/HostAddins.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::workbench {

namespace {

class RegisteredAddIn final : public vbide::AddIn {
 public:
  explicit RegisteredAddIn(std::u16string progId) : progId_(std::move(progId)) {}

  std::u16string ProgId() const override { return progId_; }

 private:
  std::u16string progId_;
};

}  // namespace

std::shared_ptr<vbide::AddIn> HostAddins::Look(std::u16string_view progId) const {
  for (const auto& addIn : addins_) {
    if (EqualsNoCaseAscii(addIn->ProgId(), progId)) return addIn;
  }
  return nullptr;
}

std::shared_ptr<vbide::AddIn> HostAddins::Register(const std::u16string& progId) {
  if (auto known = Look(progId)) return known;
  return addins_.emplace_back(std::make_shared<RegisteredAddIn>(progId));
}

std::shared_ptr<vbide::AddIn> HostAddins::Item(std::u16string_view progId) {
  auto known = Look(progId);
  if (!known) {
    RaiseError(ErrorNumber::SubscriptOutOfRange,
               ErrorText(ErrorNumber::SubscriptOutOfRange) + u": no add-in " + std::u16string(progId));
  }
  return known;
}

}  // namespace quorvane::workbench
