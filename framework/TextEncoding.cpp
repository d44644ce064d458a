#include "framework/TextEncoding.h"

#include <cstdint>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendCodePoint(std::wstring& out, char32_t cp) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out.push_back(static_cast<wchar_t>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<wchar_t>(0xDC00 + (cp & 0x3FF)));
            return;
        }
    }
    out.push_back(static_cast<wchar_t>(cp));
}

bool IsSurrogate(char32_t cp) {
    return cp >= 0xD800 && cp <= 0xDFFF;
}

} // namespace

TextEncoding DetectEncoding(std::string_view b) {
    if (b.size() >= 2 && static_cast<unsigned char>(b[0]) == 0xFF && static_cast<unsigned char>(b[1]) == 0xFE)
        return TextEncoding::Utf16Le;
    if (b.size() >= 3 && static_cast<unsigned char>(b[0]) == 0xEF &&
        static_cast<unsigned char>(b[1]) == 0xBB && static_cast<unsigned char>(b[2]) == 0xBF)
        return TextEncoding::Utf8Bom;
    return TextEncoding::Utf8;
}

std::size_t BomLength(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf16Le:
        return 2;
    case TextEncoding::Utf8Bom:
        return 3;
    default:
        return 0;
    }
}

std::wstring Utf8ToWide(std::string_view s) {
    std::wstring out;
    out.reserve(s.size());
    std::size_t i = 0;
    while (i < s.size()) {
        const auto lead = static_cast<unsigned char>(s[i]);
        int extra = 0;
        char32_t cp = 0;
        char32_t minimum = 0;
        if (lead < 0x80) {
            out.push_back(static_cast<wchar_t>(lead));
            ++i;
            continue;
        } else if ((lead & 0xE0) == 0xC0) {
            extra = 1, cp = lead & 0x1F, minimum = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            extra = 2, cp = lead & 0x0F, minimum = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            extra = 3, cp = lead & 0x07, minimum = 0x10000;
        } else {
            AppendCodePoint(out, kReplacement);
            ++i;
            continue;
        }
        std::size_t j = i + 1;
        for (; j <= i + extra && j < s.size(); ++j) {
            const auto c = static_cast<unsigned char>(s[j]);
            if ((c & 0xC0) != 0x80)
                break;
            cp = (cp << 6) | (c & 0x3F);
        }
        if (j != i + extra + 1 || cp < minimum || cp > 0x10FFFF || IsSurrogate(cp)) {
            AppendCodePoint(out, kReplacement);
            i = (j > i + 1) ? j : i + 1;
            continue;
        }
        AppendCodePoint(out, cp);
        i = j;
    }
    return out;
}

std::wstring Utf16LeToWide(std::string_view b) {
    std::wstring out;
    out.reserve(b.size() / 2);
    auto unitAt = [&](std::size_t k) {
        return static_cast<char16_t>(static_cast<unsigned char>(b[k]) |
                                     (static_cast<unsigned char>(b[k + 1]) << 8));
    };
    for (std::size_t k = 0; k + 1 < b.size(); k += 2) {
        const char16_t u = unitAt(k);
        if (u >= 0xD800 && u <= 0xDBFF && k + 3 < b.size()) {
            const char16_t low = unitAt(k + 2);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                AppendCodePoint(out, 0x10000 + ((char32_t(u) - 0xD800) << 10) + (low - 0xDC00));
                k += 2;
                continue;
            }
        }
        AppendCodePoint(out, (u >= 0xD800 && u <= 0xDFFF) ? kReplacement : char32_t(u));
    }
    if (b.size() % 2 != 0)
        AppendCodePoint(out, kReplacement);
    return out;
}

std::string WideToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t cp = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size()) {
                const char32_t low = static_cast<char32_t>(text[i + 1]);
                if (low >= 0xDC00 && low <= 0xDFFF) {
                    cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        if (IsSurrogate(cp) || cp > 0x10FFFF)
            cp = kReplacement;
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

std::wstring DecodeText(std::string_view bytes) {
    const TextEncoding encoding = DetectEncoding(bytes);
    bytes.remove_prefix(BomLength(encoding));
    return encoding == TextEncoding::Utf16Le ? Utf16LeToWide(bytes) : Utf8ToWide(bytes);
}

std::wstring ReplaceAll(std::wstring text, std::wstring_view placeholder, std::wstring_view value) {
    for (std::size_t at = text.find(placeholder); at != std::wstring::npos;
         at = text.find(placeholder, at + value.size()))
        text.replace(at, placeholder.size(), value);
    return text;
}
