// The save routine on real files in a temporary folder: links, FIFOs, modes, owners and
// extended attributes as a user's files have them. Cases that need another user run the
// save in a child process as nobody (uid and gid 65534), which needs root.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
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
  uid_t owner;  // and group
  gid_t group;
  mode_t folderMode;
  bool asNobody;
  FileError error;
  Way way;
};

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

// An access ACL in the kernel's form that also lets user 4242 read and write.
void giveAcl(const std::string& path, mode_t mode) {
  const uint16_t owner = (mode >> 6) & 7, group = (mode >> 3) & 7, other = mode & 7;
  const uint32_t none = ~0u;
  const uint32_t acl[] = {2,    0x01u | owner << 16, none, 0x02u | 6u << 16,    4242, 0x04u | group << 16,
                          none, 0x10u | 6u << 16,    none, 0x20u | other << 16, none};
  if (::setxattr(path.c_str(), "system.posix_acl_access", acl, sizeof acl, 0) != 0) ADD_FAILURE() << "no ACL";
}

// plan.tvl in dir as the case has it, with an extended attribute and an ACL.
void prepare(const RuleCase& rule, const std::string& dir) {
  const std::string file = dir + (rule.shape == Shape::ThroughSymlink ? "real.tvl" : "plan.tvl");
  if (rule.shape == Shape::Fifo) ::mkfifo(file.c_str(), rule.mode);
  if (rule.shape != Shape::Fifo && rule.shape != Shape::Missing) {
    writeFile(file, "old, longer plan");
    if (::setxattr(file.c_str(), "user.tavlero", "kept", 4, 0) != 0) ADD_FAILURE() << "no attribute";
    ::chown(file.c_str(), rule.owner, rule.group);
    ::chmod(file.c_str(), rule.mode);
    giveAcl(file, rule.mode);
  }
  if (rule.shape == Shape::HardLinked) fs::create_hard_link(file, dir + "other.tvl");
  if (rule.shape == Shape::ThroughSymlink) fs::create_symlink("real.tvl", dir + "plan.tvl");
  ::chmod(dir.c_str(), rule.folderMode);
}

// What a save must keep of a file: its kind at the name, and of the file it names the
// mode, owner, group, extended attribute and ACL.
struct Kept {
  mode_t linkKind = 0;
  mode_t mode = 0;
  uid_t uid = 0;
  gid_t gid = 0;
  std::string attribute;
  std::string acl;
  bool operator==(const Kept&) const = default;
};

std::string attribute(const std::string& path, const char* name) {
  char value[128] = {};
  ssize_t size = ::getxattr(path.c_str(), name, value, sizeof value);
  return std::string(value, size > 0 ? static_cast<size_t>(size) : 0);
}

std::tuple<Kept, ino_t> look(const std::string& path) {
  struct stat link {};
  struct stat info {};
  ::lstat(path.c_str(), &link);
  ::stat(path.c_str(), &info);
  return {Kept{link.st_mode & S_IFMT, info.st_mode, info.st_uid, info.st_gid, attribute(path, "user.tavlero"),
               attribute(path, "system.posix_acl_access")},
          info.st_ino};
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
  const std::string dir = temp.file("case/");
  fs::create_directory(dir);
  prepare(rule, dir);
  const std::string path = dir + "plan.tvl";
  const bool existed = fs::exists(fs::symlink_status(path));
  auto [before, inode] = look(path);
  const std::set<std::string> names = entries(temp.path());

  FileError error = rule.asNobody ? saveAsNobody(path, "new") : saveFile(path, "new");
  EXPECT_EQ(error, rule.error);
  auto [after, newInode] = look(path);
  EXPECT_EQ(after, existed ? before : after);
  const bool written = rule.way != Way::Untouched;
  if (fs::is_regular_file(path)) {
    EXPECT_EQ(readFile(path), written ? "new" : "old, longer plan");
  }
  EXPECT_EQ(existed && written && newInode != inode, rule.way == Way::Replaced && existed)
      << "replaced, not written in place";
  if (fs::exists(dir + "other.tvl")) {
    EXPECT_EQ(readFile(dir + "other.tvl"), "new");
  }
  std::set<std::string> expected = names;
  expected.insert(path);
  EXPECT_EQ(entries(temp.path()), expected) << "nothing beside the plan is left";
}

INSTANTIATE_TEST_SUITE_P(Files, SaveRules, ::testing::ValuesIn(kRuleCases),
                         [](const auto& info) { return info.param.name; });

// Longer names than the temporary file's own, up to the longest the system allows.
TEST(SaveFile, TakesEveryLegalName) {
  TempDir temp;
  for (size_t length : {1u, 244u, 255u}) {
    const std::string path = temp.file(std::string(length, 'n'));
    EXPECT_EQ(saveFile(path, "x"), FileError::None) << length;
    EXPECT_EQ(readFile(path), "x");
  }
  EXPECT_EQ(saveFile(temp.file(std::string(256, 'n')), "x"), FileError::NameTooLong);
}

// A save killed at any moment leaves the old plan or the new one, whole, and nothing else.
TEST(SaveFile, KilledPartWayLeavesOldOrNewAndNothingBeside) {
  TempDir temp;
  const std::string path = temp.file("plan.tvl");
  const std::string old = "old plan";
  const std::string fresh(8 << 20, 'n');
  for (int delayMs : {0, 1, 3, 10, 30}) {
    writeFile(path, old);
    pid_t child = fork();
    if (child == 0) {
      for (;;) saveFile(path, fresh);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(delayMs));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    std::string now = readFile(path);
    EXPECT_TRUE(now == old || now == fresh) << delayMs;
    EXPECT_EQ(entries(temp.path()), std::set<std::string>{path}) << delayMs;
  }
}

// Temporary files of ours are swept once they are old; a fresh one may be another save's.
TEST(SaveFile, SweepsOnlyStaleTemporariesOfItsOwn) {
  TempDir temp;
  const std::string stale = temp.file(std::string(kTemporaryPrefix) + "abc123");
  const std::string fresh = temp.file(std::string(kTemporaryPrefix) + "def456");
  const std::string other = temp.file(std::string(kTemporaryPrefix) + "user's file");
  for (const std::string& name : {stale, fresh, other}) writeFile(name, "x");
  const timespec longAgo[2] = {{0, 0}, {std::time(nullptr) - 3600, 0}};
  for (const std::string& name : {stale, other}) ::utimensat(AT_FDCWD, name.c_str(), longAgo, 0);
  ASSERT_EQ(saveFile(temp.file("plan.tvl"), "new"), FileError::None);
  EXPECT_EQ(entries(temp.path()), (std::set<std::string>{fresh, other, temp.file("plan.tvl")}));
}

// A real full disk: a small tmpfs, where the machine lets us mount one. Both ways of
// writing leave the old bytes.
TEST(SaveFile, FullDiskKeepsTheOldPlan) {
  TempDir temp;
  const std::string disk = temp.file("disk/");
  fs::create_directory(disk);
  if (::mount("tavlero-test", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "cannot mount a tmpfs here; the write limit test covers a full disk";
  writeFile(disk + "plan.tvl", "old");
  fs::create_hard_link(disk + "plan.tvl", disk + "other.tvl");
  writeFile(disk + "single.tvl", "old");
  const std::string big(256 << 10, 'n');
  EXPECT_EQ(std::tuple(saveFile(disk + "single.tvl", big), saveFile(disk + "plan.tvl", big)),
            std::tuple(FileError::NoSpace, FileError::NoSpace));
  EXPECT_EQ(std::tuple(readFile(disk + "single.tvl"), readFile(disk + "plan.tvl")), std::tuple("old", "old"));
  EXPECT_EQ(entries(disk).size(), 3u);
  ::umount(disk.c_str());
}

}  // namespace
}  // namespace tavlero::testing
