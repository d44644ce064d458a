// Whole parameter files as an operator picks them, imported by a page's table into a simulated
// chip. Whatever the bytes: no crash, a refused file changes nothing in the host, an accepted one
// touches only the records a table lives in, and what the page then exports imports back to the
// very same host state (writer and reader agree on every value a file can bring in).
#pragma once

#include "framework/TextEncoding.h"
#include "paramfiles/RegisterParamTable.h"
#include "workbench/SimulatedChip.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace param_file_fuzz {

// A file in the current folder, reused for every input. Its path is the same in every run: the
// path's characters pass through the code under test and the fuzzer learns from what it sees, so a
// path that changed from run to run (a process id, a temporary folder) would change the run. Run each
// fuzzer in a folder of its own (scripts/fuzz.sh does).
inline std::wstring ScratchFile(const char* name) {
    return L"regvane-fuzz-" + Utf8ToWide(name);
}

inline void WriteBytes(const std::wstring& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(WideToUtf8(path).c_str(), "wb");
    if (!file || std::fwrite(data, 1, size, file) != size || std::fclose(file) != 0)
        std::abort();
}

// Every byte of every record differs from its neighbours, so a byte written where it should not
// be shows.
inline SimulatedChip DistinctChip(std::uint16_t type) {
    SimulatedChip chip(type, 0);
    int next = 1;
    auto fill = [&next](auto& record) {
        for (auto& byte : record)
            byte = static_cast<std::uint8_t>(next++ * 37);
    };
    fill(chip.regData);
    fill(chip.regDataEx);
    fill(chip.regData2);
    fill(chip.regData3);
    fill(chip.regData4);
    return chip;
}

// What a parameter table may change in the host.
inline bool SameTableRecords(const SimulatedChip& a, const SimulatedChip& b) {
    return a.regData2 == b.regData2 && a.regDataEx == b.regDataEx && a.icnd3065Rows == b.icnd3065Rows &&
           a.icnd3069Rows == b.icnd3069Rows;
}

// What no parameter table may change.
inline bool SameOtherRecords(const SimulatedChip& a, const SimulatedChip& b) {
    return a.regData == b.regData && a.regData3 == b.regData3 && a.regData4 == b.regData4;
}

// Imports the input with a fresh table of type Table on `chip`. roundTrips: the chip has a tag line
// of its own, so an exported file reads back (an unknown chip's file has none, and its first line is
// skipped unread).
template <class Table>
void Import(SimulatedChip chip, const std::uint8_t* data, std::size_t size, bool roundTrips) {
    static const std::wstring input = ScratchFile("in.csv");
    static const std::wstring exported = ScratchFile("out.csv");
    WriteBytes(input, data, size);
    Table table(&chip);
    const SimulatedChip before = chip;
    const ParamImportResult imported = table.Import(input);
    if (!SameOtherRecords(chip, before))
        std::abort();
    if (imported.result != kParamFileOk) {
        if (imported.status == ParamReadStatus::Ok || !SameTableRecords(chip, before))
            std::abort();
        return;
    }
    if (!roundTrips)
        return;
    if (table.Export(exported) != kParamFileOk)
        std::abort();
    const SimulatedChip afterImport = chip;
    if (table.Import(exported).result != kParamFileOk || !SameTableRecords(chip, afterImport) ||
        !SameOtherRecords(chip, before))
        std::abort();
}

} // namespace param_file_fuzz
