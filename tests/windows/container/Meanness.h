#pragma once

namespace quorvane::container {

/// In what the container is as awkward as a real host may be.
struct Meanness {
  bool freshObjects = false;    ///< each call gives a new object, even for the same thing
  bool typeInformation = true;  ///< its classes have identifiers; without, each object has member ids of its own
  bool strictLines = false;     ///< Lines raises error 9 for a range that is not all there
  bool wrapsDocument = false;   ///< hands out an object of its own for the document of a tool window
  bool refusesMenu = false;     ///< raises for the "Add-Ins" bar
};

}  // namespace quorvane::container
