#pragma once

namespace quorvane {

/// An object with captions in the language of the user.
class IVersionUI {
 public:
  virtual ~IVersionUI() = default;

  /// Sets all captions anew, in the language of the moment.
  virtual void Update() = 0;
};

}  // namespace quorvane
