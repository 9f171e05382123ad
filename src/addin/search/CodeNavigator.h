#pragma once

namespace quorvane {

namespace vbide {
class CodeModule;
struct Selection;
}  // namespace vbide

/// Selects a range of the module in the host and brings its code window to the front, as large as the settings want it;
/// yields once to the message loop.
void ShowInHost(vbide::CodeModule& code, const vbide::Selection& range);

}  // namespace quorvane
