#pragma once

#include <sys/types.h>

#include <vector>

#include "support/TempFolder.h"

namespace quorvane::test {

/// How a run of the program ended.
struct Outcome {
  int status = -1;  ///< the exit status; minus the signal's number when a signal ended it
  std::string out;
  std::string err;
};

/// The real program as a child process, in a folder of its own.
class Program {
 public:
  /// Runs commands of bash to their end, in the locale "C" and with the program in $Q.
  Outcome Shell(const std::string& command);

  /// Starts the program with its standard output on `outFile`, a descriptor that stays the caller's.
  pid_t Start(const std::vector<std::string>& args, int outFile);
  /// Waits for the end; `out` stays empty.
  Outcome Wait(pid_t child);

  TempFolder folder;  ///< the working directory of all runs

 private:
  pid_t Spawn(const std::vector<std::string>& words, int outFile);

  TempFolder own_;  ///< what the runs wrote
};

/// Two projects of a group: CR LF and LF, hidden lines, a module in both, no final line end, a missing file.
void WriteShop(const TempFolder& folder);

}  // namespace quorvane::test
