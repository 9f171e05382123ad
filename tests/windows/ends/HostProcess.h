#pragma once

#include <functional>
#include <string>

#include "windows/com/Win32.h"

namespace quorvane::test {

/// The container as a program of its own, which is told what to do line by line. It lies beside this program, and the
/// add-in's file in the folder that the build puts it in.
class HostProcess {
 public:
  explicit HostProcess(const std::string& arguments = "");
  ~HostProcess();
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  /// The whole answer, without its last line break; "gone" when the program ended or did not answer for half a minute.
  std::string Ask(const std::string& line);
  /// Asks again until the answer is wanted, for half a minute at most; the last answer.
  std::string AskUntil(const std::string& line, const std::function<bool(const std::string&)>& wanted);
  /// Likewise, until it is exactly that.
  std::string AskFor(const std::string& line, const std::string& answer);

 private:
  std::string ReadLine();

  HANDLE process_ = nullptr;
  HANDLE in_ = nullptr;
  HANDLE out_ = nullptr;
  std::string read_;  ///< of the next lines
};

/// The whole path of a file beside this program; with "..\\" and so on before it.
std::string Beside(const std::string& name);

}  // namespace quorvane::test
