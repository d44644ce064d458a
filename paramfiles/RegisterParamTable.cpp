#include "paramfiles/RegisterParamTable.h"

#include "dialogs/chips/ParamTablePageList.h"

#include <algorithm>
#include <cstring>

HostRegisterRecords ReadHostRecords(IRegvane& chip) {
    HostRegisterRecords records;
    chip.GetRegData(records.regData.data());
    chip.GetRegDataEx(records.regDataEx.data());
    chip.GetRegData2(records.regData2.data());
    chip.GetRegData3(records.regData3.data());
    return records;
}

void WriteHostRecords(IRegvane& chip, HostRegisterRecords& records) {
    chip.SetRegData(records.regData.data());
    chip.SetRegDataEx(records.regDataEx.data());
    chip.SetRegData2(records.regData2.data());
    chip.SetRegData3(records.regData3.data());
}

RegisterParamTable::RegisterParamTable(IRegvane* chip, int fieldsPerRow, int capacityRows)
    : m_chip(chip), m_fieldsPerRow(fieldsPerRow),
      m_block(static_cast<std::size_t>(capacityRows) * static_cast<std::size_t>(fieldsPerRow)) {}

std::span<const std::uint8_t> RegisterParamTable::Row(int row) const {
    if (row < 0 || row >= m_rows)
        return {};
    return std::span<const std::uint8_t>(m_block).subspan(static_cast<std::size_t>(row * m_fieldsPerRow),
                                                          static_cast<std::size_t>(m_fieldsPerRow));
}

void RegisterParamTable::SetRowCount(int rows) {
    m_rows = std::clamp(rows, 0, static_cast<int>(m_block.size()) / m_fieldsPerRow);
}

void RegisterParamTable::TakeSnapshot() {
    m_snapshotRecords = ReadHostRecords(*m_chip);
    m_snapshotExtra = ExtraState();
}

void RegisterParamTable::Refresh() {
    LoadFromChip();
}

ParamFileResult RegisterParamTable::Export(const std::wstring& path) {
    const ParamFileLayout layout = Layout();
    LoadFromChip();
    return WriteParamFile(path, layout, m_block, m_rows);
}

ParamImportResult RegisterParamTable::Import(const std::wstring& path) {
    const ParamFileLayout layout = Layout();
    // Fields a short file leaves out keep the chip's current values.
    LoadFromChip();
    const ParamReadOutcome read = ReadParamFile(path, layout, m_block, m_rows);
    if (!read.ok())
        return {kParamFileFailed, read.status};
    StoreToChip();
    return {kParamFileOk, ParamReadStatus::Ok};
}

bool RegisterParamTable::DiffersFromSnapshot() {
    // Both are read in any case: the host sees the same calls whatever changed.
    const bool recordsDiffer = ReadHostRecords(*m_chip) != m_snapshotRecords;
    const bool extraDiffers = ExtraState() != m_snapshotExtra;
    return recordsDiffer || extraDiffers;
}

void RegisterParamTable::RestoreSnapshot() {
    HostRegisterRecords records = m_snapshotRecords;
    WriteHostRecords(*m_chip, records);
    RestoreExtraState(m_snapshotExtra);
}

int RegisterParamTable::ReportChange() {
    if (DiffersFromSnapshot())
        m_chip->MarkModified();
    return m_chip->UpdateHostState(1, 1);
}

// ICN2055 family.

ChipParamTable::ChipParamTable(IRegvane* chip) : RegisterParamTable(chip, kParamRowFields) {
    std::span<std::uint8_t> block = Block();
    for (int row = 0; row < kParamBlockRows; ++row)
        block[static_cast<std::size_t>(row * kParamRowFields)] = static_cast<std::uint8_t>(row);
    LoadFromChip();
    TakeSnapshot();
}

std::vector<std::wstring> ChipParamTable::ColumnTitles() const {
    return {L"Addr", L"RReg", L"GReg", L"BReg"};
}

std::wstring ChipParamTable::DefaultFileName() {
    HostChipIds ids(Chip());
    const ParamChipInfo* chip = FindParamChip(ParamFileChipId(ids));
    return chip ? chip->fileName : L"";
}

ParamFileLayout ChipParamTable::Layout() {
    HostChipIds ids(Chip());
    const ParamChipInfo* chip = FindParamChip(ParamFileChipId(ids));
    ParamFileLayout layout;
    layout.tagLine = chip ? chip->tagLine : nullptr;
    layout.header = L"Addr,RReg,GReg,BReg";
    layout.fieldsPerRow = kParamRowFields;
    return layout;
}

std::optional<ChipParamTable::HostList> ChipParamTable::FetchHostList(ParamRowPlan plan) {
    if (plan.source == ParamRowSource::Fixed)
        return std::nullopt;
    HostList fetched{plan.source, {}};
    if (plan.source == ParamRowSource::Icnd3065HostList)
        Chip().GetICND3065ParamRows(&fetched.list);
    else
        Chip().GetICND3069ParamRows(&fetched.list);
    // The list can only carry its capacity, whatever count the host states.
    fetched.list.rowCount = std::min<std::uint32_t>(fetched.list.rowCount, kParamRowListCapacity);
    return fetched;
}

void ChipParamTable::LoadFromChip() {
    HostChipIds ids(Chip());
    const ParamRowPlan plan = ParamRowPlanFor(ids);
    std::span<std::uint8_t> block = Block();
    m_hostList = FetchHostList(plan);
    if (m_hostList) {
        // The block holds 128 rows; rows beyond them stay in the host's list untouched.
        const int rows = std::min(static_cast<int>(m_hostList->list.rowCount), kParamBlockRows);
        std::memcpy(block.data(), m_hostList->list.rows, static_cast<std::size_t>(rows) * kParamRowBytes);
        SetRowCount(rows);
        return;
    }
    const HostRegisterRecords records = ReadHostRecords(Chip());
    const int rows = std::min(plan.rows, kMaxFixedRows);
    for (int row = 0; row < rows; ++row) {
        const std::uint8_t* colours =
            row < kRowsInLargeRecord
                ? &records.regData2[static_cast<std::size_t>(row * 3)]
                : &records.regDataEx[static_cast<std::size_t>((row - kRowsInLargeRecord) * 3)];
        std::memcpy(&block[static_cast<std::size_t>(row * kParamRowFields + 1)], colours, 3);
    }
    SetRowCount(rows);
}

void ChipParamTable::StoreToChip() {
    const std::span<std::uint8_t> block = Block();
    if (m_hostList) {
        const int rows = RowCount();
        std::memcpy(m_hostList->list.rows, block.data(), static_cast<std::size_t>(rows) * kParamRowBytes);
        if (m_hostList->source == ParamRowSource::Icnd3065HostList)
            Chip().SetICND3065ParamRows(&m_hostList->list);
        else
            Chip().SetICND3069ParamRows(&m_hostList->list);
        return;
    }
    HostRegisterRecords records = ReadHostRecords(Chip());
    for (int row = 0; row < RowCount(); ++row) {
        std::uint8_t* colours =
            row < kRowsInLargeRecord
                ? &records.regData2[static_cast<std::size_t>(row * 3)]
                : &records.regDataEx[static_cast<std::size_t>((row - kRowsInLargeRecord) * 3)];
        std::memcpy(colours, &block[static_cast<std::size_t>(row * kParamRowFields + 1)], 3);
    }
    WriteHostRecords(Chip(), records);
}

std::vector<std::uint8_t> ChipParamTable::ExtraState() {
    if (!m_hostList)
        return {};
    // The list as the host holds it now, fetched afresh.
    const std::optional<HostList> now = FetchHostList({m_hostList->source, 0});
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(now->list.rows);
    std::vector<std::uint8_t> state(bytes, bytes + now->list.rowCount * kParamRowBytes);
    for (int shift = 0; shift < 32; shift += 8)
        state.push_back(static_cast<std::uint8_t>(now->list.rowCount >> shift));
    return state;
}

void ChipParamTable::RestoreExtraState(const std::vector<std::uint8_t>& state) {
    if (!m_hostList || state.size() < 4)
        return;
    HostList restored{m_hostList->source, {}};
    const std::size_t listBytes = state.size() - 4;
    for (int shift = 0, i = 0; shift < 32; shift += 8, ++i)
        restored.list.rowCount |= static_cast<std::uint32_t>(state[listBytes + static_cast<std::size_t>(i)])
                                  << shift;
    std::memcpy(restored.list.rows, state.data(), std::min(listBytes, sizeof restored.list.rows));
    if (restored.source == ParamRowSource::Icnd3065HostList)
        Chip().SetICND3065ParamRows(&restored.list);
    else
        Chip().SetICND3069ParamRows(&restored.list);
}

// CNS7363.

namespace {
constexpr int kCns7363Fields = 6;
constexpr int kMbi5292Fields = 8;
static_assert(Cns7363ParamTable::kRows * kCns7363Fields <= kRegData2Bytes);
static_assert(Mbi5292ParamTable::kRows * kMbi5292Fields <= kRegData2Bytes);
static_assert(ChipParamTable::kRowsInLargeRecord * 3 <= kRegData2Bytes);
static_assert((ChipParamTable::kMaxFixedRows - ChipParamTable::kRowsInLargeRecord) * 3 <= kRegDataExBytes);

// Tables kept at the start of the large record: the block's rows are the record's bytes.
void LoadFromLargeRecord(IRegvane& chip, std::span<std::uint8_t> block, std::size_t bytes) {
    const HostRegisterRecords records = ReadHostRecords(chip);
    std::memcpy(block.data(), records.regData2.data(), bytes);
}

void StoreToLargeRecord(IRegvane& chip, std::span<const std::uint8_t> block, std::size_t bytes) {
    HostRegisterRecords records = ReadHostRecords(chip);
    std::memcpy(records.regData2.data(), block.data(), bytes);
    WriteHostRecords(chip, records);
}
} // namespace

Cns7363ParamTable::Cns7363ParamTable(IRegvane* chip) : RegisterParamTable(chip, kCns7363Fields) {
    LoadFromChip();
    TakeSnapshot();
}

std::vector<std::wstring> Cns7363ParamTable::ColumnTitles() const {
    return {L"RReg(High)", L"RReg(Low)", L"GReg(High)", L"GReg(Low)", L"BReg(High)", L"BReg(Low)"};
}

std::wstring Cns7363ParamTable::DefaultFileName() {
    return L"ChipCNS7363Param.csv";
}

ParamFileLayout Cns7363ParamTable::Layout() {
    ParamFileLayout layout;
    layout.tagLine = L"CHIP_CNS7363_PARAMETER_FILE";
    layout.header = L"RReg(High),RReg(Low),GReg(High),GReg(Low),BReg(High),BReg(Low)";
    layout.fieldsPerRow = kCns7363Fields;
    return layout;
}

void Cns7363ParamTable::LoadFromChip() {
    LoadFromLargeRecord(Chip(), Block(), kRows * kCns7363Fields);
    SetRowCount(kRows);
}

void Cns7363ParamTable::StoreToChip() {
    StoreToLargeRecord(Chip(), Block(), kRows * kCns7363Fields);
}

// MBI5292.

Mbi5292ParamTable::Mbi5292ParamTable(IRegvane* chip) : RegisterParamTable(chip, kMbi5292Fields) {
    LoadFromChip();
    TakeSnapshot();
}

std::vector<std::wstring> Mbi5292ParamTable::ColumnTitles() const {
    return {L"+0", L"+1", L"+2", L"+3", L"+4", L"+5", L"+6", L"+7"};
}

std::wstring Mbi5292ParamTable::DefaultFileName() {
    return L"ChipMBI5292Param.csv";
}

ParamFileLayout Mbi5292ParamTable::Layout() {
    ParamFileLayout layout;
    layout.tagLine = L"MBI5292";
    layout.fieldsPerRow = kMbi5292Fields;
    layout.headerCarriesRowCount = true;
    layout.skipEmptyLines = true;
    return layout;
}

void Mbi5292ParamTable::LoadFromChip() {
    LoadFromLargeRecord(Chip(), Block(), kRows * kMbi5292Fields);
    SetRowCount(kRows);
}

void Mbi5292ParamTable::StoreToChip() {
    StoreToLargeRecord(Chip(), Block(), kRows * kMbi5292Fields);
}

std::optional<ParamTableKind> ParamTableKindOf(std::string_view className) {
#define REGVANE_PARAM_TABLE_KIND(ClassName, templateId, table, chipName)                                     \
    if (className == #ClassName)                                                                             \
        return ParamTableKind::table;
    REGVANE_PARAM_TABLE_PAGES(REGVANE_PARAM_TABLE_KIND)
#undef REGVANE_PARAM_TABLE_KIND
    return std::nullopt;
}

std::unique_ptr<RegisterParamTable> MakeParamTable(ParamTableKind kind, IRegvane* chip) {
    if (!chip)
        return nullptr;
    switch (kind) {
    case ParamTableKind::Cns7363:
        return std::make_unique<Cns7363ParamTable>(chip);
    case ParamTableKind::Mbi5292:
        return std::make_unique<Mbi5292ParamTable>(chip);
    default:
        return std::make_unique<ChipParamTable>(chip);
    }
}
