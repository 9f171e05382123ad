#include "desktop/navigate/Navigator.h"

#include <QTextBlock>
#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/navigate/CodeWord.h"
#include "desktop/navigate/ModuleOutline.h"
#include "desktop/navigate/Palette.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

using workbench::Component;
using workbench::Procedure;

QString Suffix(vbide::ProcKind kind) {
  switch (kind) {
    case vbide::ProcKind::Get:
      return QStringLiteral("  Property Get");
    case vbide::ProcKind::Let:
      return QStringLiteral("  Property Let");
    case vbide::ProcKind::Set:
      return QStringLiteral("  Property Set");
    case vbide::ProcKind::Proc:
      break;
  }
  return {};
}

CodeWord WordAtCaret(const CodeEdit& editor) {
  QTextCursor cursor = editor.textCursor();
  cursor.setPosition(cursor.selectionStart());
  return CodeWord::At(cursor.block().text(), cursor.positionInBlock());
}

}  // namespace

Navigator::Navigator(workbench::Workbench& workbench, CodeArea& code, const Texts& texts, QWidget& window)
    : workbench_(workbench), code_(code), texts_(texts), window_(window), history_(code) {}

CodeEdit* Navigator::Editor() const {
  CodeWindow* window = code_.Current();
  return window != nullptr ? &window->Editor() : nullptr;
}

void Navigator::ToDefinition() {
  CodeWindow* window = code_.Current();
  const auto component = window != nullptr ? window->TheComponent() : nullptr;
  if (!component) return;
  CodeEdit& editor = window->Editor();
  editor.Refresh();
  const CodeWord word = WordAtCaret(editor);
  if (word.name.isEmpty()) return;
  const std::vector<Definition> found = DefinitionFinder(workbench_)
                                            .Find(*component, editor.textCursor().blockNumber() + 1,
                                                  FromQString(word.name), FromQString(word.owner), word.dotted);
  if (found.empty()) return Told.Raise(texts_(Text::DefinitionNone).arg(word.name));
  if (found.size() == 1) return GoTo(found.front());
  std::vector<PaletteRows::Entry> entries;
  for (const Definition& one : found) {
    entries.push_back(
        {ToQString(one.component->FullName()), ToQString(one.component->TheModule()->Lines(one.line, 1)).trimmed()});
  }
  Palette palette(texts_(Text::DefinitionsOf).arg(word.name), std::move(entries), texts_, window_);
  if (const auto chosen = palette.Ask()) GoTo(found[*chosen]);
}

void Navigator::GoTo(const Definition& definition) {
  Show(*definition.component, definition.line);
  CodeEdit* editor = Editor();
  if (editor == nullptr || definition.length == 0) return;
  const int begin = editor->document()->findBlockByNumber(definition.line - 1).position() + definition.column - 1;
  editor->Locate(begin, begin + definition.length);
}

void Navigator::Show(Component& component, std::int32_t line) {
  component.TheModule()->CodePane()->Show();
  CodeEdit* editor = Editor();
  if (editor == nullptr) return;
  editor->GoToLine(line);
  editor->setFocus();
}

void Navigator::StepProcedure(int step) {
  CodeEdit* editor = Editor();
  if (editor == nullptr) return;
  const workbench::Module& module = *editor->TheModule();
  const std::vector<Procedure>& all = module.Procedures();
  const std::int32_t line = editor->textCursor().blockNumber() + 1;
  const auto next = std::ranges::upper_bound(all, line, {}, &Procedure::startLine);
  if (step > 0) {
    // A caret in the comments above a header has not come to that procedure yet.
    if (next != all.begin()) {
      const std::int32_t own = ModuleOutline::HeaderLine(module, *(next - 1));
      if (line < own) return editor->GoToLine(own);
    }
    if (next != all.end()) editor->GoToLine(ModuleOutline::HeaderLine(module, *next));
    return;
  }
  for (auto at = next; at != all.begin(); --at) {
    const std::int32_t header = ModuleOutline::HeaderLine(module, *(at - 1));
    if (header < line) return editor->GoToLine(header);
  }
  editor->GoToLine(1);
}

void Navigator::AskProcedure() {
  std::vector<PaletteRows::Entry> entries;
  std::vector<std::pair<std::shared_ptr<Component>, Procedure>> places;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule()) continue;
      const QString where = ToQString(component->FullName());
      for (const Procedure& procedure : component->TheModule()->Procedures()) {
        const bool property = procedure.kind != vbide::ProcKind::Proc;
        entries.push_back({ToQString(procedure.name), property ? where + Suffix(procedure.kind) : where});
        places.emplace_back(component, procedure);
      }
    }
  }
  Palette palette(texts_(Text::ProcedureTitle), std::move(entries), texts_, window_);
  const auto chosen = palette.Ask();
  if (!chosen) return;
  const auto& [component, procedure] = places[*chosen];
  Show(*component, ModuleOutline::HeaderLine(*component->TheModule(), procedure));
}

QString Navigator::TakeName() {
  CodeEdit* editor = Editor();
  if (editor == nullptr) return {};
  editor->Refresh();
  const CodeWord word = WordAtCaret(*editor);
  if (word.name.isEmpty()) return {};
  QTextCursor cursor = editor->textCursor();
  cursor.setPosition(cursor.selectionStart());
  const int begin = cursor.block().position() + word.begin;
  editor->Select(begin, begin + static_cast<int>(word.name.size()));
  return word.name;
}

}  // namespace quorvane::desktop
