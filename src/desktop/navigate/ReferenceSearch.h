#pragma once

#include <QString>

namespace quorvane::desktop {

/// Fills the add-in's search dialog, which is open, for all places of a name: plain text, whole words, any case, in all
/// open projects. Does nothing where the add-in is not there.
void FillReferenceSearch(const QString& name);

}  // namespace quorvane::desktop
