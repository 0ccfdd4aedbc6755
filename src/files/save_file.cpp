#include "files/save_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <random>
#include <vector>

#include "core/cp1252.h"

namespace tavlero {

namespace {

constexpr int kCommonFlags = O_CLOEXEC | O_NOCTTY;
// A result of the safe replace: the rules want the file written in place instead.
constexpr int kWriteInPlace = -1;
// A temporary file of ours older than this belongs to no save still at work.
constexpr std::time_t kStaleSeconds = 600;

class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }

  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }

 private:
  int fd_;
};

FileError errorOf(int code) {
  switch (code) {
    case 0:
      return FileError::None;
    case ENOENT:
      return FileError::Missing;
    case ENOTDIR:
      return FileError::NoFolder;
    case EISDIR:
      return FileError::IsFolder;
    case EACCES:
    case EPERM:
      return FileError::NotPermitted;
    case EROFS:
      return FileError::ReadOnlyPlace;
    case ENOSPC:
    case EDQUOT:
      return FileError::NoSpace;
    case EFBIG:
      return FileError::TooBig;
    case ENAMETOOLONG:
      return FileError::NameTooLong;
    case ENXIO:
    case EPIPE:
      return FileError::NoReader;
    default:
      return FileError::Failed;
  }
}

// Where a file is to be made, a missing name means a missing folder.
FileError creatingErrorOf(int code) {
  return code == ENOENT ? FileError::NoFolder : errorOf(code);
}

// 0 or errno. From the descriptor's own offset, or from the start when atStart.
int writeAll(int fd, std::string_view bytes, bool atStart) {
  off_t offset = 0;
  while (!bytes.empty()) {
    ssize_t written =
        atStart ? ::pwrite(fd, bytes.data(), bytes.size(), offset) : ::write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    bytes.remove_prefix(static_cast<size_t>(written));
    offset += written;
  }
  return 0;
}

// Into a FIFO, a device or standard output. A reader that goes away part-way would end
// the program with SIGPIPE; here the write fails with EPIPE instead.
int writeToStream(int fd, std::string_view bytes) {
  sigset_t pipeSignal;
  sigset_t before;
  ::sigemptyset(&pipeSignal);
  ::sigaddset(&pipeSignal, SIGPIPE);
  ::pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
  int code = writeAll(fd, bytes, false);
  if (code == EPIPE) {
    const timespec now{};
    ::sigtimedwait(&pipeSignal, nullptr, &now);
  }
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return code;
}

// Beyond the user's file size limit a write would end the program with SIGXFSZ.
bool beyondSizeLimit(size_t size) {
  rlimit limit{};
  return ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY && size > limit.rlim_cur;
}

// .tavlero-PID-XXXX: short enough beside any legal target name, and it says whose it is.
std::string temporaryName() {
  static std::mt19937_64 generator(std::random_device{}() ^ static_cast<uint64_t>(::getpid()));
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::string name = std::string(kTemporaryPrefix) + std::to_string(::getpid()) + "-";
  for (int i = 0; i < 4; ++i) name += kLetters[generator() % kLetters.size()];
  return name;
}

// The process that made a temporary file of ours, or 0 for any other name.
pid_t makerOf(std::string_view name) {
  if (!name.starts_with(kTemporaryPrefix)) return 0;
  name.remove_prefix(kTemporaryPrefix.size());
  size_t dash = name.find('-');
  if (dash == 0 || dash == std::string_view::npos || name.size() != dash + 5) return 0;
  pid_t pid = 0;
  for (char c : name.substr(0, dash)) {
    if (c < '0' || c > '9' || pid > 100000000) return 0;
    pid = pid * 10 + (c - '0');
  }
  return pid;
}

template <typename Make>
int withFreshName(Make make, std::string& name) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    std::string candidate = temporaryName();
    if (make(candidate)) {
      name = std::move(candidate);
      return 0;
    }
    if (errno != EEXIST) return errno;
  }
  return EEXIST;
}

// The new content while it is written: nameless where the file system allows, so that a
// save killed part-way leaves nothing behind.
struct Temporary {
  Descriptor fd;
  std::string name;  // empty while nameless

  int make(int folder) {
    // A nameless file is named through /proc at the end.
    if (::access("/proc/self/fd", F_OK) == 0) {
      fd = Descriptor(::openat(folder, ".", O_TMPFILE | O_WRONLY | kCommonFlags, 0666));
      if (fd.valid()) return 0;
      if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return errno;
    }
    return withFreshName(
        [&](const std::string& candidate) {
          fd = Descriptor(
              ::openat(folder, candidate.c_str(), O_CREAT | O_EXCL | O_WRONLY | kCommonFlags, 0666));
          return fd.valid();
        },
        name);
  }

  // A rename needs a name.
  int giveName(int folder) {
    if (!name.empty()) return 0;
    std::string self = "/proc/self/fd/" + std::to_string(fd.get());
    return withFreshName(
        [&](const std::string& candidate) {
          return ::linkat(AT_FDCWD, self.c_str(), folder, candidate.c_str(), AT_SYMLINK_FOLLOW) == 0;
        },
        name);
  }

  void discard(int folder) {
    if (!name.empty()) ::unlinkat(folder, name.c_str(), 0);
  }
};

// 0, or errno; an empty list where the file system has no extended attributes.
int attributeNames(int fd, std::vector<std::string>& names) {
  ssize_t size = ::flistxattr(fd, nullptr, 0);
  if (size < 0) return errno == ENOTSUP ? 0 : errno;
  std::string list(static_cast<size_t>(size), '\0');
  size = ::flistxattr(fd, list.data(), list.size());
  if (size < 0) return errno;
  for (size_t at = 0; at < static_cast<size_t>(size); at = list.find('\0', at) + 1)
    names.emplace_back(list.c_str() + at);
  return 0;
}

// The extended attributes of from, and no others, on to; ACLs are among them.
bool copyAttributes(int from, int to) {
  std::vector<std::string> wanted;
  std::vector<std::string> present;
  if (attributeNames(from, wanted) != 0 || attributeNames(to, present) != 0) return false;
  for (const std::string& name : present) {
    if (std::find(wanted.begin(), wanted.end(), name) == wanted.end() &&
        ::fremovexattr(to, name.c_str()) != 0)
      return false;
  }
  for (const std::string& name : wanted) {
    ssize_t size = ::fgetxattr(from, name.c_str(), nullptr, 0);
    if (size < 0) return false;
    std::string value(static_cast<size_t>(size), '\0');
    size = ::fgetxattr(from, name.c_str(), value.data(), value.size());
    if (size < 0 || ::fsetxattr(to, name.c_str(), value.data(), static_cast<size_t>(size), 0) != 0)
      return false;
  }
  return true;
}

// Gives the temporary file everything of the original but its content; false when any
// of it cannot be kept.
bool takeOver(int original, const struct stat& info, int temporary) {
  struct stat now {};
  if (::fstat(temporary, &now) != 0) return false;
  if ((now.st_uid != info.st_uid || now.st_gid != info.st_gid) &&
      ::fchown(temporary, info.st_uid, info.st_gid) != 0)
    return false;
  // After the owner, which clears the set-id bits.
  if (::fchmod(temporary, info.st_mode & 07777) != 0 || !copyAttributes(original, temporary)) return false;
  return ::fstat(temporary, &now) == 0 && now.st_uid == info.st_uid && now.st_gid == info.st_gid &&
         now.st_mode == info.st_mode;
}

// Temporary files of ours that a killed save left behind: their maker is gone, or they
// are older than any save.
void sweepStaleTemporaries(int folder) {
  DIR* listing = ::fdopendir(::dup(folder));
  if (!listing) return;
  const std::time_t now = std::time(nullptr);
  while (const dirent* entry = ::readdir(listing)) {
    pid_t maker = makerOf(entry->d_name);
    struct stat info {};
    if (maker == 0 || ::fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(info.st_mode) || info.st_uid != ::geteuid())
      continue;
    const bool makerGone = ::kill(maker, 0) != 0 && errno == ESRCH;
    if (makerGone || now - info.st_mtime > kStaleSeconds) ::unlinkat(folder, entry->d_name, 0);
  }
  ::closedir(listing);
}

// The safe replace: a temporary file beside the target, written, fsynced, renamed over
// it, the folder fsynced. original is the target's descriptor and info its status, or -1
// for a file that does not exist yet. 0, kWriteInPlace, or errno.
int replaceThroughTemporary(const std::filesystem::path& target, std::string_view bytes, int original,
                            const struct stat& info) {
  const bool exists = original >= 0;
  std::string folderName = target.parent_path().empty() ? std::string(".") : target.parent_path().string();
  Descriptor folder(::open(folderName.c_str(), O_RDONLY | O_DIRECTORY | kCommonFlags));
  if (!folder.valid()) return exists ? kWriteInPlace : errno;
  Temporary temporary;
  if (int code = temporary.make(folder.get()); code != 0) return exists ? kWriteInPlace : code;
  if (exists && !takeOver(original, info, temporary.fd.get())) {
    temporary.discard(folder.get());
    return kWriteInPlace;
  }
  int code = writeAll(temporary.fd.get(), bytes, false);
  if (code == 0 && ::fsync(temporary.fd.get()) != 0) code = errno;
  // From the name to the rename as little as can be: a save killed in between leaves the
  // name, which a later save sweeps.
  if (code == 0) code = temporary.giveName(folder.get());
  if (code == 0 &&
      ::renameat(folder.get(), temporary.name.c_str(), folder.get(), target.filename().c_str()) != 0)
    code = errno;
  if (code != 0) {
    temporary.discard(folder.get());
    return code;
  }
  ::fsync(folder.get());
  sweepStaleTemporaries(folder.get());
  return 0;
}

// Into the file itself: its links, owner and rights stay. Room for the new content is
// asked for first, so a full disk leaves the old bytes.
int writeInPlace(int fd, std::string_view bytes) {
  struct stat info {};
  if (::fstat(fd, &info) != 0) return errno;
  const off_t size = static_cast<off_t>(bytes.size());
  if (size > info.st_size && ::fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, size) != 0 &&
      (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
    return errno;
  int code = writeAll(fd, bytes, true);
  if (code == 0 && ::ftruncate(fd, size) != 0) code = errno;
  if (code == 0 && ::fsync(fd) != 0) code = errno;
  return code;
}

// 0 or errno.
int save(const std::string& path, std::string_view bytes) {
  const std::filesystem::path target(path);
  if (!target.has_filename()) return EISDIR;
  bool throughLink = false;
  Descriptor file(::open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | kCommonFlags));
  if (!file.valid() && errno == ELOOP) {
    // A symlink: the file it names is written, and made when it does not exist yet.
    throughLink = true;
    file = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | kCommonFlags, 0666));
  }
  if (!file.valid()) {
    if (errno != ENOENT || throughLink) return errno;
    if (beyondSizeLimit(bytes.size())) return EFBIG;
    return replaceThroughTemporary(target, bytes, -1, {});
  }
  struct stat info {};
  if (::fstat(file.get(), &info) != 0) return errno;
  if (!S_ISREG(info.st_mode)) {
    // A FIFO or a device takes the bytes as they come; someone reads at the other end,
    // or the open would have failed, so waiting for them is no hang.
    int flags = ::fcntl(file.get(), F_GETFL);
    if (flags >= 0) ::fcntl(file.get(), F_SETFL, flags & ~O_NONBLOCK);
    return writeToStream(file.get(), bytes);
  }
  if (beyondSizeLimit(bytes.size())) return EFBIG;
  if (!throughLink && info.st_nlink == 1) {
    int code = replaceThroughTemporary(target, bytes, file.get(), info);
    if (code != kWriteInPlace) return code;
  }
  return writeInPlace(file.get(), bytes);
}

FileError readableKind(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) return FileError::IsFolder;
  if (!S_ISREG(info.st_mode)) return FileError::NotRegular;
  if (static_cast<uint64_t>(info.st_size) > kMaxReadBytes) return FileError::TooLarge;
  return FileError::None;
}

}  // namespace

FileError saveFile(const std::string& path, std::string_view bytes) {
  if (path == kStandardOutput) return errorOf(writeToStream(STDOUT_FILENO, bytes));
  return creatingErrorOf(save(path, bytes));
}

void reserveLarge(std::string& text, size_t bytes) {
  text.reserve(text.size() + bytes);
  constexpr uintptr_t kLargePage = uintptr_t{2} << 20;
  const auto begin = reinterpret_cast<uintptr_t>(text.data());
  const uintptr_t first = (begin + kLargePage - 1) & ~(kLargePage - 1);
  const uintptr_t last = (begin + text.capacity()) & ~(kLargePage - 1);
  // Only advice: without large pages the buffer works as well.
  if (last > first) ::madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}

FileError readWholeFile(const std::string& path, std::string& bytes, IfMissing missing) {
  // Told apart before opening: opening a device can have effects of its own.
  struct stat info {};
  if (::stat(path.c_str(), &info) == 0) {
    if (FileError kind = readableKind(info); kind != FileError::None) return kind;
  } else if (errno != ENOENT || missing == IfMissing::Fail) {
    return errorOf(errno);
  }
  const int create = missing == IfMissing::CreateEmpty ? O_CREAT : 0;
  // Not blocking, in case a FIFO took the name in the meantime.
  Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | create | kCommonFlags, 0666));
  if (!file.valid()) return create ? creatingErrorOf(errno) : errorOf(errno);
  if (::fstat(file.get(), &info) != 0) return errorOf(errno);
  if (FileError kind = readableKind(info); kind != FileError::None) return kind;
  // Read straight into the text, with a byte of room beyond the file's size for the read
  // that finds the end; a file that grows meanwhile grows the text.
  std::string text;
  reserveLarge(text, static_cast<size_t>(info.st_size) + 1);
  size_t size = 0;
  for (;;) {
    if (size == text.size()) text.resize(std::max(text.capacity(), size + 65536));
    ssize_t got = ::read(file.get(), text.data() + size, text.size() - size);
    if (got < 0) {
      if (errno == EINTR) continue;
      return errorOf(errno);
    }
    if (got == 0) break;
    size += static_cast<size_t>(got);
    // A file that grows while it is read is held to the same limit.
    if (size > kMaxReadBytes) return FileError::TooLarge;
  }
  text.resize(size);
  bytes = std::move(text);
  return FileError::None;
}

std::string fileErrorReason(FileError error) {
  switch (error) {
    case FileError::None:
      return {};
    case FileError::Missing:
      return "Filen finnes ikke.";
    case FileError::NoFolder:
      return "Mappen finnes ikke.";
    case FileError::IsFolder:
      return "Det finnes en mappe med dette navnet.";
    case FileError::NotRegular:
      return "Det er ikke en vanlig fil, men for eksempel et rør eller en enhet."_cp;
    case FileError::TooLarge:
      return "Filen er over 512 MB, langt større enn noen plan."_cp;
    case FileError::NotPermitted:
      return "Du har ikke tilgang til filen eller mappen den ligger i.";
    case FileError::ReadOnlyPlace:
      return "Stedet er skrivebeskyttet.";
    case FileError::NoSpace:
      return "Det er ikke mer plass på disken."_cp;
    case FileError::TooBig:
      return "Filen ble for stor.";
    case FileError::NameTooLong:
      return "Navnet er for langt.";
    case FileError::NoReader:
      return "Ingen programmer leser fra røret."_cp;
    case FileError::Failed:
      break;
  }
  return "Filsystemet meldte en feil.";
}

std::string fileMessage(FileAction action, const std::string& path, std::string_view reason) {
  std::string message =
      action == FileAction::Save ? "Kunne ikke lagre filen '" : "Kunne ikke åpne filen '"_cp;
  message.append(utf8ToCp1252(path)).append("'. ").append(reason);
  return message;
}

std::string fileMessage(FileAction action, const std::string& path, FileError error) {
  return fileMessage(action, path, fileErrorReason(error));
}

bool saveFileAtomically(const std::string& path, std::string_view bytes, std::string& reason) {
  FileError error = saveFile(path, bytes);
  if (error == FileError::None) return true;
  reason = fileErrorReason(error);
  return false;
}

}  // namespace tavlero
