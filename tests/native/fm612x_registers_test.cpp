// FM612x register models: where each field lives, how each chip codes it, and that a write never
// disturbs a bit outside its field.
#include "dialogs/chips/fm612x/Fm612xRegisters.h"
#include "host/RegvaneTypes.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace fm612x;

using MainBlock = std::array<std::uint8_t, kRegDataBytes>;
using LargeBlock = std::array<std::uint8_t, kRegData2Bytes>;
using Footprint = std::map<int, std::uint8_t>; // byte index -> bits a field may change

// One field of a page as the tests see it: its write and read, the values its control offers, and
// where the chip documentation puts it.
struct FieldUnderTest {
    std::string name;
    std::function<void(Block, int)> write;
    std::function<int(ConstBlock)> read;
    int min, max;
    Footprint expected;
};

// Every bit that writing any value of the field's range can change, seen on an all-zero and on an
// all-one background.
template <std::size_t N> Footprint Measure(const FieldUnderTest& field) {
    Footprint touched;
    for (const std::uint8_t background : {0x00, 0xFF}) {
        for (int value = field.min; value <= field.max; ++value) {
            std::array<std::uint8_t, N> block;
            block.fill(background);
            field.write(block, value);
            for (std::size_t i = 0; i < N; ++i)
                if (const std::uint8_t changed = block[i] ^ background)
                    touched[static_cast<int>(i)] |= changed;
        }
    }
    return touched;
}

// Positions match the documentation, every value survives a round trip on both backgrounds, and
// no two fields of one page share a bit.
template <std::size_t N> void CheckPage(const std::vector<FieldUnderTest>& fields) {
    std::array<std::uint8_t, N> claimed{};
    for (const FieldUnderTest& field : fields) {
        SCOPED_TRACE(field.name);
        const Footprint touched = Measure<N>(field);
        EXPECT_EQ(touched, field.expected);
        for (const auto& [byte, bits] : touched) {
            EXPECT_EQ(claimed[static_cast<std::size_t>(byte)] & bits, 0) << "byte " << byte << " shared";
            claimed[static_cast<std::size_t>(byte)] |= bits;
        }
        for (const std::uint8_t background : {0x00, 0xFF, 0x5A}) {
            for (int value = field.min; value <= field.max; ++value) {
                std::array<std::uint8_t, N> block;
                block.fill(background);
                field.write(block, value);
                EXPECT_EQ(field.read(block), value) << "background " << int(background);
            }
        }
    }
}

std::string ColourName(Colour colour) {
    return colour == kRed ? "red" : colour == kGreen ? "green" : "blue";
}

// The per-colour byte pattern as the chip documentation lists it (W, X, Y, Z).
const int kW[] = {2, 4, 6};
const int kX[] = {3, 5, 7};
const int kY[] = {8, 10, 12};
const int kZ[] = {9, 11, 13};

TEST(Fm612xRegisters, GainOfFm6126IsStoredWithItsLowBitsInvertedAndFm6127sIsNot) {
    MainBlock block{};
    block[2] = 7;
    block[3] = 0x80;
    EXPECT_EQ(ReadGain6(block, kRed, kFm6126GainCoding), 63);
    EXPECT_EQ(ReadGain6(block, kRed, kFm6127GainCoding), 60);

    block.fill(0);
    WriteGain6(block, kGreen, kFm6126GainCoding, 60);
    EXPECT_EQ(block[4], 0x07);
    EXPECT_EQ(block[5], 0x80 | 0x0C);
    WriteGain6(block, kBlue, kFm6127GainCoding, 60);
    EXPECT_EQ(block[6], 0x07);
    EXPECT_EQ(block[7], 0x80);

    std::vector<FieldUnderTest> fields;
    for (const GainCoding coding : {kFm6126GainCoding, kFm6127GainCoding})
        for (const Colour c : kColours)
            fields.push_back({ColourName(c) + (coding == kFm6126GainCoding ? " FM6126" : " FM6127"),
                              [=](Block b, int v) { WriteGain6(b, c, coding, v); },
                              [=](ConstBlock b) { return ReadGain6(b, c, coding); }, 0, 63,
                              Footprint{{kW[c], 0x07}, {kX[c], 0x8C}}});
    // FM6126 and FM6127 are different chips: check each one's three colours as a page.
    CheckPage<kRegDataBytes>({fields.begin(), fields.begin() + 3});
    CheckPage<kRegDataBytes>({fields.begin() + 3, fields.end()});
}

TEST(Fm612xRegisters, Fm6126ExCodesItsGainRangeLowGreyAndSplitDelay) {
    MainBlock block{};
    WriteFm6126Ex(block, kRed, Fm6126ExField::Gain, 0);
    EXPECT_EQ(block[2], 0x80) << "the high current range bit is always written";
    block.fill(0xFF);
    WriteFm6126Ex(block, kBlue, Fm6126ExField::Gain, 0);
    EXPECT_EQ(block[6], 0x87);
    EXPECT_EQ(ReadFm6126Ex(block, kBlue, Fm6126ExField::Gain), 0);
    block[6] = 0x78; // range bit clear: the page still shows the low four bits
    EXPECT_EQ(ReadFm6126Ex(block, kBlue, Fm6126ExField::Gain), 15);

    block.fill(0);
    EXPECT_EQ(ReadFm6126Ex(block, kGreen, Fm6126ExField::LowGreyComp), 2);
    WriteFm6126Ex(block, kGreen, Fm6126ExField::LowGreyComp, 0);
    EXPECT_EQ(block[5], 0x20);
    WriteFm6126Ex(block, kGreen, Fm6126ExField::OutputDelay, 5);
    EXPECT_EQ(block[11], 0x02);
    EXPECT_EQ(block[5], 0x21);

    std::vector<FieldUnderTest> fields;
    for (const Colour c : kColours) {
        auto add = [&](const char* name, Fm6126ExField f, int max, Footprint expected) {
            fields.push_back({ColourName(c) + " " + name, [=](Block b, int v) { WriteFm6126Ex(b, c, f, v); },
                              [=](ConstBlock b) { return ReadFm6126Ex(b, c, f); }, 0, max, expected});
        };
        add("gain", Fm6126ExField::Gain, 15, {{kW[c], 0xF8}});
        add("mode", Fm6126ExField::Mode, 1, {{kY[c], 0x01}});
        add("ghost level", Fm6126ExField::GhostLevel, 3, {{kY[c], 0x18}});
        add("low grey", Fm6126ExField::LowGreyComp, 7, {{kX[c], 0x70}});
        add("delay", Fm6126ExField::OutputDelay, 7, {{kX[c], 0x01}, {kZ[c], 0x03}});
    }
    CheckPage<kRegDataBytes>(fields);
}

TEST(Fm612xRegisters, Fm6127ExFieldsAndGlobalsKeepToTheirBits) {
    MainBlock block{};
    WriteFm6127Ex(block, kRed, Fm6127ExField::GhostLevel, 5);
    EXPECT_EQ(ReadFm6127Ex(block, kRed, Fm6127ExField::GhostLevel), 1);
    EXPECT_EQ(block[8], 0x08);
    WriteFm6127Ex(block, kRed, Fm6127ExField::LowGreyComp, 1);
    EXPECT_EQ(block[3], 0x00);
    WriteFm6127Ex(block, kRed, Fm6127ExField::LowGreyComp, 8);
    EXPECT_EQ(block[3], 0x70);
    block.fill(0);
    WriteFm6127Ex(block, kGreen, Fm6127ExField::PreCharge, 0b1011);
    EXPECT_EQ(block[4], 0x80);
    EXPECT_EQ(block[10], 0x02);
    EXPECT_EQ(block[11], 0x10);

    std::vector<FieldUnderTest> fields;
    for (const Colour c : kColours) {
        auto add = [&](const char* name, Fm6127ExField f, Footprint expected) {
            EditRange range = Fm6127ExEditRange(f);
            if (f == Fm6127ExField::GhostLevel)
                range.max = 3; // beyond that the edit's value is cut (checked above)
            fields.push_back({ColourName(c) + " " + name, [=](Block b, int v) { WriteFm6127Ex(b, c, f, v); },
                              [=](ConstBlock b) { return ReadFm6127Ex(b, c, f); }, range.min, range.max,
                              expected});
        };
        add("gain", Fm6127ExField::Gain, {{kW[c], 0x78}});
        add("ghost off", Fm6127ExField::GhostOff, {{kZ[c], 0x08}});
        add("low grey", Fm6127ExField::LowGreyComp, {{kX[c], 0x70}});
        add("pre-charge", Fm6127ExField::PreCharge, {{kW[c], 0x80}, {kY[c], 0x06}, {kZ[c], 0x10}});
        add("delay", Fm6127ExField::OutputDelay, {{kX[c], 0x01}, {kZ[c], 0x03}});
        add("ghost level", Fm6127ExField::GhostLevel, {{kY[c], 0x18}});
        add("enhanced", Fm6127ExField::EnhancedMode, {{kY[c], 0x01}});
    }
    auto global = [&](const char* name, Fm6127ExGlobal g, Footprint expected) {
        fields.push_back({name, [=](Block b, int v) { WriteFm6127ExGlobal(b, g, v); },
                          [=](ConstBlock b) { return ReadFm6127ExGlobal(b, g); }, 0, 1, expected});
    };
    global("refresh mode", Fm6127ExGlobal::RefreshMode, {{3, 0x02}});
    global("grey mode", Fm6127ExGlobal::GreyMode, {{9, 0x40}});
    global("scan direction", Fm6127ExGlobal::ScanDirection, {{9, 0x04}});
    global("extended shown", Fm6127ExGlobal::ExtendedShown, {{14, 0x40}});
    global("reserved", Fm6127ExGlobal::Reserved, {{15, 0x80}});
    CheckPage<kRegDataBytes>(fields);
}

TEST(Fm612xRegisters, Fm6128GainIsKeptInThreeCopiesAndATripleLowBit) {
    LargeBlock large{};
    WriteFm6128Gain(large, kRed, 127);
    for (const int byte : {79, 85, 91})
        EXPECT_EQ(large[byte], 63) << byte;
    EXPECT_EQ(large[73], 0x07);

    // Decoding trusts the first copy and bit 0 of the low-bit byte only.
    large.fill(0);
    large[81] = 0x15;
    large[87] = 0x3F;
    large[75] = 0x06;
    EXPECT_EQ(ReadFm6128Gain(large, kGreen), 0x2A);
    large[75] = 0x01;
    EXPECT_EQ(ReadFm6128Gain(large, kGreen), 0x2B);

    std::vector<FieldUnderTest> fields;
    const int firstCopy[] = {79, 81, 83};
    const int lowBit[] = {73, 75, 77};
    for (const Colour c : kColours)
        fields.push_back({ColourName(c) + " gain", [=](Block b, int v) { WriteFm6128Gain(b, c, v); },
                          [=](ConstBlock b) { return ReadFm6128Gain(b, c); }, 0, 127,
                          Footprint{{firstCopy[c], 0x3F},
                                    {firstCopy[c] + 6, 0x3F},
                                    {firstCopy[c] + 12, 0x3F},
                                    {lowBit[c], 0x07}}});
    fields.push_back({"scan count",
                      [](Block b, int v) { WriteFm6128ExScanCount(b, static_cast<std::uint32_t>(v)); },
                      [](ConstBlock b) { return ReadFm6128ExScanCount(b); }, 1, 64, Footprint{{31, 0x3F}}});
    fields.push_back({"blanking", [](Block b, int v) { WriteFm6128ExBlanking(b, v); },
                      [](ConstBlock b) { return ReadFm6128ExBlanking(b); }, 0, 15, Footprint{{33, 0x0F}}});
    CheckPage<kRegData2Bytes>(fields);

    large.fill(0xC0);
    WriteFm6128ExScanCount(large, 32);
    EXPECT_EQ(large[31], 0xC0 | 31);
}

TEST(Fm612xRegisters, Fm6129AndItsExtendedSetShareNoBits) {
    MainBlock block;
    block.fill(0xFF);
    WriteFm6129Gain(block, kGreen, 0);
    EXPECT_EQ(block[5], 0xC0);

    // One chip, two pages: the plain page's fields and the extended page's fifteen must not overlap.
    std::vector<FieldUnderTest> fields;
    for (const Colour c : kColours) {
        fields.push_back({ColourName(c) + " gain", [=](Block b, int v) { WriteFm6129Gain(b, c, v); },
                          [=](ConstBlock b) { return ReadFm6129Gain(b, c); }, 0, 63,
                          Footprint{{kX[c], 0x3F}}});
        fields.push_back({ColourName(c) + " low grey", [=](Block b, int v) { WriteFm6129LowGrey(b, c, v); },
                          [=](ConstBlock b) { return ReadFm6129LowGrey(b, c); }, 0, kFm6129LowGreyMax,
                          Footprint{{kZ[c], 0x03}}});
        int oneBitFields = 0;
        for (const Fm6129ExField f : kFm6129ExFields) {
            const int max = Fm6129ExFieldMax(f);
            oneBitFields += max == 1;
            fields.push_back({ColourName(c) + " extended " + std::to_string(static_cast<int>(f)),
                              [=](Block b, int v) { WriteFm6129Ex(b, c, f, v); },
                              [=](ConstBlock b) { return ReadFm6129Ex(b, c, f); }, 0, max, Footprint{}});
        }
        EXPECT_EQ(oneBitFields, 3);
    }
    // The extended fields' places are ours to choose; the documented shape is what is checked.
    for (FieldUnderTest& field : fields) {
        if (field.name.find("extended") == std::string::npos)
            continue;
        field.expected = Measure<kRegDataBytes>(field);
        ASSERT_EQ(field.expected.size(), 1u) << field.name;
        const std::uint8_t bits = field.expected.begin()->second;
        EXPECT_TRUE(bits == 0x80 || bits == 0x40 || bits == 0xF0 || bits == 0x07)
            << field.name << " " << int(bits);
    }
    CheckPage<kRegDataBytes>(fields);
}

TEST(Fm612xRegisters, WritesCutValuesToTheirFieldInsteadOfSpilling) {
    MainBlock block{};
    WriteGain6(block, kRed, kFm6127GainCoding, 64 + 5);
    EXPECT_EQ(ReadGain6(block, kRed, kFm6127GainCoding), 5);
    EXPECT_EQ(block[1], 0);
    WriteFm6129Ex(block, kBlue, Fm6129ExField::GreyCompensation, 0xFF);
    EXPECT_EQ(ReadFm6129Ex(block, kBlue, Fm6129ExField::GreyCompensation), 7);
    EXPECT_EQ(ReadFm6129Ex(block, kBlue, Fm6129ExField::GhostLevel), 0);
    WriteFm6127Ex(block, kGreen, Fm6127ExField::LowGreyComp, 0); // below the edit's range: cut, not rejected
    EXPECT_EQ(ReadFm6127Ex(block, kGreen, Fm6127ExField::LowGreyComp), 8);
}

} // namespace
