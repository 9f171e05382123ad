#pragma once

#include <QString>

namespace quorvane::desktop {

/// The sample that comes inside the program, for a user who has nothing to open yet.
class SampleGroup final {
 public:
  /// Puts the files of the sample under `folder`, where none of that name is, and gives the path of the group file. What
  /// the user changed there stays. Raises error 75 naming the file that cannot be written.
  static QString Unpack(const QString& folder);
};

}  // namespace quorvane::desktop
