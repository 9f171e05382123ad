#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

namespace vbide {
class VBE;
}

class ErrorManager;
class GlobalSetting;
class LanguageManager;
class Utilities;

/// The single instances that all parts of the add-in reach directly. A slot holds nothing until it is filled; a member
/// of nothing raises error 91.
namespace Globals {

extern std::shared_ptr<vbide::VBE> gobjVBE;  ///< the host
extern std::shared_ptr<Utilities> gobjUtilities;
extern std::shared_ptr<ErrorManager> gobjErrorManager;
extern std::shared_ptr<GlobalSetting> gobjSetting;

/// gobjLanguage: made at its first use.
LanguageManager& Language();

/// Fills numbered placeholders: "%0" takes the first of `args`. The highest number goes first, so that "%10" is not hit
/// by "%1".
std::u16string ReplaceArgs(std::u16string_view src, const std::vector<std::u16string>& args);

}  // namespace Globals

}  // namespace quorvane
