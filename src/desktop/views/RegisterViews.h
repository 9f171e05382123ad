#pragma once

namespace quorvane::desktop {

class QtWindows;
class ViewFactory;

/// Enters the views of all documents and forms of the add-in. `windows` outlives the views.
void RegisterViews(ViewFactory& factory, QtWindows& windows);

}  // namespace quorvane::desktop
