#include <gtest/gtest.h>

#include <memory>

#include "base/Text.h"
#include "native/regexp/PcreRegExp.h"
#include "support/Raised.h"
#include "support/Rows.h"

namespace quorvane::native {
namespace {

/// Flags: g global, m multi-line, i no case.
std::unique_ptr<RegExp> Make(std::u16string_view pattern, std::string_view flags) {
  auto regExp = std::make_unique<PcreRegExp>();
  regExp->Pattern = pattern;
  regExp->Global = flags.find('g') != flags.npos;
  regExp->Multiline = flags.find('m') != flags.npos;
  regExp->IgnoreCase = flags.find('i') != flags.npos;
  return regExp;
}

/// "0+2 5+0": first index and length of each match.
std::string Matches(std::u16string_view pattern, std::string_view flags, std::u16string_view text) {
  const std::unique_ptr<RegExp> regExp = Make(pattern, flags);
  std::string list;
  for (const RegExpMatch& match : regExp->Execute(text)) {
    if (!list.empty()) list += ' ';
    list += std::to_string(match.FirstIndex) + '+' + std::to_string(match.Length);
  }
  return list;
}

TEST(RegExpTest, Matches) {
  for (const char* table :
       {"EmptyMatchesAndGlobal", "LineBreaks", "Case", "EscapesAndLiterals", "GroupsAndReferences"}) {
    for (const test::Row& row : test::Rows("native/RegExp.rows", table)) {
      EXPECT_EQ(Matches(row.Text(0), row.Bytes(1), row.Text(2)), row.Bytes(3)) << row.Where();
    }
  }
}

TEST(RegExpTest, ShorthandsAreAscii) {
  const std::u16string_view text = u"aZ_5é中\u00a0\u3000 \t\v\f";
  for (const test::Row& row : test::Rows("native/RegExp.rows", "ShorthandsAreAscii")) {
    for (const std::string_view flags : {"g", "gi"}) {
      EXPECT_EQ(Matches(row.Text(0), flags, text), row.Bytes(1)) << row.Where();
      // The alternative makes the engine know all letters.
      EXPECT_EQ(Matches(row.Text(0) + u"|é{9}", flags, text), row.Bytes(1)) << row.Where();
    }
  }
}

TEST(RegExpTest, Replace) {
  for (const test::Row& row : test::Rows("native/RegExp.rows", "Replace")) {
    EXPECT_EQ(Make(row.Text(0), row.Bytes(1))->Replace(row.Text(2), row.Text(3)), row.Text(4)) << row.Where();
  }
}

TEST(RegExpTest, SyntaxErrors) {
  for (const test::Row& row : test::Rows("native/RegExp.rows", "SyntaxErrors")) {
    const std::unique_ptr<RegExp> regExp = Make(row.Text(0), "g");
    const auto error = test::Raised([&] { regExp->Test(u"a"); });
    EXPECT_TRUE(error == row.Number(1) && error.Says(row.Bytes(2))) << row.Where() << " gives " << error;
  }
}

TEST(RegExpTest, PropertiesMayChangeBetweenCalls) {
  const std::unique_ptr<RegExp> regExp = Make(u"a$", "");
  EXPECT_FALSE(regExp->Test(u"A\r\n"));
  regExp->Multiline = true;
  EXPECT_FALSE(regExp->Test(u"A\r\n"));
  regExp->IgnoreCase = true;
  EXPECT_TRUE(regExp->Test(u"A\r\n"));
  regExp->Pattern = u"(";
  EXPECT_THROW(regExp->Test(u"A"), Error);
  EXPECT_THROW(regExp->Test(u"A"), Error);
  regExp->Pattern = u"A.";
  EXPECT_TRUE(regExp->Test(u"ab"));
  EXPECT_FALSE(regExp->Test(u"a\u2028"));
}

std::u16string Lines(std::size_t count, std::u16string_view line) {
  std::u16string text;
  for (std::size_t i = 0; i < count; ++i) text.append(line).append(kCrLf);
  return text;
}

TEST(RegExpTest, MatchesAnywhereInALongText) {
  for (std::size_t place = 0; place < 2000; ++place) {
    ASSERT_EQ(Matches(u"a|^$", "g", std::u16string(place, u'b') + u"a"), std::to_string(place) + "+1");
  }
}

TEST(RegExpTest, ExplosionsEndWithAnError) {
  const std::u16string longLine = std::u16string(20'000, u'a') + u"!";
  const std::u16string manyLines = Lines(40'000, std::u16string(25, u'a'));
  struct Case {
    std::u16string_view Pattern;
    const std::u16string& Text;
  };
  const Case cases[] = {{u"(a+)+$", longLine},
                        {u"(a|aa)+$", longLine},
                        {u"(a+)+[bc]", manyLines},
                        {u"a*a*a*a*[bc]", longLine},
                        {u"(x+x+)+y|(a|a)*$", longLine}};
  for (const Case& c : cases) {
    for (const std::string_view flags : {"g", "gm"}) {
      if (flags == "gm" && &c.Text == &manyLines && c.Pattern.back() == u'$') continue;
      const std::unique_ptr<RegExp> regExp = Make(c.Pattern, flags);
      const auto error = test::Raised([&] { regExp->Execute(c.Text); });
      EXPECT_TRUE(error == 28 && error.Says(ToUtf8(c.Pattern))) << error;
      EXPECT_EQ(regExp->Execute(u"xxxy").size() > 3, false);  // the object can be used again
    }
  }
}

TEST(RegExpTest, ManyShortTextsShareOneBudget) {
  const std::unique_ptr<RegExp> regExp = Make(u"(a+)+[bc]", "g");
  const auto search = [&] {
    for (int line = 0; line < 40'000; ++line) regExp->Test(u"aaaaaaaaaaaaaaaaaaaaaa");
  };
  EXPECT_THROW(search(), Error);
}

TEST(RegExpTest, LegitimatePatternsOverLongTextsFinish) {
  const std::u16string text = Lines(40'000, u"  Call Foo(strName, lngCount)  ' x") + u"End Sub\r\n";
  const std::size_t units = text.size();
  const auto length = [](std::size_t n) { return "0+" + std::to_string(n); };
  EXPECT_EQ(Matches(u"[\\s\\S]*End Sub", "g", text), length(units - 2));
  EXPECT_EQ(Matches(u"(?:.|\\r\\n)*End", "g", text), length(units - 6));
  EXPECT_EQ(Matches(u"(?:.|\\r|\\n)*?End", "g", text), length(units - 6));
  EXPECT_EQ(Matches(u"([^x]|x)*End", "gm", text), length(units - 6));
  EXPECT_EQ(Matches(u"[\\s\\S]*x[qz]", "g", text), "");
  EXPECT_EQ(Make(u"^(.*?),(.*?)'(.*)$", "gm")->Execute(text).size(), 40'000U);
  EXPECT_EQ(Make(u"(\\w+), \\w+\\)\\s*'", "gi")->Execute(text).size(), 40'000U);
}

TEST(RegExp, TextsThatEveryMatchHolds) {
  for (const test::Row& row : test::Rows("native/RegExp.rows", "TextsThatEveryMatchHolds")) {
    PcreRegExp regExp;
    regExp.Pattern = row.Text(0);
    regExp.IgnoreCase = row.Bytes(2) == "i";
    EXPECT_EQ(regExp.RequiredTexts(), row.List(1)) << row.Where();
  }
}

}  // namespace
}  // namespace quorvane::native
