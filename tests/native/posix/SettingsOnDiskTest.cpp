// What other programs, and a program that is killed, find of the settings.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "native/settings/FileSettingsStore.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FileSettingsStore;

TEST(SettingsOnDiskTest, TheOldFileStaysWholeForWhoeverReadsIt) {
  const TempFolder folder;
  const std::string path = folder / "settings";
  FileSettingsStore store(path);
  store.SaveSetting(u"App", u"S", u"k", u"1");
  store.Commit();
  const std::string before = folder.Read("settings");
  std::ifstream reader(path, std::ios::binary);
  store.SaveSetting(u"App", u"S", u"k", u"2");
  store.Commit();
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), before);
  EXPECT_NE(folder.Read("settings"), before);
}

TEST(SettingsOnDiskTest, AKilledProgramLeavesTheOldStoreOrTheNewOne) {
  const TempFolder folder;
  const std::string path = folder / "settings";
  const auto stored = [&path](const std::u16string& key) {
    return FileSettingsStore(path).GetSetting(u"App", u"S", key, u"none");
  };
  const std::u16string values[] = {std::u16string(300'000, u'a'), std::u16string(200'000, u'b')};
  const auto save = [&](int turn) {
    FileSettingsStore store(path);
    store.SaveSetting(u"App", u"S", u"k", values[turn % 2]);
    store.SaveSetting(u"App", u"S", u"last", u"1");
    store.Commit();
  };
  save(1);
  for (int kill = 0; kill < 20; ++kill) {
    const pid_t writer = fork();
    if (writer == 0) {
      for (int turn = 0;; ++turn) save(turn);
    }
    ASSERT_GT(writer, 0);
    // Let it get to work, so that each kill hits it at another place.
    const auto before = std::filesystem::last_write_time(path);
    while (std::filesystem::last_write_time(path) == before) usleep(static_cast<useconds_t>(100 + 37 * kill));
    ::kill(writer, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    ASSERT_TRUE(WIFSIGNALED(status));
    const std::u16string found = stored(u"k");
    ASSERT_TRUE(found == values[0] || found == values[1]) << "of " << found.size() << " units";
    ASSERT_EQ(stored(u"last"), u"1");
  }
}

}  // namespace quorvane::test
