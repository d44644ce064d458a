// Plain data shared by the host and the module: buffer sizes of every get/set pair, the chip
// function tables and the parameter row list. C-compatible layouts only.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)
#define REGVANE_CALL __stdcall
#else
#define REGVANE_CALL
#endif

// Buffer sizes in bytes. The host writes at most this many bytes into a buffer it is handed, and a
// dialog always hands over a buffer at least this large.
inline constexpr std::size_t kRegDataBytes = 16;   // GetRegData / SetRegData: the register block
inline constexpr std::size_t kRegDataExBytes = 16; // GetRegDataEx / SetRegDataEx: record A
inline constexpr std::size_t kRegData2Bytes = 128; // GetRegData2 / SetRegData2: the large block
inline constexpr std::size_t kRegData3Bytes = 16;  // GetRegData3 / SetRegData3: record B
inline constexpr std::size_t kRegData4Bytes = 20;  // GetRegData4 / SetRegData4: 16 bytes + 32-bit word

// Chip functions the host offers: plain values in, 0 for success. A null entry means "not offered".
typedef int(REGVANE_CALL* RegvaneChipFunction)(std::intptr_t arg1, std::intptr_t arg2, std::intptr_t arg3);

inline constexpr std::size_t kFunctionTableEntries = 257;
inline constexpr std::size_t kFunctionTable2Entries = 64;
inline constexpr std::size_t kFunctionTable3Entries = 64;

struct RegvaneFunctionTable {
    RegvaneChipFunction entries[kFunctionTableEntries];
};
struct RegvaneFunctionTable2 {
    RegvaneChipFunction entries[kFunctionTable2Entries];
};
struct RegvaneFunctionTable3 {
    RegvaneChipFunction entries[kFunctionTable3Entries];
};

// A chip's parameter table as the host keeps it for the ICND3065 and ICND3069: rows of four bytes
// (address, red, green, blue). The caller supplies the storage; the host sets rowCount, which may
// exceed what the module exports in one file.
inline constexpr std::size_t kParamRowBytes = 4;
inline constexpr std::size_t kParamRowListCapacity = 256;

struct RegvaneParamRowList {
    std::uint32_t rowCount;
    std::uint8_t rows[kParamRowListCapacity][kParamRowBytes];
};
