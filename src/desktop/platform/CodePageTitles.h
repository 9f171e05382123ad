#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

namespace quorvane::desktop {

/// The usual names of all code pages that files can be opened in, in the order of menus.
QStringList CodePageNames();

/// A code page as it is named to the user, such as "950  Chinese, traditional"; `language` as in Texts. A name that is
/// none of CodePageNames stays as it is.
QString CodePageTitle(const QString& name, std::int32_t language);

}  // namespace quorvane::desktop
