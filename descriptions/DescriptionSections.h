// The readers of the register-text and table keys that take values of their own kind.
#pragma once

#include "descriptions/ChipDescriptionParser.h"

namespace chipdesc::detail {

// A "quoted" line format.
bool ReadLineFormat(KeyValue& value);
// "N", or "MIN..MAX" values.
bool ReadTableCount(KeyValue& value);
// The function table (1, 2 or 3) and the entry in it.
bool ReadChipFunction(KeyValue& value);

} // namespace chipdesc::detail
