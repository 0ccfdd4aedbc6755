#include "test_support.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "core/record.h"
#include "core/records.h"

namespace tavlero::testing {

MsgResult FakeUi::MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                         const std::string& title) {
  messages.push_back({prompt, buttons, icon, title});
  if (!answers.empty()) {
    MsgResult next = answers.front();
    answers.pop_front();
    return next;
  }
  return buttons == MsgButtons::OK ? MsgResult::OK : MsgResult::Yes;
}

bool FakeCommonDialog::answer(std::deque<std::string>& queue, int& shown) {
  ++shown;
  filtersSeen.push_back(Filter);
  if (queue.empty()) return false;
  std::string path = queue.front();
  queue.pop_front();
  if (path.empty()) return false;
  FileName = path;
  FileTitle = std::filesystem::path(path).filename().string();
  return true;
}

bool FakePictures::SavePicture(const Surface&, const std::string& path, PictureFormat, std::string& error) {
  if (fail) {
    error = "Kunne ikke lagre bildet.";
    return false;
  }
  paths.push_back(path);
  return true;
}

int16_t FakeWorld::addCell(const std::string& name, float x, float y, const std::string& summary,
                           int32_t color, int32_t fill, const std::string& longDescription) {
  auto& store = app.store;
  CellFields cell{numberToText(x), numberToText(y), name, summary, numberToText(color), numberToText(fill)};
  store.itemList.AddItem(buildCell(cell, store.fieldSeparator, store.fieldSeparator));
  auto index = static_cast<int16_t>(store.itemList.ListCount() - 1);
  store.setLongDescription(index, longDescription);
  store.sizeList.AddItem(std::string(kGeometryPlaceholder));
  return index;
}

int16_t FakeWorld::addLinkRecord(const std::string& source, const std::string& target) {
  auto& store = app.store;
  store.linkList.AddItem(buildLink(source, target));
  store.linkSizeList.AddItem(std::string(kTaggedGeometryPlaceholder));
  return static_cast<int16_t>(store.linkList.ListCount() - 1);
}

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tavlero-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  path_ = pattern + "/";
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string dataPath(const std::string& relative) {
  return std::string(TAVLERO_TEST_DATA) + "/" + relative;
}

std::vector<std::vector<std::string>> readCases(const std::string& relative) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(readFile(dataPath(relative)));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string>& row = rows.emplace_back(1);
    for (size_t i = 0; i < line.size(); ++i) {
      if (line[i] == '\t') {
        row.emplace_back();
      } else if (line[i] != '\\' || i + 1 == line.size()) {
        row.back() += line[i];
      } else if (char c = line[++i]; c == 'x') {
        row.back() += static_cast<char>(std::stoi(line.substr(i + 1, 2), nullptr, 16));
        i += 2;
      } else {
        row.back() += c == 'r' ? '\r' : c == 'n' ? '\n' : c == 't' ? '\t' : c;
      }
    }
  }
  // A table that lost its file must not pass by testing nothing.
  if (rows.empty()) throw std::runtime_error("no cases in " + relative);
  return rows;
}

std::vector<std::vector<float>> numberGroups(const std::string& field) {
  std::vector<std::vector<float>> groups;
  std::istringstream list(field);
  for (std::string group; std::getline(list, group, ';');) {
    std::istringstream numbers(group);
    std::vector<float>& found = groups.emplace_back();
    for (float number; numbers >> number;) found.push_back(number);
    if (!numbers.eof()) found.clear();
  }
  return groups;
}

}  // namespace tavlero::testing
