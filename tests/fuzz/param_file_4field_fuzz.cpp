// Parameter files of the ICN2055 family (tag line, header, rows of address, red, green, blue), read
// by a chip with a fixed table in the host's records, by one whose table is the host's row list,
// and by a chip the file routines do not know (its first line is taken unchecked).
#include "ParamFileFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using param_file_fuzz::DistinctChip;
    using param_file_fuzz::Import;
    Import<ChipParamTable>(DistinctChip(193), data, size, true); // ICN2055, 45 rows
    SimulatedChip listed = DistinctChip(309);                    // ICND3065, rows kept by the host
    for (int row = 0; row < 130; ++row)
        listed.icnd3065Rows.push_back({static_cast<std::uint8_t>(row), 1, 2, 3});
    Import<ChipParamTable>(listed, data, size, true);
    Import<ChipParamTable>(DistinctChip(47), data, size, false);
    return 0;
}
