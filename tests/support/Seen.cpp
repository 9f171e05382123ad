#include "support/Seen.h"

namespace quorvane::test {

std::shared_ptr<vbide::VBE> Seen(vbide::VBE& host) {
  return std::shared_ptr<vbide::VBE>(std::shared_ptr<void>(), &host);
}

std::shared_ptr<vbide::CodeModule> Seen(vbide::CodeModule& module) {
  return std::shared_ptr<vbide::CodeModule>(std::shared_ptr<void>(), &module);
}

void OthersHadTheirTurn() {}

}  // namespace quorvane::test
