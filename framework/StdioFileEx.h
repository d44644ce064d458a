// Line-oriented text files in the encodings the host suite uses. Reading detects the BOM
// (UTF-16LE, UTF-8 with or without BOM) and accepts CR LF or LF; writing is UTF-8 with CR LF.
// Portable: paths are wide on every platform.
#pragma once

#include "framework/TextEncoding.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

class CStdioFileEx {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeCreate = 0x1000,
        typeText = 0x4000,
    };

    // A line longer than this is handed out in pieces, so a file with no line breaks is never held
    // in memory whole.
    static constexpr std::size_t kMaxLineChars = 64 * 1024;

    CStdioFileEx() = default;
    CStdioFileEx(const CStdioFileEx&) = delete;
    CStdioFileEx& operator=(const CStdioFileEx&) = delete;
    ~CStdioFileEx();

    bool Open(const std::wstring& path, unsigned flags);
    // False at the end of the file (or when not open for reading); the line has no line break.
    bool ReadString(std::wstring& line);
    // A lone "\n" is written as CR LF, an existing "\r\n" stays as it is. False on a write error.
    bool WriteString(std::wstring_view text);
    // False when buffered data could not reach the disk.
    bool Close();
    bool IsOpen() const { return m_file != nullptr; }
    // What reading has taken from the file since it was opened, its byte-order mark included.
    std::uint64_t BytesRead() const { return m_bytesRead; }
    TextEncoding Encoding() const { return m_encoding; }

private:
    bool ReadUnit(char32_t& unit);

    std::FILE* m_file = nullptr;
    std::uint64_t m_bytesRead = 0;
    bool m_writing = false;
    bool m_writeFailed = false;
    bool m_lastWrittenCR = false;
    TextEncoding m_encoding = TextEncoding::Utf8;
};

// Opens a file by a wide path on every platform (UTF-8 narrow path outside Windows).
std::FILE* OpenFileWide(const std::wstring& path, const wchar_t* mode);
