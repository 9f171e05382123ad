#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

namespace vbide {
class VBE;
class Window;
}  // namespace vbide

class Connect;
class ErrorManager;
class FileSystem;
class GlobalSetting;
class HotkeyProxy;
class IResultListDoc;
class LanguageManager;
class ObjectRegistry;
class PageManager;
class Updater;
class Utilities;

/// The single instances that all parts of the add-in reach directly. A slot holds nothing until it is filled; a member
/// of nothing raises error 91.
namespace Globals {

extern std::shared_ptr<vbide::VBE> gobjVBE;   ///< the host
extern std::shared_ptr<Connect> gobjConnect;  ///< the connection to it
extern std::shared_ptr<Utilities> gobjUtilities;
extern std::shared_ptr<ErrorManager> gobjErrorManager;
extern std::shared_ptr<GlobalSetting> gobjSetting;
extern std::shared_ptr<PageManager> gobjPageManager;
extern std::shared_ptr<Updater> gobjUpdater;
extern std::shared_ptr<HotkeyProxy> gobjHotkeyProxy;
extern std::shared_ptr<IResultListDoc> gobjResultDoc;  ///< the document in the tool window
extern std::shared_ptr<vbide::Window> gobjToolWindow;  ///< the host's window around it

/// gobjLanguage: made at its first use.
LanguageManager& Language();
/// gobjFileSystem: made at its first use.
FileSystem& Files();
/// gobjRegistry, class name to object: made at its first use.
ObjectRegistry& Registry();

/// ILib.Setup on the registry, in the order in which the objects were made. A failure ends the walk and reaches the
/// caller.
void SetupObjects();
/// Unloads as many forms as are open, each time the first of the list.
void UnloadForms();
/// ILib.TearDown on the registry, in the order of SetupObjects. A failure is ignored and the walk goes on.
void TearDownObjects();
/// Empties the slots that CreateObjects filled, but gobjToolWindow, then the registry.
void ReleaseObjects();

/// The end of the add-in's code: what ReleaseObjects leaves goes too, the objects made at first use last. To be called
/// while the platform is still installed.
void EndOfCode();

/// Fills numbered placeholders: "%0" takes the first of `args`. The highest number goes first, so that "%10" is not hit
/// by "%1".
std::u16string ReplaceArgs(std::u16string_view src, const std::vector<std::u16string>& args);

}  // namespace Globals

}  // namespace quorvane
