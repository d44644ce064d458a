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
// The value of one hexadecimal digit of either case, -1 for anything else.
int DigitValue(wchar_t c) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    const wchar_t lower = c >= L'A' && c <= L'F' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    const std::size_t at = digits.find(lower);
    return at == std::wstring_view::npos ? -1 : static_cast<int>(at);
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
