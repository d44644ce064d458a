// A table file the operator chooses: any bytes give the table's values or a refusal with its line,
// never a crash. The values are as many as the table takes, each within its bits.
#include "descriptions/PackedTable.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1)
        return 0;
    // The first byte chooses the table: its value bits and how many values it takes.
    chipdesc::TableSpec table;
    table.valueBits = 8 << (data[0] % 3);
    table.minimumCount = 1 + (data[0] >> 2) % 4;
    table.maximumCount = table.minimumCount + (data[0] >> 4) * 64;
    const auto parsed =
        chipdesc::ParseTableFile(table, std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));
    const auto* values = std::get_if<chipdesc::TableValues>(&parsed);
    if (!values)
        return std::get<chipdesc::TableProblem>(parsed).line < 1 ? (__builtin_trap(), 0) : 0;
    const auto count = static_cast<int>(values->size());
    if (count < table.minimumCount || count > table.maximumCount)
        __builtin_trap();
    for (const std::uint32_t value : *values)
        if (table.valueBits < 32 && value >> table.valueBits)
            __builtin_trap();
    return 0;
}
