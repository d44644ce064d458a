// A table a described page hands to a chip function: the operator's file read, packed for the chip
// (descriptions/PackedTable.h) and, when it is good and fits, handed to the table's function, then the
// host told as after every chip function. Portable: it talks to the host only through IRegvane.
#pragma once

#include "descriptions/PackedTable.h"
#include "host/IRegvane.h"

#include <cstdint>
#include <string_view>

struct TableOutcome {
    enum class Kind : std::uint8_t { Sent, BadFile, TooLarge, NotOffered, Failed };
    Kind kind = Kind::Sent;
    chipdesc::TableProblem problem; // BadFile
    std::size_t packedBytes = 0;    // TooLarge and Sent: the compressed size
};

// The function is handed (the block, kPackedBlockBytes, the bytes it unpacks to). Nothing reaches the
// host unless the file is good and fits.
TableOutcome SendTable(IRegvane& chip, const chipdesc::TableSpec& table, std::string_view fileText);
