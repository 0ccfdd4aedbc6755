#include "files/settings.h"

#include <cctype>
#include <optional>

#include "core/record.h"
#include "core/records.h"
#include "files/save_file.h"

namespace tavlero {

namespace {

// The file as writeDefaultSettings writes it: the start-up values, so that a first start
// and a later one are alike; numbers without the project file's leading blank.
const std::string& defaultSettings() {
  static const std::string text = [] {
    auto line = [](std::string_view key, std::string_view value) {
      return "<" + std::string(key) + ">" + std::string(value) + "</" + std::string(key) + ">\r\n";
    };
    auto number = [](auto value) { return numberToText(value).substr(1); };
    return "<?xml version=\"1.0\"?>\r\n" + line(key::minimumCellWidth, number(defaults::minimumCellWidth)) +
           line(key::maximumCellWidth, number(defaults::maximumCellWidth)) +
           line(key::nameFontSize, number(defaults::nameFontSize)) +
           line(key::infoFontSize, number(defaults::infoFontSize)) + line(key::fontName, defaults::fontName) +
           line(key::doubleDraw, "True") + line(key::actionKey, defaults::actionKey);
  }();
  return text;
}

bool equalsIgnoringCase(std::string_view text, std::string_view word) {
  if (text.size() != word.size()) return false;
  for (size_t i = 0; i < text.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != word[i]) return false;
  return true;
}

// A plain decimal number, as a Boolean conversion accepts one: sign, digits with at
// most one point, an exponent.
bool isNumber(std::string_view text) {
  size_t i = 0;
  auto digits = [&] {
    size_t begin = i;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i;
    return i - begin;
  };
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  size_t count = digits();
  if (i < text.size() && text[i] == '.') {
    ++i;
    count += digits();
  }
  if (count == 0) return false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (digits() == 0) return false;
  }
  return i == text.size();
}

// "True" and "False" in any case, or a number where 0 is False; nothing for other text.
std::optional<bool> booleanOf(std::string_view text) {
  size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return std::nullopt;
  text = text.substr(begin, text.find_last_not_of(' ') - begin + 1);
  if (equalsIgnoringCase(text, "true")) return true;
  if (equalsIgnoringCase(text, "false")) return false;
  if (isNumber(text)) return textToNumber(text) != 0;
  return std::nullopt;
}

// The settings file's bytes, made with the defaults when it is missing or empty.
// Nothing when it can be neither made nor read. A program folder the user may not write
// is usual and goes by in silence; a name that holds no plain file is told.
std::optional<std::string> settingsText(App& app) {
  const std::string& path = app.store.settingsPath;
  std::string text;
  FileError error = readWholeFile(path, text, IfMissing::CreateEmpty);
  if (error == FileError::IsFolder || error == FileError::NotRegular || error == FileError::TooLarge)
    app.platform.ui.MsgBox(
        fileMessage(FileAction::Open, path, error) + " Programmet bruker standardinnstillingene.",
        MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
  if (error != FileError::None) return std::nullopt;
  if (text.empty()) {
    // What the file now holds; the same values when it could not be written after all.
    writeDefaultSettings(app);
    text = defaultSettings();
  }
  return text;
}

}  // namespace

void loadSettings(App& app) {
  std::optional<std::string> text = settingsText(app);
  if (!text) return;
  ProjectStore& store = app.store;
  store.minimumCellWidth = toSingle(numberField(*text, key::minimumCellWidth));
  store.maximumCellWidth = toSingle(numberField(*text, key::maximumCellWidth));
  store.nameFontSize = toInteger(numberField(*text, key::nameFontSize));
  store.infoFontSize = toInteger(numberField(*text, key::infoFontSize));
  store.fontName = getField(*text, key::fontName);
  if (std::optional<bool> value = booleanOf(getField(*text, key::doubleDraw))) store.doubleDraw = *value;
  store.actionKey = getField(*text, key::actionKey);
}

void writeDefaultSettings(App& app) {
  saveFile(app.store.settingsPath, defaultSettings());
}

}  // namespace tavlero
