#include <gtest/gtest.h>

#include "addin/core/Utilities.h"
#include "platform/forms/OptionGroup.h"
#include "support/SearchFixture.h"

namespace quorvane::test {

class TextUtilitiesTest : public SearchFixture {
 protected:
  Utilities& It() { return *Globals::gobjUtilities; }
};

TEST_F(TextUtilitiesTest, ReplaceSpecialChar) {
  for (const Row& row : Rows("core/TextUtilities.rows", "Escapes")) {
    EXPECT_EQ(It().ReplaceSpecialChar(row.Text(0)), row.Text(1)) << row.Where();
    std::vector<std::string> vanishing;
    for (const std::u16string& escape : It().VanishingEscapes(row.Text(0))) vanishing.push_back(ToUtf8(escape));
    EXPECT_EQ(vanishing, row.List(2)) << row.Where();
  }
}

TEST_F(TextUtilitiesTest, NormalComponents) {
  Open(Group{}
           .Module(u"Code", u"x")
           .Module(u"Bare", u"")
           .Form(u"Form", u"")
           .Resource(u"Res")
           .RelatedDocument(u"Doc")
           .Class(u"Cls", u"\r\n"));
  std::vector<std::string> normal;
  for (const auto& component : host->Projects()[0]->Components()) {
    if (It().IsNormalComp(*component)) normal.push_back(ToUtf8(component->Name()));
  }
  EXPECT_EQ(Join(normal), "Code\nCls");
  EXPECT_EQ(It().GetModuleCount(*host->Projects()[0]), 2);
}

TEST_F(TextUtilitiesTest, GetOptionIndex) {
  forms::OptionGroup group;
  EXPECT_EQ(It().GetOptionIndex(group), 0);
  for (const std::int16_t index : std::initializer_list<std::int16_t>{3, 0, 7}) group.Add(index);
  EXPECT_EQ(It().GetOptionIndex(group), 0);
  group.SetValue(7, true);
  EXPECT_EQ(It().GetOptionIndex(group), 7);
  group.SetValue(0, true);
  EXPECT_EQ(It().GetOptionIndex(group), 0);
}

TEST(UtilitiesWide, GetStrAsc) {
  SearchWorld world("932");
  Utilities& it = *Globals::gobjUtilities;
  EXPECT_EQ(it.GetStrAsc(u""), u"");
  EXPECT_EQ(it.GetStrAsc(u"Aｱ漢"), u"[1,65] [2,177] [3,-30017] ") << "漢 is 0x8ABF, signed 16-bit";
}

TEST_F(TextUtilitiesTest, MinAndMaxTakeTheFirstAmongEquals) {
  EXPECT_EQ(Utilities::Min({3, 1, 2}), 1);
  EXPECT_EQ(Utilities::Max({3, 1, 4}), 4);
  struct Tagged {
    int value;
    int tag;
    bool operator<(const Tagged& other) const { return value < other.value; }
  };
  EXPECT_EQ(Utilities::Min<Tagged>({{1, 1}, {1, 2}}).tag, 1);
  EXPECT_EQ(Utilities::Max<Tagged>({{1, 1}, {1, 2}}).tag, 1);
}

}  // namespace quorvane::test
