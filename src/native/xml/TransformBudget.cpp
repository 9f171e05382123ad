// The library counts its instructions and the steps of XPath by itself. What it does not count is memory: one step can
// double a text, and forty of them would fill any machine. So its memory comes through here, and where too much was
// asked for, the counters are set to their ends: a library that gets no memory at all does not always bear it, and
// meets that only behind a far limit. The clock is looked at on the same way, since whatever takes time asks for
// memory.

#include "native/xml/TransformBudget.h"

#include <libxml/xmlmemory.h>
#include <libxml/xpath.h>
#include <libxslt/xsltInternals.h>

#include <cstdlib>
#include <cstring>

namespace quorvane::native {

namespace {

constexpr unsigned long kInstructions = 1'000'000;
constexpr unsigned long kSteps = 20'000'000;
constexpr int kDepth = 1000;
constexpr std::size_t kMemory = std::size_t{64} << 20;
constexpr std::size_t kMostMemory = std::size_t{256} << 20;
constexpr unsigned kCallsPerLook = 256;

thread_local TransformBudget* current = nullptr;

}  // namespace

/// The library's memory.
struct CountedMemory {
  static bool Charge(std::size_t bytes) { return current == nullptr || current->Charge(bytes); }
  static void* Allocate(std::size_t bytes) { return Charge(bytes) ? std::malloc(bytes) : nullptr; }
  static void* Resize(void* memory, std::size_t bytes) { return Charge(bytes) ? std::realloc(memory, bytes) : nullptr; }
  static char* Copy(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    void* const memory = Allocate(size);
    return memory == nullptr ? nullptr : static_cast<char*>(std::memcpy(memory, text, size));
  }
};

TransformBudget::TransformBudget(_xsltTransformContext* context) : context_(context), outer_(current) {
  static const bool counted =
      xmlMemSetup(std::free, &CountedMemory::Allocate, &CountedMemory::Resize, &CountedMemory::Copy) == 0;
  static_cast<void>(counted);
  context_->opLimit = kInstructions;
  context_->opCount = 0;
  context_->maxTemplateDepth = kDepth;
  context_->xpathCtxt->opLimit = kSteps;
  context_->xpathCtxt->opCount = 0;
  time_.Start();
  current = this;
}

TransformBudget::~TransformBudget() {
  current = outer_;
}

bool TransformBudget::Exceeded() const {
  return stopped_ || context_->opCount >= context_->opLimit ||
         context_->xpathCtxt->opCount >= context_->xpathCtxt->opLimit;
}

bool TransformBudget::Charge(std::size_t bytes) {
  if (bytes > kMostMemory - bytes_) {
    Stop();
    return false;
  }
  bytes_ += bytes;
  if (++calls_ % kCallsPerLook == 0) time_.Charge(0);
  if (bytes_ > kMemory || time_.IsTooHigh()) Stop();
  return true;
}

void TransformBudget::Stop() {
  stopped_ = true;
  context_->state = XSLT_STATE_STOPPED;
  context_->opCount = context_->opLimit;
  context_->xpathCtxt->opCount = context_->xpathCtxt->opLimit;
}

}  // namespace quorvane::native
