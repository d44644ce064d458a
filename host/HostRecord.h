// The host's register records, each read and written whole through its own get/set pair of IRegvane,
// with their sizes.
#pragma once

#include "host/RegvaneTypes.h"

#include <cstddef>
#include <cstdint>

// SliderValue is no record: it is a value the host reports (GetSliderValue), has no bytes and is
// never written. It is one of the list because chip descriptions name it wherever they name a record
// (where a field lives, what the change test covers), and a change test compares it like one.
enum class HostRecord : std::uint8_t {
    Block,       // GetRegData / SetRegData: the 16-byte register block
    RecordA,     // GetRegDataEx / SetRegDataEx
    RecordB,     // GetRegData3 / SetRegData3
    Large,       // GetRegData2 / SetRegData2: the 128-byte large block
    Record20,    // GetRegData4 / SetRegData4: 16 bytes and a 32-bit word
    SliderValue, // GetSliderValue
};
inline constexpr std::size_t kHostRecordCount = 6;

constexpr bool IsHostValue(HostRecord record) {
    return record == HostRecord::SliderValue;
}

// The host's buffer size of the record's get/set pair; 0 for the host value.
constexpr std::size_t HostRecordBytes(HostRecord record) {
    switch (record) {
    case HostRecord::Block:
        return kRegDataBytes;
    case HostRecord::RecordA:
        return kRegDataExBytes;
    case HostRecord::RecordB:
        return kRegData3Bytes;
    case HostRecord::Large:
        return kRegData2Bytes;
    case HostRecord::Record20:
        return kRegData4Bytes;
    case HostRecord::SliderValue:
        break;
    }
    return 0;
}

// A buffer of this many bytes takes any of the records.
inline constexpr std::size_t kLargestHostRecord = kRegData2Bytes;
