// The chips whose register tables the ICN2055 family of pages saves as parameter files: each
// chip's default file name, tag line and table length, and how a page finds out which chip it
// serves. Portable.
#pragma once

#include <cstdint>
#include <span>

// The two ids a chip reports, asked afresh each time (the host may answer differently per call).
class ChipIdQuery {
public:
    virtual std::uint16_t ChipType() = 0;
    virtual std::uint16_t ChipSubType() = 0;

protected:
    ~ChipIdQuery() = default;
};

struct ParamChipInfo {
    std::uint16_t id;
    const wchar_t* fileName;
    const wchar_t* tagLine;
};

std::span<const ParamChipInfo> ParamChipTable();
const ParamChipInfo* FindParamChip(std::uint16_t id);

// The id that names the file and its tag line: the sub-type when the host reports one, else the
// type.
std::uint16_t ParamFileChipId(ChipIdQuery& ids);

// Where a table's rows come from and how many there are.
enum class ParamRowSource { Fixed, Icnd3065HostList, Icnd3069HostList };
struct ParamRowPlan {
    ParamRowSource source;
    int rows; // for Fixed
};

// The rows of the table, chosen by a chain of tests that asks the host afresh for every test.
// The host's chips report some ids only as a type and some only as a sub-type, and the chain mixes
// the two exactly as the chips' tables were defined: a chip of the 42-row group reported only by
// its type gets 45 rows.
ParamRowPlan ParamRowPlanFor(ChipIdQuery& ids);

// The parameter block of a page: 4-byte rows (address, red, green, blue), at most 128 of them.
inline constexpr int kParamBlockRows = 128;
inline constexpr int kParamRowFields = 4;
inline constexpr std::size_t kParamBlockBytes = kParamBlockRows * kParamRowFields;
