// Calling a chip function the host offers in one of its three function tables: the table fetched
// afresh, the entry called only when the host filled it, 0 for success. Portable.
#pragma once

#include "host/IRegvane.h"

#include <cstddef>
#include <cstdint>

enum class ChipFunctionResult : std::uint8_t { Done, NotOffered, Failed };

// table is 1, 2 or 3 (GetFunctionTable, GetFunctionTable2, GetFunctionTable3); an entry beyond the
// table, like a table the host does not give, is not offered. Entries take up to three values.
ChipFunctionResult CallChipFunction(IRegvane& chip, int table, std::size_t entry, std::intptr_t argument,
                                    std::intptr_t second = 0, std::intptr_t third = 0);

// What pages do after a chip function succeeded, so the host sends the chip its new state.
void SendChipState(IRegvane& chip);
