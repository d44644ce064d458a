// What the raw register editor knows about registers, without any window: which byte each edit box
// shows, how a typed byte is read, and which controls each register kind of the host shows.
#pragma once

#include "host/HostRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// A byte comes from the register block, record A or record B.
struct RawByteField {
    int editId;
    HostRecord source;
    std::size_t byte;
};

// Bytes 0 and 1 of the block are the host's own and are not offered. Per-colour registers sit two
// bytes apart (red, green, blue), the low byte first; the third register runs on into record A and
// the fourth lives in record B.
inline constexpr std::array<RawByteField, 24> kRawByteFields{{
    {8543, HostRecord::Block, 2},   {8068, HostRecord::Block, 3},   {8069, HostRecord::Block, 4},
    {8070, HostRecord::Block, 5},   {8544, HostRecord::Block, 6},   {8072, HostRecord::Block, 7},
    {8545, HostRecord::Block, 8},   {8074, HostRecord::Block, 9},   {8075, HostRecord::Block, 10},
    {8076, HostRecord::Block, 11},  {8077, HostRecord::Block, 12},  {8078, HostRecord::Block, 13},
    {8079, HostRecord::Block, 14},  {8080, HostRecord::Block, 15},  {8081, HostRecord::RecordA, 0},
    {8082, HostRecord::RecordA, 1}, {8083, HostRecord::RecordA, 2}, {8084, HostRecord::RecordA, 3},
    {8085, HostRecord::RecordB, 0}, {8086, HostRecord::RecordB, 1}, {8087, HostRecord::RecordB, 2},
    {8088, HostRecord::RecordB, 3}, {8089, HostRecord::RecordB, 4}, {8090, HostRecord::RecordB, 5},
}};

// The position of an edit in kRawByteFields, or nothing for any other control.
std::optional<std::size_t> RawByteFieldOf(int editId);

// A typed byte: one or two hexadecimal digits and nothing else (no sign, no blank, no 0x). Longer
// texts are refused even when their value would fit, so the operator never sees a byte silently cut.
std::optional<std::uint8_t> ParseRawByte(std::wstring_view text);
// Two lower-case hexadecimal digits, as the editor shows every byte.
std::wstring FormatRawByte(std::uint8_t value);

// Controls of the second register (bytes 8-13), the third (bytes 14-15 and record A 0-3) and the
// fourth (record B 0-5), with their labels.
inline constexpr int kRawGroupX[] = {8552, 8553, 8554, 8558, 8559, 8560, 8545,
                                     8075, 8077, 8074, 8076, 8078, 20014};
inline constexpr int kRawGroupY[] = {8568, 8571, 8574, 8567, 8570, 8573, 8079,
                                     8081, 8083, 8080, 8082, 8084, 20015};
inline constexpr int kRawGroupZ[] = {8569, 8575, 8577, 8085, 8087, 8089, 8086, 8088, 8090};

// Low bytes of the first register, read-only on chips whose first register is 8 bits wide.
inline constexpr int kRawFirstRegisterLowBytes[] = {8543, 8069, 8544};
inline constexpr int kRawPresetButton = 20013;
// Captions over the four registers; the first is shown only when the chip names its registers.
inline constexpr int kRawRegisterCaptions[] = {20616, 20014, 20015, 20016};
// Labels of the fourth register's red, green and blue rows.
inline constexpr int kRawRegister4Labels[] = {8569, 8575, 8577};

// The preset puts the first register of red, green and blue to 0x3FA6 (bytes 2 to 7, low byte first).
inline constexpr std::size_t kRawPresetFirstByte = 2;
inline constexpr std::array<std::uint8_t, 6> kRawPresetBytes{0xA6, 0x3F, 0xA6, 0x3F, 0xA6, 0x3F};

// How the host's register kind (1 to 12) changes the default layout, which shows the first three
// registers and hides the fourth, its caption, the first register's caption and the preset.
struct RawEditorLayout {
    bool hideX = false;
    bool hideY = false;
    bool showZ = false;
    bool showRegister4Caption = false;    // 20016
    bool showRegister1Caption = false;    // 20616
    bool showPreset = false;              // 20013
    bool disableFirstRegisterLow = false; // 8543, 8069, 8544
    bool configCaptions = false;          // "CFG1" to "CFG4" over the four registers
    bool colourRegister4Labels = false;   // the fourth register's rows named by colour
};
RawEditorLayout LayoutForRegisterKind(int kind);
