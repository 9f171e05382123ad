#pragma once

namespace quorvane::workbench {

/// What the system knows of characters beyond ASCII, whatever the locale of the user. Units that are half of a
/// character are not to be asked about; what has no other case in the basic plane comes back as it is.
char16_t CapitalOf(char16_t c);
char16_t SmallOf(char16_t c);
bool IsLetterOrDigit(char16_t c);

}  // namespace quorvane::workbench
