#pragma once
// The text work of the .tvl file, with no file system and no display: the bytes the
// writer produces and the tag scanner the reader and the checker share.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/project_store.h"

namespace tavlero {

// The whole file as writeProject writes it.
std::string projectFileText(const ProjectStore& store);

// A font size of the file as the reader stores it; one that does not fit 16 bits counts
// as 0, below the reader's limit of 1, so the settings take its place.
int16_t fontSizeOf(std::string_view text);

// A record from its first '<' through its last '>', so that the white space a record
// read from a file carries round it does not pile up at every save.
std::string_view trimRecord(std::string_view record);

// text.find(what, from), by memmem: find stops at every character like what's first one to
// compare the rest, which in a whole file is every '<'.
size_t findText(std::string_view text, std::string_view what, size_t from = 0);

// One loop of the reader over the userMethod or userLink elements: each round takes
// getField(workText, key) of the text not yet scanned and cuts that text behind the
// element's closing tag and skipBehind more characters. The cut is an offset, and every
// place of both tags is found first, in one search of the whole text, so a whole file
// costs linear time.
class ElementScanner {
 public:
  ElementScanner(std::string_view text, std::string_view key, size_t skipBehind);

  // The next element; empty when the loop ends.
  std::string_view next();
  // Start of the text not yet scanned, as an index into the whole text. At the end of
  // the loop, the start of the round that found nothing.
  size_t offset() const { return offset_; }
  // How many opening tags the text holds: about how many elements the loop will give.
  size_t openings() const { return open_.at.size(); }

 private:
  // The places of one tag, in order; the offset only grows, so a cursor walks them.
  struct Places {
    std::vector<size_t> at;
    size_t next = 0;
    // The first place at or behind offset; npos when there is none.
    size_t from(size_t offset);
  };

  std::string_view text_;
  size_t skipBehind_;
  size_t offset_ = 0;
  size_t openSize_;   // "<key>"
  size_t closeSize_;  // "</key>"
  Places open_;
  Places close_;
};

// A userMethod element cut into the cell record and the long description.
struct MethodParts {
  std::string record;
  std::string longDescription;
  bool hasLongDescription = true;     // the element held "<longDescription"
  bool closedLongDescription = true;  // and "</longDescription>"
  bool recordHoldsOpenText = false;   // the record still holds "<longDescription"
};

// The record is the element less "<longDescription" through "</longDescription>", the
// white space round them staying; the long description is the tag search's. Without the
// opening text the record keeps the whole element; without the closing tag the long
// description runs to the element's end, so nothing of it is lost.
MethodParts splitMethod(std::string_view element);

inline constexpr size_t kSkipBehindMethod = 1;  // the character behind </userMethod>
inline constexpr size_t kSkipBehindLink = 0;

// How many methods and links of a file lay beyond what a plan holds.
struct LeftOut {
  size_t methods = 0;
  size_t links = 0;
};

// The reader's two loops: they append the file's methods (with their long descriptions)
// and links to the store's lists, each with its geometry placeholder, up to what a plan
// holds. They fill lists of their own, so they run side by side on two cores.
LeftOut readLists(ProjectStore& store, std::string_view fileText);

}  // namespace tavlero
