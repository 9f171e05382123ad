#include "cli/StylesheetFile.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "native/files/FileBytes.h"
#include "platform/CodePage.h"

namespace quorvane::cli {

namespace {

constexpr std::size_t kDeclarationSearched = 200;  // bytes; a declaration stands at the very start

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
  RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8(path + ": " + reason));
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
  const std::string fallback = "UTF-8";
  const std::string_view head = std::string_view(bytes).substr(0, kDeclarationSearched);
  const std::string_view declaration = head.substr(0, head.find('>'));
  if (!declaration.starts_with("<?xml")) return fallback;
  const std::size_t name = declaration.find("encoding");
  if (name == declaration.npos) return fallback;
  const std::size_t open = declaration.find_first_of("\"'", name);
  if (open == declaration.npos) return fallback;
  const std::size_t close = declaration.find(declaration[open], open + 1);
  if (close == declaration.npos) return fallback;
  return std::string(declaration.substr(open + 1, close - open - 1));
}

}  // namespace

std::u16string ReadStylesheet(const std::string& path) {
  const native::FileBytes file = native::ReadFileBytes(path);
  if (file.error != 0) Fail(path, native::ErrnoText(file.error));
  const std::string& bytes = file.bytes;
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
