#include "dialogs/common/ChangeTracker.h"

#include "dialogs/common/HostRecords.h"

#include <algorithm>
#include <cstring>
#include <utility>

CChangeTracker::CChangeTracker(IRegvane* chip, std::vector<CoveredRecord> covered)
    : m_chip(chip), m_covered(std::move(covered)) {
    if (!m_chip)
        return;
    for (const CoveredRecord& covers : m_covered) {
        const auto index = static_cast<std::size_t>(covers.record);
        if (IsHostValue(covers.record))
            m_values[index] = ReadHostValue(*m_chip, covers.record);
        else
            ReadHostRecord(*m_chip, covers.record, m_records[index].data());
    }
}

bool CChangeTracker::ChipDiffers() const {
    if (!m_chip)
        return false;
    bool differs = false;
    for (const CoveredRecord& covers : m_covered) {
        const auto index = static_cast<std::size_t>(covers.record);
        if (IsHostValue(covers.record)) {
            differs = ReadHostValue(*m_chip, covers.record) != m_values[index] || differs;
            continue;
        }
        Bytes now{};
        ReadHostRecord(*m_chip, covers.record, now.data());
        differs = std::memcmp(now.data(), m_records[index].data(), covers.bytes) != 0 || differs;
    }
    return differs;
}

void CChangeTracker::Restore() const {
    if (!m_chip)
        return;
    for (const CoveredRecord& covers : m_covered) {
        if (IsHostValue(covers.record))
            continue;
        const auto index = static_cast<std::size_t>(covers.record);
        Bytes bytes = m_records[index];
        if (covers.bytes < HostRecordBytes(covers.record)) {
            ReadHostRecord(*m_chip, covers.record, bytes.data());
            std::memcpy(bytes.data(), m_records[index].data(), covers.bytes);
        }
        WriteHostRecord(*m_chip, covers.record, bytes.data());
    }
}

int CChangeTracker::Notify(bool differs, bool eitherOne) const {
    if (!m_chip)
        return 0;
    if (differs)
        m_chip->MarkModified();
    if (differs && eitherOne)
        return 0;
    return m_chip->UpdateHostState(1, 1);
}

std::span<const std::uint8_t> CChangeTracker::Snapshot(HostRecord record) const {
    const bool covered =
        std::any_of(m_covered.begin(), m_covered.end(),
                    [record](const CoveredRecord& covers) { return covers.record == record; });
    if (!covered || IsHostValue(record))
        return {};
    return std::span<const std::uint8_t>(m_records[static_cast<std::size_t>(record)])
        .first(HostRecordBytes(record));
}
