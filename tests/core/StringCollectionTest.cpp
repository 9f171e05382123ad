#include <gtest/gtest.h>

#include "addin/core/StringCollection.h"
#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::test {

namespace {

void Fill(StringCollection& list, const std::vector<std::u16string>& entries) {
  for (const std::u16string& entry : entries) list.Add(entry);
}

std::vector<std::u16string> Entries(const StringCollection& list) {
  return {list.begin(), list.end()};
}

}  // namespace

TEST(StringCollection, Join) {
  struct Row {
    std::vector<std::u16string> entries;
    std::u16string splitter;
    std::optional<std::int32_t> count;
    std::u16string text;
  };
  const std::vector<Row> rows{
      {{}, u", ", {}, u""},
      {{u"a", u"b", u"c"}, u"\r\n", 50, u"a\r\nb\r\nc"},
      {{u"a", u"b", u"c"}, u"\r\n", 2, u"a\r\nb"},
      {{u"a", u"b"}, u"\r\n", 0, u""},
      {{u"a", u"b"}, u"\r\n", -1, u""},
      {{u"a", u"b"}, u"", {}, u"ab"},
      {{u""}, u"--", {}, u"--"},  // no longer than the splitter: it stays
      {{u"", u""}, u"--", {}, u"--"},
      {{u"", u"a"}, u"-", {}, u"-a"},
  };
  for (const Row& row : rows) {
    StringCollection list;
    Fill(list, row.entries);
    EXPECT_EQ(list.Join(row.splitter, row.count), row.text) << ToUtf8(row.text);
  }
  StringCollection sixty;
  for (int i = 0; i < 60; ++i) sixty.Add(u"x");
  EXPECT_EQ(sixty.Join(u"|", 50).size(), 99u) << "no splitter behind the last";
}

TEST(StringCollection, AddSplit) {
  struct Row {
    std::u16string text;
    std::u16string splitter;
    std::vector<std::u16string> entries;  ///< behind "old"
  };
  const std::vector<Row> rows{
      {u"", u"\r\n", {}},
      {u"a\r\n\r\nb", u"\r\n", {u"a", u"b"}},
      {u"\r\na\r\n", u"\r\n", {u"a"}},
      {u"a\nb", u"\r\n", {u"a\nb"}},
      {u"a b", u"", {u"a b"}},
      {u"", u"", {}},
      {u"xxx", u"xx", {u"x"}},
      {u"aXbxc", u"x", {u"aXb", u"c"}},
  };
  for (const Row& row : rows) {
    StringCollection list;
    list.Add(u"old");
    list.AddSplit(row.text, row.splitter);
    auto expected = row.entries;
    expected.insert(expected.begin(), u"old");
    EXPECT_EQ(Entries(list), expected) << ToUtf8(row.text);
  }
}

TEST(StringCollection, RemoveItemAndExists) {
  StringCollection list;
  Fill(list, {u"a", u"A", u"a", u"", u"a"});
  EXPECT_TRUE(list.Exists(u""));
  EXPECT_FALSE(list.Exists(u"b"));
  list.Remove(u"a");
  EXPECT_EQ(Entries(list), (std::vector<std::u16string>{u"A", u""}));
  EXPECT_EQ(list.Item(2), u"");
  for (const std::int32_t index : {0, 3, -1}) EXPECT_THROW(list.Item(index), Error) << index;
  list.RemoveAll();
  EXPECT_EQ(list.Count(), 0);
}

TEST(StringCollection, FillsAControl) {
  struct Control {
    std::vector<std::u16string> items{u"left over"};
    void Clear() { items.clear(); }
    void AddItem(const std::u16string& item) { items.push_back(item); }
  };
  StringCollection list;
  Fill(list, {u"b", u"a"});
  Control control;
  list.FillList(control);
  EXPECT_EQ(control.items, Entries(list));
}

}  // namespace quorvane::test
