#pragma once

#include <memory>
#include <string>
#include <utility>

#include "vbide/VBIDE.h"

namespace quorvane::test {

/// A module that passes every question on to another one; tests of odd hosts answer single ones themselves.
class PassingModule : public vbide::CodeModule {
 public:
  explicit PassingModule(std::shared_ptr<vbide::CodeModule> module) : module_(std::move(module)) {}

  std::shared_ptr<vbide::VBComponent> Parent() const override { return module_->Parent(); }
  std::shared_ptr<vbide::CodePane> CodePane() override { return module_->CodePane(); }
  std::int32_t CountOfLines() const override { return module_->CountOfLines(); }
  std::int32_t CountOfDeclarationLines() const override { return module_->CountOfDeclarationLines(); }
  std::u16string Lines(std::int32_t start, std::int32_t count) const override { return module_->Lines(start, count); }
  void InsertLines(std::int32_t line, std::u16string_view text) override { module_->InsertLines(line, text); }
  void DeleteLines(std::int32_t start, std::int32_t count) override { module_->DeleteLines(start, count); }
  std::u16string ProcOfLine(std::int32_t line, vbide::ProcKind& kind) const override {
    return module_->ProcOfLine(line, kind);
  }
  std::int32_t ProcStartLine(std::u16string_view name, vbide::ProcKind kind) const override {
    return module_->ProcStartLine(name, kind);
  }
  std::int32_t ProcCountLines(std::u16string_view name, vbide::ProcKind kind) const override {
    return module_->ProcCountLines(name, kind);
  }
  bool Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
            bool patternSearch) const override {
    return module_->Find(target, range, wholeWord, matchCase, patternSearch);
  }

 private:
  std::shared_ptr<vbide::CodeModule> module_;
};

}  // namespace quorvane::test
