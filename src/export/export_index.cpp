#include "export/export_index.h"

#include "core/record.h"
#include "core/records.h"

namespace tavlero {

namespace {
const std::string kNoText;
}  // namespace

ExportIndex::ExportIndex(const ProjectStore& store)
    : store_(store), names_(store.itemList.items().size() + store.linkList.items().size()) {
  const auto& items = store.itemList.items();
  const auto& links = store.linkList.items();
  // The methods' names are numbered first, in list order.
  methods_.reserve(items.size());
  for (const std::string& record : items) {
    const int32_t id = names_.add(fieldView(record, key::methodName));
    methods_.push_back({names_.name(id), fieldView(record, key::shortDescription),
                        toLong(numberField(record, key::cellColor)), id, -1});
  }
  links_.reserve(links.size());
  for (const std::string& link : links) {
    const int32_t source = names_.add(fieldView(link, key::linkSource));
    const int32_t target = names_.add(fieldView(link, key::linkTarget));
    links_.push_back({names_.name(source), names_.name(target), source, target});
  }

  for (const Method& method : methods_) textBytes_ += 3 * method.name.size() + method.summary.size();
  for (const Link& link : links_) textBytes_ += link.source.size() + link.target.size();

  // Equal records have equal names, so a record is compared only with the earlier cells
  // of its name, found through a chain from the first of them.
  std::vector<int16_t> firstMethodOfName;
  std::vector<int16_t> nextOfSameName(methods_.size(), -1);
  for (size_t i = 0; i < methods_.size(); ++i) {
    Method& method = methods_[i];
    const auto id = static_cast<size_t>(method.nameId);
    const auto self = static_cast<int16_t>(i);
    method.firstEqualRecord = self;
    if (id == firstMethodOfName.size()) {
      firstMethodOfName.push_back(self);
      lastMethodOfName_.push_back(self);
      continue;
    }
    for (int16_t earlier = firstMethodOfName[id]; earlier >= 0;
         earlier = nextOfSameName[static_cast<size_t>(earlier)])
      if (items[static_cast<size_t>(earlier)] == items[i]) {
        method.firstEqualRecord = earlier;
        break;
      }
    nextOfSameName[static_cast<size_t>(lastMethodOfName_[id])] = self;
    lastMethodOfName_[id] = self;
  }
  lastMethodOfName_.resize(names_.size(), -1);  // names that only links use
  emptyNameId_ = names_.find({});
  bySource_ = group(links_, &Link::sourceId, names_.size());
  byTarget_ = group(links_, &Link::targetId, names_.size());
}

ExportIndex::Groups ExportIndex::group(const std::vector<Link>& links, int32_t Link::*end, size_t names) {
  Groups groups;
  groups.start.assign(names + 1, 0);
  for (const Link& link : links) ++groups.start[static_cast<size_t>(link.*end) + 1];
  for (size_t g = 0; g < names; ++g) groups.start[g + 1] += groups.start[g];
  groups.entries.resize(links.size());
  std::vector<uint32_t> next(groups.start.begin(), groups.start.end() - 1);
  for (size_t k = 0; k < links.size(); ++k)
    groups.entries[next[static_cast<size_t>(links[k].*end)]++] = static_cast<int16_t>(k);
  return groups;
}

std::span<const int16_t> ExportIndex::Groups::of(int32_t id) const {
  if (id < 0) return {};
  return std::span<const int16_t>(entries).subspan(
      start[static_cast<size_t>(id)], start[static_cast<size_t>(id) + 1] - start[static_cast<size_t>(id)]);
}

int32_t ExportIndex::nameIdOf(int16_t method) const {
  return validMethod(method) ? methods_[static_cast<size_t>(method)].nameId : emptyNameId_;
}

std::string_view ExportIndex::methodName(int16_t method) const {
  return validMethod(method) ? methods_[static_cast<size_t>(method)].name : std::string_view();
}

std::string_view ExportIndex::shortDescription(int16_t method) const {
  return validMethod(method) ? methods_[static_cast<size_t>(method)].summary : std::string_view();
}

const std::string& ExportIndex::longDescription(int16_t method) const {
  // The store answers an empty record with nothing, whatever its slot holds.
  if (!validMethod(method) || store_.itemList.List(method).empty()) return kNoText;
  return store_.getLongDescription(methods_[static_cast<size_t>(method)].firstEqualRecord);
}

std::span<const int16_t> ExportIndex::linksFrom(int16_t method) const {
  return bySource_.of(nameIdOf(method));
}

std::span<const int16_t> ExportIndex::linksTo(int16_t method) const {
  return byTarget_.of(nameIdOf(method));
}

int32_t ExportIndex::colourOfName(int32_t id) const {
  int16_t method = lastMethodOfName_[static_cast<size_t>(id)];
  return method < 0 ? 0 : methods_[static_cast<size_t>(method)].colour;
}

}  // namespace tavlero
