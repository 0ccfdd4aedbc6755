#pragma once
// What the exports look up again and again, gathered in one walk over the lists, so that
// a whole report or scheme stays linear in the size of the plan instead of walking every
// link for every method and every method for every table cell. Every name gets a number
// once; after that no text is hashed or compared while the output is built.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/name_index.h"
#include "core/project_store.h"

namespace tavlero {

class ExportIndex {
 public:
  explicit ExportIndex(const ProjectStore& store);

  // A position outside itemList reads as a record with nothing in it.
  std::string_view methodName(int16_t method) const;
  std::string_view shortDescription(int16_t method) const;
  // As getField(record, "longDescription") of the store: the long description of the first
  // entry of itemList equal to the record.
  const std::string& longDescription(int16_t method) const;

  // Positions in linkList, in list order, of the links whose linkSource (linkTarget) is
  // the method's name.
  std::span<const int16_t> linksFrom(int16_t method) const;
  std::span<const int16_t> linksTo(int16_t method) const;

  // A size to reserve for a text of the whole plan: the names and summaries, which the
  // outputs repeat, and a frame of a given size around each method and each link.
  size_t expectedSize(size_t perMethod, size_t perLink) const {
    return textBytes_ + perMethod * methods_.size() + perLink * links_.size();
  }

  std::string_view linkSource(int16_t link) const { return links_[static_cast<size_t>(link)].source; }
  std::string_view linkTarget(int16_t link) const { return links_[static_cast<size_t>(link)].target; }
  // The cellColor of the last cell named by the link's end; 0 when no cell has that name.
  int32_t sourceColour(int16_t link) const {
    return colourOfName(links_[static_cast<size_t>(link)].sourceId);
  }
  int32_t targetColour(int16_t link) const {
    return colourOfName(links_[static_cast<size_t>(link)].targetId);
  }

 private:
  // The names are views into names_, the summaries into the store's records, which no
  // export changes.
  struct Method {
    std::string_view name, summary;
    int32_t colour;
    int32_t nameId;
    int16_t firstEqualRecord;
  };
  struct Link {
    std::string_view source, target;
    int32_t sourceId, targetId;
  };
  // Links grouped by the number of one end's name, list order kept within a group.
  struct Groups {
    std::vector<uint32_t> start;  // group g is entries[start[g]] up to entries[start[g + 1]]
    std::vector<int16_t> entries;
    std::span<const int16_t> of(int32_t id) const;
  };

  int32_t nameIdOf(int16_t method) const;
  bool validMethod(int16_t method) const {
    return method >= 0 && static_cast<size_t>(method) < methods_.size();
  }
  int32_t colourOfName(int32_t id) const;
  static Groups group(const std::vector<Link>& links, int32_t Link::*end, size_t names);

  const ProjectStore& store_;
  NameIndex names_;  // every name of a method or a link, methods' first
  std::vector<Method> methods_;
  std::vector<Link> links_;
  std::vector<int16_t> lastMethodOfName_;
  int32_t emptyNameId_ = -1;
  size_t textBytes_ = 0;
  Groups bySource_;
  Groups byTarget_;
};

}  // namespace tavlero
