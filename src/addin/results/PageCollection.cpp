#include "addin/results/PageCollection.h"

#include <algorithm>

#include "addin/results/IResultPage.h"
#include "base/Error.h"
#include "base/Text.h"

namespace quorvane {

PageCollection::PageCollection() = default;
PageCollection::~PageCollection() = default;

void PageCollection::Add(const std::shared_ptr<IResultPage>& p, const std::u16string& key) {
  Deref(p);
  if (PositionOfKey(key) < pages_.size()) {
    RaiseError(ErrorNumber::DuplicateKey, ErrorText(ErrorNumber::DuplicateKey) + u": page " + key);
  }
  pages_.push_back(p);
  p->SetKey(key);
}

void PageCollection::Remove(const Index& key, bool bPassive) {
  const Index removed = key;  // the caller's may belong to the page that goes
  if (const auto* name = std::get_if<std::u16string>(&removed); name != nullptr && *name == kAddNewTab) return;
  const std::shared_ptr<IResultPage> page = Item(removed);
  page->TearDown();
  std::erase(pages_, page);
  ItemRemoved.Raise(removed, bPassive);
}

void PageCollection::RemoveExcept(std::u16string_view key) {
  const std::u16string kept(key);
  const auto pages = pages_;
  for (const auto& page : pages) {
    if (page->Key() != kept) Remove(page->Key());
  }
}

void PageCollection::RemoveAll() {
  for (std::int32_t left = Count(); left > 0; --left) Remove(1);
}

const std::shared_ptr<IResultPage>& PageCollection::Item(const Index& index) const {
  return pages_[Position(index)];
}

std::size_t PageCollection::Position(const Index& index) const {
  if (const auto* position = std::get_if<std::int32_t>(&index)) {
    if (*position < 1 || *position > Count()) {
      RaiseError(ErrorNumber::SubscriptOutOfRange, ErrorText(ErrorNumber::SubscriptOutOfRange) + u": page");
    }
    return static_cast<std::size_t>(*position) - 1;
  }
  const std::size_t position = PositionOfKey(std::get<std::u16string>(index));
  if (position == pages_.size()) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"There is no page " + std::get<std::u16string>(index));
  }
  return position;
}

std::size_t PageCollection::PositionOfKey(std::u16string_view key) const {
  const auto found =
      std::ranges::find_if(pages_, [&](const auto& page) { return EqualsNoCaseAscii(page->Key(), key); });
  return static_cast<std::size_t>(found - pages_.begin());
}

}  // namespace quorvane
