#pragma once
// The one place where the program touches files: every file it writes and every project
// or settings file it reads goes through here, and every failure comes back as a
// FileError that fileMessage turns into the Norwegian message naming the file.
//
// Writing follows the rules of the careful editors (GIO's g_file_replace):
// - a regular file with one link, in a folder we may write, is replaced safely: a
//   temporary file beside it is written, fsynced and renamed over it, and the folder is
//   fsynced; the temporary file takes the old file's mode, owner, group and extended
//   attributes (ACLs among them);
// - where any of that cannot be kept, where the file has other links or is reached
//   through a symlink, or where the folder is not writable, the file is written in
//   place, so its links, owner and rights stay what they were;
// - a file we may not write is refused, and nothing changes;
// - a FIFO, a device or any other file that is not regular is written into as it is;
// - the path "-" is standard output, as for every command-line tool (the desktop
//   program's paths are whole paths from its dialog, never that).
// Reading takes only regular files, and none larger than kMaxReadBytes.

#include <cstdint>
#include <string>
#include <string_view>

namespace tavlero {

enum class FileError {
  None,
  Missing,        // no such file
  NoFolder,       // the folder on the way does not exist
  IsFolder,       // the path names a folder
  NotRegular,     // a FIFO, a device or a socket, where only a plain file will do
  TooLarge,       // larger than kMaxReadBytes
  NotPermitted,   // the user may not read or write the file
  ReadOnlyPlace,  // a read-only file system
  NoSpace,        // the disk or the user's quota is full
  TooBig,         // beyond the largest file the user may write
  NameTooLong,
  NoReader,  // a FIFO or pipe that no one reads from
  Failed,    // anything else
};

// Far above any real plan, far below what would exhaust the machine.
inline constexpr uint64_t kMaxReadBytes = uint64_t{512} << 20;

inline constexpr std::string_view kStandardOutput = "-";

// Our own temporary files beside a target are named with this, the maker's process id and
// four letters (".tavlero-4242-x7qa"); one left by a save killed at the wrong moment is
// swept by a later save in the same folder.
inline constexpr std::string_view kTemporaryPrefix = ".tavlero-";

FileError saveFile(const std::string& path, std::string_view bytes);

enum class IfMissing { Fail, CreateEmpty };
// The whole file at path. On failure bytes are left as they were.
FileError readWholeFile(const std::string& path, std::string& bytes, IfMissing missing = IfMissing::Fail);

// One sentence (Windows-1252) that says why.
std::string fileErrorReason(FileError error);

// Reserves room for bytes more characters in text, asking the system for large pages
// where a whole plan's text makes one buffer: a page fault each 4 KB costs more than the
// copying.
void reserveLarge(std::string& text, size_t bytes);

enum class FileAction { Save, Open };
// "Kunne ikke lagre filen 'path'. reason" or "Kunne ikke åpne filen 'path'. reason", in
// Windows-1252, the path as the user typed or chose it.
std::string fileMessage(FileAction action, const std::string& path, std::string_view reason);
std::string fileMessage(FileAction action, const std::string& path, FileError error);

// saveFile for callers that carry a reason text of their own: on failure false and the
// reason of fileErrorReason.
bool saveFileAtomically(const std::string& path, std::string_view bytes, std::string& reason);

}  // namespace tavlero
