#pragma once

namespace quorvane {

/// Tells the list of forms how this room's dialogs are made. A program with windows calls it before it connects.
void RegisterDialogs();

}  // namespace quorvane
