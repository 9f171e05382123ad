#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// Text to the platform's types. Blanks around a number are ignored, a fraction is rounded, half to even. A text that
/// is no number raises error 13, one out of the type's range error 6.
std::int32_t ToLong(std::u16string_view text);
std::int16_t ToInteger(std::u16string_view text);

/// "True" and "False" in any case, or a number, of which 0 is false; else error 13.
bool ToBoolean(std::u16string_view text);
/// "True" or "False".
std::u16string BooleanText(bool value);

}  // namespace quorvane
