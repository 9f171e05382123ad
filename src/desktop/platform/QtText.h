#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

namespace quorvane::desktop {

/// Both sides are UTF-16; any unit is kept as it is.
inline QString ToQString(std::u16string_view text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQString(QStringView text) {
  return std::u16string(text.utf16(), static_cast<std::size_t>(text.size()));
}

}  // namespace quorvane::desktop
