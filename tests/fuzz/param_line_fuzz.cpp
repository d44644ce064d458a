// Parameter files are edited in spreadsheets by hand: any line must scan without a crash, and the
// fields it reports must all be filled from the line.
#include "framework/TextEncoding.h"
#include "paramfiles/ParamFileFormat.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring line = Utf8ToWide(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::wstring_view tag = StripTrailingCommas(line);
    if (tag.size() > line.size() || (!tag.empty() && tag.back() == L','))
        std::abort();
    std::array<std::uint32_t, 8> fields{};
    const int scanned = ScanHexFields(line, fields);
    if (scanned < 0 || scanned > static_cast<int>(fields.size()))
        std::abort();
    return 0;
}
