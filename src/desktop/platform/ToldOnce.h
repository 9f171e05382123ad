#pragma once

#include <QString>

namespace quorvane::desktop {

/// While one lives, an error whose words were told already is not told again: many who hear of one change may fail for
/// one reason. For the thread of the windows; they may nest.
class ToldOnce {
 public:
  ToldOnce();
  ~ToldOnce();
  ToldOnce(const ToldOnce&) = delete;
  ToldOnce& operator=(const ToldOnce&) = delete;

  /// Whether these words came before while the outermost one lives; from now on they did.
  static bool Again(const QString& words);
};

}  // namespace quorvane::desktop
