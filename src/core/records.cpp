#include "core/records.h"

#include "core/record.h"

namespace tavlero {

namespace {

std::string tagged(std::string_view key, std::string_view value) {
  std::string field;
  field.reserve(2 * key.size() + value.size() + 5);
  field.append("<").append(key).append(">").append(value).append("</").append(key).append(">");
  return field;
}

}  // namespace

double numberField(std::string_view record, std::string_view key) {
  return textToNumber(fieldView(record, key));
}

CellFields readCell(std::string_view record) {
  return {getField(record, key::positionX),  getField(record, key::positionY),
          getField(record, key::methodName), getField(record, key::shortDescription),
          getField(record, key::cellColor),  getField(record, key::cellFillStyle)};
}

std::string buildCell(const CellFields& cell, std::string_view separator, std::string_view beforeColor) {
  std::string record = tagged(key::positionX, cell.positionX);
  record.append(separator).append(tagged(key::positionY, cell.positionY));
  record.append(separator).append(tagged(key::methodName, cell.methodName));
  record.append(separator).append(tagged(key::shortDescription, cell.shortDescription));
  record.append(beforeColor).append(tagged(key::cellColor, cell.cellColor));
  record.append(separator).append(tagged(key::cellFillStyle, cell.cellFillStyle));
  return record;
}

LinkEnds readLink(std::string_view record) {
  return {getField(record, key::linkSource), getField(record, key::linkTarget)};
}

std::string buildLink(std::string_view source, std::string_view target) {
  return tagged(key::linkSource, source) + tagged(key::linkTarget, target);
}

Box readBox(std::string_view record) {
  return {toSingle(numberField(record, key::X1)), toSingle(numberField(record, key::Y1)),
          toSingle(numberField(record, key::X2)), toSingle(numberField(record, key::Y2))};
}

std::string buildGeometry(std::string_view x1, std::string_view y1, std::string_view x2,
                          std::string_view y2) {
  return tagged(key::X1, x1) + tagged(key::Y1, y1) + tagged(key::X2, x2) + tagged(key::Y2, y2);
}

}  // namespace tavlero
