// A chip page's change test: what the chip held in the host records (and host values) the test
// covers when the page opened, whether it differs now, putting it back on Cancel, and telling the
// host. Portable: it talks to the host only through IRegvane, and never without one.
#pragma once

#include "host/HostRecord.h"
#include "host/IRegvane.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// A record the change test covers: the whole of it, or only its first bytes (the rest is neither
// compared nor put back).
struct CoveredRecord {
    CoveredRecord(HostRecord record, std::size_t bytes = 0)
        : record(record), bytes(bytes ? bytes : HostRecordBytes(record)) {}
    HostRecord record;
    std::size_t bytes;
};

class CChangeTracker {
public:
    // Reads the snapshot, record by record in the order given. Without a host the snapshot is zeros
    // and nothing is ever called.
    CChangeTracker(IRegvane* chip, std::vector<CoveredRecord> covered);

    // Reads every covered record, whatever differs first: the host sees the same calls whatever
    // changed.
    bool ChipDiffers() const;
    // Writes the snapshot back in the same order; a partly covered record is read, patched and written.
    void Restore() const;
    // Tells the host what a change test found: MarkModified when the chip differs, then
    // UpdateHostState(1, 1); with eitherOne, UpdateHostState only when it does not differ. Returns
    // what UpdateHostState returned (0 when it was not called).
    int Notify(bool differs, bool eitherOne = false) const;
    int NotifyIfChanged(bool eitherOne = false) const { return Notify(ChipDiffers(), eitherOne); }

    // The whole record as the snapshot read it; empty when the test does not cover it (and for the
    // host value).
    std::span<const std::uint8_t> Snapshot(HostRecord record) const;

private:
    using Bytes = std::array<std::uint8_t, kLargestHostRecord>;

    IRegvane* m_chip;
    std::vector<CoveredRecord> m_covered;
    std::array<Bytes, kHostRecordCount> m_records{};
    std::array<int, kHostRecordCount> m_values{};
};
