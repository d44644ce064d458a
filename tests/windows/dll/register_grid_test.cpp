// A described register grid driven as an operator drives it: keys and clicks edit cells in place,
// each edit one read and one write of the grid's record, a refused value keeps the cell, the grid
// shows what the host put into the chip, and Cancel puts the record back. The page is the guide's
// made-up example.
#include "OperatorActions.h"

#include <gtest/gtest.h>

namespace {

constexpr int kGrid = 301; // the example's channels: four bytes a row in the large block

class RegisterGrid : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        std::ifstream example(REGVANE_SOURCE_DIR "/docs/examples/CRegvaneExampleGrid.desc", std::ios::binary);
        path = WriteDescription(L"CRegvaneExampleGrid.desc",
                                std::string(std::istreambuf_iterator<char>(example), {}));
        for (std::size_t i = 0; i < chip.regData2.size(); ++i)
            chip.regData2[i] = static_cast<std::uint8_t>(i);
        before = chip.regData2;
        page = OpenDescribed(path, &chip);
        list = Item(page, kGrid);
    }
    void TearDown() override {
        PageTest::TearDown();
        DeleteFileW(path.c_str());
    }
    void Key(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 1); }
    HWND Edit() { return FindWindowExW(list, nullptr, L"EDIT", nullptr); }
    void Click(UINT message, int row, int column) {
        RECT cell{LVIR_BOUNDS, column, 0, 0};
        SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        SendMessageW(list, message, MK_LBUTTON, MAKELPARAM(cell.left + 2, (cell.top + cell.bottom) / 2));
    }
    std::wstring Cell(int row, int column) {
        wchar_t text[64] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 64;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    // The bytes the last edit changed, as {index, value}.
    std::vector<std::pair<int, int>> Changed(std::array<std::uint8_t, 128>& last) {
        std::vector<std::pair<int, int>> changed;
        for (int i = 0; i < 128; ++i)
            if (chip.regData2[static_cast<std::size_t>(i)] != last[static_cast<std::size_t>(i)])
                changed.emplace_back(i, chip.regData2[static_cast<std::size_t>(i)]);
        last = chip.regData2;
        return changed;
    }

    SimulatedChip chip{7, 0};
    std::wstring path;
    HWND page = nullptr;
    HWND list = nullptr;
    std::array<std::uint8_t, 128> before{};
};

TEST_F(RegisterGrid, KeysAndClicksEditOneCellEachWithOneReadAndOneWriteOfItsRecord) {
    EXPECT_EQ(Cell(31, 0), L"Channel 32");
    EXPECT_EQ(Cell(31, 2), L"7d"); // byte 125
    auto last = chip.regData2;
    SetFocus(list);
    for (int i = 0; i < 31; ++i)
        Key(list, VK_DOWN);
    Key(list, VK_RIGHT);
    Key(list, VK_F2);
    SetWindowTextW(Edit(), L"a5");
    Key(Edit(), VK_RETURN);
    EXPECT_EQ(Changed(last), (std::vector<std::pair<int, int>>{{125, 0xA5}}));
    EXPECT_EQ(Cell(31, 2), L"a5");
    EXPECT_EQ(chip.CountCalls("SetRegData2"), 1);
    EXPECT_EQ(chip.CallNames(false), (Calls{"SetRegData2", "MarkModified", "UpdateHostState"}));
    const int reads = chip.CountCalls("GetRegData2");

    // A gain of 64 is refused with the range; Escape leaves the cell and the chip as they were.
    Key(list, VK_LEFT);
    Key(list, VK_RETURN);
    SetWindowTextW(Edit(), L"64");
    Key(Edit(), VK_RETURN);
    EXPECT_EQ(WindowText(FindWindowExW(list, nullptr, L"STATIC", nullptr)), L"Enter a number from 0 to 63.");
    Key(Edit(), VK_ESCAPE);
    EXPECT_TRUE(Changed(last).empty());

    // A double click on channel 3's offset, typed, and a click elsewhere: stored as offset + 8 in its
    // four bits, the other four of byte 11 kept; the same calls as an edit of the last row.
    chip.ClearLog();
    Click(WM_LBUTTONDBLCLK, 2, 4);
    SetWindowTextW(Edit(), L"-3");
    Click(WM_LBUTTONDOWN, 0, 1);
    EXPECT_EQ(Changed(last), (std::vector<std::pair<int, int>>{{11, 0x05}}));
    EXPECT_EQ(chip.CountCalls("SetRegData2"), 1);
    EXPECT_EQ(chip.CountCalls("GetRegData2"), reads);
}

TEST_F(RegisterGrid, TheGridShowsWhatTheHostPutIntoTheChipAndCancelPutsTheRecordBack) {
    SetFocus(list);
    Key(list, VK_F2);
    SetWindowTextW(Edit(), L"9");
    Key(Edit(), VK_RETURN);
    chip.regData2[20] = 17; // channel 6's gain
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(Cell(5, 1), L"17");
    EXPECT_EQ(Cell(0, 1), L"9");
    ::Click(page, 8571);
    EXPECT_EQ(chip.regData2, before);
}

} // namespace
