#pragma once

#include <cstdint>
#include <string>

namespace quorvane::forms {

inline constexpr std::int16_t kPlainText = 1;  ///< format of dropped text

/// What a drag brings to the control that it is dropped on.
class DataObject {
 public:
  virtual ~DataObject() = default;

  virtual bool GetFormat(std::int16_t format) const = 0;
  /// Raises when the data is not there in that format.
  virtual std::u16string GetData(std::int16_t format) const = 0;
};

}  // namespace quorvane::forms
