#pragma once
// Everything the running program knows: four ordered lists of record strings, the
// table of long descriptions, the project's name and description, and the program
// variables. One instance lives as long as the program.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/default_font.h"

namespace tavlero {

// What the program variables hold at start, and again where a command resets them; the
// font name beside the canvas's.
namespace defaults {
inline constexpr int32_t cellColor = 16777215;  // white
inline constexpr int32_t fillStyle = 0;         // solid
inline constexpr float zoomFactor = 2.0f;
inline constexpr float minimumCellWidth = 25.0f;
inline constexpr float maximumCellWidth = 50.0f;
inline constexpr int16_t nameFontSize = 6;
inline constexpr int16_t infoFontSize = 4;
inline constexpr int16_t htmlTableColumns = 5;
inline constexpr const char* actionKey = "k";
inline constexpr const char* fieldSeparator = "\r\n\t";  // between the fields of a new cell record
inline constexpr const char* quoteChar = "\"";
}  // namespace defaults

// An ordered list of strings with 16-bit indices, as the list boxes that held the records.
// The capitalised members keep the list box's names that the handlers are written in;
// the lower-case ones are this program's own.
class StringList {
 public:
  static constexpr int16_t kMaxCount = 32767;

  StringList() = default;
  StringList(const StringList&) = default;
  // Taking another list's entries is a change of this list: the revision moves on from
  // its own, never back to one that data derived from this list has already seen.
  StringList& operator=(const StringList& other);

  int16_t ListCount() const { return static_cast<int16_t>(items_.size()); }
  // An index outside the list reads as the empty string and is ignored on writing,
  // so that a stale index can never reach outside the list.
  const std::string& List(int16_t index) const;
  // The entry keeps its own storage, so that writing a record of about its old size allocates nothing.
  void setList(int16_t index, std::string_view text);
  // False, and nothing added, when the list already holds kMaxCount entries.
  bool AddItem(std::string text);
  void RemoveItem(int16_t index);
  // Removes the entries at the given ascending indices in one pass; the rest keep order.
  void RemoveItems(const std::vector<int16_t>& ascendingIndices);
  void Clear();

  const std::vector<std::string>& items() const { return items_; }
  void reserve(size_t count) { items_.reserve(count); }

  // Grows with every change of the content, so that data derived from this list can tell
  // whether it still holds. Writing an entry with the text it already has is no change.
  uint64_t revision() const { return revision_; }

  // One change as the list tells it: an entry written, added at the end or removed, by the
  // index it had then.
  struct Change {
    enum class Kind : uint8_t { Written, Added, Removed } kind;
    int16_t index;
  };
  // The changes since a revision, oldest first, so that data derived from the list follows
  // them rather than comparing every entry; false when the list no longer knows them all.
  bool changesSince(uint64_t revision, std::vector<Change>& changes) const;

 private:
  void changed(Change change);
  void changedWholly();

  std::vector<std::string> items_;
  uint64_t revision_ = 0;
  // The last few changes with the revision each made, complete from knownFrom_ on.
  std::vector<std::pair<uint64_t, Change>> log_;
  uint64_t knownFrom_ = 0;
};

class ProjectStore {
 public:
  static constexpr int16_t kLongDescriptionSlots = 32001;  // indices 0 to 32,000
  static constexpr int16_t kMaxMethods = kLongDescriptionSlots;
  static constexpr int16_t kMaxLinks = StringList::kMaxCount;

  ProjectStore();

  StringList itemList;      // cell records
  StringList sizeList;      // cell geometry records
  StringList linkList;      // link records
  StringList linkSizeList;  // link geometry records

  const std::string& getLongDescription(int16_t index) const;
  void setLongDescription(int16_t index, std::string text);
  // After itemList.RemoveItem(index): the slots from index on move down by one.
  void removeLongDescription(int16_t index);
  void clearLongDescriptions();

  // getField with the one key the store answers itself: "longDescription" looks the
  // record up in itemList and gives the long description of the first equal entry.
  std::string getField(std::string_view record, std::string_view key) const;

  void markChanged() { isSaved = false; }

  // Project text.
  std::string programName;
  std::string programDescription;
  std::string fontName = defaults::fontName;  // the Font.Name of the canvas

  // Program variables.
  float zoomFactor = defaults::zoomFactor;
  float minimumCellWidth = defaults::minimumCellWidth;
  float maximumCellWidth = defaults::maximumCellWidth;
  int16_t nameFontSize = defaults::nameFontSize;
  int16_t infoFontSize = defaults::infoFontSize;
  int16_t selectedCell = -1;
  int16_t selectedLink = -1;
  int32_t currentColor = defaults::cellColor;
  int32_t currentFillStyle = defaults::fillStyle;
  bool isSaved = true;
  // Methods and links of the last file read that lay beyond what a plan holds.
  size_t leftOutAtReading = 0;
  std::string projectFileName;  // native path component
  std::string projectFolder;    // native path, ends in the folder separator
  bool doubleDraw = true;
  std::string actionKey = defaults::actionKey;
  int16_t htmlTableColumns = defaults::htmlTableColumns;
  int32_t lastMouseX = 0;
  int32_t lastMouseY = 0;
  float dragStartX = 0;
  float dragStartY = 0;
  std::string infoPageFolder;
  std::string commandLine;
  std::string appFolder;
  std::string settingsPath;
  std::string fieldSeparator = defaults::fieldSeparator;
  std::string quoteChar = defaults::quoteChar;

 private:
  std::vector<std::string> longDescriptions_;
};

}  // namespace tavlero
