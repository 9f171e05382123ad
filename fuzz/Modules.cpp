// A module file of any bytes under edits: the first line says which (three characters an edit: what, where, which
// text). Undone, it is what it was, to the byte; saved and read again, it has as many lines as before.
#include <array>
#include <memory>

#include "Input.h"
#include "base/Error.h"
#include "native/codepages/CodePages.h"
#include "workbench/model/Module.h"

using namespace quorvane;
using workbench::Module;

namespace {

void Edit(Module& module, char what, std::int32_t place, char which) {
  constexpr std::array texts = {u"x", u"", u"Sub a()", u"End Sub", u"' \u8868", u"a\r\nb"};
  const std::int32_t count = module.CountOfLines();
  const std::int32_t line = count == 0 ? 1 : 1 + place % count;
  const auto* const text = texts[static_cast<unsigned char>(which) % texts.size()];
  if (what % 3 == 0) module.InsertLines(line, text);
  if (what % 3 == 1 && count > 0) module.DeleteLines(line, 1);
  if (what % 3 == 2) module.Undo();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const auto page = native::NewCodePage("932");
  fuzz::Input input(bytes, size);
  const std::string_view edits = input.Line();
  const auto file = std::make_shared<const workbench::SourceFile>(std::string(input.Rest()));
  workbench::TurnClock clock;
  Module module(file, *page, clock);
  fuzz::Expect(module.Compose().bytes == file->Bytes());
  for (std::size_t i = 0; i + 2 < edits.size() && i < 90; i += 3) {
    clock.Next();
    Edit(module, edits[i], static_cast<unsigned char>(edits[i + 1]), edits[i + 2]);
  }
  try {
    const auto composed = module.Compose();
    workbench::TurnClock other;
    const Module again(std::make_shared<const workbench::SourceFile>(composed.bytes), *page, other);
    again.CountOfDeclarationLines();
    for (std::int32_t line = 1; line <= module.CountOfLines(); ++line)
      fuzz::Expect(module.Lines(line, 1).find(u'\n') == std::u16string::npos);
  } catch (const Error&) {  // a character that the code page lacks
  }
  while (module.Undo()) {
  }
  fuzz::Expect(module.Compose().bytes == file->Bytes());
  return 0;
}
