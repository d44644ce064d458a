#include "dialogs/common/ChipFunctions.h"

#include <iterator>

namespace {

template <class Table> RegvaneChipFunction EntryOf(Table* functions, std::size_t entry) {
    return functions && entry < std::size(functions->entries) ? functions->entries[entry] : nullptr;
}

RegvaneChipFunction Entry(IRegvane& chip, int table, std::size_t entry) {
    switch (table) {
    case 1:
        return EntryOf(chip.GetFunctionTable(), entry);
    case 2:
        return EntryOf(chip.GetFunctionTable2(), entry);
    case 3:
        return EntryOf(chip.GetFunctionTable3(), entry);
    default:
        return nullptr;
    }
}

} // namespace

ChipFunctionResult CallChipFunction(IRegvane& chip, int table, std::size_t entry, std::intptr_t argument,
                                    std::intptr_t second, std::intptr_t third) {
    const RegvaneChipFunction function = Entry(chip, table, entry);
    if (!function)
        return ChipFunctionResult::NotOffered;
    return function(argument, second, third) == 0 ? ChipFunctionResult::Done : ChipFunctionResult::Failed;
}

void SendChipState(IRegvane& chip) {
    chip.ApplyChip();
    chip.NotifyHost(128, 1);
    chip.SetModified(1);
}
