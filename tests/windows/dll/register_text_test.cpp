// A described page's register text, as an operator uses it: shown and kept current, copied, and pasted
// back: a good text writes a record at a time and Cancel takes it back; one bad line or another class's
// text writes nothing and says why. The page is made up for the test; nothing here is a real chip.
#include "OperatorActions.h"

#include <gtest/gtest.h>

namespace {

const char kTextPage[] = R"([page]
class = CRegvaneTextTest
format-version = 2
buttons = ok-cancel

[field delay]
label = "Delay"
bits = 1[3:0]
control = slider
ids = 102

[field zoom0]
label = "Zoom"
record = record-a
bits = 4[7:0]
control = hex

[register-text]
line = "{record} {address}: {hex} {binary} {fields}"
ids = 110 111 112
)";
constexpr int kDelay = 102, kText = 110, kCopy = 111, kPaste = 112;

void SetClipboard(const std::wstring& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    memcpy(GlobalLock(memory), text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

class RegisterText : public DescribedPageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        chip.regData[1] = 0x07;
        chip.regDataEx[4] = 0x3C;
        OpenWith(L"CRegvaneTextTest.desc", kTextPage);
    }
};

TEST_F(RegisterText, IsKeptCurrentAndAGoodTextIsWrittenARecordAtATimeAndUndoneByCancel) {
    const std::wstring shown = L"class CRegvaneTextTest\r\nblock 1: 07 00000111 delay\r\n"
                               L"record-a 4: 3C 00111100 zoom0";
    EXPECT_EQ(ItemText(page, kText), shown);
    Click(page, kCopy); // pasted back below
    const auto block = chip.regData;
    const auto recordA = chip.regDataEx;

    MoveSlider(page, kDelay, 9);
    EXPECT_NE(ItemText(page, kText).find(L"block 1: 09 00001001 delay\r\n"), std::wstring::npos);
    chip.regDataEx[4] = 0x55; // the host changed the chip and has it read again
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_NE(ItemText(page, kText).find(L"record-a 4: 55 01010101 zoom0"), std::wstring::npos);

    // The copied text puts back what it showed: the block (record A still differs), then record A.
    chip.ClearLog();
    Click(page, kPaste);
    EXPECT_EQ(chip.regData, block);
    EXPECT_EQ(chip.regDataEx, recordA);
    EXPECT_EQ(chip.CallNames(false),
              (Calls{"SetRegData", "MarkModified", "UpdateHostState", "SetRegDataEx", "UpdateHostState"}));

    // Spacing and case as a mail leaves them; only some registers.
    SetClipboard(
        L"\r\n  class CRegvaneTextTest\n block 1:\t0a   00001010 delay  \nrecord-a 4: c3 11000011 zoom0");
    Click(page, kPaste);
    EXPECT_EQ(chip.regData[1], 0x0A);
    EXPECT_EQ(chip.regDataEx[4], 0xC3);
    EXPECT_EQ(SliderPos(page, kDelay), 10);
    Click(page, 8571); // Cancel
    EXPECT_EQ(chip.regData, block);
    EXPECT_EQ(chip.regDataEx, recordA);
}

TEST_F(RegisterText, ATextWithOneBadLineOrOfAnotherClassWritesNothingAndSaysWhy) {
    const struct {
        const wchar_t* text;
        const wchar_t* told;
    } cases[] = {
        {L"class CRegvaneTextTest\nblock 1: 08 00001000 delay\nblock 1: 0G 00001010 delay\n",
         L"Line 3 of the pasted text cannot be read: \"block 1: 0G 00001010 delay\". Nothing was written."},
        {L"class CRegvaneTextTest\nblock 1: 08 00001000 delay\nblock 2: 00 00000000 delay\n",
         L"Line 3 of the pasted text names a register this page does not show, or one given twice: "
         L"\"block 2: 00 00000000 delay\". Nothing was written."},
        {L"class CRegvaneOtherTest\nblock 1: 08 00001000 delay\n",
         L"The pasted text holds the registers of CRegvaneOtherTest, not of this page (CRegvaneTextTest). "
         L"Nothing was written."},
    };
    for (const auto& bad : cases) {
        MessageBoxWatcher boxes;
        SetClipboard(bad.text);
        chip.ClearLog();
        Click(page, kPaste);
        EXPECT_TRUE(chip.CallNames(false).empty()) << bad.told;
        const auto seen = boxes.Boxes();
        ASSERT_EQ(seen.size(), 1u) << bad.told;
        EXPECT_EQ(seen[0].text, bad.told);
    }
}

} // namespace
