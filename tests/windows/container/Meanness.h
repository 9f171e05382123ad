#pragma once

namespace quorvane::container {

/// In what the container is as awkward as a real host may be.
struct Meanness {
  bool freshObjects = false;    ///< each call gives a new object, even for the same thing
  bool typeInformation = true;  ///< its classes have identifiers; without, each object has member ids of its own
  bool strictLines = false;     ///< Lines raises error 9 for a range that is not all there
  bool wrapsDocument = false;   ///< hands out an object of its own for the document of a tool window
  bool refusesMenu = false;     ///< raises for the "Add-Ins" bar
  bool freshActive = false;     ///< a new object at each call for what is active alone
  bool oneClassId = false;      ///< all its classes have the identifier of IDispatch
  bool otherPoints = false;  ///< tells of changed properties before it tells of clicks, and describes those one by one
  bool noBars = false;       ///< raises when asked for its menus
  bool noAddIns = false;     ///< its list of add-ins is empty
};

}  // namespace quorvane::container
