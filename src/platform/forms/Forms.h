#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Event.h"

namespace quorvane::forms {

class Form;

/// The loaded forms of the program in the order of their loading, and the one instance of each form class, by name.
class Forms {
 public:
  using Factory = std::function<std::shared_ptr<Form>()>;

  std::int32_t Count() const { return static_cast<std::int32_t>(open_.size()); }
  /// 0-based; raises error 9 outside the list.
  std::shared_ptr<Form> Item(std::int32_t index) const;
  /// The open forms, in order.
  const std::vector<std::shared_ptr<Form>>& Open() const { return open_; }

  /// How the form of that name is made, such as "frmSearchDialog". A second factory of one name takes the place of the
  /// first.
  void Register(const std::u16string& name, Factory factory);
  /// The one form of that name, made if needed, not loaded by this. An unloaded form is forgotten, so that the next
  /// call makes a fresh one. Raises error 429 for a name without a factory.
  std::shared_ptr<Form> Instance(std::u16string_view name);
  /// Drops instances that are not loaded, and all factories.
  void Forget();

  Event<Form&> Opened;  ///< before Form_Load
  Event<Form&> Closed;

 private:
  friend class Form;
  void Enter(const std::shared_ptr<Form>& form);
  void Leave(Form& form);

  std::vector<std::shared_ptr<Form>> open_;
  std::vector<std::pair<std::u16string, Factory>> factories_;
  std::vector<std::pair<std::u16string, std::shared_ptr<Form>>> instances_;
};

/// The one list of the program.
Forms& TheForms();

}  // namespace quorvane::forms
