#include "framework/StdioFileEx.h"

std::FILE* OpenFileWide(const std::wstring& path, const wchar_t* mode) {
#if defined(_WIN32)
    return _wfopen(path.c_str(), mode);
#else
    return std::fopen(WideToUtf8(path).c_str(), WideToUtf8(mode).c_str());
#endif
}

CStdioFileEx::~CStdioFileEx() {
    Close();
}

bool CStdioFileEx::Open(const std::wstring& path, unsigned flags) {
    Close();
    m_writing = (flags & modeWrite) != 0;
    m_writeFailed = false;
    m_lastWrittenCR = false;
    m_encoding = TextEncoding::Utf8;
    m_bytesRead = 0;
    if (m_writing) {
        // Without modeCreate an existing file is appended to, as the host's file class does.
        m_file = OpenFileWide(path, (flags & modeCreate) ? L"wb" : L"ab");
        return m_file != nullptr;
    }
    m_file = OpenFileWide(path, L"rb");
    if (!m_file)
        return false;
    char head[3] = {};
    const std::size_t got = std::fread(head, 1, sizeof head, m_file);
    m_encoding = DetectEncoding(std::string_view(head, got));
    m_bytesRead = BomLength(m_encoding);
    std::fseek(m_file, static_cast<long>(m_bytesRead), SEEK_SET);
    return true;
}

bool CStdioFileEx::ReadUnit(char32_t& unit) {
    if (m_encoding == TextEncoding::Utf16Le) {
        const int lo = std::fgetc(m_file);
        const int hi = lo == EOF ? EOF : std::fgetc(m_file);
        if (hi == EOF)
            return false;
        m_bytesRead += 2;
        unit = static_cast<char32_t>(lo | (hi << 8));
        return true;
    }
    const int c = std::fgetc(m_file);
    if (c == EOF)
        return false;
    ++m_bytesRead;
    unit = static_cast<char32_t>(c);
    return true;
}

bool CStdioFileEx::ReadString(std::wstring& line) {
    line.clear();
    if (!m_file || m_writing)
        return false;
    // Collect raw code units of one line, then decode them together so multi-unit characters hold.
    std::string raw;
    bool any = false;
    char32_t unit = 0;
    std::size_t units = 0;
    while (units < kMaxLineChars && ReadUnit(unit)) {
        any = true;
        if (unit == U'\n')
            break;
        ++units;
        if (m_encoding == TextEncoding::Utf16Le) {
            raw.push_back(static_cast<char>(unit & 0xFF));
            raw.push_back(static_cast<char>(unit >> 8));
        } else {
            raw.push_back(static_cast<char>(unit));
        }
    }
    if (!any)
        return false;
    line = m_encoding == TextEncoding::Utf16Le ? Utf16LeToWide(raw) : Utf8ToWide(raw);
    if (!line.empty() && line.back() == L'\r')
        line.pop_back();
    return true;
}

bool CStdioFileEx::WriteString(std::wstring_view text) {
    if (!m_file || !m_writing)
        return false;
    std::wstring out;
    out.reserve(text.size() + 8);
    for (const wchar_t c : text) {
        if (c == L'\n' && !m_lastWrittenCR)
            out.push_back(L'\r');
        out.push_back(c);
        m_lastWrittenCR = (c == L'\r');
    }
    const std::string bytes = WideToUtf8(out);
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file) != bytes.size())
        m_writeFailed = true;
    return !m_writeFailed;
}

bool CStdioFileEx::Close() {
    if (!m_file)
        return true;
    bool ok = true;
    if (m_writing)
        ok = std::fflush(m_file) == 0 && !std::ferror(m_file) && !m_writeFailed;
    ok = (std::fclose(m_file) == 0) && ok;
    m_file = nullptr;
    return ok;
}
