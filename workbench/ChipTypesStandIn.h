// Temporary: the chip-type table's declarations as the factory will provide them in
// factory/ChipTypes.h, with a few rows, until that file lands. Delete this file then and include
// factory/ChipTypes.h instead.
#pragma once

#include <span>

namespace chip_types_stand_in {

struct ChipTypeInfo {
    int chipType;
    const char* className;
    unsigned templateId;
    bool dependsOnSubType;
};

std::span<const ChipTypeInfo> AllChipTypes();
const ChipTypeInfo* FindChipType(int chipType);

} // namespace chip_types_stand_in

using chip_types_stand_in::AllChipTypes;
using chip_types_stand_in::ChipTypeInfo;
using chip_types_stand_in::FindChipType;
