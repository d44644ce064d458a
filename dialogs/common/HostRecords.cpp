#include "dialogs/common/HostRecords.h"

void ReadHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes) {
    switch (record) {
    case HostRecord::Block:
        return chip.GetRegData(bytes);
    case HostRecord::RecordA:
        return chip.GetRegDataEx(bytes);
    case HostRecord::RecordB:
        return chip.GetRegData3(bytes);
    case HostRecord::Large:
        return chip.GetRegData2(bytes);
    case HostRecord::Record20:
        return chip.GetRegData4(bytes);
    case HostRecord::SliderValue:
        return;
    }
}

void WriteHostRecord(IRegvane& chip, HostRecord record, std::uint8_t* bytes) {
    switch (record) {
    case HostRecord::Block:
        return chip.SetRegData(bytes);
    case HostRecord::RecordA:
        return chip.SetRegDataEx(bytes);
    case HostRecord::RecordB:
        return chip.SetRegData3(bytes);
    case HostRecord::Large:
        return chip.SetRegData2(bytes);
    case HostRecord::Record20:
        return chip.SetRegData4(bytes, 0, 0, 0);
    case HostRecord::SliderValue:
        return;
    }
}

int ReadHostValue(IRegvane& chip, HostRecord value) {
    return value == HostRecord::SliderValue ? chip.GetSliderValue() : 0;
}
