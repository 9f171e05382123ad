// A console takes text, and whole characters only: it gets whole lines. Anything else takes the bytes, without a CR
// before each line feed.
#include "cli/RawOutput.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>

#include "base/FilePath.h"
#include "base/Text.h"

namespace quorvane::cli {

namespace {

constexpr DWORD kColours = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which older headers lack

HANDLE HandleOf(int file) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(file));
}

bool IsConsole(int file) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(file), &mode) != 0;
}

int WriteToConsole(HANDLE console, std::string_view bytes) {
  constexpr std::size_t kPiece = 8192;  // units; a console takes no more than 64 KB at once
  const std::u16string text = FromUtf8(bytes);
  for (std::size_t at = 0; at < text.size(); at += kPiece) {
    const auto count = static_cast<DWORD>(std::min(kPiece, text.size() - at));
    DWORD written = 0;
    if (WriteConsoleW(console, text.data() + at, count, &written, nullptr) == 0) return EIO;
  }
  return 0;
}

}  // namespace

RawOutput::RawOutput(int file) : file_(file) {
  _setmode(file_, _O_BINARY);
}

RawOutput::~RawOutput() {
  if (!held_.empty()) WriteToConsole(HandleOf(file_), held_);
  if (file_ > kStandardError) _close(file_);
}

int RawOutput::Open(const std::string& path) {
  file_ = _wopen(FilePath(path).c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
  return file_ < 0 ? errno : 0;
}

int RawOutput::Write(std::string_view bytes) {
  if (IsConsole(file_)) {
    held_ += bytes;
    const std::size_t end = held_.rfind('\n') + 1;
    const int error = WriteToConsole(HandleOf(file_), std::string_view(held_).substr(0, end));
    held_.erase(0, end);
    return error;
  }
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(bytes.size());
    if (WriteFile(HandleOf(file_), bytes.data(), count, &written, nullptr) == 0) {
      const DWORD error = GetLastError();
      if (error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA) return EPIPE;
      return error == ERROR_DISK_FULL ? ENOSPC : EIO;
    }
    bytes.remove_prefix(written);
  }
  return 0;
}

bool RawOutput::IsTerminal() const {
  DWORD mode = 0;
  const HANDLE console = HandleOf(file_);
  return GetConsoleMode(console, &mode) != 0 && SetConsoleMode(console, mode | kColours) != 0;
}

}  // namespace quorvane::cli
