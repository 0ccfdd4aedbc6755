#pragma once
// Tagged records: every piece of structured data is a string of <key>value</key>
// fields, found by plain substring search. The same search parses the project and
// settings files, so its quirks (no nesting, no escaping) are part of the format.

#include <cstdint>
#include <string>
#include <string_view>

namespace tavlero {

// The text between the first "<key>" and the first "</key>" of the record; empty when
// either is missing or the closing tag comes first. Positions are not limited to 16 bits.
std::string getField(std::string_view record, std::string_view key);
// The same text as a view into the record, for readers that only look at it.
std::string_view fieldView(std::string_view record, std::string_view key);

// The record with the value of the first field "key" replaced; tags and all other text
// stay. A record that lacks the closing tag is given back unchanged.
std::string setField(std::string_view record, std::string_view key, std::string_view value);
// Whether setField would give the record back as it is, which needs no new string.
bool fieldHolds(std::string_view record, std::string_view key, std::string_view value);

// Stored text of a number: one leading blank when not negative, "." as decimal point,
// no digit before the point below 1, 7 significant digits for float and 15 for double.
std::string numberToText(int16_t value);
std::string numberToText(int32_t value);
std::string numberToText(float value);
std::string numberToText(double value);

// Reads a number the forgiving way: blanks, tabs and line feeds are skipped anywhere,
// reading stops at the first character that cannot continue it, nothing is an error.
double textToNumber(std::string_view text);

// Conversions into the declared narrower types: round to nearest, ties to even,
// saturating at the type's limits (NaN gives 0) so that no input can overflow.
float toSingle(double value);
int32_t toLong(double value);
int16_t toInteger(double value);

}  // namespace tavlero
