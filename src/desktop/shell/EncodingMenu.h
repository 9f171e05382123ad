#pragma once

#include "desktop/files/EncodingScope.h"

class QMenu;

namespace quorvane::desktop {

class FileCommands;
class Texts;

/// Fills a menu with all code pages: the one that the files of `scope` are open in is checked, a chosen one opens them
/// again. `files` and `texts` outlive the menu's entries.
void FillEncodingMenu(QMenu& menu, const EncodingScope& scope, FileCommands& files, const Texts& texts);

}  // namespace quorvane::desktop
