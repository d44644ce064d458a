// FM612x register models against values worked out by hand from the chip documentation. The models
// of the extended pages are held against the shipped descriptions field by field in
// chip_description_test.cpp; the pages themselves in the Windows FM612x page tests.
#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace fm612x;

using MainBlock = std::array<std::uint8_t, kRegDataBytes>;

TEST(Fm612xRegisters, GainOfFm6126IsStoredWithItsLowBitsInvertedAndFm6127sIsNot) {
    MainBlock block{};
    block[2] = 7;
    block[3] = 0x80;
    EXPECT_EQ(ReadGain6(block, kRed, kFm6126GainCoding), 63);
    EXPECT_EQ(ReadGain6(block, kRed, kFm6127GainCoding), 60);

    // G = 60: W bits 2..0 = 7, X bit 7 = 1, X bits 3..2 = 3 (FM6126) or 0 (FM6127).
    block.fill(0);
    WriteGain6(block, kGreen, kFm6126GainCoding, 60);
    EXPECT_EQ(block[4], 0x07);
    EXPECT_EQ(block[5], 0x80 | 0x0C);
    WriteGain6(block, kBlue, kFm6127GainCoding, 60);
    EXPECT_EQ(block[6], 0x07);
    EXPECT_EQ(block[7], 0x80);
    // Values are cut to the field, never spilled into a neighbour.
    WriteGain6(block, kRed, kFm6127GainCoding, 64 + 5);
    EXPECT_EQ(ReadGain6(block, kRed, kFm6127GainCoding), 5);
    EXPECT_EQ(block[1], 0);
}

TEST(Fm612xRegisters, ExtendedPagesCodeTheirLowGreyStepAndCutTheGhostLevel) {
    MainBlock block{};
    EXPECT_EQ(ReadFm6126Ex(block, kGreen, Fm6126ExField::LowGreyComp), 2) << "register 0 is step 2";
    WriteFm6126Ex(block, kGreen, Fm6126ExField::LowGreyComp, 0);
    EXPECT_EQ(block[5], 0x20);

    // FM6127EX: the ghost level keeps two bits, so 5 is stored as 1.
    block.fill(0);
    WriteFm6127Ex(block, kRed, Fm6127ExField::GhostLevel, 5);
    EXPECT_EQ(ReadFm6127Ex(block, kRed, Fm6127ExField::GhostLevel), 1);
    EXPECT_EQ(block[8], 0x08);
}

TEST(Fm612xRegisters, Fm6128GainIsKeptInThreeCopiesAndATripleLowBit) {
    std::array<std::uint8_t, kRegData2Bytes> large{};
    WriteFm6128Gain(large, kRed, 127);
    for (const int byte : {79, 85, 91})
        EXPECT_EQ(large[byte], 63) << byte;
    EXPECT_EQ(large[73], 0x07);
    EXPECT_EQ(ReadFm6128Gain(large, kRed), 127);
}

// The FM6129 has two pages on one chip: the extended page's fields must not take a bit of the plain
// page's gain or low-grey step.
TEST(Fm612xRegisters, Fm6129AndItsExtendedSetShareNoBits) {
    MainBlock plain{}, extended{};
    for (const Colour c : kColours) {
        WriteFm6129Gain(plain, c, 63);
        WriteFm6129LowGrey(plain, c, kFm6129LowGreyMax);
        for (const Fm6129ExField f : kFm6129ExFields) {
            MainBlock one{};
            WriteFm6129Ex(one, c, f, 0xFF);
            for (std::size_t i = 0; i < one.size(); ++i) {
                EXPECT_EQ(extended[i] & one[i], 0) << "byte " << i;
                extended[i] |= one[i];
            }
        }
    }
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_EQ(plain[i] & extended[i], 0) << "byte " << i;
    EXPECT_EQ(plain[11], 0x03);
}

} // namespace
