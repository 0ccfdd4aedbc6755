#include "export/export_index.h"

#include "core/record.h"

namespace tavlero {

namespace {
const std::string kNoText;
const std::vector<int16_t> kNoLinks;
}  // namespace

ExportIndex::ExportIndex(const ProjectStore& store) : store_(store) {
  const auto& items = store.itemList.items();
  names_.reserve(items.size());
  summaries_.reserve(items.size());
  colours_.reserve(items.size());
  firstEqualRecord_.reserve(items.size());
  std::unordered_map<std::string_view, int16_t> firstByRecord;
  for (size_t i = 0; i < items.size(); ++i) {
    const std::string& record = items[i];
    names_.push_back(getField(record, "methodName"));
    summaries_.push_back(getField(record, "shortDescription"));
    colours_.push_back(toLong(textToNumber(getField(record, "cellColor"))));
    firstEqualRecord_.push_back(firstByRecord.try_emplace(record, static_cast<int16_t>(i)).first->second);
  }
  // Filled only once names_ stops growing: the keys look into its strings.
  for (size_t i = 0; i < names_.size(); ++i) lastByName_[names_[i]] = static_cast<int16_t>(i);

  const auto& links = store.linkList.items();
  sources_.reserve(links.size());
  targets_.reserve(links.size());
  for (const std::string& link : links) {
    sources_.push_back(getField(link, "linkSource"));
    targets_.push_back(getField(link, "linkTarget"));
  }
  for (size_t k = 0; k < links.size(); ++k) {
    bySource_[sources_[k]].push_back(static_cast<int16_t>(k));
    byTarget_[targets_[k]].push_back(static_cast<int16_t>(k));
  }
}

const std::string& ExportIndex::methodName(int16_t index) const {
  return validCell(index) ? names_[static_cast<size_t>(index)] : kNoText;
}

const std::string& ExportIndex::shortDescription(int16_t index) const {
  return validCell(index) ? summaries_[static_cast<size_t>(index)] : kNoText;
}

std::string ExportIndex::longDescription(int16_t index) const {
  // The store answers an empty record with nothing, whatever its slot holds.
  if (!validCell(index) || store_.itemList.List(index).empty()) return {};
  return store_.getLongDescription(firstEqualRecord_[static_cast<size_t>(index)]);
}

int32_t ExportIndex::cellColor(int16_t index) const {
  return validCell(index) ? colours_[static_cast<size_t>(index)] : 0;
}

int16_t ExportIndex::findMethodByName(std::string_view name) const {
  auto found = lastByName_.find(name);
  return found == lastByName_.end() ? int16_t{-1} : found->second;
}

const std::vector<int16_t>& ExportIndex::find(const Positions& positions, std::string_view name) {
  auto found = positions.find(name);
  return found == positions.end() ? kNoLinks : found->second;
}

const std::vector<int16_t>& ExportIndex::linksFrom(std::string_view name) const {
  return find(bySource_, name);
}

const std::vector<int16_t>& ExportIndex::linksTo(std::string_view name) const {
  return find(byTarget_, name);
}

}  // namespace tavlero
