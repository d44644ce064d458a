// The comma-separated register parameter files that the table-driven chip pages save and load:
// a tag line naming the chip, a header line, then one line per register row, every field a byte
// written in hexadecimal. Portable: no Win32, paths are wide.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

class CStdioFileEx;

// HRESULT-style results, as the host suite's file routines give them: negative means failure.
using ParamFileResult = std::int32_t;
inline constexpr ParamFileResult kParamFileOk = 0;
inline constexpr ParamFileResult kParamFileFailed = static_cast<ParamFileResult>(0x80004005u); // E_FAIL

// "0x0%x" below 16, "0x%x" otherwise: every field has at least two hexadecimal digits.
void FormatHexByte(std::wstring& text, std::uint8_t value);

// What one kind of parameter file looks like. A row is fieldsPerRow consecutive bytes.
struct ParamFileLayout {
    // The first line; null for a chip the file routines do not know: nothing is written then, and
    // on reading the first line is consumed unchecked.
    const wchar_t* tagLine = nullptr;
    // The second line as written. Ignored when the header carries the row count.
    const wchar_t* header = L"";
    int fieldsPerRow = 4;
    // "Register Count: %d": the header states how many rows follow, and a reader takes it from there.
    bool headerCarriesRowCount = false;
    // Empty lines between the rows are not rows (a line of blanks or commas is one).
    bool skipEmptyLines = false;
};

// The tag line as a spreadsheet program may have re-saved it (padded with commas), with the padding
// removed; nothing else is trimmed.
std::wstring_view StripTrailingCommas(std::wstring_view line);

// Reads up to `count` comma-separated hexadecimal fields the way "%x,%x,..." scans them: blanks
// before a number, an optional sign and an optional 0x are accepted, a comma must follow a number
// directly. Returns how many leading fields were read; values wrap to 32 bits.
int ScanHexFields(std::wstring_view line, std::span<std::uint32_t> fields);

// "(*.csv)|*.csv|All Files (*.*)|*.*||" -> the NUL-separated, double-NUL-ended form of the Win32
// file dialogs.
std::wstring FileDialogFilter(std::wstring_view barSeparated);

// Writes a file so that the one at `path` is replaced only by a complete one: the content goes to a
// temporary file beside it, which takes the target's place only when every write and the close
// succeeded. On any failure the temporary file is removed and an earlier file at `path` is intact.
bool WriteFileReplacing(const std::wstring& path, const std::function<bool(CStdioFileEx&)>& writeContent);

// The temporary file WriteFileReplacing writes before it replaces `path`.
std::wstring TemporaryPathFor(const std::wstring& path);

// Writes `rows` rows of `bytes` (row i = bytes[i * fieldsPerRow ...]) in the layout's format.
ParamFileResult WriteParamFile(const std::wstring& path, const ParamFileLayout& layout,
                               std::span<const std::uint8_t> bytes, int rows);

enum class ParamReadStatus {
    Ok,
    CannotOpen,
    WrongTag,
    BadHeader, // a header that should state the row count does not
};

struct ParamReadOutcome {
    ParamReadStatus status = ParamReadStatus::CannotOpen;
    int rowsRead = 0;          // lines taken as rows, whether they parsed or not
    std::uint64_t bytesRead = 0;
    bool ok() const { return status == ParamReadStatus::Ok; }
};

// Reads a parameter file into `bytes`. For a fixed layout `rows` rows are read; when the header
// carries the count, that count is used, cut to `rows`. Row i is parsed into bytes[i * fields ...],
// keeping the low 8 bits of each value; a short or unparsable line leaves the fields it does not
// supply as they were, the end of the file leaves the remaining rows, and lines after the last row
// are never read. `bytes` changes only when the outcome is Ok. At most about
// (rows + 2) * CStdioFileEx::kMaxLineChars code units are read, whatever the file holds, however
// many empty lines a layout that skips them meets.
ParamReadOutcome ReadParamFile(const std::wstring& path, const ParamFileLayout& layout,
                               std::span<std::uint8_t> bytes, int rows);
