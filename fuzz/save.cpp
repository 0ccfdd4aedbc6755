// Any bytes saved over any arrangement of the file that is there: a plain file, one
// reached through a symlink, one with a second name, a read-only one, one in a read-only
// folder, a name near the longest allowed; run as root, also as a user without root's
// rights, whose refusals are the ones a user meets. A save either writes every byte behind every
// name, or fails and leaves every name with the old bytes; a link stays a link, a second
// name stays the same file, the mode stays, and no temporary file is left behind.
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "files/save_file.h"
#include "fuzz_support.h"

using namespace tavlero;

namespace {

enum Arrangement : uint8_t {
  kExists = 1,
  kThroughSymlink = 2,
  kSecondName = 4,
  kReadOnlyFile = 8,
  kReadOnlyFolder = 16,
  kLongName = 32,
  kAsUser = 64,
};

constexpr uid_t kNobody = 65534;

// Root's real and effective ids set aside, kept as the saved ids to come back to.
class AsNobody {
 public:
  explicit AsNobody(bool active) : active_(active) {
    if (!active_) return;
    fuzzing::require(::setresgid(kNobody, kNobody, 0) == 0 && ::setresuid(kNobody, kNobody, 0) == 0,
                     "root can act as nobody");
  }
  ~AsNobody() {
    if (active_) fuzzing::require(::setresuid(0, 0, 0) == 0 && ::setresgid(0, 0, 0) == 0, "root comes back");
  }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  bool active_;
};

struct Stat {
  bool found = false;
  struct stat st {};
};

Stat statOf(const std::string& path, bool follow) {
  Stat s;
  s.found = (follow ? ::stat(path.c_str(), &s.st) : ::lstat(path.c_str(), &s.st)) == 0;
  return s;
}

bool leftTemporary(const std::string& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().filename().string().starts_with(kTemporaryPrefix)) return true;
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const uint8_t arrangement = data[0];
  const std::string bytes = fuzzing::textOf(data + 1, size - 1);
  const std::string old = "gammel plan\r\n";

  // The other user must be able to reach the folder.
  ::chmod(fuzzing::scratch().path().c_str(), 0711);
  const std::string folder = fuzzing::scratch().file("save");
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  const std::string real =
      folder + "/" + ((arrangement & kLongName) ? std::string(250, 'p') : "plan") + ".tvl";
  const std::string second = folder + "/andre.tvl";
  const std::string link = folder + "/lenke.tvl";
  const bool exists = (arrangement & kExists) != 0;
  if (exists) {
    testing::writeFile(real, old);
    if (arrangement & kSecondName)
      fuzzing::require(::link(real.c_str(), second.c_str()) == 0, "a second name");
    if (arrangement & kReadOnlyFile) ::chmod(real.c_str(), 0444);
  }
  const bool throughLink = (arrangement & kThroughSymlink) != 0;
  if (throughLink) fuzzing::require(::symlink(real.c_str(), link.c_str()) == 0, "a symlink");
  const bool asUser = (arrangement & kAsUser) && ::geteuid() == 0;
  if (asUser)
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      ::lchown(entry.path().c_str(), kNobody, kNobody);
  if (asUser) ::chown(folder.c_str(), kNobody, kNobody);
  if (arrangement & kReadOnlyFolder) ::chmod(folder.c_str(), 0555);

  const Stat before = statOf(real, true);
  FileError error;
  {
    AsNobody user(asUser);
    error = saveFile(throughLink ? link : real, bytes);
  }
  const Stat after = statOf(real, true);
  ::chmod(folder.c_str(), 0755);

  const std::string expected = error == FileError::None ? bytes : old;
  if (error == FileError::None || exists) {
    fuzzing::require(after.found && testing::readFile(real) == expected,
                     "the file holds the new bytes or the old");
    if (exists && (arrangement & kSecondName))
      fuzzing::require(testing::readFile(second) == expected, "the second name holds the same bytes");
  } else {
    fuzzing::require(!after.found, "a failed save creates nothing");
  }
  if (exists && after.found) {
    fuzzing::require((before.st.st_mode & 07777) == (after.st.st_mode & 07777), "the mode stays");
    if (arrangement & kSecondName)
      fuzzing::require(after.st.st_ino == statOf(second, true).st.st_ino,
                       "the second name stays the same file");
  }
  if (throughLink) fuzzing::require(S_ISLNK(statOf(link, false).st.st_mode), "a symlink stays a symlink");
  fuzzing::require(!leftTemporary(folder), "no temporary file is left");
  return 0;
}
