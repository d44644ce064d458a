#include "paramfiles/ParamFileFormat.h"

#include "framework/StdioFileEx.h"
#include "framework/TextEncoding.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <vector>

namespace {

constexpr int kMaxFieldsPerRow = 8;
constexpr wchar_t kRowCountHeader[] = L"Register Count: ";

bool IsScanBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\v' || c == L'\f' || c == L'\r';
}

int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'f')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'F')
        return c - L'A' + 10;
    return -1;
}

// One "%x": the position after the number, or npos when there is none.
std::size_t ScanHex(std::wstring_view text, std::size_t at, std::uint32_t& value) {
    while (at < text.size() && IsScanBlank(text[at]))
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == L'+' || text[at] == L'-')) {
        negative = text[at] == L'-';
        ++at;
    }
    // A bare "0x" is the number 0 followed by an x, as scanf takes it.
    if (at + 2 < text.size() && text[at] == L'0' && (text[at + 1] == L'x' || text[at + 1] == L'X') &&
        HexDigit(text[at + 2]) >= 0)
        at += 2;
    const std::size_t digitsStart = at;
    std::uint32_t accumulated = 0;
    while (at < text.size() && HexDigit(text[at]) >= 0) {
        accumulated = (accumulated << 4) | static_cast<std::uint32_t>(HexDigit(text[at]));
        ++at;
    }
    if (at == digitsStart)
        return std::wstring_view::npos;
    value = negative ? 0u - accumulated : accumulated;
    return at;
}

bool ParseRowCountHeader(std::wstring_view line, int& count) {
    // The blank in "Register Count: %d" matches any run of blanks, none included.
    constexpr std::wstring_view label = L"Register Count:";
    if (line.substr(0, label.size()) != label)
        return false;
    std::size_t at = label.size();
    while (at < line.size() && IsScanBlank(line[at]))
        ++at;
    bool negative = false;
    if (at < line.size() && (line[at] == L'+' || line[at] == L'-'))
        negative = line[at++] == L'-';
    const std::size_t digitsStart = at;
    long long value = 0;
    while (at < line.size() && line[at] >= L'0' && line[at] <= L'9') {
        value = std::min(value * 10 + (line[at] - L'0'), 1LL << 31);
        ++at;
    }
    if (at == digitsStart)
        return false;
    count = negative ? 0 : static_cast<int>(std::min(value, (1LL << 31) - 1));
    return true;
}

// Counts what a reader takes from the file, so the bound on it can be seen.
class CountingReader {
public:
    explicit CountingReader(CStdioFileEx& file, ParamReadOutcome& outcome)
        : m_file(file), m_outcome(outcome) {}
    bool Next(std::wstring& line) {
        const bool read = m_file.ReadString(line);
        m_outcome.bytesRead = m_file.BytesRead();
        return read;
    }

private:
    CStdioFileEx& m_file;
    ParamReadOutcome& m_outcome;
};

} // namespace

void FormatHexByte(std::wstring& text, std::uint8_t value) {
    wchar_t buffer[8];
    std::swprintf(buffer, std::size(buffer), value < 16 ? L"0x0%x" : L"0x%x", static_cast<unsigned>(value));
    text = buffer;
}

std::wstring_view StripTrailingCommas(std::wstring_view line) {
    while (!line.empty() && line.back() == L',')
        line.remove_suffix(1);
    return line;
}

int ScanHexFields(std::wstring_view line, std::span<std::uint32_t> fields) {
    std::size_t at = 0;
    int scanned = 0;
    for (std::uint32_t& field : fields) {
        if (scanned > 0) {
            if (at >= line.size() || line[at] != L',')
                break;
            ++at;
        }
        std::uint32_t value = 0;
        const std::size_t next = ScanHex(line, at, value);
        if (next == std::wstring_view::npos)
            break;
        field = value;
        at = next;
        ++scanned;
    }
    return scanned;
}

std::wstring FileDialogFilter(std::wstring_view barSeparated) {
    while (!barSeparated.empty() && barSeparated.back() == L'|')
        barSeparated.remove_suffix(1);
    std::wstring filter(barSeparated);
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    // Each string ends in a NUL; the string's own terminator is the list's second NUL.
    filter.push_back(L'\0');
    return filter;
}

std::wstring TemporaryPathFor(const std::wstring& path) {
    return path + L".regvane-part";
}

bool WriteFileReplacing(const std::wstring& path, const std::function<bool(CStdioFileEx&)>& writeContent) {
    const std::wstring temporary = TemporaryPathFor(path);
    bool written = false;
    {
        CStdioFileEx file;
        if (!file.Open(temporary,
                       CStdioFileEx::modeCreate | CStdioFileEx::modeWrite | CStdioFileEx::typeText))
            return false;
        written = writeContent(file);
        written = file.Close() && written;
    }
    if (written && ReplaceFileWide(temporary, path))
        return true;
    RemoveFileWide(temporary);
    return false;
}

ParamFileResult WriteParamFile(const std::wstring& path, const ParamFileLayout& layout,
                               std::span<const std::uint8_t> bytes, int rows) {
    const int fields = layout.fieldsPerRow;
    if (fields <= 0 || fields > kMaxFieldsPerRow || rows < 0 ||
        static_cast<std::size_t>(rows) * static_cast<std::size_t>(fields) > bytes.size())
        return kParamFileFailed;
    const bool written = WriteFileReplacing(path, [&](CStdioFileEx& file) {
        bool ok = true;
        if (layout.tagLine)
            ok = file.WriteString(std::wstring(layout.tagLine) + L"\r\n") && ok;
        if (layout.headerCarriesRowCount)
            ok = file.WriteString(kRowCountHeader + std::to_wstring(rows) + L"\r\n") && ok;
        else
            ok = file.WriteString(std::wstring(layout.header) + L"\r\n") && ok;
        std::wstring line;
        std::wstring field;
        for (int row = 0; row < rows && ok; ++row) {
            line.clear();
            for (int i = 0; i < fields; ++i) {
                FormatHexByte(field, bytes[static_cast<std::size_t>(row * fields + i)]);
                if (i)
                    line += L',';
                line += field;
            }
            line += L"\r\n";
            ok = file.WriteString(line);
        }
        return ok;
    });
    return written ? kParamFileOk : kParamFileFailed;
}

ParamReadOutcome ReadParamFile(const std::wstring& path, const ParamFileLayout& layout,
                               std::span<std::uint8_t> bytes, int rows) {
    ParamReadOutcome outcome;
    const int fields = layout.fieldsPerRow;
    if (fields <= 0 || fields > kMaxFieldsPerRow || rows < 0)
        return outcome;
    rows = static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(rows), bytes.size() / fields));

    CStdioFileEx file;
    if (!file.Open(path, CStdioFileEx::modeRead | CStdioFileEx::typeText))
        return outcome;
    CountingReader reader(file, outcome);
    std::wstring line;

    const bool gotTag = reader.Next(line);
    if (layout.tagLine && (!gotTag || StripTrailingCommas(line) != layout.tagLine)) {
        outcome.status = ParamReadStatus::WrongTag;
        return outcome;
    }

    // Empty lines are no rows however many there are, but no more of the file is read than rows of
    // the longest line a read hands out would take: a huge file of line breaks ends like a short file.
    // A line of blanks or commas is a row, one that changes nothing.
    const std::uint64_t byteBudget =
        (static_cast<std::uint64_t>(rows) + 2) * static_cast<std::uint64_t>(CStdioFileEx::kMaxLineChars);
    auto nextLine = [&](std::wstring& text) {
        while (reader.Next(text)) {
            if (!layout.skipEmptyLines || !text.empty())
                return true;
            if (file.BytesRead() > byteBudget)
                return false;
        }
        return false;
    };

    const bool gotHeader = nextLine(line);
    if (layout.headerCarriesRowCount) {
        int count = 0;
        if (!gotHeader || !ParseRowCountHeader(line, count)) {
            outcome.status = ParamReadStatus::BadHeader;
            return outcome;
        }
        rows = std::min(rows, count);
    }

    // Parsed into a copy: the caller's table changes only when the whole file has been taken.
    std::vector<std::uint8_t> parsed(bytes.begin(), bytes.end());
    std::uint32_t values[kMaxFieldsPerRow];
    for (int row = 0; row < rows; ++row) {
        if (!nextLine(line))
            break;
        ++outcome.rowsRead;
        const int scanned =
            ScanHexFields(line, std::span<std::uint32_t>(values, static_cast<std::size_t>(fields)));
        for (int i = 0; i < scanned; ++i)
            parsed[static_cast<std::size_t>(row * fields + i)] = static_cast<std::uint8_t>(values[i] & 0xFF);
    }
    std::copy(parsed.begin(), parsed.end(), bytes.begin());
    outcome.status = ParamReadStatus::Ok;
    return outcome;
}
