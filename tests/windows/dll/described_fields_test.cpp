// A described page's combo items with their own values, its read-only values and its help, driven
// through a host as an operator drives it. The page class and its layout are made up for the test.
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

// The speed is kept twice and rewritten on every fill; its value 1 has no item.
const char kFieldsPage[] = R"([page]
format-version = 2
class = CRegvaneDescribedFields
buttons = default ok-cancel

[field speed]
label = "Speed"
label-id = 120
help = "How fast the outputs switch"
bits = 4[1:0]=6[1:0]
control = combo
items = 2 "Slow", 3 "Fast", 0 "Off"
on-fill = rewrite
ids = 121

[field gain]
label = "Gain"
bits = 3[5:0]
control = slider
default = 10
ids = 122

[field revision]
label = "Revision"
bits = 12[3:0]
access = read-only
control = hex
ids = 123

[field ready]
label = "Ready"
bits = 12[7]
access = read-only
control = check
ids = 124

[field state]
label = "State"
bits = 12[5:4]
access = read-only
control = combo
items = 0 "Normal", 1 "Test", 3 "Fault"
ids = 125

[field temperature]
label = "Temperature"
bits = 13[7:0]
coding = offset -40
access = read-only
control = number
unit = "C"
ids = 126
)";

constexpr int kSpeedLabel = 120, kSpeed = 121, kRevision = 123, kReady = 124, kState = 125,
              kTemperature = 126;

// The text a tooltip of the page gives for one of its windows.
std::wstring HelpOf(HWND page, int id) {
    struct Search {
        HWND page, window;
        std::wstring text;
    } search{page, Item(page, id), {}};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND tip, LPARAM data) -> BOOL {
            auto& s = *reinterpret_cast<Search*>(data);
            wchar_t name[32] = {};
            GetClassNameW(tip, name, 32);
            wchar_t text[256] = {};
            TOOLINFOW tool{};
            tool.cbSize = TTTOOLINFOW_V2_SIZE;
            tool.hwnd = s.page;
            tool.uId = reinterpret_cast<UINT_PTR>(s.window);
            tool.lpszText = text;
            if (_wcsicmp(name, TOOLTIPS_CLASSW) == 0)
                SendMessageW(tip, TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
            if (text[0])
                s.text = text;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.text;
}

class DescribedFields : public PageTest {};

TEST_F(DescribedFields, UnnamedValuesAndReadOnlyValuesAreShownAndNeverWrittenAndHelpIsOnLabelAndControl) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"CRegvaneDescribedFields.desc";
    std::ofstream(path.c_str(), std::ios::binary) << kFieldsPage;
    SimulatedChip chip{7, 0};
    chip.regData[4] = 0x01; // a speed no item names, its second copy disagreeing
    chip.regData[12] = 0x80 | 0x30 | 0x0A;
    chip.regData[13] = 65;
    wchar_t problem[512] = {};
    HWND page = Show(
        RegvaneLibrary::Get().RegvaneCreateDescribedPage(path.c_str(), &chip, L"", host.View(), problem, 512),
        &chip);
    DeleteFileW(path.c_str());
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(chip.regData[6], 0x00); // the fill left the value it cannot show
    EXPECT_EQ(ItemText(page, kSpeed), L"1");
    EXPECT_EQ(ItemText(page, kRevision), L"0a");
    EXPECT_TRUE(Checked(page, kReady));
    EXPECT_EQ(ItemText(page, kState), L"Fault");
    EXPECT_EQ(ItemText(page, kTemperature), L"25 C");
    EXPECT_EQ(HelpOf(page, kSpeedLabel), L"How fast the outputs switch");
    EXPECT_EQ(HelpOf(page, kSpeed), L"How fast the outputs switch");
    EXPECT_EQ(HelpOf(page, kRevision), L"");

    Select(page, kSpeed, 3); // the number's own entry: nothing to write
    EXPECT_TRUE(chip.CallNames(false).empty());
    Click(page, 8025);       // the gain's default; the speed has none
    EXPECT_EQ(chip.regData[3], 10);
    EXPECT_EQ(chip.regData[4], 0x01);
    EXPECT_EQ(chip.regData[6], 0x00);
    EXPECT_EQ(chip.regData[12], 0xBA);

    chip.regData[4] = 0x03; // the chip now holds an item's value, and another state
    chip.regData[12] = 0x05;
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(chip.regData[6], 0x03); // rewritten: its copies agree again
    EXPECT_EQ(ItemText(page, kSpeed), L"Fast");
    EXPECT_EQ(SendMessageW(Item(page, kSpeed), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(ItemText(page, kRevision), L"05");
    EXPECT_FALSE(Checked(page, kReady));
    EXPECT_EQ(ItemText(page, kState), L"Normal");
    Select(page, kSpeed, 0);
    EXPECT_EQ(chip.regData[4], 0x02);
    EXPECT_EQ(chip.regData[6], 0x02);

    chip.regData[12] = 0x41;
    Click(page, 8571); // what the page saw, but the status as the chip holds it now
    EXPECT_EQ(chip.regData[3], 0x00);
    EXPECT_EQ(chip.regData[4], 0x01);
    EXPECT_EQ(chip.regData[12], 0x01); // bit 6 belongs to no field: put back
}

} // namespace
