#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "addin/core/Counted.h"
#include "base/Event.h"

namespace quorvane {

class IResultPage;

/// Key of the tab after all page tabs; no page stands under it.
inline constexpr std::u16string_view kAddNewTab = u"AddNewTab";

/// The pages by key, in the order of their making, which is that of their tabs. Keys are compared without regard to the
/// case of ASCII letters.
class PageCollection : private Counted<PageCollection> {
 public:
  static constexpr std::string_view ClassName = "PageCollection";

  /// A key, or a 1-based position.
  using Index = std::variant<std::u16string, std::int32_t>;

  PageCollection();
  ~PageCollection();

  /// Stores `p` under `key`, then tells it the key. Error 457 for a key that is there.
  void Add(const std::shared_ptr<IResultPage>& p, const std::u16string& key);
  /// TearDown of the page, out of the collection, then ItemRemoved. `bPassive`: the tab control removes the tab by
  /// itself. The key of the tab after all pages is passed over. Errors as with Item.
  void Remove(const Index& key, bool bPassive = false);
  /// Removes every page with another key.
  void RemoveExcept(std::u16string_view key);
  /// Removes the first page, as many times as there are pages at the start.
  void RemoveAll();
  /// Error 5 for a key that is not there, 9 for a position outside the list.
  const std::shared_ptr<IResultPage>& Item(const Index& index) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(pages_.size()); }

  /// NewEnum: walks the pages from first to last.
  auto begin() const { return pages_.begin(); }
  auto end() const { return pages_.end(); }

  Event<const Index&, bool> ItemRemoved;  ///< key as Remove was given it, bPassive; the page has gone

 private:
  std::size_t Position(const Index& index) const;
  std::size_t PositionOfKey(std::u16string_view key) const;

  std::vector<std::shared_ptr<IResultPage>> pages_;
};

}  // namespace quorvane
