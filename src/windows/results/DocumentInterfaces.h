#pragma once

#include <tuple>

#include "windows/com/ComObject.h"

// What stands above the interfaces of a control.
namespace quorvane::com {

template <>
struct Above<IOleInPlaceObject> {
  using Interfaces = std::tuple<IOleWindow>;
};
template <>
struct Above<IOleInPlaceActiveObject> {
  using Interfaces = std::tuple<IOleWindow>;
};
template <>
struct Above<IViewObject2> {
  using Interfaces = std::tuple<IViewObject>;
};
template <>
struct Above<IPersistStreamInit> {
  using Interfaces = std::tuple<IPersist>;
};
template <>
struct Above<IPersistStorage> {
  using Interfaces = std::tuple<IPersist>;
};
template <>
struct Above<IPersistPropertyBag> {
  using Interfaces = std::tuple<IPersist>;
};

}  // namespace quorvane::com
