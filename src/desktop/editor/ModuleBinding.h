#pragma once

#include <QObject>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"

class QTextDocument;

namespace quorvane {

namespace workbench {
class Module;
}

namespace desktop {

/// Keeps the lines of a module and the blocks of a text document the same, in both directions. The module is the truth
/// and keeps the history; the document has none. What the user does to the document goes to the module at once, as
/// edits of just the lines that changed. What happens to the module is taken over by Pull, which the binding itself
/// calls at the end of the turn, so that thousands of edits of one command cost one walk.
///
/// Some characters that a module can hold would break a block apart. The document shows a sign of the same length in
/// their place; an edit of the line beside them keeps them.
class ModuleBinding final : public QObject {
 public:
  /// `document` outlives this, has no undo of its own, and gets the module's text here.
  ModuleBinding(std::shared_ptr<workbench::Module> module, QTextDocument& document);

  /// Takes over what happened to the module. Cheap when nothing did.
  void Pull();
  /// 0-based place in the document after the last change that Pull took over.
  int LastChange() const { return lastChange_; }

  const std::shared_ptr<workbench::Module>& TheModule() const { return module_; }

  Event<> Pulled;

 private:
  using Lines = std::vector<std::u16string>;

  void ModuleChanged();
  void Push(int position, int added);
  void Store(std::int32_t first, const Lines& before, const Lines& after);
  void Show(int head, int removed, int tail, const Lines& lines);
  Lines ModuleLines() const;
  Lines BlockLines(int first, int last) const;

  std::shared_ptr<workbench::Module> module_;
  QTextDocument& document_;
  std::uint64_t shown_ = 0;  ///< revision that the document shows
  int blocks_ = 0;           ///< of the document, as of shown_
  int lastChange_ = 0;
  bool pushing_ = false;
  bool pulling_ = false;
  bool pullAsked_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane
