#include "addin/search/OffsetIndex.h"

#include <algorithm>

#include "base/Checked.h"
#include "vbide/VBIDE.h"

namespace quorvane {

TextPlace OffsetIndex::Locate(const vbide::CodeModule& code, std::int32_t baseLine, std::int32_t pos) {
  if (pos < 0) RaiseError(ErrorNumber::InvalidProcedureCall);
  const std::uint64_t revision = code.Revision();
  if (revision == 0 || revision != revision_ || &code != code_ || baseLine != baseLine_) Read(code, baseLine);
  const auto behind = std::upper_bound(lineFeeds_.begin(), lineFeeds_.end(), pos);
  auto feeds = static_cast<std::size_t>(behind - lineFeeds_.begin());  // line feeds at or before pos
  if (feeds > 0 && lineFeeds_[feeds - 1] == pos) --feeds;              // the line end belongs to the line before
  const std::int32_t lineBegin = feeds > 0 ? lineFeeds_[feeds - 1] : 0;
  return {Checked32(std::int64_t{baseLine} + static_cast<std::int64_t>(feeds)), pos - lineBegin};
}

void OffsetIndex::Read(const vbide::CodeModule& code, std::int32_t baseLine) {
  const std::u16string text = code.Lines(baseLine, Checked32(std::int64_t{code.CountOfLines()} - baseLine + 1));
  lineFeeds_.clear();
  for (std::size_t at = text.find(u'\n'); at != text.npos; at = text.find(u'\n', at + 1)) {
    lineFeeds_.push_back(Checked32(static_cast<std::int64_t>(at) + 1));
  }
  code_ = &code;
  baseLine_ = baseLine;
  revision_ = code.Revision();
}

}  // namespace quorvane
