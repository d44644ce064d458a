// Reading and writing the host's records by name. Portable: only IRegvane.
#pragma once

#include "host/HostRecord.h"
#include "host/IRegvane.h"

#include <cstdint>

// The host value has no bytes: reading or writing it as a record does nothing.
void ReadHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes);
void WriteHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes);
// The host value; 0 for a record.
int ReadHostValue(IRegvane& chip, HostRecord value);
