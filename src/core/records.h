#pragma once
// The record format in one place: the keys of every tagged text, the two geometry
// placeholders, and the cell, link and geometry records read into plain structs and built
// back. Reading goes through getField, so every quirk of the tag search still holds.

#include <array>
#include <string>
#include <string_view>

namespace tavlero {

namespace key {
// A cell record, the entry of itemList.
inline constexpr std::string_view positionX = "positionX";
inline constexpr std::string_view positionY = "positionY";
inline constexpr std::string_view methodName = "methodName";
inline constexpr std::string_view shortDescription = "shortDescription";
inline constexpr std::string_view cellColor = "cellColor";
inline constexpr std::string_view cellFillStyle = "cellFillStyle";
// Answered by the store from its table, never a field of a record in memory.
inline constexpr std::string_view longDescription = "longDescription";
// A link record, the entry of linkList.
inline constexpr std::string_view linkSource = "linkSource";
inline constexpr std::string_view linkTarget = "linkTarget";
// A geometry record, the entry of sizeList and linkSizeList.
inline constexpr std::string_view X1 = "X1";
inline constexpr std::string_view Y1 = "Y1";
inline constexpr std::string_view X2 = "X2";
inline constexpr std::string_view Y2 = "Y2";
// The project file's text; the settings file shares the four limits and fontName.
inline constexpr std::string_view projectName = "projectName";
inline constexpr std::string_view projectDescription = "projectDescription";
inline constexpr std::string_view minimumCellWidth = "minimumCellWidth";
inline constexpr std::string_view maximumCellWidth = "maximumCellWidth";
inline constexpr std::string_view nameFontSize = "nameFontSize";
inline constexpr std::string_view infoFontSize = "infoFontSize";
inline constexpr std::string_view fontName = "fontName";
inline constexpr std::string_view userMethod = "userMethod";
inline constexpr std::string_view userLink = "userLink";
// The settings file only.
inline constexpr std::string_view doubleDraw = "doubleDraw";
inline constexpr std::string_view actionKey = "actionKey";
}  // namespace key

// Every tag the project reader or a record of the file looks for; typed into a text, each
// can move what the tag search finds.
inline constexpr std::array<std::string_view, 18> kProjectFileKeys = {
    key::projectName,     key::projectDescription, key::minimumCellWidth, key::maximumCellWidth,
    key::nameFontSize,    key::infoFontSize,       key::fontName,         key::userMethod,
    key::longDescription, key::userLink,           key::positionX,        key::positionY,
    key::methodName,      key::shortDescription,   key::cellColor,        key::cellFillStyle,
    key::linkSource,      key::linkTarget};

// What stands in a geometry list until the first drawing: the untagged one for cells and
// for links read from a file, the tagged zeros for a link made on the board. Both read as
// the rectangle (0, 0, 0, 0).
inline constexpr std::string_view kGeometryPlaceholder = "X1: 0 Y1: 0 X2: 0 Y2: 0";
inline constexpr std::string_view kTaggedGeometryPlaceholder = "<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>";

// The value of a field as a number, by the forgiving number rule; the caller narrows it.
double numberField(std::string_view record, std::string_view key);

// A cell record's six fields as their stored texts.
struct CellFields {
  std::string positionX;
  std::string positionY;
  std::string methodName;
  std::string shortDescription;
  std::string cellColor;
  std::string cellFillStyle;
};

CellFields readCell(std::string_view record);
// separator stands between each two fields; beforeColor between the summary and the
// colour, where the method dialog's edit path leaves it out.
std::string buildCell(const CellFields& cell, std::string_view separator, std::string_view beforeColor);

struct LinkEnds {
  std::string source;
  std::string target;
};

LinkEnds readLink(std::string_view record);
std::string buildLink(std::string_view source, std::string_view target);

// The corners of a geometry record, each rounded to a float as the board works with them.
struct Box {
  float x1 = 0;
  float y1 = 0;
  float x2 = 0;
  float y2 = 0;
  bool operator==(const Box&) const = default;
};

Box readBox(std::string_view record);
// The stored texts of the four numbers, in order.
std::string buildGeometry(std::string_view x1, std::string_view y1, std::string_view x2, std::string_view y2);

}  // namespace tavlero
