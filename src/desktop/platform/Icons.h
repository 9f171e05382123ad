#pragma once

#include <QIcon>
#include <string_view>

#include "vbide/VBIDE.h"

namespace quorvane::desktop {

/// Pictures drawn here, sharp at every scale and in colours that stand on light and dark ground.
namespace Icons {

QIcon Program();
QIcon Group();
QIcon Project();
QIcon Folder();
QIcon Component(vbide::ComponentType type);
/// A picture that the add-in names: "tab-new" or "tab-close"; empty for any other.
QIcon ByName(std::u16string_view name);

}  // namespace Icons

}  // namespace quorvane::desktop
