#include "dialogs/common/ChipTables.h"

#include "dialogs/common/ChipFunctions.h"

#include <variant>

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
    switch (CallChipFunction(chip, table.functionTable, static_cast<std::size_t>(table.entry),
                             reinterpret_cast<std::intptr_t>(block.data()),
                             static_cast<std::intptr_t>(block.size()),
                             static_cast<std::intptr_t>(bytes.size()))) {
    case ChipFunctionResult::Done:
        SendChipState(chip);
        break;
    case ChipFunctionResult::NotOffered:
        outcome.kind = Kind::NotOffered;
        break;
    case ChipFunctionResult::Failed:
        outcome.kind = Kind::Failed;
        break;
    }
    return outcome;
}
