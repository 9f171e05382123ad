#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "base/Error.h"
#include "base/Text.h"
#include "native/xml/LibXmlTable.h"
#include "support/TempFolder.h"

namespace quorvane::native {
namespace {

/// The words of the error that `act` raises, "none" without one.
template <class Act>
std::string ErrorWords(Act act) {
  try {
    act();
  } catch (const Error& error) {
    return error.what();
  }
  return "none";
}

TEST(XmlSaveTest, SaveReplacesTheFileAsAWhole) {
  const test::TempFolder folder;
  const std::string path = folder.Write("old.xml", "old");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  ASSERT_EQ(symlink("old.xml", (folder / "link.xml").c_str()), 0);
  LibXmlTable document(XmlTableShape{"r", "e", {}});
  document.Save(FromUtf8(folder / "link.xml"));
  EXPECT_EQ(folder.Read("old.xml"), "<r/>\n");
  struct stat status {};
  ASSERT_EQ(lstat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.xml"));
  const std::string nowhere = folder / "no/such.xml";
  EXPECT_NE(ErrorWords([&] { document.Save(FromUtf8(nowhere)); }).find(nowhere), std::string::npos);
  EXPECT_NE(ErrorWords([&] { document.Save(FromUtf8(folder.Path().string())); }), "none");
  const auto files = std::distance(std::filesystem::directory_iterator(folder.Path()), {});
  EXPECT_EQ(files, 2);
}

TEST(XmlSaveTest, AFailedSaveLeavesTheOldFileAlone) {
  const test::TempFolder folder;
  folder.Write("result.xml", "old");
  LibXmlTable document(XmlTableShape{"r", "e", {{"long", false}}});
  document.BeginRow();
  document.AddText(std::u16string(1000, u'x'));
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit little{100, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &little);
  const std::string words = ErrorWords([&] { document.Save(FromUtf8(folder / "result.xml")); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_NE(words.find("result.xml"), std::string::npos) << words;
  EXPECT_EQ(folder.Read("result.xml"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace quorvane::native
