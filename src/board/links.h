#pragma once
// Making links and sweeping out the ones that lost a cell.

#include <cstdint>

#include "core/app.h"

namespace tavlero {

// Adds the link from cell source to cell target unless it is a self link or an equal
// record exists. Refused with a beep and a message when the plan holds the most links.
void addLink(App& app, int16_t source, int16_t target);

// Removes the entries that drawLink blanked, from linkList and linkSizeList alike.
void removeBlankLinks(App& app);

}  // namespace tavlero
