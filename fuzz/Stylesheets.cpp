// A stylesheet of any text over a result document of three rows.
#include "Input.h"
#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"

using namespace quorvane;

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  native::LibXmlTable table({"SearchResult", "MatchItem", {{"ID", true}, {"Line", false}}});
  for (std::int32_t row = 1; row <= 3; ++row) {
    table.BeginRow();
    table.AddNumber(row);
    table.AddText(u"a <b> \"c\"");
  }
  native::LibXmlDocument sheet;
  sheet.LoadXml(FromUtf8({reinterpret_cast<const char*>(bytes), size}));
  for (std::size_t row = 0; row < 3; ++row) {
    try {
      table.Transform(row, sheet);
    } catch (const Error&) {
    }
  }
  return 0;
}
