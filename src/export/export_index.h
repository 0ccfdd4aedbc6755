#pragma once
// What the exports look up again and again, gathered in one walk over the lists, so that
// a whole report or scheme stays linear in the size of the plan instead of walking every
// link for every method and every method for every table cell.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/project_store.h"

namespace tavlero {

class ExportIndex {
 public:
  explicit ExportIndex(const ProjectStore& store);

  const std::string& methodName(int16_t index) const;
  const std::string& shortDescription(int16_t index) const;
  // As getField(record, "longDescription") of the store: the long description of the first
  // entry of itemList equal to the record.
  std::string longDescription(int16_t index) const;
  // The colour of the cell at index, 0 for -1.
  int32_t cellColor(int16_t index) const;
  // The last cell of that name, or -1.
  int16_t findMethodByName(std::string_view name) const;

  // Positions in linkList, in list order, of the links whose linkSource (linkTarget) is name.
  const std::vector<int16_t>& linksFrom(std::string_view name) const;
  const std::vector<int16_t>& linksTo(std::string_view name) const;
  const std::string& linkSource(int16_t link) const { return sources_[static_cast<size_t>(link)]; }
  const std::string& linkTarget(int16_t link) const { return targets_[static_cast<size_t>(link)]; }

 private:
  using Positions = std::unordered_map<std::string_view, std::vector<int16_t>>;
  static const std::vector<int16_t>& find(const Positions& positions, std::string_view name);
  bool validCell(int16_t index) const { return index >= 0 && static_cast<size_t>(index) < names_.size(); }

  const ProjectStore& store_;
  std::vector<std::string> names_;
  std::vector<std::string> summaries_;
  std::vector<int32_t> colours_;
  std::vector<int16_t> firstEqualRecord_;
  std::unordered_map<std::string_view, int16_t> lastByName_;
  std::vector<std::string> sources_;
  std::vector<std::string> targets_;
  Positions bySource_;
  Positions byTarget_;
};

}  // namespace tavlero
