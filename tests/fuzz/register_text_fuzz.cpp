// A register text pasted from anywhere (another screen, a mail, a chat): any bytes give the writes of a
// good text or a refusal with its line, never a crash. What a text writes is registers of the page, each
// once, and formatting those bytes and reading them back gives the same writes.
#include "descriptions/RegisterText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const chipdesc::Description& page = Page();
    const auto result =
        chipdesc::ParseRegisterText(page, std::string_view(reinterpret_cast<const char*>(data), size));
    const auto* records = std::get_if<std::vector<chipdesc::PastedRecord>>(&result);
    if (!records)
        return std::get<chipdesc::PasteProblem>(result).line < 0 ? (__builtin_trap(), 0) : 0;
    const std::vector<chipdesc::TextRegister> registers = chipdesc::TextRegisters(page);
    std::array<std::array<std::uint8_t, 128>, chipdesc::kSourceCount> images{};
    std::set<std::pair<chipdesc::Source, int>> seen;
    for (const chipdesc::PastedRecord& record : *records)
        for (const auto& [address, value] : record.bytes) {
            const bool known = std::any_of(registers.begin(), registers.end(), [&](const auto& reg) {
                return reg.source == record.source && reg.address == address;
            });
            if (!known || !seen.emplace(record.source, address).second)
                __builtin_trap();
            images[static_cast<std::size_t>(record.source)][address] = value;
        }
    const std::string again = chipdesc::FormatRegisterText(page, [&](chipdesc::Source source) {
        return std::span<const std::uint8_t>(images[static_cast<std::size_t>(source)]);
    });
    const auto reread = chipdesc::ParseRegisterText(page, again);
    const auto* all = std::get_if<std::vector<chipdesc::PastedRecord>>(&reread);
    if (!all)
        __builtin_trap();
    for (const chipdesc::PastedRecord& record : *all)
        for (const auto& [address, value] : record.bytes)
            if (value != images[static_cast<std::size_t>(record.source)][address])
                __builtin_trap();
    return 0;
}
