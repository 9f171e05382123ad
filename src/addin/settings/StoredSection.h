#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/DateTime.h"

namespace quorvane {

/// One section of one application in the user settings store, with the conversions of the values. A stored text that
/// does not convert raises the conversion error (13, or 6 out of range) with the key in its text and stays in the
/// store.
class StoredSection {
 public:
  StoredSection(std::u16string appname, std::u16string section);

  std::u16string Text(std::u16string_view key, std::u16string_view defaultValue) const;
  std::int32_t Long(std::u16string_view key, std::int32_t defaultValue) const;
  std::int16_t Integer(std::u16string_view key, std::int16_t defaultValue) const;
  bool Boolean(std::u16string_view key, bool defaultValue) const;
  DateTime Date(std::u16string_view key, const DateTime& defaultValue) const;

  /// A value that cannot be written is skipped.
  void Write(std::u16string_view key, std::u16string_view value) const;

 private:
  std::u16string appname_;
  std::u16string section_;
};

}  // namespace quorvane
