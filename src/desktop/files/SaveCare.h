#pragma once

class QWidget;

namespace quorvane {

namespace workbench {
class Component;
class Workbench;
}  // namespace workbench

namespace desktop {

class Texts;

/// Asks about saves of several files that were cut short beside the open files, whether to finish them or to go back.
/// True when files on disk are now others than were opened.
bool SettleHalfSaves(const workbench::Workbench& workbench, QWidget& window, const Texts& texts);

/// Asks before files are written that a project lists by an absolute path outside the folders of all projects; false
/// when the user does not want it. `component` is the one to be saved, nothing for all.
bool MayWriteOutside(const workbench::Workbench& workbench, const workbench::Component* component, QWidget& window,
                     const Texts& texts);

}  // namespace desktop
}  // namespace quorvane
