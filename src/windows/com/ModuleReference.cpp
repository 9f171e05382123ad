#include "windows/com/ModuleReference.h"

#include <atomic>

namespace quorvane::com {

namespace {

std::atomic<long> count{0};
std::atomic<void (*)()> whenUnused{nullptr};
std::atomic<bool> ending{false};

}  // namespace

ModuleReference::ModuleReference() {
  Take();
}

ModuleReference::~ModuleReference() {
  Drop();
}

void ModuleReference::Take() {
  ++count;
}

void ModuleReference::Drop() {
  if (--count != 0) return;
  void (*const ended)() = whenUnused;
  if (ended == nullptr || ending.exchange(true)) return;
  ended();
  ending = false;
}

long ModuleReference::Count() {
  return count;
}

void ModuleReference::WhenUnused(void (*ended)()) {
  whenUnused = ended;
}

}  // namespace quorvane::com
