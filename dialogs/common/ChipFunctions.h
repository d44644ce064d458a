// Chip functions the host offers in its function tables, and the tables a described page hands to
// one. Every call fetches the table, calls the entry only when the host offers it (non-null), and
// takes 0 for success; after a success the host is told as after every chip function: ApplyChip,
// NotifyHost(128, 1), SetModified(1). Portable: it talks to the host only through IRegvane.
#pragma once

#include "descriptions/PackedTable.h"
#include "host/IRegvane.h"

#include <cstdint>
#include <string_view>

enum class ChipFunctionOutcome : std::uint8_t { Done, NotOffered, Failed };
struct ChipFunctionResult {
    ChipFunctionOutcome outcome = ChipFunctionOutcome::NotOffered;
    int code = 0; // what a failed function returned
};

// table: 1, 2 or 3 (GetFunctionTable, GetFunctionTable2, GetFunctionTable3). The send sequence follows
// a success.
ChipFunctionResult CallChipFunction(IRegvane& chip, int table, int entry, std::intptr_t a, std::intptr_t b,
                                    std::intptr_t c);

struct TableOutcome {
    enum class Kind : std::uint8_t { Sent, BadFile, TooLarge, NotOffered, Failed };
    Kind kind = Kind::Sent;
    chipdesc::TableProblem problem; // BadFile
    std::size_t packedBytes = 0;    // TooLarge and Sent: the compressed size
    int code = 0;                   // Failed
};

// A table file read, packed and, when it fits, handed to the table's function as (the block, its
// kPackedBlockBytes, the bytes it unpacks to). Nothing reaches the host unless the file is good and fits.
TableOutcome SendTable(IRegvane& chip, const chipdesc::TableSpec& table, std::string_view fileText);
