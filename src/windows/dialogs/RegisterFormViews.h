#pragma once

namespace quorvane::windows {

class ViewFactory;

/// The views of the add-in's forms.
void RegisterFormViews(ViewFactory& views);

}  // namespace quorvane::windows
