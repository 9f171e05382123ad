#include "desktop/platform/ToldOnce.h"

#include <QSet>

namespace quorvane::desktop {

namespace {

int scopes = 0;

QSet<QString>& Told() {
  static QSet<QString> told;
  return told;
}

}  // namespace

ToldOnce::ToldOnce() {
  ++scopes;
}

ToldOnce::~ToldOnce() {
  if (--scopes == 0) Told().clear();
}

bool ToldOnce::Again(const QString& words) {
  if (scopes == 0) return false;
  if (Told().contains(words)) return true;
  Told().insert(words);
  return false;
}

}  // namespace quorvane::desktop
