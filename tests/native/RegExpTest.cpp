#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/Error.h"
#include "base/Text.h"
#include "native/regexp/PcreRegExp.h"

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

struct MatchCase {
  std::u16string_view Pattern;
  std::string_view Flags;
  std::u16string_view Text;
  std::string_view Expected;
};

void Check(std::initializer_list<MatchCase> cases) {
  for (const MatchCase& c : cases) {
    EXPECT_EQ(Matches(c.Pattern, c.Flags, c.Text), c.Expected)
        << ToUtf8(c.Pattern) << " /" << c.Flags << " on " << ToUtf8(c.Text);
  }
}

TEST(RegExpTest, EmptyMatchesAndGlobal) {
  Check({
      {u"a*", "g", u"baac", "0+0 1+2 3+0 4+0"},
      {u"", "g", u"a\r\nb", "0+0 1+0 2+0 3+0 4+0"},
      {u"", "g", u"", "0+0"},
      {u"a", "", u"xaa", "1+1"},
      {u"b|", "g", u"ab", "0+0 1+1 2+0"},
      {u"(?:a|)a+a", "g", u"-aa", "1+2"},
      {u"(?:\\d|)\\d+\\d", "g", u"x12", "1+2"},
      {u"z", "g", u"", ""},
  });
}

TEST(RegExpTest, LineBreaks) {
  Check({
      {u"^", "gm", u"a\r\nb\r\n", "0+0 3+0 6+0"},
      {u"$", "gm", u"a\r\nb\r\n", "1+0 4+0 6+0"},
      {u"^", "gm", u"a\rb\nc\n\rd", "0+0 2+0 4+0 6+0 7+0"},
      {u"$", "gm", u"a\rb\nc\n\rd", "1+0 3+0 5+0 6+0 8+0"},
      {u"^$", "gm", u"\r\n\r\n", "0+0 2+0 4+0"},
      {u"^|$", "g", u"a\r\nb\r\n", "0+0 6+0"},
      {u"$\\r\\n^", "gm", u"a\r\nb", "1+2"},
      {u".*", "gm", u"ab\r\nc", "0+2 2+0 3+0 4+1 5+0"},
      {u".*\\nc", "gm", u"ab\r\nc", "3+2"},
      {u".*\\B", "g", u"a\r\nb", "2+0"},
      {u".*[^\\ra]", "g", u"a\r\na", "2+1"},
      {u".", "g", u"\u2028a\u2029\u0085", "1+1 3+1"},
      {u"a.b", "g", u"a\nb a\rb a\u2028b axb", "12+3"},
      {u"[\\s\\S]+", "g", u"a\r\n\u2028b", "0+5"},
      {u"[^]", "g", u"\r\n", "0+1 1+1"},
      {u"^\\s*b", "gm", u"a\r\n b", "3+2"},
      {u"^\\n", "gm", u"a\r\n\n", "3+1"},
  });
}

TEST(RegExpTest, ShorthandsAreAscii) {
  const std::u16string_view text = u"aZ_5é中\u00a0\u3000 \t\v\f";
  for (const std::u16string_view alternative : {u"", u"|é{9}"}) {  // the second one makes the engine know all letters
    for (const std::string_view flags : {"g", "gi"}) {
      const auto matches = [&](std::u16string pattern) { return Matches(pattern.append(alternative), flags, text); };
      EXPECT_EQ(matches(u"\\w+"), "0+4");
      EXPECT_EQ(matches(u"\\W"), "4+1 5+1 6+1 7+1 8+1 9+1 10+1 11+1");
      EXPECT_EQ(matches(u"\\d"), "3+1");
      EXPECT_EQ(matches(u"\\D+"), "0+3 4+8");
      EXPECT_EQ(matches(u"\\s+"), "8+4");
      EXPECT_EQ(matches(u"\\S+"), "0+8");
      EXPECT_EQ(matches(u"[\\w]+"), "0+4");
      EXPECT_EQ(matches(u"[^\\w]+"), "4+8");
      EXPECT_EQ(matches(u"[\\W]+"), "4+8");
      EXPECT_EQ(matches(u"[\\D]+"), "0+3 4+8");
      EXPECT_EQ(matches(u"[^\\S]+"), "8+4");
      EXPECT_EQ(matches(u"[\\S]+"), "0+8");
      EXPECT_EQ(matches(u"5\\b"), "3+1");
      EXPECT_EQ(matches(u"é\\B"), "4+1");
      EXPECT_EQ(matches(u"[\\w-é]+"), "0+5");
    }
  }
}

TEST(RegExpTest, Case) {
  Check({
      {u"é", "gi", u"Éé", "0+1 1+1"},
      {u"[à-ü]", "gi", u"É", "0+1"},
      {u"\\u00e9", "gi", u"É", "0+1"},
      {u"σ", "gi", u"Σς", "0+1 1+1"},
      {u"ж", "g", u"Ж", ""},
      {u"(.)\\1", "gi", u"Жж", "0+2"},
      {u"[^k]", "gi", u"Kx", "1+1"},
      {u"\\wé\\w+", "gi", u"AÉB", "0+3"},
      {u"\\w+é|x", "gi", u"AÉ X", "0+2 3+1"},
      {u"[\\W]|é{9}", "gi", u"s", ""},
      {u"\\w|é{9}", "gi", u"ſ\u212a", ""},
  });
}

TEST(RegExpTest, EscapesAndLiterals) {
  Check({
      {u"\\x41\\u0042\\103\\cM\\0", "g", std::u16string_view(u"ABC\r\0", 5), "0+5"},
      {u"\\x4", "g", u"x4", "0+2"},
      {u"\\uD83D", "g", u"\xD83D\xDE00", "0+1"},
      {u".", "g", u"\xD83D\xDE00\xDC80", "0+1 1+1 2+1"},
      {u"\\A\\z\\Z\\G\\Q\\E\\K\\R\\X\\h\\N\\p", "g", u"AzZGQEKRXhNp", "0+12"},
      {u"\\c1", "g", u"\\c1", "0+3"},
      {u"\\v", "g", u"\v\f", "0+1"},
      {u"a{,2}", "g", u"a{,2}", "0+5"},
      {u"a{", "g", u"a{", "0+2"},
      {u"x{2}y{1,}z{0,1}", "g", u"xxyy", "0+4"},
      {u"]}", "g", u"]}", "0+2"},
      {u"[[:alpha:]]", "g", u":] a]", "0+2 3+2"},
      {u"[\\b]", "g", u"\b", "0+1"},
      {u"[]", "g", u"a]", ""},
      {u"[]*b", "g", u"b", "0+1"},
      {u"[^^]", "g", u"^a", "1+1"},
      {u"[a-]", "g", u"-b", "0+1"},
      {u"[\\d-x]", "g", u"-x5w", "0+1 1+1 2+1"},
      {u"[\\12]", "g", u"\n", "0+1"},
      {u"[\\s\\S]*?;", "g", u"a\r\n;b;", "0+4 4+2"},
      {u"#a b", "g", u"#a b", "0+4"},
      {u"\\Qa.b\\E", "g", u"Qa.bE", "0+5"},
  });
}

TEST(RegExpTest, GroupsAndReferences) {
  Check({
      {u"(a)\\1", "g", u"aa", "0+2"},
      {u"(a)|b\\1", "g", u"b", "0+1"},
      {u"\\1(a)", "g", u"aa", "0+1 1+1"},
      {u"(a)\\10", "g", u"aa0", "0+3"},
      {u"(a)\\2", "g", u"a\x02", "0+2"},
      {u"\\8", "g", u"8", "0+1"},
      {u"(?:x)(?=y)y(?!z)", "g", u"xyz xya", "4+2"},
      {u"a+?", "g", u"aa", "0+1 1+1"},
      {u"(?=a)*b", "g", u"b", "0+1"},
      {u"[(](a)\\1", "g", u"(aa", "0+3"},
      {u"(?:a|ab)(?:c|bcd)(d*)", "g", u"abcd", "0+4"},
  });
  Check({{u"(((((((((((a)))))))))))\\11", "g", u"aa", "0+2"}});
}

TEST(RegExpTest, Replace) {
  struct Case {
    std::u16string_view Pattern;
    std::string_view Flags;
    std::u16string_view Text;
    std::u16string_view Replacement;
    std::u16string_view Expected;
  };
  const Case cases[] = {
      {u"(a)(b)?", "g", u"ab-a", u"[$1$2]", u"[ab]-[a]"},
      {u"a", "", u"aa", u"b", u"ba"},
      {u"b", "g", u"abc", u"<$&|$`|$'>", u"a<b|a|c>c"},
      {u"a", "g", u"a", u"$$1$0$", u"$1$0$"},
      {u"(a)", "g", u"a", u"$2 $10 $01 $00 $1x", u"$2 a0 a $00 ax"},
      {u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)", "g", u"abcdefghijk", u"$11$10$1", u"kja"},
      {u"x*", "g", u"ab", u"-", u"-a-b-"},
      {u"$", "gm", u"a\r\nb", u";", u"a;\r\nb;"},
      {u"^", "gm", u"a\r\nb", u"'", u"'a\r\n'b"},
      {u"z", "g", u"abc", u"$&", u"abc"},
      {u"a", "g", u"a", u"", u""},
      {u"(?:(a)|b)+", "g", u"a", u"$1", u"a"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ToUtf8(Make(c.Pattern, c.Flags)->Replace(c.Text, c.Replacement)), ToUtf8(c.Expected))
        << ToUtf8(c.Pattern) << " -> " << ToUtf8(c.Replacement);
  }
}

TEST(RegExpTest, SyntaxErrors) {
  struct Case {
    std::u16string_view Pattern;
    std::int32_t Number;
    std::string_view Place;
  };
  const Case cases[] = {
      {u"a(b", 5020, "at offset 3"},     {u"ab)", 5017, "at offset 2"},
      {u"x[a-", 5019, "at offset 4"},    {u"*a", 5018, "at offset 0"},
      {u"a|+", 5018, "at offset 2"},     {u"a++", 5018, "at offset 2"},
      {u"a*??", 5018, "at offset 3"},    {u"^*", 5018, "at offset 1"},
      {u"(*FAIL)", 5018, "at offset 1"}, {u"{1}", 5018, "at offset 0"},
      {u"(?<=a)b", 5017, "at offset 1"}, {u"(?<n>a)", 5017, "at offset 1"},
      {u"a(?i)", 5017, "at offset 2"},   {u"(?>a)", 5017, "at offset 1"},
      {u"a[z-a]", 5021, "at offset 2"},  {u"a\\", 5017, "at offset 2"},
      {u"ab{3,1}", 5017, "at offset 2"}, {u"a{70000}", 5017, "at offset 1"},
      {u"(?", 5017, "at offset 1"},      {u"((a){60000}){60000}", 5017, "at offset"},
  };
  for (const Case& c : cases) {
    const std::unique_ptr<RegExp> regExp = Make(c.Pattern, "g");
    try {
      regExp->Test(u"a");
      ADD_FAILURE() << ToUtf8(c.Pattern) << " was accepted";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number, c.Number) << ToUtf8(c.Pattern);
      EXPECT_NE(std::string_view(error.what()).find(c.Place), std::string_view::npos) << error.what();
    }
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
      try {
        regExp->Execute(c.Text);
        ADD_FAILURE() << ToUtf8(c.Pattern) << " came to an end";
      } catch (const Error& error) {
        EXPECT_EQ(error.Number, 28);
        EXPECT_NE(std::string(error.what()).find(ToUtf8(c.Pattern)), std::string::npos) << error.what();
      }
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
  const struct {
    std::u16string_view pattern;
    std::vector<std::string> texts;
    bool ignoreCase = false;
  } rows[] = {
      {u"abc", {"abc"}},
      {u"ab\\.c+d", {"ab.c"}},
      {u"ab*cde", {"cde"}},
      {u"abc{2}defg", {"cdefg"}},
      {u"ab{0,3}c{0}", {"a"}},
      {u"(abcd)?ef", {"ef"}},
      {u"(abcd)+ef", {"abcd"}},
      {u"^a\\bbc$", {"abc"}},
      {u"a(?=xyz)b(?!uvw)c", {"abc"}},
      {u"one|two|three", {"one", "three", "two"}},
      {u"(?:one|t?)x", {"x"}},
      {u"pre(?:one|two)", {"pre"}},
      {u"one|[ab]", {}},
      {u"a|b|c|d|e|f|g|h|i", {}},
      {u"x?|y", {}},
      {u"ab\\r\\ncde", {"cde"}},
      {u"(a)bc\\1", {"bc"}},
      {u"é?maskS", {"ma"}, true},
      {u"é?maskS", {"maskS"}},
      {u"", {}},
      {u"a(", {}},
  };
  for (const auto& row : rows) {
    PcreRegExp regExp;
    regExp.Pattern = row.pattern;
    regExp.IgnoreCase = row.ignoreCase;
    EXPECT_EQ(regExp.RequiredTexts(), row.texts) << ToUtf8(row.pattern);
  }
}

}  // namespace
}  // namespace quorvane::native
