#pragma once
// One geometry list parsed, with a coarse grid over the boxes, made again only when the
// list has changed since. A search then costs the same on any size of board, and the
// answer stays that of a walk from index 0: the lowest entry that the test accepts, among
// those whose box strictly holds the point (the only ones a test may accept).

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "core/project_store.h"
#include "core/records.h"

namespace tavlero {

class GeometryIndex {
 public:
  // shape turns the boxes of the records into the boxes the test takes (none: the same);
  // test says whether a box takes the point.
  using Shape = std::vector<Box> (*)(const std::vector<Box>&);
  using Test = bool (*)(const Box&, float, float);

  // The index serves one list for its whole life: the list's revision tells it apart
  // from every earlier state of the same list.
  int16_t find(const StringList& list, Shape shape, Test test, float x, float y);

  // The drawing that has just written the list hands over the boxes its records read as,
  // so that the next search reads no record; only the boxes that moved change the grid.
  void adopt(const StringList& list, std::vector<Box> boxes);

 private:
  // Takes the boxes of the entries written since revision_ alone; false when the list
  // cannot tell which they were.
  bool readWritten(const StringList& list);
  int16_t firstAccepted(const std::vector<int16_t>& indices, Test test, float x, float y) const;
  void update(Shape shape);
  void place(int16_t index, bool add);

  uint64_t revision_ = 0;
  int16_t count_ = -1;
  std::vector<Box> read_;  // the boxes of the records, as the list stands at revision_
  bool shaped_ = false;    // whether entries_ and the grid follow read_
  std::vector<Box> entries_;
  std::unordered_map<uint64_t, std::vector<int16_t>> buckets_;  // each in ascending order
  std::vector<int16_t> wide_;
};

}  // namespace tavlero
