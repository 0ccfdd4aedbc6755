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
  // read turns the list into one box per entry; test says whether a box takes the point.
  using Reader = std::vector<Box> (*)(const StringList&);
  using Test = bool (*)(const Box&, float, float);

  // The index serves one list for its whole life: the list's revision tells it apart
  // from every earlier state of the same list.
  int16_t find(const StringList& list, Reader read, Test test, float x, float y);

 private:
  int16_t firstAccepted(const std::vector<int16_t>& indices, Test test, float x, float y) const;
  void rebuild(const StringList& list, Reader read);

  uint64_t revision_ = 0;
  int16_t count_ = -1;
  std::vector<Box> entries_;
  std::unordered_map<uint64_t, std::vector<int16_t>> buckets_;
  std::vector<int16_t> wide_;
};

}  // namespace tavlero
