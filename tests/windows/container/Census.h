#pragma once

#include <map>
#include <string>

namespace quorvane::container {

/// Counts the objects that are alive because someone outside holds them, by class.
class Census {
 public:
  void Born(const std::string& kind) { ++living_[kind]; }
  void Died(const std::string& kind) {
    if (--living_[kind] == 0) living_.erase(kind);
  }

  /// Without the classes of which none is alive.
  const std::map<std::string, int>& Living() const { return living_; }
  /// "CodeModule 2, VBE 1", or empty.
  std::string Text() const {
    std::string text;
    for (const auto& [kind, count] : living_) text += (text.empty() ? "" : ", ") + kind + " " + std::to_string(count);
    return text;
  }

 private:
  std::map<std::string, int> living_;
};

}  // namespace quorvane::container
