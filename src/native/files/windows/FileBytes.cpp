#include "native/files/FileBytes.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "native/files/windows/HandleStamp.h"
#include "native/files/windows/WideFile.h"

namespace quorvane::native {

namespace {

bool IsFolder(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(WidePath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// `length` becomes what there was.
int ReadAll(HANDLE file, char* bytes, std::size_t& length) {
  constexpr std::size_t kPiece = std::size_t{1} << 24;
  std::size_t done = 0;
  while (done < length) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(length - done, kPiece));
    if (ReadFile(file, bytes + done, wanted, &count, nullptr) == 0) return LastErrno();
    if (count == 0) break;  // the file has become shorter
    done += count;
  }
  length = done;
  return 0;
}

}  // namespace

FileRead ReadFileInto(const std::string& path, std::string& buffer) {
  FileRead file;
  const WideHandle opened(path, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
  if (!opened.IsOpen()) {
    file.error = IsFolder(path) ? EISDIR : LastErrno();
    return file;
  }
  const bool plain = GetFileType(opened.Handle()) == FILE_TYPE_DISK;
  const auto stamp = plain ? StampOf(opened.Handle()) : std::nullopt;
  if (!stamp) {
    file.error = kNotRegularFile;
  } else if (stamp->size >= std::numeric_limits<std::int32_t>::max()) {
    file.error = EFBIG;
  } else {
    file.stamp = *stamp;
    file.length = static_cast<std::size_t>(stamp->size);
    if (buffer.size() < file.length) buffer.resize(file.length);
    file.error = ReadAll(opened.Handle(), buffer.data(), file.length);
  }
  return file;
}

}  // namespace quorvane::native
