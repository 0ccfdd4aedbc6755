// The save routine on real files in a temporary folder: links, FIFOs, modes, owners, ACLs
// and extended attributes as a user's files have them. Cases of another user save in a
// child process as nobody (uid and gid 65534), which needs root.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <ostream>
#include <set>
#include <thread>
#include <tuple>

#include "files/save_file.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;
constexpr uid_t kNobody = 65534;

enum class Way { Replaced, InPlace, Untouched };
enum class Shape { File, HardLinked, ThroughSymlink, Fifo, Missing };

struct RuleCase {
  const char* name;
  Shape shape;
  mode_t mode;
  uid_t owner;
  gid_t group;
  mode_t folderMode;
  bool asNobody;
  FileError error;
  Way way;
};
// The case's name, where the bytes of its pointer would change every build.
void PrintTo(const RuleCase& rule, std::ostream* out) {
  *out << rule.name;
}

const RuleCase kRuleCases[] = {
    {"PlainFile", Shape::File, 0640, 0, 0, 0777, false, FileError::None, Way::Replaced},
    {"AnotherUsersFile", Shape::File, 0660, kNobody, kNobody, 0777, false, FileError::None, Way::Replaced},
    {"HardLink", Shape::HardLinked, 0644, 0, 0, 0777, false, FileError::None, Way::InPlace},
    {"Symlink", Shape::ThroughSymlink, 0644, 0, 0, 0777, false, FileError::None, Way::InPlace},
    {"ReadOnlyForTheUser", Shape::File, 0444, kNobody, kNobody, 0777, true, FileError::NotPermitted,
     Way::Untouched},
    {"FolderNotWritable", Shape::File, 0644, kNobody, kNobody, 0755, true, FileError::None, Way::InPlace},
    {"OwnerCannotBeKept", Shape::File, 0660, 0, kNobody, 0777, true, FileError::None, Way::InPlace},
    {"FifoWithoutReader", Shape::Fifo, 0666, 0, 0, 0777, false, FileError::NoReader, Way::Untouched},
    {"NewFile", Shape::Missing, 0, 0, 0, 0777, true, FileError::None, Way::Replaced},
};

// plan.tvl in dir as the case has it, with an extended attribute and an ACL in the
// kernel's form that also lets user 4242 read and write.
void prepare(const RuleCase& rule, const std::string& dir) {
  const std::string file = dir + (rule.shape == Shape::ThroughSymlink ? "real.tvl" : "plan.tvl");
  if (rule.shape == Shape::Fifo) ::mkfifo(file.c_str(), rule.mode);
  if (rule.shape != Shape::Fifo && rule.shape != Shape::Missing) {
    writeFile(file, "old, longer plan");
    ::chown(file.c_str(), rule.owner, rule.group);
    ::chmod(file.c_str(), rule.mode);
    // Version 2, then each entry as tag | rights << 16 and its id: owner, user 4242, group,
    // mask, others.
    const uint32_t none = ~0u, mode = rule.mode;
    const uint32_t acl[] = {2,    0x01 | (mode >> 6 & 7) << 16, none, 0x02 | 6 << 16,
                            4242, 0x04 | (mode >> 3 & 7) << 16, none, 0x10 | 6 << 16,
                            none, 0x20 | (mode & 7) << 16,      none};
    if (::setxattr(file.c_str(), "user.tavlero", "kept", 4, 0) != 0 ||
        ::setxattr(file.c_str(), "system.posix_acl_access", acl, sizeof acl, 0) != 0)
      ADD_FAILURE() << "no extended attributes here";
  }
  if (rule.shape == Shape::HardLinked) fs::create_hard_link(file, dir + "other.tvl");
  if (rule.shape == Shape::ThroughSymlink) fs::create_symlink("real.tvl", dir + "plan.tvl");
  ::chmod(dir.c_str(), rule.folderMode);
}

std::string attribute(const std::string& path, const char* name) {
  char value[128] = {};
  ssize_t size = ::getxattr(path.c_str(), name, value, sizeof value);
  return std::string(value, size > 0 ? static_cast<size_t>(size) : 0);
}

// What a save must keep: the kind of thing at the name and, of the file it names, mode,
// owner, group, attribute and ACL.
auto kept(const std::string& path) {
  struct stat link {};
  struct stat info {};
  ::lstat(path.c_str(), &link);
  ::stat(path.c_str(), &info);
  return std::tuple(link.st_mode & S_IFMT, info.st_mode, info.st_uid, info.st_gid,
                    attribute(path, "user.tavlero"), attribute(path, "system.posix_acl_access"));
}

ino_t inode(const std::string& path) {
  struct stat info {};
  ::stat(path.c_str(), &info);
  return info.st_ino;
}

std::set<std::string> entries(const std::string& dir) {
  std::set<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(dir)) names.insert(entry.path().string());
  return names;
}

// The save as nobody, in a child process; its exit status is the FileError.
FileError saveAsNobody(const std::string& path, std::string_view bytes) {
  pid_t child = fork();
  if (child == 0) {
    bool dropped = ::setgroups(0, nullptr) == 0 && ::setresgid(kNobody, kNobody, kNobody) == 0 &&
                   ::setresuid(kNobody, kNobody, kNobody) == 0;
    _exit(dropped ? static_cast<int>(saveFile(path, bytes)) : 100);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return static_cast<FileError>(WIFEXITED(status) ? WEXITSTATUS(status) : 101);
}

class SaveRules : public ::testing::TestWithParam<RuleCase> {};

TEST_P(SaveRules, KeepWhatTheUserHad) {
  const RuleCase& rule = GetParam();
  if (::geteuid() != 0) GTEST_SKIP() << "needs root to give files to nobody";
  TempDir temp;
  ::chmod(temp.path().c_str(), 0755);
  const std::string dir = temp.file("case/"), path = dir + "plan.tvl";
  fs::create_directory(dir);
  prepare(rule, dir);
  const bool existed = rule.shape != Shape::Missing;
  const auto before = kept(path);
  const ino_t oldInode = inode(path);
  std::set<std::string> names = entries(temp.path());

  EXPECT_EQ(rule.asNobody ? saveAsNobody(path, "new") : saveFile(path, "new"), rule.error);
  if (existed) {
    EXPECT_EQ(kept(path), before);
  }
  const bool written = rule.way != Way::Untouched;
  for (const std::string& name : {path, dir + "other.tvl"}) {
    if (fs::is_regular_file(name)) {
      EXPECT_EQ(readFile(name), written ? "new" : "old, longer plan") << name;
    }
  }
  EXPECT_EQ(existed && written && inode(path) != oldInode, existed && rule.way == Way::Replaced);
  names.insert(path);
  EXPECT_EQ(entries(temp.path()), names) << "nothing beside the plan is left";
}

INSTANTIATE_TEST_SUITE_P(Files, SaveRules, ::testing::ValuesIn(kRuleCases),
                         [](const auto& testCase) { return testCase.param.name; });

// Names longer than the temporary file's own, up to the longest the system allows.
TEST(SaveFile, TakesEveryLegalName) {
  TempDir temp;
  for (size_t length : {244u, 255u}) {
    EXPECT_EQ(saveFile(temp.file(std::string(length, 'n')), "x"), FileError::None) << length;
    EXPECT_EQ(readFile(temp.file(std::string(length, 'n'))), "x");
  }
  EXPECT_EQ(saveFile(temp.file(std::string(256, 'n')), "x"), FileError::NameTooLong);
}

// A save killed at any moment leaves the old plan or the new one, whole; anything else
// it left is gone after the next save.
TEST(SaveFile, KilledPartWayLeavesOldOrNewAndNothingBeside) {
  TempDir temp;
  const std::string path = temp.file("plan.tvl"), fresh(8 << 20, 'n');
  for (int delayMs : {0, 1, 3, 10, 30}) {
    writeFile(path, "old");
    pid_t child = fork();
    while (child == 0) saveFile(path, fresh);
    std::this_thread::sleep_for(std::chrono::milliseconds(delayMs));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(readFile(path) == "old" || readFile(path) == fresh) << delayMs;
    ASSERT_EQ(saveFile(temp.file("next.tvl"), "x"), FileError::None);
    EXPECT_EQ(entries(temp.path()), (std::set<std::string>{path, temp.file("next.tvl")})) << delayMs;
  }
}

// Temporary files of ours are swept when their maker is gone or they are old; a fresh one
// of a live process may be another save's.
TEST(SaveFile, SweepsOnlyStaleTemporariesOfItsOwn) {
  TempDir temp;
  const std::string ours = temp.file(std::string(kTemporaryPrefix) + std::to_string(::getpid()));
  const std::string gone = temp.file(std::string(kTemporaryPrefix) + "999999999-abcd"),
                    fresh = ours + "-efgh", old = ours + "-ijkl",
                    other = temp.file(std::string(kTemporaryPrefix) + "user's file");
  const timespec longAgo[2] = {{0, 0}, {std::time(nullptr) - 3600, 0}};
  for (const std::string& name : {gone, fresh, old, other}) writeFile(name, "x");
  for (const std::string& name : {old, other}) ::utimensat(AT_FDCWD, name.c_str(), longAgo, 0);
  ASSERT_EQ(saveFile(temp.file("plan.tvl"), "new"), FileError::None);
  EXPECT_EQ(entries(temp.path()), (std::set<std::string>{fresh, other, temp.file("plan.tvl")}));
}

// A real full disk, a small tmpfs where the machine lets us mount one: the safe replace
// and the write in place (of a hard-linked plan) both leave the old bytes.
TEST(SaveFile, FullDiskKeepsTheOldPlan) {
  TempDir temp;
  const std::string disk = temp.file("disk/"), big(256 << 10, 'n');
  fs::create_directory(disk);
  if (::mount("tavlero-test", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "cannot mount a tmpfs here; the write limit test covers a full disk";
  for (const char* name : {"single.tvl", "linked.tvl"}) writeFile(disk + name, "old");
  fs::create_hard_link(disk + "linked.tvl", disk + "other.tvl");
  for (const char* name : {"single.tvl", "linked.tvl"}) {
    EXPECT_EQ(saveFile(disk + name, big), FileError::NoSpace) << name;
    EXPECT_EQ(readFile(disk + name), "old") << name;
  }
  EXPECT_EQ(entries(disk).size(), 3u);
  ::umount(disk.c_str());
}

}  // namespace
}  // namespace tavlero::testing
