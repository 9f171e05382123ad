#include "windows/bridge/BridgedModule.h"

#include <algorithm>

#include "base/Error.h"
#include "windows/bridge/BridgedComponent.h"
#include "windows/bridge/BridgedPane.h"

namespace quorvane::bridge {

namespace {

/// Moves the epoch on at the end of a write, whatever became of it.
class WriteScope {
 public:
  explicit WriteScope(HostEpoch& epoch) : epoch_(epoch) {}
  ~WriteScope() { epoch_.Advance(); }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

 private:
  HostEpoch& epoch_;
};

std::int32_t Number(vbide::ProcKind kind) {
  return static_cast<std::int32_t>(kind);
}

}  // namespace

std::u16string BridgedModule::NameOf(const com::LateBound& object, com::ClassIds& classes) {
  return BridgedComponent::NameOf(com::LateBound(object.Call(u"Parent").ToObject(), classes), classes);
}

std::shared_ptr<vbide::VBComponent> BridgedModule::Parent() const {
  return TheOne<BridgedComponent>(u"Parent");
}

std::shared_ptr<vbide::CodePane> BridgedModule::CodePane() {
  return TheOne<BridgedPane>(u"CodePane");
}

std::int32_t BridgedModule::CountOfLines() const {
  return Remote().Call(u"CountOfLines").ToInt32();
}

std::int32_t BridgedModule::CountOfDeclarationLines() const {
  return Remote().Call(u"CountOfDeclarationLines").ToInt32();
}

std::u16string BridgedModule::ReadLines(std::int32_t start, std::int32_t count) const {
  return Remote().Call(u"Lines", start, count).ToText();
}

std::u16string BridgedModule::Lines(std::int32_t start, std::int32_t count) const {
  try {
    return ReadLines(start, count);
  } catch (const Error& e) {
    if (e.Number != static_cast<std::int32_t>(ErrorNumber::SubscriptOutOfRange) &&
        e.Number != static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall)) {
      throw;
    }
    const std::int64_t last = std::int64_t{start} + count - 1;
    const std::int64_t first = std::max(start, 1);
    const std::int64_t end = std::min<std::int64_t>(last, CountOfLines());
    if (end < first) return {};
    if (first == start && end == last) throw;  // these lines exist
    return ReadLines(static_cast<std::int32_t>(first), static_cast<std::int32_t>(end - first + 1));
  }
}

void BridgedModule::InsertLines(std::int32_t line, std::u16string_view text) {
  const WriteScope scope(Link().Epoch());
  Remote().Call(u"InsertLines", line, text);
}

void BridgedModule::DeleteLines(std::int32_t start, std::int32_t count) {
  const WriteScope scope(Link().Epoch());
  Remote().Call(u"DeleteLines", start, count);
}

std::u16string BridgedModule::ProcOfLine(std::int32_t line, vbide::ProcKind& kind) const {
  std::int32_t number = 0;
  const std::u16string name = Remote().Call(u"ProcOfLine", line, com::Variant::To(number)).ToText();
  kind = static_cast<vbide::ProcKind>(number);
  return name;
}

std::int32_t BridgedModule::ProcStartLine(std::u16string_view name, vbide::ProcKind kind) const {
  return Remote().Call(u"ProcStartLine", name, Number(kind)).ToInt32();
}

std::int32_t BridgedModule::ProcCountLines(std::u16string_view name, vbide::ProcKind kind) const {
  return Remote().Call(u"ProcCountLines", name, Number(kind)).ToInt32();
}

bool BridgedModule::Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
                         bool patternSearch) const {
  vbide::Selection place = range;
  const bool found =
      Remote()
          .Call(u"Find", target, com::Variant::To(place.StartLine), com::Variant::To(place.StartColumn),
                com::Variant::To(place.EndLine), com::Variant::To(place.EndColumn), wholeWord, matchCase, patternSearch)
          .ToBool();
  if (found) range = place;
  return found;
}

std::uint64_t BridgedModule::Revision() const {
  const std::uint64_t now = Link().Epoch().Now();
  if (epoch_ != now) revision_ = Link().NextRevision();
  epoch_ = now;
  return revision_;
}

}  // namespace quorvane::bridge
