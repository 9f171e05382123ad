#include "cli/StylesheetFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>

#include "base/Error.h"
#include "base/Text.h"
#include "native/CodePages.h"
#include "platform/CodePage.h"

namespace quorvane::cli {

namespace {

constexpr std::size_t kDeclarationSearched = 200;  // bytes; a declaration stands at the very start

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
  RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8(path + ": " + reason));
}

std::string ReadBytes(const std::string& path) {
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file.is_open() || file.bad() || errno == EISDIR) Fail(path, std::strerror(errno != 0 ? errno : EIO));
  return bytes;
}

std::u16string DecodeUtf16(std::string_view bytes, bool bigEndian) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
  }
  return text;
}

/// The encoding that the XML declaration names; UTF-8 without one.
std::string DeclaredEncoding(const std::string& bytes) {
  static const std::regex declaration(R"(^\s*<\?xml[^>]*\bencoding\s*=\s*["']([A-Za-z0-9._-]+)["'])");
  std::smatch match;
  const std::string head = bytes.substr(0, kDeclarationSearched);
  return std::regex_search(head, match, declaration) ? match[1].str() : "UTF-8";
}

}  // namespace

std::u16string ReadStylesheet(const std::string& path) {
  const std::string bytes = ReadBytes(path);
  if (bytes.starts_with("\xFF\xFE")) return DecodeUtf16(std::string_view(bytes).substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return DecodeUtf16(std::string_view(bytes).substr(2), true);
  const bool marked = bytes.starts_with("\xEF\xBB\xBF");
  std::u16string text;
  try {
    const auto page = native::NewCodePage(marked ? "UTF-8" : DeclaredEncoding(bytes));
    page->Decode(std::string_view(bytes).substr(marked ? 3 : 0), text);
  } catch (const Error& error) {
    Fail(path, error.what());
  }
  return text;
}

}  // namespace quorvane::cli
