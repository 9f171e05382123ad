#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::native {

/// The text of an INI file as bytes. What is not changed keeps its bytes: comments, blank lines, order, line ends.
/// Sections and keys are found in any case of their ASCII letters; of several of one name the first counts.
class IniText {
 public:
  explicit IniText(std::string_view bytes);

  std::string Bytes() const;

  /// Without the blanks around it and without one pair of quotes.
  std::optional<std::string> Get(std::string_view section, std::string_view key) const;
  /// Makes what is missing.
  void Set(std::string_view section, std::string_view key, std::string_view value);
  /// Does nothing when there is no such key or section.
  void RemoveKey(std::string_view section, std::string_view key);
  void RemoveSection(std::string_view section);

 private:
  struct Line {
    std::string text;
    std::string end;
  };
  /// Half-open, 0-based; the header is the line before `first`.
  struct Range {
    std::size_t first;
    std::size_t last;
  };

  std::optional<Range> Section(std::string_view name) const;
  std::optional<std::size_t> Key(std::string_view section, std::string_view key) const;
  void Insert(std::size_t place, const std::string& text);

  std::vector<Line> lines_;
  std::string usualEnd_ = "\r\n";
};

}  // namespace quorvane::native
