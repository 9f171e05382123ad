#pragma once

#include <QString>

namespace quorvane::forms {
class OwnerDrawList;
}  // namespace quorvane::forms

namespace quorvane::desktop {

/// What an empty result list says in place of rows: that its page's search has found nothing. Empty while that is not
/// so, or not known yet.
QString EmptyListNote(const forms::OwnerDrawList& list);

}  // namespace quorvane::desktop
