// Plain data shared by the host and the module: buffer sizes of every get/set pair, the chip
// function tables and the parameter row list. C-compatible layouts only: C hosts include this
// header too (through RegvaneC.h), so it stays valid C99.
#pragma once

#ifdef __cplusplus
#include <cstddef>
#include <cstdint>
#endif
#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define REGVANE_CALL __stdcall
#else
#define REGVANE_CALL
#endif

// Buffer sizes in bytes. The host writes at most this many bytes into a buffer it is handed, and a
// dialog always hands over a buffer at least this large.
#define REGVANE_REG_DATA_BYTES 16    // GetRegData / SetRegData: the register block
#define REGVANE_REG_DATA_EX_BYTES 16 // GetRegDataEx / SetRegDataEx: record A
#define REGVANE_REG_DATA2_BYTES 128  // GetRegData2 / SetRegData2: the large block
#define REGVANE_REG_DATA3_BYTES 16   // GetRegData3 / SetRegData3: record B
#define REGVANE_REG_DATA4_BYTES 20   // GetRegData4 / SetRegData4: 16 bytes + 32-bit word

#define REGVANE_FUNCTION_TABLE_ENTRIES 257
#define REGVANE_FUNCTION_TABLE2_ENTRIES 64
#define REGVANE_FUNCTION_TABLE3_ENTRIES 64

// A chip's parameter table as the host keeps it for the ICND3065 and ICND3069: rows of four bytes
// (address, red, green, blue). The caller supplies the storage; the host sets rowCount, which may
// exceed what the module exports in one file.
#define REGVANE_PARAM_ROW_BYTES 4
#define REGVANE_PARAM_ROW_LIST_CAPACITY 256

// Chip functions the host offers: plain values in, 0 for success. A null entry means "not offered".
typedef int(REGVANE_CALL* RegvaneChipFunction)(intptr_t arg1, intptr_t arg2, intptr_t arg3);

typedef struct RegvaneFunctionTable {
    RegvaneChipFunction entries[REGVANE_FUNCTION_TABLE_ENTRIES];
} RegvaneFunctionTable;
typedef struct RegvaneFunctionTable2 {
    RegvaneChipFunction entries[REGVANE_FUNCTION_TABLE2_ENTRIES];
} RegvaneFunctionTable2;
typedef struct RegvaneFunctionTable3 {
    RegvaneChipFunction entries[REGVANE_FUNCTION_TABLE3_ENTRIES];
} RegvaneFunctionTable3;

typedef struct RegvaneParamRowList {
    uint32_t rowCount;
    uint8_t rows[REGVANE_PARAM_ROW_LIST_CAPACITY][REGVANE_PARAM_ROW_BYTES];
} RegvaneParamRowList;

#ifdef __cplusplus
inline constexpr std::size_t kRegDataBytes = REGVANE_REG_DATA_BYTES;
inline constexpr std::size_t kRegDataExBytes = REGVANE_REG_DATA_EX_BYTES;
inline constexpr std::size_t kRegData2Bytes = REGVANE_REG_DATA2_BYTES;
inline constexpr std::size_t kRegData3Bytes = REGVANE_REG_DATA3_BYTES;
inline constexpr std::size_t kRegData4Bytes = REGVANE_REG_DATA4_BYTES;
inline constexpr std::size_t kFunctionTableEntries = REGVANE_FUNCTION_TABLE_ENTRIES;
inline constexpr std::size_t kFunctionTable2Entries = REGVANE_FUNCTION_TABLE2_ENTRIES;
inline constexpr std::size_t kFunctionTable3Entries = REGVANE_FUNCTION_TABLE3_ENTRIES;
inline constexpr std::size_t kParamRowBytes = REGVANE_PARAM_ROW_BYTES;
inline constexpr std::size_t kParamRowListCapacity = REGVANE_PARAM_ROW_LIST_CAPACITY;
#endif
