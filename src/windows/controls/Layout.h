#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// Something that takes a place in a window. Sizes and places are in pixels, places in the window that it lies in.
class Placeable {
 public:
  virtual ~Placeable() = default;

  /// The room that it needs.
  virtual SIZE Least() const = 0;
  /// `room` is at least that.
  virtual void Place(const RECT& room) = 0;
};

/// How one thing uses more room than it needs. Without stretch it gets no more along the stack; across, it fills what
/// the others need unless it stays small.
struct Fit {
  int Stretch = 0;
  bool StaysSmall = false;  ///< keeps its size across the stack, in the middle of a row, at the left of a column
};

/// Things one beside the other or one below the other, the gap between them. What it does not own outlives it.
class Stack final : public Placeable {
 public:
  enum class Direction { Across, Down };

  Stack(Direction direction, int gap) : direction_(direction), gap_(gap) {}

  Stack& Add(Placeable& item, Fit fit = {});
  Stack& Add(std::unique_ptr<Placeable> item, Fit fit = {});
  /// Empty room that takes what is left over.
  Stack& AddStretch();
  /// Room around all, inside this.
  Stack& SetMargins(const RECT& margins);

  SIZE Least() const override;
  void Place(const RECT& room) override;

 private:
  struct Item {
    Placeable* placed;  ///< nothing for empty room
    std::unique_ptr<Placeable> owned;
    Fit fit;
  };
  LONG Along(SIZE size) const { return direction_ == Direction::Across ? size.cx : size.cy; }
  LONG AcrossOf(SIZE size) const { return direction_ == Direction::Across ? size.cy : size.cx; }
  RECT RoomOf(const RECT& inside, LONG start, LONG length, SIZE least, const Fit& fit) const;
  LONG Gaps() const;

  Direction direction_;
  int gap_;
  RECT margins_{};
  std::vector<Item> items_;
};

/// Things in rows and columns; the last column takes the room that is left over across.
class Grid final : public Placeable {
 public:
  Grid(int gapAcross, int gapDown) : gapAcross_(gapAcross), gapDown_(gapDown) {}

  /// Each row has as many as the first.
  Grid& AddRow(std::initializer_list<Placeable*> row);

  SIZE Least() const override;
  void Place(const RECT& room) override;

 private:
  LONG WidthOf(std::size_t column) const;
  static LONG HeightOf(const std::vector<Placeable*>& row);

  int gapAcross_;
  int gapDown_;
  std::vector<std::vector<Placeable*>> rows_;
};

inline std::unique_ptr<Stack> MakeRow(int gap) {
  return std::make_unique<Stack>(Stack::Direction::Across, gap);
}
inline std::unique_ptr<Stack> MakeColumn(int gap) {
  return std::make_unique<Stack>(Stack::Direction::Down, gap);
}

}  // namespace quorvane::windows
