// A fault can hit while the allocator or the toolkit is half way through a change, so nothing of this process may be
// used to ask the user: the question is another program, started and waited for with nothing but system calls that are
// safe in a signal handler. The three answers can do this much here:
//   Abort   hands the signal to whoever had it before, as a rule the system: the process ends by it, with a core where
//           the limits of the user allow one. It does not matter whether the instruction would fault again.
//   Retry   runs the faulting instruction again. That helps only when something outside has changed meanwhile, such as
//           a debugger that was attached; else the same question comes again.
//   Ignore  would go on one byte further, in the middle of an instruction. What runs there is anybody's guess and could
//           damage the user's files, so that this platform does not resume there and ends the process as Abort does.
#include "native/system/FaultFilter.h"

#include <signal.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <utility>

#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr std::array kSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL};
constexpr std::size_t kStackSize = std::size_t{256} * 1024;
constexpr int kAbort = 3;
constexpr int kRetry = 4;
constexpr int kIgnore = 5;
constexpr int kNoQuestion = 127;

/// Text in UTF-8 in a buffer that exists before the fault; too long a text is cut.
class FixedText {
 public:
  void Assign(std::u16string_view text) noexcept {
    size_ = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      char32_t c = text[i];
      if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
        c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
      }
      if (!Append(c)) break;
    }
    bytes_[size_] = '\0';
  }
  void Assign(int number) noexcept {
    const auto result = std::to_chars(bytes_.data(), bytes_.data() + bytes_.size() - 1, number);
    *result.ptr = '\0';
    size_ = static_cast<std::size_t>(result.ptr - bytes_.data());
  }
  char* Bytes() noexcept { return bytes_.data(); }
  std::size_t Size() const noexcept { return size_; }

 private:
  bool Append(char32_t c) noexcept {
    if (size_ + 4 >= bytes_.size()) return false;
    const int further = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0x00, 0xC0, 0xE0, 0xF0};
    Put(kLead[further] | c >> (6 * further));
    for (int left = further; left-- > 0;) Put(0x80 | (c >> (6 * left) & 0x3F));
    return true;
  }
  void Put(char32_t byte) noexcept { bytes_[size_++] = static_cast<char>(byte); }

  std::array<char, 1024> bytes_{};
  std::size_t size_ = 0;
};

std::atomic<UnhandledExceptionFilter> inForce = nullptr;
std::array<struct sigaction, kSignals.size()> before;  // filled while a filter is in force
alignas(16) std::array<char, kStackSize> stack;
stack_t stackBefore{};
FixedText boxText;
FixedText boxFlags;
FixedText boxCaption;

std::uintptr_t InstructionPointer([[maybe_unused]] void* context) {
#if defined(__x86_64__)
  return static_cast<std::uintptr_t>(static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RIP]);
#elif defined(__i386__)
  return static_cast<std::uintptr_t>(static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EIP]);
#elif defined(__aarch64__)
  return static_cast<std::uintptr_t>(static_cast<ucontext_t*>(context)->uc_mcontext.pc);
#else
  return 0;
#endif
}

/// Gives the signal back to whoever had it. It comes again with all that is known of it as soon as this handler is
/// left.
void PassOn(int signal, siginfo_t* info) {
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    if (kSignals[i] == signal) sigaction(signal, &before[i], nullptr);
  }
  if (syscall(SYS_rt_tgsigqueueinfo, getpid(), gettid(), signal, info) != 0) raise(signal);
}

void OnSignal(int signal, siginfo_t* info, void* context) {
  const int savedError = errno;
  const bool fault = info->si_code > 0;  // else another process, or raise, sent it: there is nothing to run again
  const UnhandledExceptionFilter filter = inForce.load();
  FaultContext state{InstructionPointer(context)};
  const std::uintptr_t place = state.InstructionPointer;
  ExceptionPointers pointers{signal, &state};
  const bool resume = fault && filter != nullptr && filter(&pointers) == kExceptionContinueExecution &&
                      state.InstructionPointer == place;
  if (!resume) PassOn(signal, info);
  errno = savedError;
}

void TakeSignals() {
  stack_t own{};
  own.ss_sp = stack.data();
  own.ss_size = stack.size();
  sigaltstack(&own, &stackBefore);
  struct sigaction action {};
  action.sa_sigaction = &OnSignal;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (const int signal : kSignals) sigaddset(&action.sa_mask, signal);  // a fault in the handler ends the process
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &action, &before[i]);
}

void GiveSignalsBack() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
  sigaltstack(&stackBefore, nullptr);
}

pid_t SafeFork() {
#if defined(__GLIBC__) && __GLIBC_PREREQ(2, 34)
  return _Fork();  // unlike fork, runs nothing that others have registered
#else
  return fork();
#endif
}

void Complain() {
  const std::array lines = {iovec{boxCaption.Bytes(), boxCaption.Size()}, iovec{const_cast<char*>("\n"), 1}};
  [[maybe_unused]] const ssize_t written = writev(STDERR_FILENO, lines.data(), static_cast<int>(lines.size()));
}

int StatusOf(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return kNoQuestion;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : kNoQuestion;
}

}  // namespace

FaultFilter::FaultFilter(std::vector<std::string> question) : question_(std::move(question)) {
  for (std::string& argument : question_) arguments_.push_back(argument.data());
  for (char* argument : {boxText.Bytes(), boxFlags.Bytes(), boxCaption.Bytes()}) arguments_.push_back(argument);
  arguments_.push_back(nullptr);
}

FaultFilter::~FaultFilter() {
  SetUnhandledExceptionFilter(nullptr);
}

UnhandledExceptionFilter FaultFilter::SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) {
  const UnhandledExceptionFilter old = inForce.exchange(filter);
  if (filter != nullptr && old == nullptr) TakeSignals();
  if (filter == nullptr && old != nullptr) GiveSignalsBack();
  return old;
}

int FaultFilter::FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept {
  boxText.Assign(text);
  boxFlags.Assign(flags);
  boxCaption.Assign(caption);
  if (question_.empty()) {
    Complain();
    return kAbort;
  }
  const pid_t process = SafeFork();
  if (process == 0) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execve(arguments_.front(), arguments_.data(), environ);
    _exit(kNoQuestion);
  }
  const int answer = process < 0 ? kNoQuestion : StatusOf(process);
  return answer == kRetry || answer == kIgnore ? answer : kAbort;
}

}  // namespace quorvane::native
