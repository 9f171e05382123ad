#include <gtest/gtest.h>

#include "addin/core/StringCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "support/Rows.h"

namespace quorvane::test {

namespace {

void Fill(StringCollection& list, const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) list.Add(FromUtf8(entry));
}

std::vector<std::string> Entries(const StringCollection& list) {
  std::vector<std::string> entries;
  for (const std::u16string& entry : list) entries.push_back(ToUtf8(entry));
  return entries;
}

}  // namespace

TEST(StringCollection, Join) {
  for (const Row& row : Rows("core/StringCollection.rows", "Join")) {
    StringCollection list;
    Fill(list, row.List(0));
    const auto count = row.Bytes(2).empty() ? std::nullopt : std::optional(row.Number(2));
    EXPECT_EQ(list.Join(row.Text(1), count), row.Text(3)) << row.Where();
  }
  StringCollection empty;
  empty.Add(u"");
  EXPECT_EQ(empty.Join(u"--"), u"--") << "no longer than the splitter: it stays";
  StringCollection sixty;
  for (int i = 0; i < 60; ++i) sixty.Add(u"x");
  EXPECT_EQ(sixty.Join(u"|", 50).size(), 99u) << "no splitter after the last";
}

TEST(StringCollection, AddSplit) {
  for (const Row& row : Rows("core/StringCollection.rows", "AddSplit")) {
    StringCollection list;
    list.Add(u"old");
    list.AddSplit(row.Text(0), row.Text(1));
    EXPECT_EQ(Entries(list), row.List(2)) << row.Where();
  }
}

TEST(StringCollection, RemoveItemAndExists) {
  StringCollection list;
  Fill(list, {"a", "A", "a", "", "a"});
  EXPECT_TRUE(list.Exists(u""));
  EXPECT_FALSE(list.Exists(u"b"));
  list.Remove(u"a");
  EXPECT_EQ(Entries(list), (std::vector<std::string>{"A", ""}));
  EXPECT_EQ(list.Item(2), u"");
  for (const std::int32_t index : {0, 3, -1}) EXPECT_THROW(list.Item(index), Error) << index;
  list.RemoveAll();
  EXPECT_EQ(list.Count(), 0);
}

TEST(StringCollection, FillsAControl) {
  struct Control {
    std::vector<std::string> items{"left over"};
    void Clear() { items.clear(); }
    void AddItem(const std::u16string& item) { items.push_back(ToUtf8(item)); }
  };
  StringCollection list;
  Fill(list, {"b", "a"});
  Control control;
  list.FillList(control);
  EXPECT_EQ(control.items, Entries(list));
}

}  // namespace quorvane::test
