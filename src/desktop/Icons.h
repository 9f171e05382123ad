#pragma once

#include <QIcon>

#include "host/VBIDE.h"

namespace quorvane::desktop {

/// Pictures drawn here, sharp at every scale and in colours that stand on light and dark ground.
namespace Icons {

QIcon Program();
QIcon Group();
QIcon Project();
QIcon Folder();
QIcon Component(vbide::ComponentType type);

}  // namespace Icons

}  // namespace quorvane::desktop
