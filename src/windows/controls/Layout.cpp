// Two passes, as layouts of this kind have: from the leaves upwards each says the room it needs, then from the root
// downwards each gets its place. Nothing is remembered between them, since a window has a few dozen controls at most.

#include "windows/controls/Layout.h"

#include <algorithm>

namespace quorvane::windows {

Stack& Stack::Add(Placeable& item, Fit fit) {
  items_.push_back({&item, nullptr, fit});
  return *this;
}

Stack& Stack::Add(std::unique_ptr<Placeable> item, Fit fit) {
  Placeable* placed = item.get();
  items_.push_back({placed, std::move(item), fit});
  return *this;
}

Stack& Stack::AddStretch() {
  items_.push_back({nullptr, nullptr, {.Stretch = 1}});
  return *this;
}

Stack& Stack::SetMargins(const RECT& margins) {
  margins_ = margins;
  return *this;
}

LONG Stack::Gaps() const {
  const auto shown = std::ranges::count_if(items_, [](const Item& item) { return item.placed != nullptr; });
  return static_cast<LONG>(std::max<std::ptrdiff_t>(shown - 1, 0)) * gap_;
}

SIZE Stack::Least() const {
  LONG along = Gaps();
  LONG across = 0;
  for (const Item& item : items_) {
    if (item.placed == nullptr) continue;
    const SIZE least = item.placed->Least();
    along += Along(least);
    across = std::max(across, AcrossOf(least));
  }
  const SIZE inside = direction_ == Direction::Across ? SIZE{along, across} : SIZE{across, along};
  return {inside.cx + margins_.left + margins_.right, inside.cy + margins_.top + margins_.bottom};
}

void Stack::Place(const RECT& room) {
  const RECT inside{room.left + margins_.left, room.top + margins_.top, room.right - margins_.right,
                    room.bottom - margins_.bottom};
  LONG spare = Along({inside.right - inside.left, inside.bottom - inside.top}) - Gaps();
  int stretch = 0;
  for (const Item& item : items_) {
    if (item.placed != nullptr) spare -= Along(item.placed->Least());
    stretch += item.fit.Stretch;
  }
  LONG at = direction_ == Direction::Across ? inside.left : inside.top;
  for (const Item& item : items_) {
    const LONG more = stretch > 0 && spare > 0 ? MulDiv(spare, item.fit.Stretch, stretch) : 0;
    if (item.placed == nullptr) {
      at += more;
      continue;
    }
    const SIZE least = item.placed->Least();
    const LONG length = Along(least) + more;
    item.placed->Place(RoomOf(inside, at, length, least, item.fit));
    at += length + gap_;
  }
}

RECT Stack::RoomOf(const RECT& inside, LONG start, LONG length, SIZE least, const Fit& fit) const {
  if (direction_ == Direction::Across) {
    if (!fit.StaysSmall) return {start, inside.top, start + length, inside.bottom};
    const LONG top = inside.top + (inside.bottom - inside.top - least.cy) / 2;
    return {start, top, start + length, top + least.cy};
  }
  return {inside.left, start, fit.StaysSmall ? inside.left + least.cx : inside.right, start + length};
}

Grid& Grid::AddRow(std::initializer_list<Placeable*> row) {
  rows_.emplace_back(row);
  return *this;
}

LONG Grid::WidthOf(std::size_t column) const {
  LONG width = 0;
  for (const auto& row : rows_) width = std::max(width, row.at(column)->Least().cx);
  return width;
}

LONG Grid::HeightOf(const std::vector<Placeable*>& row) {
  LONG height = 0;
  for (const Placeable* item : row) height = std::max(height, item->Least().cy);
  return height;
}

SIZE Grid::Least() const {
  SIZE size{-gapAcross_, -gapDown_};
  for (std::size_t i = 0; i < rows_.front().size(); ++i) size.cx += WidthOf(i) + gapAcross_;
  for (const auto& row : rows_) size.cy += HeightOf(row) + gapDown_;
  return size;
}

void Grid::Place(const RECT& room) {
  LONG top = room.top;
  for (const auto& row : rows_) {
    const LONG height = HeightOf(row);
    LONG left = room.left;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool last = i + 1 == row.size();
      const LONG width = last ? room.right - left : WidthOf(i);
      const LONG own = row[i]->Least().cy;
      const LONG down = (height - own) / 2;
      row[i]->Place({left, top + down, left + width, top + down + own});
      left += width + gapAcross_;
    }
    top += height + gapDown_;
  }
}

}  // namespace quorvane::windows
