#include "workbench/ChipTypesStandIn.h"

namespace chip_types_stand_in {

namespace {

constexpr ChipTypeInfo kTypes[] = {
    {9, "CchipRegModify", 8224, true},
    {47, "CRegvaneMbi5153", 8229, true},
    {81, "CchipRegModify", 8224, false},
    {179, "CRegvaneFM6126", 20404, false},
    {184, "CRegvaneFM6127", 20039, false},
    {196, "CRegvaneMbi5153", 8229, false},
    {309, "CRegvaneICND3065", 20146, false},
    {65536, "CchipRegModify", 8224, false},
    {65540, "CRegvane_SUM2017TEx", 20029, false},
    {65551, "CRegvaneFM6126EX", 20405, false},
};

} // namespace

std::span<const ChipTypeInfo> AllChipTypes() {
    return kTypes;
}

const ChipTypeInfo* FindChipType(int chipType) {
    for (const ChipTypeInfo& info : kTypes)
        if (info.chipType == chipType)
            return &info;
    return nullptr;
}

} // namespace chip_types_stand_in
