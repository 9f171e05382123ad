// A backtracking engine can be sent into work without end by a short pattern, and its own limit counts the steps from
// one starting position alone, steps that differ in cost. So the text is searched in windows of starting positions,
// each run with a limit of steps that begins low. Windows that pass quickly grow; a run that meets the limit is
// repeated with a higher one; and after each run the clock is asked whether the text that was left behind is worth the
// time spent, and whether a longer run can be afforded.

#define PCRE2_CODE_UNIT_WIDTH 16
#include "native/regexp/PcrePattern.h"

#include <pcre2.h>

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr std::size_t kFirstWindow = 256;
constexpr std::size_t kLargestWindow = 16384;
constexpr std::size_t kFirstLimit = 500;
constexpr std::size_t kHighestLimit = 20'000'000;
constexpr std::size_t kLimitGrowth = 4;
constexpr std::size_t kStepsPerUnit = 16;         ///< on top of kHighestLimit, for each unit that is left of the text
constexpr std::size_t kStepsPerRun = 64'000'000;  ///< window times limit stays below, as far as there is a choice
constexpr double kLongRun = 0.01;                 ///< seconds; a window that takes longer shrinks
constexpr std::size_t kSmallStack = 32 << 10;     ///< bytes
constexpr std::size_t kBigStack = 64 << 20;
constexpr std::uint32_t kInterpreterHeap = 256 << 10;  ///< in KiB

PCRE2_SPTR16 Units(std::u16string_view text) {
  static constexpr char16_t nothing = 0;
  return reinterpret_cast<PCRE2_SPTR16>(text.data() != nullptr ? text.data() : &nothing);
}

std::uint32_t CompileOptions(bool multiline, bool ignoreCase, bool unicodeCase) {
  std::uint32_t options = PCRE2_MATCH_UNSET_BACKREF | PCRE2_ALLOW_EMPTY_CLASS | PCRE2_DOLLAR_ENDONLY | PCRE2_NEVER_UTF |
                          PCRE2_USE_OFFSET_LIMIT;
  if (multiline) options |= PCRE2_MULTILINE | PCRE2_ALT_CIRCUMFLEX;
  if (ignoreCase) options |= PCRE2_CASELESS;
  if (unicodeCase) options |= PCRE2_UCP;
  return options;
}

/// Version 10.42 of the engine looks for the start of a match by what its first characters can be, and its machine code
/// is wrong about that for some alternatives of different lengths: (?:a|)a+a does not find "aa". All such patterns that
/// random ones brought to light have a repeat after an alternative that stands in a group. The others keep the search
/// for a start, which is what makes them fast; where it is not plain which kind a pattern is, it is taken for the
/// former.
std::uint32_t StartOptions(std::u16string_view pattern) {
  bool inClass = false;
  bool odd = false;  // more than plain groups: looks, references
  int depth = 0;
  bool any = false;
  bool inGroup = false;
  bool repeated = false;  // after such an alternative, or around it
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'\\') {
      ++i;
      odd = odd || (i < pattern.size() && pattern[i] >= u'0' && pattern[i] <= u'9');
    } else if (inClass || c == u'[') {
      inClass = c != u']';
    } else if (c == u'(') {
      ++depth;
      odd = odd || (pattern.substr(i, 2) == u"(?" && pattern.substr(i, 3) != u"(?:");
    } else if (c == u')') {
      --depth;
    } else if (c == u'|') {
      any = true;
      inGroup = inGroup || depth > 0;
    } else if (c == u'*' || c == u'+' || c == u'{') {
      repeated = repeated || inGroup;
    }
  }
  return any && (odd || repeated) ? PCRE2_NO_START_OPTIMIZE : 0;
}

std::u16string EngineMessage(int code) {
  PCRE2_UCHAR16 text[256];
  const int length = pcre2_get_error_message(code, text, std::size(text));
  if (length < 0) return u"error " + ToText(code);
  return {reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)};
}

}  // namespace

struct PcrePattern::Engine {
  pcre2_code* Code = nullptr;
  pcre2_match_data* Match = nullptr;
  pcre2_match_context* Context = nullptr;
  pcre2_jit_stack* Stack = nullptr;  ///< made when the small one on the thread's own stack does not do
  bool Compiled = false;             ///< machine code exists
  bool Anchored = false;             ///< a search tries its first position alone

  ~Engine() {
    pcre2_match_data_free(Match);
    pcre2_match_context_free(Context);
    pcre2_jit_stack_free(Stack);
    pcre2_code_free(Code);
  }
};

PcrePattern::PcrePattern(std::u16string_view source, const TranslatedPattern& translated, bool multiline,
                         bool ignoreCase, bool unicodeCase)
    : source_(source), engine_(std::make_unique<Engine>()), window_(kFirstWindow), limit_(kFirstLimit) {
  Engine& engine = *engine_;
  pcre2_compile_context* context = pcre2_compile_context_create(nullptr);
  pcre2_set_newline(context, PCRE2_NEWLINE_ANYCRLF);
  int error = 0;
  PCRE2_SIZE offset = 0;
  engine.Code = pcre2_compile(Units(translated.Text), translated.Text.size(),
                              CompileOptions(multiline, ignoreCase, unicodeCase) | StartOptions(translated.Text),
                              &error, &offset, context);
  pcre2_compile_context_free(context);
  if (engine.Code == nullptr) {
    const std::size_t at = std::min<std::size_t>(offset, translated.Offsets.size() - 1);
    RaisePatternError(PatternError::Syntax, u"Syntax error in regular expression: " + EngineMessage(error),
                      translated.Offsets[at]);
  }
  engine.Match = pcre2_match_data_create_from_pattern(engine.Code, nullptr);
  engine.Context = pcre2_match_context_create(nullptr);
  if (engine.Match == nullptr || engine.Context == nullptr) throw std::bad_alloc();
  pcre2_set_heap_limit(engine.Context, kInterpreterHeap);
  engine.Compiled = pcre2_jit_compile(engine.Code, PCRE2_JIT_COMPLETE) == 0;
  std::uint32_t options = 0;
  pcre2_pattern_info(engine.Code, PCRE2_INFO_ALLOPTIONS, &options);
  engine.Anchored = (options & PCRE2_ANCHORED) != 0;
}

PcrePattern::~PcrePattern() = default;

std::span<const std::size_t> PcrePattern::Bounds() const {
  static_assert(std::is_same_v<PCRE2_SIZE, std::size_t>);
  return {pcre2_get_ovector_pointer(engine_->Match), 2 * pcre2_get_ovector_count(engine_->Match)};
}

bool PcrePattern::Find(std::u16string_view text, std::size_t from) {
  for (std::size_t at = from; at <= text.size();) {
    const std::size_t last = std::min(text.size(), at + (engine_->Anchored ? 1 : window_) - 1);
    const int result = RunWindow(text, at, last);
    const bool found = result > 0;
    if (!found && result != PCRE2_ERROR_NOMATCH) {
      if (result != PCRE2_ERROR_MATCHLIMIT) RaiseTooCostly();
      RaiseLimit(text.size() - at);
      continue;
    }
    budget_.Charge((found ? Bounds()[1] : last) - at + 1);
    if (budget_.IsTooHigh()) RaiseTooCostly();
    AdaptWindow(!found);
    if (found || engine_->Anchored) return found;
    at = last + 1;
  }
  return false;
}

/// After a run that met the limit, with `left` units of the text before it.
void PcrePattern::RaiseLimit(std::size_t left) {
  const std::size_t highest = kHighestLimit + kStepsPerUnit * left;
  budget_.Charge(0);
  const double nextRun = budget_.LastSeconds() * kLimitGrowth;
  if (limit_ >= highest || budget_.IsTooHigh(nextRun)) RaiseTooCostly();
  limit_ = std::min(highest, limit_ * kLimitGrowth);
  AdaptWindow(false);
}

void PcrePattern::AdaptWindow(bool mayGrow) {
  if (budget_.LastSeconds() > kLongRun) {
    window_ /= 4;
  } else if (mayGrow) {
    window_ *= 2;
  }
  window_ = std::clamp<std::size_t>(std::min(window_, kStepsPerRun / limit_), 1, kLargestWindow);
}

/// Tries the starting positions from `from` to `last`, both included.
int PcrePattern::RunWindow(std::u16string_view text, std::size_t from, std::size_t last) {
  Engine& engine = *engine_;
  pcre2_set_offset_limit(engine.Context, last);
  pcre2_set_match_limit(engine.Context, static_cast<std::uint32_t>(std::min<std::size_t>(limit_, 0xFFFFFFFF)));
  if (engine.Compiled && !interpreted_) {
    int result = pcre2_jit_match(engine.Code, Units(text), text.size(), from, 0, engine.Match, engine.Context);
    if (result == PCRE2_ERROR_JIT_STACKLIMIT) result = RunOnBigStack(text, from);
    if (result != PCRE2_ERROR_JIT_STACKLIMIT) return result;
  }
  return pcre2_match(engine.Code, Units(text), text.size(), from, PCRE2_NO_JIT, engine.Match, engine.Context);
}

int PcrePattern::RunOnBigStack(std::u16string_view text, std::size_t from) {
  Engine& engine = *engine_;
  if (engine.Stack == nullptr) engine.Stack = pcre2_jit_stack_create(kSmallStack, kBigStack, nullptr);
  if (engine.Stack == nullptr) return PCRE2_ERROR_JIT_STACKLIMIT;
  pcre2_jit_stack_assign(engine.Context, nullptr, engine.Stack);
  return pcre2_jit_match(engine.Code, Units(text), text.size(), from, 0, engine.Match, engine.Context);
}

void PcrePattern::RaiseTooCostly() {
  constexpr std::size_t kShown = 80;
  budget_.Reset();
  window_ = kFirstWindow;
  limit_ = kFirstLimit;
  std::u16string shown = source_.substr(0, kShown);
  if (source_.size() > kShown) shown += u"…";
  RaiseError(ErrorNumber::OutOfStack,
             u"The regular expression takes too long or too much memory on this text: " + shown);
}

}  // namespace quorvane::native
