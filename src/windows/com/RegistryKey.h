#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "windows/com/Win32.h"

namespace quorvane::com {

// Single values of the registry. A key is named below one of Windows' roots, its parts joined by "\"; the empty value
// name is the key's own value. Writing raises error 0x80070000 + Windows' number, naming the key.

/// Empty when there is none, or none that is a text.
std::u16string ReadText(HKEY root, const std::u16string& key, const std::u16string& value);
void WriteText(HKEY root, const std::u16string& key, const std::u16string& value, const std::u16string& text);
void WriteNumber(HKEY root, const std::u16string& key, const std::u16string& value, std::uint32_t number);
/// One that is not there is gone already.
void DeleteValue(HKEY root, const std::u16string& key, const std::u16string& value);
/// Leaves a key that holds a value or another key, and one that is not there.
void DeleteKeyIfEmpty(HKEY root, const std::u16string& key);

}  // namespace quorvane::com
