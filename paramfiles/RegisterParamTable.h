// A chip page's register parameter table between the host and a parameter file: where the table's
// bytes live in the host's register records, how it is exported and imported, and the change test
// that follows an import. Portable: it talks to the host only through IRegvane, so the whole round
// trip is tested natively against the simulated host.
#pragma once

#include "host/IRegvane.h"
#include "paramfiles/ParamChipTable.h"
#include "paramfiles/ParamFileFormat.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The four register records a table-driven chip keeps in the host.
struct HostRegisterRecords {
    std::array<std::uint8_t, kRegDataBytes> regData{};
    std::array<std::uint8_t, kRegDataExBytes> regDataEx{};
    std::array<std::uint8_t, kRegData2Bytes> regData2{};
    std::array<std::uint8_t, kRegData3Bytes> regData3{};
    bool operator==(const HostRegisterRecords&) const = default;
};

HostRegisterRecords ReadHostRecords(IRegvane& chip);
// Writes all four back, in the order the host reads them.
void WriteHostRecords(IRegvane& chip, HostRegisterRecords& records);

class HostChipIds final : public ChipIdQuery {
public:
    explicit HostChipIds(IRegvane& chip) : m_chip(chip) {}
    std::uint16_t ChipType() override { return m_chip.GetChipType(); }
    std::uint16_t ChipSubType() override { return m_chip.GetChipSubType(); }

private:
    IRegvane& m_chip;
};

struct ParamImportResult {
    ParamFileResult result = kParamFileFailed;
    ParamReadStatus status = ParamReadStatus::CannotOpen;
};

class RegisterParamTable {
public:
    virtual ~RegisterParamTable() = default;
    RegisterParamTable(const RegisterParamTable&) = delete;
    RegisterParamTable& operator=(const RegisterParamTable&) = delete;

    // Titles of the table's columns, one per field of a row.
    virtual std::vector<std::wstring> ColumnTitles() const = 0;
    // False when rows carry no register address of their own; a page then numbers them.
    virtual bool HasAddressColumn() const { return false; }
    // The name the save dialog proposes; empty for a chip the routines do not know.
    virtual std::wstring DefaultFileName() = 0;

    int RowCount() const { return m_rows; }
    int FieldsPerRow() const { return m_fieldsPerRow; }
    std::span<const std::uint8_t> Row(int row) const;

    // Re-reads the table from the chip.
    void Refresh();
    // Writes the chip's current table to `path`; an earlier file there survives a failed export.
    ParamFileResult Export(const std::wstring& path);
    // Reads `path` and, when it belongs to the chip, hands the table to the host; the caller then
    // runs the change test. A file that is refused changes nothing in the host.
    ParamImportResult Import(const std::wstring& path);

    // Whether the chip's records (and row list) differ from what they were when the table was made.
    bool DiffersFromSnapshot();
    // Puts the snapshot back into the host.
    void RestoreSnapshot();
    // The change test: MarkModified when the chip differs from the snapshot, then
    // UpdateHostState(1, 1). Returns what UpdateHostState returned.
    int ReportChange();

protected:
    // Room for capacityRows rows; a chip's table never has more than a parameter block.
    RegisterParamTable(IRegvane* chip, int fieldsPerRow, int capacityRows = kParamBlockRows);

    IRegvane& Chip() const { return *m_chip; }
    std::span<std::uint8_t> Block() { return m_block; }
    void SetRowCount(int rows);
    // Takes the snapshot the change test compares with; called once the derived table is set up.
    void TakeSnapshot();

    // Fills the block's rows and row count from the chip.
    virtual void LoadFromChip() = 0;
    // Hands the first RowCount() rows of the block to the chip.
    virtual void StoreToChip() = 0;
    // The file layout for the chip as it reports itself now.
    virtual ParamFileLayout Layout() = 0;
    // What the change test compares beyond the four register records, and how it is put back.
    virtual std::vector<std::uint8_t> ExtraState() { return {}; }
    virtual void RestoreExtraState(const std::vector<std::uint8_t>& state) {}

private:
    IRegvane* m_chip;
    int m_fieldsPerRow;
    int m_rows = 0;
    std::vector<std::uint8_t> m_block;
    HostRegisterRecords m_snapshotRecords;
    std::vector<std::uint8_t> m_snapshotExtra;
};

// The table of the ICN2055 family of pages: rows of address, red, green, blue. Which chip it is,
// and so the file name, tag line and row count, is asked from the host each time.
//
// Where the rows live in the host: the chips' tables are at most 47 rows of colour values, so the
// red, green and blue bytes of rows 0-41 fill the large record (GetRegData2) three bytes per row
// from offset 0, and rows 42-46 continue at offset 0 of record A (GetRegDataEx). The register block
// and record B are read and written back as they are. The address column is the chip's register
// index and is no setting: the host does not keep it, so a page starts with addresses 0, 1, 2...
// and keeps the addresses of the last file it imported for as long as it lives.
//
// The ICND3065 and ICND3069 keep their table in the host's row list instead, addresses included.
class ChipParamTable final : public RegisterParamTable {
public:
    explicit ChipParamTable(IRegvane* chip);

    std::vector<std::wstring> ColumnTitles() const override;
    bool HasAddressColumn() const override { return true; }
    std::wstring DefaultFileName() override;

    // Rows of the fixed-length tables the host records can hold.
    static constexpr int kRowsInLargeRecord = 42;
    static constexpr int kMaxFixedRows = 47;

protected:
    void LoadFromChip() override;
    void StoreToChip() override;
    ParamFileLayout Layout() override;
    std::vector<std::uint8_t> ExtraState() override;
    void RestoreExtraState(const std::vector<std::uint8_t>& state) override;

private:
    // The host's row list of a list-keeping chip, as it was fetched with the plan.
    struct HostList {
        ParamRowSource source;
        RegvaneParamRowList list;
    };
    std::optional<HostList> FetchHostList(ParamRowPlan plan);

    std::optional<HostList> m_hostList;
};

// The CNS7363 table: 18 rows of six bytes (red, green, blue, each high then low byte), no address
// column. The 108 bytes are the start of the large record (GetRegData2).
class Cns7363ParamTable final : public RegisterParamTable {
public:
    explicit Cns7363ParamTable(IRegvane* chip);
    std::vector<std::wstring> ColumnTitles() const override;
    std::wstring DefaultFileName() override;
    static constexpr int kRows = 18;

protected:
    void LoadFromChip() override;
    void StoreToChip() override;
    ParamFileLayout Layout() override;
};

// The MBI5292 table: the chip's extended configuration, the whole large record (GetRegData2) as
// 16 rows of eight bytes; the file states its row count in the header.
class Mbi5292ParamTable final : public RegisterParamTable {
public:
    explicit Mbi5292ParamTable(IRegvane* chip);
    std::vector<std::wstring> ColumnTitles() const override;
    std::wstring DefaultFileName() override;
    static constexpr int kRows = 16;

protected:
    void LoadFromChip() override;
    void StoreToChip() override;
    ParamFileLayout Layout() override;
};

// Which table a parameter-table page edits.
enum class ParamTableKind { Chip, Cns7363, Mbi5292 };
// The table of a page class that has one (dialogs/chips/ParamTablePageList.h); nothing for another.
std::optional<ParamTableKind> ParamTableKindOf(std::string_view className);
// A table of that kind on the chip; null without a chip.
std::unique_ptr<RegisterParamTable> MakeParamTable(ParamTableKind kind, IRegvane* chip);

// The filter of the parameter files' save and open dialogs, in the host suite's bar-separated form.
inline constexpr wchar_t kParamFileFilter[] = L"(*.csv)|*.csv|All Files (*.*)|*.*||";
inline constexpr wchar_t kParamFileExtension[] = L"csv";
