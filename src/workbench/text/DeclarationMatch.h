#pragma once

#include <cstdint>
#include <vector>

#include "workbench/text/LineMap.h"
#include "workbench/text/MemberDeclaration.h"

namespace quorvane::workbench {

/// For each declaration before an edit the 0-based index of the one after it that carries the member on, under its old
/// name or a new one, or -1 when the member is gone. No declaration carries on two.
std::vector<std::int32_t> MatchDeclarations(const std::vector<MemberDeclaration>& before,
                                            const std::vector<MemberDeclaration>& after, const LineMap& map);

}  // namespace quorvane::workbench
