// A table file the operator chooses: any bytes give the table's values or a refusal with its line,
// never a crash. The values are as many as the table takes and fit its bits, and a table that packs
// into the block unpacks to exactly its bytes.
#include "descriptions/PackedTable.h"

#include <zlib.h>

#include <algorithm>
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
    const std::vector<std::uint8_t> bytes = chipdesc::TableBytes(table, *values);
    const auto packed = chipdesc::PackTable(bytes);
    const auto* block = std::get_if<chipdesc::PackedBlock>(&packed);
    if (!block)
        return 0;
    const uLong packedSize =
        uLong{(*block)[0]} << 24 | uLong{(*block)[1]} << 16 | uLong{(*block)[2]} << 8 | (*block)[3];
    std::vector<Bytef> unpacked(bytes.size() + 1);
    uLongf unpackedSize = static_cast<uLongf>(unpacked.size());
    if (packedSize > chipdesc::kMaxPackedBytes ||
        uncompress(unpacked.data(), &unpackedSize, block->data() + 4, packedSize) != Z_OK ||
        unpackedSize != bytes.size() || !std::equal(bytes.begin(), bytes.end(), unpacked.begin()))
        __builtin_trap();
    return 0;
}
