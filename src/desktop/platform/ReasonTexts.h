#pragma once

#include <QString>

namespace quorvane::desktop {

/// The words of engines and files for what went wrong, in Chinese. Each line is taken apart at ": "; a piece without
/// Chinese words, such as a path, stays as it is.
QString ChineseReason(const QString& english);

}  // namespace quorvane::desktop
