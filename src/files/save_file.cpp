#include "files/save_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "core/cp1252.h"

namespace tavlero {

namespace {

std::string reasonOf(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
      return "Det er ikke mer plass på disken."_cp;
    case EFBIG:
      return "Filen ble for stor."_cp;
    case EACCES:
    case EPERM:
      return "Du har ikke tilgang til å skrive der."_cp;
    case EROFS:
      return "Stedet er skrivebeskyttet."_cp;
    case EISDIR:
      return "Det finnes en mappe med dette navnet."_cp;
    case ENOENT:
    case ENOTDIR:
      return "Mappen finnes ikke."_cp;
    case ENAMETOOLONG:
      return "Navnet er for langt."_cp;
    default:
      return "Skrivingen mislyktes."_cp;
  }
}

bool writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

// A new file gets the usual mode under the umask; a replaced one keeps its own.
mode_t modeFor(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode)) return info.st_mode & 07777;
  mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

bool saveFileAtomically(const std::string& path, std::string_view bytes, std::string& error) {
  std::filesystem::path target(path);
  std::filesystem::path folder = target.parent_path();
  std::string pattern = (folder.empty() ? std::string(".") : folder.string()) + "/." +
                        target.filename().string() + ".tmp-XXXXXX";
  int fd = ::mkstemp(pattern.data());
  if (fd < 0) {
    error = reasonOf(errno);
    return false;
  }
  bool ok = ::fchmod(fd, modeFor(path)) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
  int code = errno;
  if (::close(fd) != 0 && ok) {
    ok = false;
    code = errno;
  }
  if (ok && ::rename(pattern.c_str(), path.c_str()) != 0) {
    ok = false;
    code = errno;
  }
  if (!ok) {
    ::unlink(pattern.c_str());
    error = reasonOf(code);
    return false;
  }
  return true;
}

bool readWholeFile(const std::string& path, std::string& bytes) {
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  std::string text;
  struct stat info {};
  if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) text.reserve(static_cast<size_t>(info.st_size));
  char buffer[65536];
  bool ok = true;
  for (;;) {
    ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got < 0) {
      if (errno == EINTR) continue;
      ok = false;
      break;
    }
    if (got == 0) break;
    text.append(buffer, static_cast<size_t>(got));
  }
  ::close(fd);
  if (ok) bytes = std::move(text);
  return ok;
}

}  // namespace tavlero
