#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// An open key of the registry, with text values. What fails raises an error that names the key.
class RegistryNode {
 public:
  /// Nothing when there is no such key.
  static std::optional<RegistryNode> Open(HKEY root, const std::u16string& path);
  /// Makes what is missing of the path.
  static RegistryNode Create(HKEY root, const std::u16string& path);
  /// With all that lies below; one that is not there is gone already.
  static void DeleteTree(HKEY root, const std::u16string& path);

  RegistryNode(RegistryNode&& other) noexcept
      : key_(std::exchange(other.key_, nullptr)), path_(std::move(other.path_)) {}
  RegistryNode& operator=(RegistryNode&&) = delete;
  ~RegistryNode();

  /// Names and texts; values of other types are passed over.
  std::vector<std::pair<std::u16string, std::u16string>> Texts() const;
  std::vector<std::u16string> SubKeys() const;
  /// Any text is kept exactly, zeros included.
  void SetText(const std::u16string& name, const std::u16string& text);
  void Delete(const std::u16string& name);
  /// What was written is on the disk when this returns.
  void Flush();

 private:
  RegistryNode(HKEY key, std::u16string path) : key_(key), path_(std::move(path)) {}

  HKEY key_;
  std::u16string path_;
};

}  // namespace quorvane::windows
