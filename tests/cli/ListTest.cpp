#include <gtest/gtest.h>

#include "cli/Program.h"

namespace quorvane::test {

class ListTest : public ::testing::Test, protected Program {
 protected:
  ListTest() { WriteShop(folder); }
};

TEST_F(ListTest, OneObjectAComponent) {
  const auto component = [](const std::string& project, const std::string& name, int type, const std::string& path,
                            int lines, int declarations, const std::string& procedures) {
    return "{\"Project\":\"" + project + "\",\"Component\":\"" + name + "\",\"Type\":" + std::to_string(type) +
           ",\"Path\":\"" + path + "\",\"CountOfLines\":" + std::to_string(lines) +
           ",\"CountOfDeclarationLines\":" + std::to_string(declarations) +
           (procedures.empty() ? "" : ",\"Procedures\":" + procedures) + "}\n";
  };
  const auto all = [&](bool procedures) {
    const auto told = [&](const std::string& text) { return procedures ? text : ""; };
    return component("App", "Main", 1, "App/Main.bas", 5, 2,
                     told("[{\"Name\":\"Sum\",\"Kind\":\"Proc\",\"StartLine\":3,\"CountOfLines\":3}]")) +
           component("App", "Common", 1, "Lib/Common.bas", 2, 2, told("[]")) +
           component("App", "Notes.txt", 10, "App/Notes.txt", 0, 0, told("[]")) +
           component("Lib", "Common", 1, "Lib/Common.bas", 2, 2, told("[]")) +
           component("Lib", "Order", 2, "Lib/Order.cls", 5, 0,
                     told("[{\"Name\":\"P\",\"Kind\":\"Get\",\"StartLine\":1,\"CountOfLines\":1},"
                          "{\"Name\":\"P\",\"Kind\":\"Let\",\"StartLine\":2,\"CountOfLines\":4}]"));
  };
  const Outcome plain = Call({"list", "Shop.vbg"});
  EXPECT_EQ(plain.out, all(false));
  EXPECT_EQ(plain.status, 0);
  EXPECT_NE(plain.err.find("Gone.cls"), std::string::npos) << "a missing file is a warning";
  EXPECT_EQ(Call({"list", "--procedures", "Shop.vbg"}).out, all(true));
  EXPECT_EQ(Call({"list", "-o", "list.json", "Shop.vbg"}).out, "");
  EXPECT_EQ(folder.Read("list.json"), all(false));
}

TEST_F(ListTest, NothingToListIsStatusOne) {
  folder.Write("Empty.vbp", "Type=Exe\r\nName=\"Empty\"\r\n");
  const Outcome outcome = Call({"list", "Empty.vbp"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(ListTest, HelpAndVersion) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--help"}, {"find", "--help"}, {"replace", "-h"}, {"list", "-h"}, {"--version"}}) {
    const Outcome outcome = Call(args);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
  }
}

}  // namespace quorvane::test
