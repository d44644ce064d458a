// What an operator types into a byte of the raw register editor. A text is taken exactly when it is
// one or two hexadecimal digits, its value is what those digits say, and the editor's own display of
// a byte is taken back as that byte.
#include "dialogs/chips/ChipRegModifyModel.h"
#include "framework/TextEncoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {
int DigitValue(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'f')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'F')
        return c - L'A' + 10;
    return -1;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = Utf8ToWide(std::string_view(reinterpret_cast<const char*>(data), size));
    int expected = text.empty() || text.size() > 2 ? -1 : 0;
    for (const wchar_t c : text)
        expected = expected < 0 || DigitValue(c) < 0 ? -1 : expected * 16 + DigitValue(c);
    const std::optional<std::uint8_t> parsed = ParseRawByte(text);
    if (parsed.has_value() != (expected >= 0) || (parsed && *parsed != expected))
        std::abort();
    if (parsed && ParseRawByte(FormatRawByte(*parsed)) != parsed)
        std::abort();
    return 0;
}
