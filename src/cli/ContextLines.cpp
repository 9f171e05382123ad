#include "cli/ContextLines.h"

#include <algorithm>
#include <limits>

#include "addin/search/PositionInfo.h"
#include "addin/search/ProcKindName.h"
#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/XmlText.h"
#include "vbide/VBIDE.h"

namespace quorvane::cli {

std::string ContextLines::Before(const PositionInfo& match) {
  std::string out;
  const bool sameModule = code_ == match.mobjCodeObject;
  const bool first = !code_;
  AppendUntil(sameModule ? match.mlngY1 - 1 : std::numeric_limits<std::int32_t>::max(), out);
  if (!sameModule) {
    code_ = match.mobjCodeObject;
    where_ = Deref(match.project()).Name() + u"\\" + Deref(match.component()).Name() + u"\\";
    told_ = until_ = 0;
  }
  const std::int32_t begin = std::max(1, match.mlngY1 - before_);
  if (!first && (!sameModule || begin > told_ + 1)) out += "--\n";
  told_ = std::max(told_, begin - 1);
  while (told_ < match.mlngY1 - 1) AppendLine(++told_, out);
  told_ = std::max(told_, match.mlngY1);
  const std::int32_t end = match.mlngX2 > 1 ? match.mlngY2 : match.mlngY2 - 1;
  const std::int64_t until = std::int64_t{std::max(end, match.mlngY1)} + after_;
  if (after_ > 0) until_ = static_cast<std::int32_t>(std::min<std::int64_t>(until, code_->CountOfLines()));
  return out;
}

std::string ContextLines::Rest() {
  std::string out;
  AppendUntil(std::numeric_limits<std::int32_t>::max(), out);
  return out;
}

void ContextLines::AppendUntil(std::int32_t end, std::string& out) {
  if (!code_) return;
  end = std::min(end, until_);
  while (told_ < end) AppendLine(++told_, out);
}

void ContextLines::AppendLine(std::int32_t line, std::string& out) const {
  vbide::ProcKind kind = vbide::ProcKind::Proc;
  const std::u16string name = code_->ProcOfLine(line, kind);
  if (color_) out += kPrefixColor;
  AppendUtf8(where_, out);
  AppendUtf8(ProcKindName(kind), out);
  AppendUtf8(u"\\" + (name.empty() ? u"(Declarations)" : name) + u"[" + ToText(line) + u"]-", out);
  if (color_) out += kPlain;
  std::string text;
  native::ToXmlText(code_->Lines(line, 1), text);
  out += text + '\n';
}

}  // namespace quorvane::cli
