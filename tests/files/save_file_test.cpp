#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "core/cp1252.h"
#include "file_world.h"
#include "files/project_file.h"
#include "files/save_file.h"

namespace tavlero::testing {
namespace {

size_t entriesIn(const std::string& folder) {
  size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++count;
  return count;
}

TEST(SaveFile, ReplacesTheTargetAndLeavesNothingBeside) {
  TempDir dir;
  std::string error;
  writeFile(dir.file("t"), "old");
  ASSERT_TRUE(saveFileAtomically(dir.file("t"), "new\r\nbytes", error));
  EXPECT_EQ(readFile(dir.file("t")), "new\r\nbytes");
  EXPECT_EQ(entriesIn(dir.path()), 1u);
}

// Each failure leaves the old file, no temporary file and a reason.
TEST(SaveFile, FailuresLeaveTheOldStateAlone) {
  TempDir dir;
  writeFile(dir.file("file"), "old bytes");
  std::filesystem::create_directory(dir.file("folder"));
  for (const std::string& target :
       {dir.file("folder"), dir.file("file/inside.tvl"), dir.file("none/x.tvl")}) {
    std::string error;
    EXPECT_FALSE(saveFileAtomically(target, "new", error)) << target;
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(readFile(dir.file("file")), "old bytes");
    EXPECT_EQ(entriesIn(dir.path()), 2u);
    EXPECT_TRUE(std::filesystem::is_empty(dir.file("folder")));
  }
}

// The write fails part-way: a child process may write only a few bytes.
TEST(SaveFile, WriteFailingPartWayKeepsTheOldFile) {
  TempDir dir;
  std::string target = dir.file("p.tvl");
  writeFile(target, "old");
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{100, 100};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::string error;
    bool saved = saveFileAtomically(target, std::string(100000, 'x'), error);
    _exit(!saved && error == "Filen ble for stor."_cp ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(readFile(target), "old");
  EXPECT_EQ(entriesIn(dir.path()), 1u);
}

TEST(SaveFile, ReadWholeFileRefusesFoldersAndMissingFiles) {
  TempDir dir;
  std::string bytes = "unchanged";
  EXPECT_FALSE(readWholeFile(dir.path(), bytes));
  EXPECT_FALSE(readWholeFile(dir.file("missing"), bytes));
  EXPECT_EQ(bytes, "unchanged");
  writeFile(dir.file("f"), std::string("a\0b\r\n", 5));
  ASSERT_TRUE(readWholeFile(dir.file("f"), bytes));
  EXPECT_EQ(bytes, std::string("a\0b\r\n", 5));
}

TEST(WriteProject, FailedSaveShowsTheFileAndKeepsIsSavedFalse) {
  FileWorld world;
  world.addCell("m", 10, 10);
  world.app.store.isSaved = false;
  std::filesystem::create_directory(world.dir.file("taken.tvl"));
  EXPECT_FALSE(writeProject(world.app, "taken.tvl", world.dir.path()));
  EXPECT_FALSE(world.app.store.isSaved);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(
      world.ui.messages[0].prompt.rfind("Kunne ikke lagre filen '" + world.dir.file("taken.tvl") + "'.", 0),
      0u);
  EXPECT_EQ(world.ui.messages[0].title, "Tavlero");
}

}  // namespace
}  // namespace tavlero::testing
