#include "windows/platform/RegistryNode.h"

#include <shlwapi.h>

#include "base/Error.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr DWORD kLongestName = 16384;

void Check(LSTATUS status, const std::u16string& path) {
  if (status == ERROR_SUCCESS) return;
  throw Error(static_cast<std::int32_t>(HRESULT_FROM_WIN32(static_cast<DWORD>(status))),
              u"The registry refuses its key " + path);
}

}  // namespace

std::optional<RegistryNode> RegistryNode::Open(HKEY root, const std::u16string& path) {
  HKEY key = nullptr;
  const LSTATUS status = ::RegOpenKeyExW(root, Wide(path), 0, KEY_READ | KEY_WRITE, &key);
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
  Check(status, path);
  return RegistryNode(key, path);
}

RegistryNode RegistryNode::Create(HKEY root, const std::u16string& path) {
  HKEY key = nullptr;
  Check(::RegCreateKeyExW(root, Wide(path), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr), path);
  return RegistryNode(key, path);
}

void RegistryNode::DeleteTree(HKEY root, const std::u16string& path) {
  const auto status = static_cast<LSTATUS>(::SHDeleteKeyW(root, Wide(path)));
  if (status != ERROR_FILE_NOT_FOUND) Check(status, path);
}

RegistryNode::~RegistryNode() {
  if (key_ != nullptr) ::RegCloseKey(key_);
}

std::vector<std::pair<std::u16string, std::u16string>> RegistryNode::Texts() const {
  DWORD longest = 0;
  Check(::RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &longest,
                           nullptr, nullptr),
        path_);
  std::vector<std::pair<std::u16string, std::u16string>> texts;
  std::u16string name(kLongestName, u'\0');
  std::u16string data(longest / sizeof(char16_t) + 1, u'\0');
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = kLongestName;
    DWORD type = REG_NONE;
    auto size = static_cast<DWORD>(data.size() * sizeof(char16_t));
    const LSTATUS status = ::RegEnumValueW(key_, i, reinterpret_cast<wchar_t*>(name.data()), &nameLength, nullptr,
                                           &type, reinterpret_cast<BYTE*>(data.data()), &size);
    if (status == ERROR_NO_MORE_ITEMS) return texts;
    Check(status, path_);
    if (type != REG_SZ && type != REG_EXPAND_SZ) continue;
    std::u16string text = data.substr(0, size / sizeof(char16_t));
    if (!text.empty() && text.back() == u'\0') text.pop_back();
    texts.emplace_back(name.substr(0, nameLength), std::move(text));
  }
}

std::vector<std::u16string> RegistryNode::SubKeys() const {
  std::vector<std::u16string> keys;
  std::u16string name(kLongestName, u'\0');
  for (DWORD i = 0;; ++i) {
    DWORD length = kLongestName;
    const LSTATUS status =
        ::RegEnumKeyExW(key_, i, reinterpret_cast<wchar_t*>(name.data()), &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_NO_MORE_ITEMS) return keys;
    Check(status, path_);
    keys.push_back(name.substr(0, length));
  }
}

void RegistryNode::SetText(const std::u16string& name, const std::u16string& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
  Check(::RegSetValueExW(key_, Wide(name), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size), path_);
}

void RegistryNode::Delete(const std::u16string& name) {
  const LSTATUS status = ::RegDeleteValueW(key_, Wide(name));
  if (status != ERROR_FILE_NOT_FOUND) Check(status, path_);
}

void RegistryNode::Flush() {
  Check(::RegFlushKey(key_), path_);
}

}  // namespace quorvane::windows
