// What the tests see of a host goes out as IDispatch and comes back in through the bridge. QUORVANE_MEANNESS names in
// what the host is awkward: words of "fresh", "untyped" and "strict".

#include "support/Seen.h"

#include <cstdlib>
#include <string>

#include "windows/bridge/BridgedModule.h"
#include "windows/bridge/Session.h"
#include "windows/container/Exporter.h"

namespace quorvane::test {

namespace {

container::Meanness Asked() {
  const char* value = std::getenv("QUORVANE_MEANNESS");
  const std::string words = value != nullptr ? value : "";
  container::Meanness meanness;
  meanness.freshObjects = words.find("fresh") != words.npos;
  meanness.typeInformation = words.find("untyped") == words.npos;
  meanness.strictLines = words.find("strict") != words.npos;
  return meanness;
}

bridge::HostEpoch& Epoch() {
  static bridge::HostEpoch epoch;
  return epoch;
}

}  // namespace

std::shared_ptr<vbide::VBE> Seen(vbide::VBE& host) {
  const auto exporter = std::make_shared<container::Exporter>(Asked());
  const std::shared_ptr<vbide::VBE> own(std::shared_ptr<void>(), &host);
  const auto session = std::make_shared<bridge::Session>(exporter->Export(own), Epoch(), nullptr);
  return std::shared_ptr<vbide::VBE>(session, session->Application().get());
}

std::shared_ptr<vbide::CodeModule> Seen(vbide::CodeModule& module) {
  const auto exporter = std::make_shared<container::Exporter>(Asked());
  const std::shared_ptr<vbide::CodeModule> own(std::shared_ptr<void>(), &module);
  const auto link = std::make_shared<bridge::HostLink>(Epoch(), nullptr);
  return link->Wrap<bridge::BridgedModule>(exporter->Export(own));
}

void OthersHadTheirTurn() {
  Epoch().Advance();
}

}  // namespace quorvane::test
