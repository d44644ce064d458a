// The host's register records, each read and written whole through its own get/set pair of IRegvane.
#pragma once

#include "host/IRegvane.h"

#include <cstddef>
#include <cstdint>

enum class HostRecord : std::uint8_t {
    Block,    // GetRegData / SetRegData: the 16-byte register block
    RecordA,  // GetRegDataEx / SetRegDataEx
    RecordB,  // GetRegData3 / SetRegData3
    Large,    // GetRegData2 / SetRegData2: the 128-byte large block
    Record20, // GetRegData4 / SetRegData4: 16 bytes and a 32-bit word
};

// A buffer of this many bytes takes any of the records.
inline constexpr std::size_t kLargestHostRecord = kRegData2Bytes;

void ReadHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes);
void WriteHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes);
