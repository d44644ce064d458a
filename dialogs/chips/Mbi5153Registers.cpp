#include "dialogs/chips/Mbi5153Registers.h"

namespace mbi5153 {

std::wstring DelayStepText(int step) {
    return std::to_wstring(step * kDelayStepNanoseconds) + L"ns";
}

Settings Decode(std::span<const std::uint8_t> block) {
    Settings settings;
    settings.gainRed = kGain.Of(0).ReadFrom(block);
    settings.gainGreen = kGain.Of(1).ReadFrom(block);
    settings.gainBlue = kGain.Of(2).ReadFrom(block);
    settings.flagBit7 = kFlagBit7.ReadFrom(block);
    settings.flagBit6 = kFlagBit6.ReadFrom(block);
    settings.flagBit2 = kFlagBit2.ReadFrom(block);
    settings.delayStep = kDelayStep.ReadFrom(block);
    return settings;
}

std::uint32_t RecordWordFor(int flagBit6, int flagBit2) {
    const bool bit6 = (flagBit6 & 1) != 0;
    const bool bit2 = (flagBit2 & 1) != 0;
    if (bit6 && bit2)
        return 0x81008100;
    if (bit6 || bit2)
        return 0x01010101;
    return 0x01020102;
}

void WriteRecordWord(std::span<std::uint8_t> record, std::uint32_t word) {
    for (std::size_t i = 0; i < 4 && kRecordWordOffset + i < record.size(); ++i)
        record[kRecordWordOffset + i] = static_cast<std::uint8_t>(word >> (8 * i));
}

void ApplyDefaults(std::span<std::uint8_t> block, std::span<std::uint8_t> recordA) {
    for (std::size_t i = 0; i < kDefaultBytes2To15.size() && 2 + i < block.size(); ++i)
        block[2 + i] = kDefaultBytes2To15[i];
    kGain.WriteAll(block, kDefaultGain);
    for (std::size_t i = 0; i < 4 && i < recordA.size(); ++i)
        recordA[i] = static_cast<std::uint8_t>(kDefaultRecordAWord >> (8 * i));
}

} // namespace mbi5153
