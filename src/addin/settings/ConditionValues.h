#pragma once

#include <cstdint>

namespace quorvane {

/// Scope of a search.
enum gsArea : std::int32_t {
  gsCurModule = 0,     ///< the module of the active code pane
  gsCurProject = 1,    ///< all code components of the active project
  gsAllProjects = 2,   ///< all code components of all open projects
  gsCurProcedure = 3,  ///< the procedure under the caret, or the declarations section
  gsSelection = 4,     ///< the selection of the active code pane
};

/// How the search text is read.
enum gsMode : std::int32_t {
  gsCommon = 0,   ///< plain text
  gsPattern = 1,  ///< pattern syntax of the host
  gsRegular = 2,  ///< regular expression
};

/// Which matches stay.
enum gsCommentStat : std::int32_t {
  gsIncludeComment = 0,  ///< all
  gsExcludeComment = 1,  ///< those not in a comment
  gsCommentOnly = 2,     ///< those in a comment
};

}  // namespace quorvane
