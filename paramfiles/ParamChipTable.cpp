#include "paramfiles/ParamChipTable.h"

#include <algorithm>

namespace {

// The length of each chip's table is not a column here: the host reports some chips by type and some
// by sub-type, and the row-count chain below decides the length from what the host reports.
#define REGVANE_PARAM_CHIP(id, chip)                                                                         \
    { id, L"Chip" chip L"Param.csv", L"CHIP_" chip L"_PARAMETER_FILE" }

constexpr ParamChipInfo kChips[] = {
    REGVANE_PARAM_CHIP(74, L"ICN2069"),    REGVANE_PARAM_CHIP(193, L"ICN2055"),
    REGVANE_PARAM_CHIP(194, L"ICN2065"),   REGVANE_PARAM_CHIP(225, L"FM6555"),
    REGVANE_PARAM_CHIP(248, L"FM6565"),    REGVANE_PARAM_CHIP(251, L"VOD5264GP"),
    REGVANE_PARAM_CHIP(262, L"FM6565CE"),  REGVANE_PARAM_CHIP(292, L"ICND2165"),
    REGVANE_PARAM_CHIP(294, L"ICN2055S"),  REGVANE_PARAM_CHIP(298, L"ICND2168"),
    REGVANE_PARAM_CHIP(300, L"ICND2169"),  REGVANE_PARAM_CHIP(309, L"ICND3065"),
    REGVANE_PARAM_CHIP(317, L"ICND1069"),  REGVANE_PARAM_CHIP(342, L"ICND1065S"),
    REGVANE_PARAM_CHIP(358, L"ICND2153S"), REGVANE_PARAM_CHIP(379, L"ICND1068"),
    REGVANE_PARAM_CHIP(380, L"FM6373"),    REGVANE_PARAM_CHIP(381, L"ICN2065L"),
    REGVANE_PARAM_CHIP(392, L"ICND3069"),  REGVANE_PARAM_CHIP(402, L"ICND1065L"),
    REGVANE_PARAM_CHIP(522, L"FM6373C"),   REGVANE_PARAM_CHIP(523, L"FM6565E"),
    REGVANE_PARAM_CHIP(548, L"ICND2163S"),
};

#undef REGVANE_PARAM_CHIP

enum class Asks { SubType, Type };

// One test of the chain: which id it asks for, the values it accepts and what it decides.
struct ChainStep {
    Asks asks;
    std::span<const std::uint16_t> values;
    ParamRowPlan plan;
};

constexpr std::uint16_t k42RowSubTypes[] = {292, 294, 342, 358, 402, 379, 381};
constexpr std::uint16_t kIcnd2163S[] = {548};
constexpr std::uint16_t kIcnd1069[] = {317};
constexpr std::uint16_t kIcnd2168[] = {298};
constexpr std::uint16_t kIcnd2169[] = {300};
constexpr std::uint16_t kIcnd3065[] = {309};
constexpr std::uint16_t kIcnd3069[] = {392};

constexpr ChainStep kRowChain[] = {
    {Asks::SubType, k42RowSubTypes, {ParamRowSource::Fixed, 42}},
    {Asks::Type, kIcnd2163S, {ParamRowSource::Fixed, 34}},
    {Asks::SubType, kIcnd1069, {ParamRowSource::Fixed, 42}},
    {Asks::Type, kIcnd2168, {ParamRowSource::Fixed, 47}},
    {Asks::Type, kIcnd2169, {ParamRowSource::Fixed, 45}},
    {Asks::Type, kIcnd3065, {ParamRowSource::Icnd3065HostList, 0}},
    {Asks::Type, kIcnd3069, {ParamRowSource::Icnd3069HostList, 0}},
};

constexpr ParamRowPlan kOtherChips{ParamRowSource::Fixed, 45};

} // namespace

std::span<const ParamChipInfo> ParamChipTable() {
    return kChips;
}

const ParamChipInfo* FindParamChip(std::uint16_t id) {
    const auto found = std::find_if(std::begin(kChips), std::end(kChips),
                                    [id](const ParamChipInfo& chip) { return chip.id == id; });
    return found == std::end(kChips) ? nullptr : found;
}

std::uint16_t ParamFileChipId(ChipIdQuery& ids) {
    const std::uint16_t subType = ids.ChipSubType();
    return subType != 0 ? subType : ids.ChipType();
}

ParamRowPlan ParamRowPlanFor(ChipIdQuery& ids) {
    for (const ChainStep& step : kRowChain) {
        const std::uint16_t id = step.asks == Asks::SubType ? ids.ChipSubType() : ids.ChipType();
        if (std::find(step.values.begin(), step.values.end(), id) != step.values.end())
            return step.plan;
    }
    return kOtherChips;
}
