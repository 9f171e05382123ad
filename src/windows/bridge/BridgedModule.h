#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedModule final : public vbide::CodeModule, public HostObject {
 public:
  using HostObject::HostObject;

  /// "project\ncomponent"
  static std::u16string NameOf(const com::LateBound& object, com::ClassIds& classes);

  std::shared_ptr<vbide::VBComponent> Parent() const override;
  std::shared_ptr<vbide::CodePane> CodePane() override;
  std::int32_t CountOfLines() const override;
  std::int32_t CountOfDeclarationLines() const override;
  /// A host that refuses a range past its ends is asked again for the lines that exist.
  std::u16string Lines(std::int32_t start, std::int32_t count) const override;
  void InsertLines(std::int32_t line, std::u16string_view text) override;
  void DeleteLines(std::int32_t start, std::int32_t count) override;
  std::u16string ProcOfLine(std::int32_t line, vbide::ProcKind& kind) const override;
  std::int32_t ProcStartLine(std::u16string_view name, vbide::ProcKind kind) const override;
  std::int32_t ProcCountLines(std::u16string_view name, vbide::ProcKind kind) const override;
  bool Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
            bool patternSearch) const override;
  /// A number of this module's own for each epoch in which it is asked for.
  std::uint64_t Revision() const override;

 private:
  std::u16string ReadLines(std::int32_t start, std::int32_t count) const;

  mutable std::uint64_t revision_ = 0;
  mutable std::uint64_t epoch_ = 0;  ///< to which revision_ belongs; 0: to none
};

}  // namespace quorvane::bridge
