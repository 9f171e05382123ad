#pragma once

#include <QString>
#include <functional>

namespace quorvane::desktop {

class QtWindows;
class ViewFactory;

/// Enters the views of all documents and forms of the add-in. `windows` outlives the views; `tell` shows a line
/// that needs no answer.
void RegisterViews(ViewFactory& factory, QtWindows& windows, const std::function<void(const QString&)>& tell);

}  // namespace quorvane::desktop
