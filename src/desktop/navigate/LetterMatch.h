#pragma once

#include <QStringView>

namespace quorvane::desktop {

/// How well a few letters stand for a name, whatever their case: they must stand in it in their order. Best is the name
/// itself, then its beginning, then a run from the beginning of a word in it, then any run, then beginnings of words
/// ("lo" for LoadOrder), then letters anywhere; of equals the shorter name. Above 0; 0 when they do not fit.
int LetterMatch(QStringView letters, QStringView name);

}  // namespace quorvane::desktop
