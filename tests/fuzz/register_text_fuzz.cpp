// A register text pasted from anywhere (another screen, a mail, a chat): any bytes give the writes of a
// good text or a refusal with its line, never a crash. A good text writes registers of the page, each
// once: the page's own text of what it wrote reads back as exactly those writes.
#include "descriptions/RegisterText.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <variant>

namespace {

const chipdesc::Description& Page() {
    static const chipdesc::Description page = std::get<chipdesc::Description>(
        chipdesc::Parse("[page]\nclass = CRegvaneFuzzText\nformat-version = 2\n"
                        "[field a]\nlabel = \"A\"\nbits = 0[3:0]\ncontrol = number\n"
                        "[field b]\nlabel = \"B\"\nbits = 0[7:4] 1[0]\ncolours = separate\ncontrol = number\n"
                        "[field c]\nlabel = \"C\"\nrecord = record-a\nbits = 15[7:0]\ncontrol = hex\n"
                        "[register-text]\nline = \"{record}[{address}] = 0x{hex} ({binary}) {fields}\"\n",
                        nullptr));
    return page;
}

using Writes = std::map<std::pair<chipdesc::Source, int>, int>;
// Every write of a good text; a register written twice is a fault.
Writes WritesOf(const std::vector<chipdesc::PastedRecord>& records) {
    Writes writes;
    for (const chipdesc::PastedRecord& record : records)
        for (const auto& [address, value] : record.bytes)
            if (!writes.emplace(std::pair(record.source, address), value).second)
                __builtin_trap();
    return writes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto result =
        chipdesc::ParseRegisterText(Page(), std::string_view(reinterpret_cast<const char*>(data), size));
    const auto* records = std::get_if<std::vector<chipdesc::PastedRecord>>(&result);
    if (!records)
        return std::get<chipdesc::PasteProblem>(result).line < 0 ? (__builtin_trap(), 0) : 0;
    const Writes writes = WritesOf(*records);
    std::array<std::array<std::uint8_t, 128>, chipdesc::kSourceCount> images{};
    for (const auto& [where, value] : writes)
        images[static_cast<std::size_t>(where.first)][static_cast<std::size_t>(where.second)] =
            static_cast<std::uint8_t>(value);
    const auto again = chipdesc::ParseRegisterText(
        Page(), chipdesc::FormatRegisterText(Page(), [&](chipdesc::Source source) {
            return std::span<const std::uint8_t>(images[static_cast<std::size_t>(source)]);
        }));
    Writes all = WritesOf(std::get<std::vector<chipdesc::PastedRecord>>(again));
    for (const auto& [where, value] : writes)
        if (all[where] != value || all.size() != chipdesc::TextRegisters(Page()).size())
            __builtin_trap();
    return 0;
}
