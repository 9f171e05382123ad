#include "platform/forms/CommandButton.h"

namespace quorvane::forms {

namespace {

/// Sets a flag for as long as it lives and keeps it meanwhile.
class Held {
 public:
  explicit Held(std::shared_ptr<bool> flag) : flag_(std::move(flag)), before_(*flag_) { *flag_ = true; }
  ~Held() { *flag_ = before_; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  std::shared_ptr<bool> flag_;
  bool before_;
};

}  // namespace

void CommandButton::Press() {
  if (!Enabled() || !Visible()) return;
  const Held held(pressed_);
  Click.Raise();
}

}  // namespace quorvane::forms
