#include "windows/ends/HostProcess.h"

#include <cstdlib>

namespace quorvane::test {

namespace {

constexpr DWORD kPatience = 30000;
constexpr DWORD kPause = 20;

}  // namespace

std::string Beside(const std::string& name) {
  char path[MAX_PATH];
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string own = path;
  return own.substr(0, own.find_last_of('\\') + 1) + name;
}

HostProcess::HostProcess(const std::string& arguments) {
  SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
  HANDLE theirIn = nullptr;
  HANDLE theirOut = nullptr;
  ::CreatePipe(&theirIn, &in_, &inherited, 0);
  ::CreatePipe(&out_, &theirOut, &inherited, 0);
  ::SetHandleInformation(in_, HANDLE_FLAG_INHERIT, 0);
  ::SetHandleInformation(out_, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOA start{};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = theirIn;
  start.hStdOutput = theirOut;
  start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION made{};
  std::string command = "\"" + Beside("quorvane-host32.exe") + "\" " + arguments;
  ::CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made);
  ::CloseHandle(made.hThread);
  ::CloseHandle(theirIn);
  ::CloseHandle(theirOut);
  process_ = made.hProcess;
  ReadLine();  // ready
}

HostProcess::~HostProcess() {
  ::CloseHandle(in_);  // its end is the program's
  if (::WaitForSingleObject(process_, kPatience) != WAIT_OBJECT_0) ::TerminateProcess(process_, 3);
  ::CloseHandle(out_);
  ::CloseHandle(process_);
}

std::string HostProcess::ReadLine() {
  const DWORD begin = ::GetTickCount();
  for (;;) {
    const std::size_t end = read_.find('\n');
    if (end != read_.npos) {
      const std::string line = read_.substr(0, end);
      read_.erase(0, end + 1);
      return line;
    }
    DWORD there = 0;
    if (!::PeekNamedPipe(out_, nullptr, 0, nullptr, &there, nullptr) || ::GetTickCount() - begin > kPatience) {
      return "gone";
    }
    if (there == 0) {
      ::Sleep(kPause);
      continue;
    }
    char buffer[4096];
    DWORD length = 0;
    ::ReadFile(out_, buffer, sizeof(buffer), &length, nullptr);
    for (DWORD i = 0; i < length; ++i) {
      if (buffer[i] != '\r') read_ += buffer[i];
    }
  }
}

std::string HostProcess::Ask(const std::string& line) {
  DWORD written = 0;
  const std::string sent = line + "\n";
  ::WriteFile(in_, sent.data(), static_cast<DWORD>(sent.size()), &written, nullptr);
  std::string answer;
  for (;;) {
    const std::string next = ReadLine();
    answer += next;
    if (next == "gone" || next == "ok" || next.starts_with("ok ") || next.starts_with("error ")) return answer;
    answer += '\n';
  }
}

std::string HostProcess::AskUntil(const std::string& line, const std::function<bool(const std::string&)>& wanted) {
  const DWORD begin = ::GetTickCount();
  for (;;) {
    std::string answer = Ask(line);
    if (wanted(answer) || answer == "gone" || ::GetTickCount() - begin > kPatience) return answer;
    ::Sleep(kPause);
  }
}

std::string HostProcess::AskFor(const std::string& line, const std::string& wanted) {
  return AskUntil(line, [&](const std::string& answer) { return answer == wanted; });
}

}  // namespace quorvane::test
