#pragma once

#include <memory>

#include "vbide/VBIDE.h"

namespace quorvane::test {

/// A host and a module as the code under test sees them: as they are, or, in the programs that link another Seen.cpp,
/// through what stands between an add-in and a host of another program. Both must outlive what is given.
std::shared_ptr<vbide::VBE> Seen(vbide::VBE& host);
std::shared_ptr<vbide::CodeModule> Seen(vbide::CodeModule& module);

/// Tells what stands between that somebody else was let at the code, as a message loop does.
void OthersHadTheirTurn();

}  // namespace quorvane::test
