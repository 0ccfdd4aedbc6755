#include "files/project_text.h"

#include <string.h>

#include <atomic>
#include <cmath>
#include <future>
#include <optional>
#include <utility>

#include "core/record.h"
#include "core/records.h"
#include "files/save_file.h"

namespace tavlero {

namespace {

constexpr std::string_view kEnd = "\r\n";

void appendLine(std::string& out, std::string_view open, std::string_view value, std::string_view close) {
  out.append(open).append(value).append(close).append(kEnd);
}

}  // namespace

int16_t fontSizeOf(std::string_view text) {
  double rounded = std::nearbyint(textToNumber(text));
  if (!(rounded >= -32768.0 && rounded <= 32767.0)) return 0;
  return static_cast<int16_t>(rounded);
}

std::string_view trimRecord(std::string_view record) {
  size_t first = record.find('<');
  size_t last = record.rfind('>');
  if (first != std::string_view::npos && last != std::string_view::npos && first <= last)
    return record.substr(first, last - first + 1);
  // No tag at all: the text itself, less the white space round it.
  constexpr std::string_view kBlank = " \t\r\n";
  size_t begin = record.find_first_not_of(kBlank);
  if (begin == std::string_view::npos) return {};
  return record.substr(begin, record.find_last_not_of(kBlank) - begin + 1);
}

std::string projectFileText(const ProjectStore& store) {
  std::string out;
  size_t estimate = 512 + store.programName.size() + store.programDescription.size();
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i)
    estimate += 64 + store.itemList.List(i).size() + store.getLongDescription(i).size();
  for (const auto& link : store.linkList.items()) estimate += 32 + link.size();
  reserveLarge(out, estimate);

  out.append("<?xml version=\"1.0\"?>").append(kEnd);
  appendLine(out, "<projectName>", store.programName, "</projectName>");
  appendLine(out, "<projectDescription>", store.programDescription, "</projectDescription>");
  appendLine(out, "<minimumCellWidth>", numberToText(store.minimumCellWidth), "</minimumCellWidth>");
  appendLine(out, "<maximumCellWidth>", numberToText(store.maximumCellWidth), "</maximumCellWidth>");
  appendLine(out, "<nameFontSize>", numberToText(store.nameFontSize), "</nameFontSize>");
  appendLine(out, "<infoFontSize>", numberToText(store.infoFontSize), "</infoFontSize>");
  appendLine(out, "<fontName>", store.fontName, "</fontName>");
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) {
    out.append("<userMethod>").append(kEnd);
    appendLine(out, "\t", trimRecord(store.itemList.List(i)), "");
    appendLine(out, "\t<longDescription>", store.getLongDescription(i), "</longDescription>");
    out.append("</userMethod>").append(kEnd);
  }
  out.append(kEnd).append(kEnd);
  for (const auto& link : store.linkList.items()) {
    out.append("<userLink>").append(kEnd);
    appendLine(out, "\t", trimRecord(link), "");
    out.append("</userLink>").append(kEnd);
  }
  return out;
}

size_t findText(std::string_view text, std::string_view what, size_t from) {
  const void* at =
      from > text.size() ? nullptr : memmem(text.data() + from, text.size() - from, what.data(), what.size());
  return at ? static_cast<size_t>(static_cast<const char*>(at) - text.data()) : std::string_view::npos;
}

size_t ElementScanner::Places::from(size_t offset) {
  while (next < at.size() && at[next] < offset) ++next;
  return next < at.size() ? at[next] : std::string_view::npos;
}

ElementScanner::ElementScanner(std::string_view text, std::string_view key, size_t skipBehind)
    : text_(text), skipBehind_(skipBehind), openSize_(key.size() + 2), closeSize_(key.size() + 3) {
  // Both tags end in "key>": each place of that is the opening tag behind a '<', the
  // closing one behind "</", or neither.
  const std::string ending = std::string(key) + ">";
  for (size_t hit = findText(text, ending, 1); hit != std::string_view::npos;
       hit = findText(text, ending, hit + 1)) {
    if (text[hit - 1] == '<')
      open_.at.push_back(hit - 1);
    else if (hit >= 2 && text[hit - 1] == '/' && text[hit - 2] == '<')
      close_.at.push_back(hit - 2);
  }
}

std::string_view ElementScanner::next() {
  if (offset_ >= text_.size()) return {};
  size_t openPos = open_.from(offset_);
  size_t closePos = close_.from(offset_);
  // Without an opening tag the search counts from the start of the text left, as getField.
  size_t start = openPos == std::string_view::npos ? offset_ + openSize_ - 1 : openPos + openSize_;
  if (closePos == std::string_view::npos || closePos <= start) return {};
  offset_ = closePos + closeSize_ + skipBehind_;
  return text_.substr(start, closePos - start);
}

MethodParts splitMethod(std::string_view element) {
  constexpr size_t npos = std::string_view::npos;
  constexpr std::string_view kOpenText = "<longDescription";
  constexpr std::string_view kCloseTag = "</longDescription>";
  // The first "<longDescription", "<longDescription>" and "</longDescription>", in one pass
  // from '<' to '<' of the element.
  size_t cutStart = npos;
  size_t openTag = npos;
  size_t closePos = npos;
  for (size_t at = element.find('<'); at != npos && (openTag == npos || closePos == npos);
       at = element.find('<', at + 1)) {
    const std::string_view rest = element.substr(at);
    if (rest.starts_with(kOpenText)) {
      if (cutStart == npos) cutStart = at;
      if (openTag == npos && rest.size() > kOpenText.size() && rest[kOpenText.size()] == '>') openTag = at;
    } else if (closePos == npos && rest.starts_with(kCloseTag)) {
      closePos = at;
    }
  }
  MethodParts parts;
  if (cutStart == npos) {
    parts.hasLongDescription = false;
    parts.record = element;
    return parts;
  }
  if (closePos == npos) {
    parts.closedLongDescription = false;
    std::string_view rest = element.substr(cutStart + kOpenText.size());
    if (!rest.empty() && rest.front() == '>') rest.remove_prefix(1);
    parts.longDescription = rest;
    parts.record = element.substr(0, cutStart);
    return parts;
  }
  // As getField(element, "longDescription") finds it.
  const size_t start = openTag == npos ? kOpenText.size() : openTag + kOpenText.size() + 1;
  if (closePos > start) parts.longDescription = element.substr(start, closePos - start);
  size_t cutEnd = closePos + kCloseTag.size();
  parts.record.reserve(cutStart + element.size() - cutEnd);
  parts.record.append(element.substr(0, cutStart)).append(element.substr(cutEnd));
  // The part before the cut holds no "<longDescription": one can only start just before
  // the cut and run over it, or stand behind it.
  const size_t joint = cutStart < kOpenText.size() ? 0 : cutStart - kOpenText.size();
  parts.recordHoldsOpenText = parts.record.find(kOpenText, joint) != std::string::npos;
  return parts;
}

namespace {

// Room in both lists for the elements to come, so that they are not copied as they grow.
void reserve(StringList& records, StringList& geometry, size_t count, size_t most) {
  records.reserve(std::min(count, most));
  geometry.reserve(std::min(count, most));
}

size_t readMethods(ProjectStore& store, std::string_view fileText) {
  ElementScanner scanner(fileText, key::userMethod, kSkipBehindMethod);
  reserve(store.itemList, store.sizeList, scanner.openings(), ProjectStore::kMaxMethods);
  size_t leftOut = 0;
  // An element can only equal an earlier record when such a record kept a
  // "<longDescription" of its own; until then the store's lookup would find nothing.
  bool recordsHoldTag = false;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    if (store.itemList.ListCount() >= ProjectStore::kMaxMethods) {
      ++leftOut;
      continue;
    }
    MethodParts parts = splitMethod(element);
    int16_t n = store.itemList.ListCount();
    std::string longDescription = std::move(parts.longDescription);
    if (recordsHoldTag && parts.hasLongDescription && parts.closedLongDescription)
      longDescription = store.getField(element, key::longDescription);
    store.setLongDescription(n, std::move(longDescription));
    if (parts.recordHoldsOpenText) recordsHoldTag = true;
    store.itemList.AddItem(std::move(parts.record));
    store.sizeList.AddItem(std::string(kGeometryPlaceholder));
  }
  return leftOut;
}

size_t readLinks(ProjectStore& store, std::string_view fileText) {
  ElementScanner scanner(fileText, key::userLink, kSkipBehindLink);
  reserve(store.linkList, store.linkSizeList, scanner.openings(), ProjectStore::kMaxLinks);
  size_t leftOut = 0;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    if (!store.linkList.AddItem(std::string(element))) {
      ++leftOut;
      continue;
    }
    store.linkSizeList.AddItem(std::string(kGeometryPlaceholder));
  }
  return leftOut;
}

}  // namespace

LeftOut readLists(ProjectStore& store, std::string_view fileText) {
  // The links take another thread when one can be had. On a busy machine that thread may
  // not have begun when the methods are read; this one then reads the links itself.
  std::atomic<bool> taken = false;
  auto links = [&store, fileText, &taken] {
    return taken.exchange(true) ? std::nullopt : std::optional(readLinks(store, fileText));
  };
  std::future<std::optional<size_t>> there = std::async(std::launch::async | std::launch::deferred, links);
  LeftOut leftOut;
  leftOut.methods = readMethods(store, fileText);
  const std::optional<size_t> here = links();
  const std::optional<size_t> read = there.get();
  leftOut.links = here ? *here : *read;
  return leftOut;
}

}  // namespace tavlero
