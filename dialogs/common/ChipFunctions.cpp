#include "dialogs/common/ChipFunctions.h"

#include <variant>

namespace {

RegvaneChipFunction Entry(IRegvane& chip, int table, int entry) {
    const auto index = static_cast<std::size_t>(entry);
    switch (table) {
    case 1:
        if (RegvaneFunctionTable* functions = chip.GetFunctionTable();
            functions && index < kFunctionTableEntries)
            return functions->entries[index];
        break;
    case 2:
        if (RegvaneFunctionTable2* functions = chip.GetFunctionTable2();
            functions && index < kFunctionTable2Entries)
            return functions->entries[index];
        break;
    case 3:
        if (RegvaneFunctionTable3* functions = chip.GetFunctionTable3();
            functions && index < kFunctionTable3Entries)
            return functions->entries[index];
        break;
    default:
        break;
    }
    return nullptr;
}

} // namespace

ChipFunctionResult CallChipFunction(IRegvane& chip, int table, int entry, std::intptr_t a, std::intptr_t b,
                                    std::intptr_t c) {
    const RegvaneChipFunction function = Entry(chip, table, entry);
    if (!function)
        return {ChipFunctionOutcome::NotOffered, 0};
    if (const int code = function(a, b, c); code != 0)
        return {ChipFunctionOutcome::Failed, code};
    chip.ApplyChip();
    chip.NotifyHost(128, 1);
    chip.SetModified(1);
    return {ChipFunctionOutcome::Done, 0};
}

TableOutcome SendTable(IRegvane& chip, const chipdesc::TableSpec& table, std::string_view fileText) {
    using Kind = TableOutcome::Kind;
    TableOutcome outcome;
    auto parsed = chipdesc::ParseTableFile(table, fileText);
    if (auto* problem = std::get_if<chipdesc::TableProblem>(&parsed)) {
        outcome.kind = Kind::BadFile;
        outcome.problem = std::move(*problem);
        return outcome;
    }
    const std::vector<std::uint8_t> bytes =
        chipdesc::TableBytes(table, std::get<chipdesc::TableValues>(parsed));
    const auto packed = chipdesc::PackTable(bytes);
    if (const auto* size = std::get_if<std::size_t>(&packed)) {
        outcome.kind = Kind::TooLarge;
        outcome.packedBytes = *size;
        return outcome;
    }
    const chipdesc::PackedBlock& block = std::get<chipdesc::PackedBlock>(packed);
    outcome.packedBytes =
        std::size_t{block[0]} << 24 | std::size_t{block[1]} << 16 | std::size_t{block[2]} << 8 | block[3];
    const ChipFunctionResult result = CallChipFunction(
        chip, table.functionTable, table.entry, reinterpret_cast<std::intptr_t>(block.data()),
        static_cast<std::intptr_t>(block.size()), static_cast<std::intptr_t>(bytes.size()));
    outcome.kind = result.outcome == ChipFunctionOutcome::Done         ? Kind::Sent
                   : result.outcome == ChipFunctionOutcome::NotOffered ? Kind::NotOffered
                                                                       : Kind::Failed;
    outcome.code = result.code;
    return outcome;
}
