// Language files come from translators' tools in any state: whatever the bytes, parsing must neither
// crash nor read out of bounds, and every text it finds must be reachable by its key.
#include "framework/LanguageFile.h"
#include "framework/TextEncoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    LanguageFile file;
    file.Parse(DecodeText(bytes));
    if (const auto* strings = file.Section(L"String"))
        for (const auto& [key, text] : *strings)
            if (file.Find(L"String", key) == nullptr)
                std::abort();
    // Text written back as UTF-8 decodes to itself.
    const std::wstring wide = Utf8ToWide(bytes);
    if (Utf8ToWide(WideToUtf8(wide)) != wide)
        std::abort();
    return 0;
}
