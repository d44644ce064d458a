// The FM612x pages opened through regvane.dll and driven like an operator does, against a simulated
// chip: register bytes, labels and the calls the host sees.
#include "TestHost.h"

#include "dialogs/chips/fm612x/Fm612xRegisters.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace fm612x;
using ColourIds = std::array<int, kColourCount>;

constexpr int kFM6126Type = 179;
constexpr int kFM6127Type = 184;
constexpr int kFM6126EXType = 65536 + 15;
constexpr int kFM6127EXType = 65536 + 25;
constexpr int kFM6128Type = 120;
constexpr int kFM6128ExType = 65536 + 41;
constexpr int kFM6129Type = 259;
constexpr int kFM6129ExType = 65536 + 48;

// Control ids of the pages (see the page headers).
constexpr ColourIds kGainSliders{21001, 21002, 21003};
constexpr ColourIds kGainPercent{21004, 21005, 21006};
constexpr ColourIds kGainReference{21007, 21008, 21009};
constexpr ColourIds kGainFraction{21010, 21011, 21012};
constexpr ColourIds kGainCurrent{21013, 21014, 21015};
constexpr int kGainLink = 21016, kGainShowCurrent = 21017, kGainDefault = 21018;

// A page of the DLL in a host window tree, with the operator's ways of changing it.
class Page {
public:
    Page(int type, SimulatedChip& chip) {
        InstallHostCallback();
        m_window = RegvaneLibrary::Get().CreateRegvaneHwnd(type, &chip, nullptr, m_host.View());
    }
    ~Page() {
        if (m_window && IsWindow(m_window))
            DestroyWindow(m_window);
    }
    HWND Window() const { return m_window; }
    HWND Item(int id) const { return GetDlgItem(m_window, id); }
    std::wstring Text(int id) const { return ItemText(m_window, id); }
    std::string ClassName() const {
        const char* name = RegvaneLibrary::Get().RegvaneDialogClassName(m_window);
        return name ? name : "";
    }

    int SliderPos(int id) const { return static_cast<int>(SendMessageW(Item(id), TBM_GETPOS, 0, 0)); }
    void MoveSlider(int id, int position) const {
        SendMessageW(Item(id), TBM_SETPOS, TRUE, position);
        SendMessageW(m_window, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, position),
                     reinterpret_cast<LPARAM>(Item(id)));
    }
    bool Checked(int id) const { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    void SetCheck(int id, bool checked) const {
        if (Checked(id) != checked)
            Click(id);
    }
    void Select(int id, int index) const {
        SendMessageW(Item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(m_window, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(Item(id)));
    }
    std::wstring ComboItem(int id, int index) const {
        wchar_t text[128] = {};
        SendMessageW(Item(id), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
        return text;
    }
    int ComboSelection(int id) const { return static_cast<int>(SendMessageW(Item(id), CB_GETCURSEL, 0, 0)); }
    // Typing a number and pressing Enter commits it.
    void Type(int id, const wchar_t* text) const {
        SetWindowTextW(Item(id), text);
        SendMessageW(Item(id), WM_KEYDOWN, VK_RETURN, 0);
    }
    int EditValue(int id) const { return std::stoi(Text(id)); }
    // Shown by the page (the page itself may not be shown by the host yet).
    bool Shown(int id) const { return (GetWindowLongPtrW(Item(id), GWL_STYLE) & WS_VISIBLE) != 0; }

private:
    HostFrame m_host;
    HWND m_window = nullptr;
};

std::vector<std::string> Writes(const SimulatedChip& chip) {
    return chip.CallNames(false);
}
const std::vector<std::string> kChangedCycle{"SetRegData", "MarkModified", "UpdateHostState"};
const std::vector<std::string> kUnchangedCycle{"SetRegData", "UpdateHostState"};

// Every byte but the listed ones is as it was.
template <std::size_t N>
void ExpectOnlyBytesChanged(const std::array<std::uint8_t, N>& before,
                            const std::array<std::uint8_t, N>& after, std::vector<int> changed) {
    for (std::size_t i = 0; i < N; ++i) {
        if (std::find(changed.begin(), changed.end(), static_cast<int>(i)) == changed.end()) {
            EXPECT_EQ(after[i], before[i]) << "byte " << i;
        }
    }
}

TEST(Fm612xPages, EveryTypeOpensItsOwnPage) {
    const struct {
        int type;
        const char* className;
    } pages[] = {{kFM6126Type, "CRegvaneFM6126"},     {kFM6127Type, "CRegvaneFM6127"},
                 {kFM6126EXType, "CRegvaneFM6126EX"}, {kFM6127EXType, "CRegvaneFM6127EX"},
                 {kFM6128Type, "CRegvaneFM6128"},     {kFM6128ExType, "CRegvaneFM6128Ex"},
                 {kFM6129Type, "CRegvane_FM6129"},    {kFM6129ExType, "CRegvaneFM6129Ex"}};
    for (const auto& expected : pages) {
        SimulatedChip chip(static_cast<std::uint16_t>(expected.type));
        chip.count = 1;
        chip.regData2[31] = 0; // a count of 1 is already in the chip: nothing to write on opening
        Page page(expected.type, chip);
        ASSERT_NE(page.Window(), nullptr) << expected.className;
        EXPECT_EQ(page.ClassName(), expected.className);
        // Opening a page reads the chip and never writes it.
        EXPECT_TRUE(Writes(chip).empty()) << expected.className << ": " << chip.log.back().ToString();
    }
}

TEST(Fm612xPages, Fm6126SlidersWriteTheInvertedGainIntoEachColourAlone) {
    SimulatedChip chip(kFM6126Type);
    chip.regData.fill(0xFF);
    chip.regData[2] = 0xF8 | 7;
    chip.regData[3] = 0x80 | 0x73; // bits 3..2 clear: FM6126 reads 63
    Page page(kFM6126Type, chip);
    page.SetCheck(kGainLink, false);
    EXPECT_EQ(page.SliderPos(kGainSliders[kRed]), 63);
    EXPECT_EQ(page.Text(kGainPercent[kRed]), L"100%");
    EXPECT_EQ(page.SliderPos(kGainSliders[kGreen]), 60); // 0xFF bytes: the inverted low bits read 0

    const auto before = chip.regData;
    chip.ClearLog();
    page.MoveSlider(kGainSliders[kGreen], 20);
    EXPECT_EQ(ReadGain6(chip.regData, kGreen, kFm6126GainCoding), 20);
    EXPECT_EQ(chip.regData[4], (0xFF & ~0x07) | (20 >> 3));
    EXPECT_EQ(chip.regData[5], (0xFF & ~0x8C) | 0x80 | (((~20) & 3) << 2));
    ExpectOnlyBytesChanged(before, chip.regData, {4, 5});
    EXPECT_EQ(page.Text(kGainPercent[kGreen]), L"33%");
    EXPECT_EQ(Writes(chip), kChangedCycle);

    // Back where it started: the chip equals the snapshot again.
    chip.ClearLog();
    page.MoveSlider(kGainSliders[kGreen], 60);
    EXPECT_EQ(chip.regData, before);
    EXPECT_EQ(Writes(chip), kUnchangedCycle);
}

TEST(Fm612xPages, Fm6126LinkedSlidersAndDefaultAndTheSwitchesOutliveThePage) {
    SimulatedChip chip(kFM6126Type);
    {
        Page page(kFM6126Type, chip);
        page.SetCheck(kGainLink, true);
        page.MoveSlider(kGainSliders[kBlue], 30);
        for (const Colour colour : kColours) {
            EXPECT_EQ(page.SliderPos(kGainSliders[colour]), 30);
            EXPECT_EQ(ReadGain6(chip.regData, colour, kFm6126GainCoding), 30);
        }
        // A scroll from something that is no gain slider writes no gain.
        const auto before = chip.regData;
        SendMessageW(page.Window(), WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 50), 0);
        EXPECT_EQ(chip.regData, before);

        chip.ClearLog();
        page.Click(kGainDefault);
        for (const Colour colour : kColours) {
            EXPECT_EQ(page.SliderPos(kGainSliders[colour]), 60);
            EXPECT_EQ(chip.regData[ByteOf(colour, ColourByte::W)] & 7, 7);
            EXPECT_EQ(chip.regData[ByteOf(colour, ColourByte::X)], 0x80 | 0x0C);
            EXPECT_EQ(page.Text(kGainPercent[colour]), L"95%");
        }
        EXPECT_EQ(Writes(chip), kChangedCycle);

        page.SetCheck(kGainShowCurrent, true);
        EXPECT_EQ(page.Text(kGainFraction[kRed]), L"1.0"); // 0.953 shown to one place
        EXPECT_EQ(page.Text(kGainCurrent[kRed]), L"0.95 mA");
        page.Type(kGainReference[kGreen], L"500");
        EXPECT_EQ(page.Text(kGainCurrent[kGreen]), L"1.91 mA");
        EXPECT_EQ(page.Text(kGainCurrent[kRed]), L"0.95 mA");
        EXPECT_TRUE(IsWindowEnabled(page.Item(kGainCurrent[kRed])));
    }
    // A new page of the same class starts with the operator's last choices.
    Page again(kFM6126Type, chip);
    EXPECT_TRUE(again.Checked(kGainLink));
    EXPECT_TRUE(again.Checked(kGainShowCurrent));
    EXPECT_EQ(again.EditValue(kGainReference[kGreen]), 500);
    EXPECT_EQ(again.Text(kGainCurrent[kGreen]), L"1.91 mA");

    // The switches are the FM6126's own: the FM6127 page keeps its own.
    SimulatedChip other(kFM6127Type);
    {
        Page fm6127(kFM6127Type, other);
        EXPECT_FALSE(fm6127.Checked(kGainShowCurrent));
        EXPECT_EQ(fm6127.EditValue(kGainReference[kGreen]), 1000);
    }

    again.Type(kGainReference[kGreen], L"1000");
    again.SetCheck(kGainShowCurrent, false);
    EXPECT_FALSE(IsWindowEnabled(again.Item(kGainCurrent[kRed])));
    again.SetCheck(kGainLink, false);
}

TEST(Fm612xPages, Fm6127StoresItsGainAsItIsAndNamesTheModel) {
    SimulatedChip chip(kFM6127Type);
    chip.modelName = "FM6127";
    chip.regData[2] = 7;
    chip.regData[3] = 0x80;
    Page page(kFM6127Type, chip);
    EXPECT_EQ(page.SliderPos(kGainSliders[kRed]), 60);
    wchar_t title[128] = {};
    GetWindowTextW(page.Window(), title, 128);
    EXPECT_STREQ(title, L"FM6127 Chip Parameter Settings");

    page.SetCheck(kGainLink, false);
    page.Click(kGainDefault);
    EXPECT_EQ(chip.regData[5], 0x80); // the low bits of 60 are 0 and stored as they are
    EXPECT_EQ(chip.regData[4], 7);
}

constexpr ColourIds kExSliders{21101, 21102, 21103};
constexpr ColourIds kExGainLabels{21104, 21105, 21106};
constexpr ColourIds kExModeCombos{21107, 21108, 21109};
constexpr ColourIds kExGhostCombos{21110, 21111, 21112};
constexpr ColourIds kExLowGreyEdits{21113, 21114, 21115};
constexpr ColourIds kExDelayEdits{21116, 21117, 21118};
constexpr int kExLink = 21119;

TEST(Fm612xPages, Fm6126ExEditsAndCombosChangeOnlyTheirBits) {
    SimulatedChip chip;
    chip.regData.fill(0x00);
    Page page(kFM6126EXType, chip);
    page.SetCheck(kExLink, false);
    EXPECT_EQ(page.ComboItem(kExModeCombos[kRed], 0), L"Normal mode");
    EXPECT_EQ(page.ComboItem(kExModeCombos[kRed], 1), L"Enhanced mode");
    EXPECT_EQ(page.ComboItem(kExGhostCombos[kBlue], 3), L"3");
    EXPECT_EQ(page.EditValue(kExLowGreyEdits[kGreen]), 2); // register 0 is step 2
    EXPECT_EQ(page.Text(kExGainLabels[kRed]), L"1");

    auto before = chip.regData;
    chip.ClearLog();
    page.Type(kExLowGreyEdits[kGreen], L"0");
    EXPECT_EQ(chip.regData[5], 0x20);
    ExpectOnlyBytesChanged(before, chip.regData, {5});
    EXPECT_EQ(Writes(chip), kChangedCycle);

    before = chip.regData;
    page.Type(kExDelayEdits[kBlue], L"5");
    EXPECT_EQ(chip.regData[13], 0x02);
    EXPECT_EQ(chip.regData[7], 0x01);
    ExpectOnlyBytesChanged(before, chip.regData, {7, 13});

    before = chip.regData;
    chip.ClearLog();
    page.Select(kExModeCombos[kGreen], 1);
    page.Select(kExGhostCombos[kGreen], 3);
    EXPECT_EQ(chip.regData[10], 0x01 | 0x18);
    ExpectOnlyBytesChanged(before, chip.regData, {10});
    EXPECT_EQ(page.ComboSelection(kExGhostCombos[kGreen]), 3);
    EXPECT_EQ(chip.CountCalls("SetRegData"), 2);

    page.MoveSlider(kExSliders[kRed], 4);
    EXPECT_EQ(chip.regData[2], 0x80 | (4 << 3)); // the high range bit comes with every gain
    EXPECT_EQ(chip.regData[4] & 0x80, 0x80);
    EXPECT_EQ(page.Text(kExGainLabels[kRed]), L"5");

    page.SetCheck(kExLink, true);
    page.MoveSlider(kExSliders[kGreen], 9);
    for (const Colour colour : kColours) {
        EXPECT_EQ(page.SliderPos(kExSliders[colour]), 9);
        EXPECT_EQ(ReadFm6126Ex(chip.regData, colour, Fm6126ExField::Gain), 9);
        EXPECT_EQ(page.Text(kExGainLabels[colour]), L"10");
    }
    page.SetCheck(kExLink, false);
}

int Fm6127ExEdit(int setting, Colour colour) {
    return 21201 + setting * 3 + colour;
}
constexpr int kFm6127ExGhostLevel = 5, kFm6127ExLowGrey = 2, kFm6127ExPreCharge = 3;

TEST(Fm612xPages, Fm6127ExWritesBothBuffersAndHasItsOwnChangeTest) {
    SimulatedChip chip;
    chip.modelName = "FM6127";
    chip.regData.fill(0x00);
    chip.regData[14] = 0x40;
    chip.regDataEx[0] = 0x5A;
    chip.sliderValue = 17;
    Page page(kFM6127EXType, chip);
    wchar_t title[128] = {};
    GetWindowTextW(page.Window(), title, 128);
    EXPECT_STREQ(title, L"FM6127 Chip Parameter Settings");
    EXPECT_EQ(page.SliderPos(21226), 17);
    EXPECT_EQ(page.EditValue(Fm6127ExEdit(kFm6127ExLowGrey, kRed)), 1);
    EXPECT_TRUE(page.Shown(21221));
    EXPECT_EQ(page.ComboItem(21220, 1), L"High refresh");

    auto before = chip.regData;
    chip.ClearLog();
    page.Type(Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"5");
    EXPECT_EQ(chip.regData[12], 0x08); // only two bits: 5 is kept as 1
    ExpectOnlyBytesChanged(before, chip.regData, {12});
    EXPECT_EQ(page.EditValue(Fm6127ExEdit(kFm6127ExGhostLevel, kBlue)), 1);
    EXPECT_EQ(chip.regDataEx[0], 0x5A);
    EXPECT_EQ(Writes(chip), (std::vector<std::string>{"SetRegData", "SetRegDataEx", "MarkModified"}));

    before = chip.regData;
    page.Type(Fm6127ExEdit(kFm6127ExPreCharge, kGreen), L"11");
    EXPECT_EQ(chip.regData[4], 0x80);
    EXPECT_EQ(chip.regData[10], 0x02);
    EXPECT_EQ(chip.regData[11], 0x10);
    ExpectOnlyBytesChanged(before, chip.regData, {4, 10, 11});

    // A global combo; bit 6 of byte 14 going away hides the extended group on the next fill.
    page.Select(21222, 1);
    EXPECT_EQ(chip.regData[9], 0x04);
    chip.regData[14] = 0;
    SendMessageW(page.Window(), 0x0903, 0, 0);
    EXPECT_FALSE(page.Shown(21221));
    EXPECT_FALSE(page.Shown(21224));
    EXPECT_TRUE(page.Shown(21220));

    // Everything back as it was when the page opened: "unchanged" only.
    chip.regData[14] = 0x40;
    page.Select(21222, 0);
    page.Type(Fm6127ExEdit(kFm6127ExPreCharge, kGreen), L"0");
    chip.ClearLog();
    page.Type(Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"0");
    EXPECT_EQ(Writes(chip), (std::vector<std::string>{"SetRegData", "SetRegDataEx", "UpdateHostState"}));
    // The host's own value counts as part of the chip.
    chip.sliderValue = 18;
    chip.ClearLog();
    page.Type(Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"2");
    page.Type(Fm6127ExEdit(kFm6127ExGhostLevel, kBlue), L"0");
    EXPECT_EQ(chip.CountCalls("MarkModified"), 2);
    EXPECT_EQ(chip.CountCalls("UpdateHostState"), 0);
}

constexpr ColourIds k6128Sliders{21301, 21302, 21303};
constexpr ColourIds k6128Labels{21304, 21305, 21306};
constexpr int k6128Link = 21307;

TEST(Fm612xPages, Fm6128WritesItsGainCopiesIntoTheLargeBlock) {
    SimulatedChip chip(kFM6128Type);
    chip.regData2.fill(0xC0);
    Page page(kFM6128Type, chip);
    page.SetCheck(k6128Link, false);
    const auto before = chip.regData2;
    chip.ClearLog();
    page.MoveSlider(k6128Sliders[kRed], 127);
    for (const int byte : {79, 85, 91})
        EXPECT_EQ(chip.regData2[byte], 0xC0 | 63) << byte;
    EXPECT_EQ(chip.regData2[73], 0xC7);
    ExpectOnlyBytesChanged(before, chip.regData2, {73, 79, 85, 91});
    EXPECT_EQ(page.Text(k6128Labels[kRed]), L"99.06%");
    EXPECT_EQ(Writes(chip), (std::vector<std::string>{"SetRegData2", "MarkModified", "UpdateHostState"}));

    page.SetCheck(k6128Link, true);
    page.MoveSlider(k6128Sliders[kBlue], 64);
    for (const Colour colour : kColours) {
        EXPECT_EQ(ReadFm6128Gain(chip.regData2, colour), 64);
        EXPECT_EQ(page.Text(k6128Labels[colour]), L"49.92%");
    }
    page.SetCheck(k6128Link, false);
}

TEST(Fm612xPages, Fm6128ExStoresTheHostCountAndRealignsTheGainCopies) {
    SimulatedChip chip;
    chip.count = 32;
    chip.regData2[79] = 10; // red's copies disagree; the first one counts
    chip.regData2[85] = 3;
    chip.regData2[31] = 0xC0;
    Page page(kFM6128ExType, chip);
    EXPECT_EQ(chip.regData2[31], 0xC0 | 31);
    EXPECT_EQ(chip.regData2[85], 10);
    EXPECT_EQ(chip.regData2[91], 10);
    EXPECT_EQ(page.Text(21310), L"32");
    EXPECT_EQ(Writes(chip), (std::vector<std::string>{"SetRegData2", "MarkModified", "UpdateHostState"}));

    const auto before = chip.regData2;
    page.Type(21311, L"3");
    EXPECT_EQ(chip.regData2[33] & 0x0F, 3);
    ExpectOnlyBytesChanged(before, chip.regData2, {33});
    EXPECT_EQ(page.Text(21312), L"160ns");
}

constexpr ColourIds k6129Sliders{21401, 21402, 21403};
constexpr ColourIds k6129Percent{21404, 21405, 21406};
constexpr ColourIds k6129LowGrey{21407, 21408, 21409};
constexpr ColourIds k6129Gain{21413, 21414, 21415};
constexpr ColourIds k6129Current{21416, 21417, 21418};

TEST(Fm612xPages, Fm6129TakesItsSliderRangeFromTheHostAndKeepsItsSwitchesToItself) {
    SimulatedChip chip(kFM6129Type);
    chip.gainMin = 256;
    chip.gainMax = 512 + 63;
    chip.regData.fill(0xC0);
    chip.regData[3] = 0xC0 | 63;
    Page page(kFM6129Type, chip);
    EXPECT_EQ(SendMessageW(page.Item(k6129Sliders[kGreen]), TBM_GETRANGEMIN, 0, 0), 0);
    EXPECT_EQ(SendMessageW(page.Item(k6129Sliders[kGreen]), TBM_GETRANGEMAX, 0, 0), 63);
    EXPECT_EQ(page.Text(k6129Percent[kRed]), L"100%");

    page.Click(21420); // show current
    EXPECT_EQ(page.Text(k6129Gain[kRed]), L"100.0");
    EXPECT_EQ(page.Text(k6129Current[kRed]), L"18.00 mA");

    const auto before = chip.regData;
    page.MoveSlider(k6129Sliders[kBlue], 32);
    EXPECT_EQ(chip.regData[7], 0xC0 | 32);
    ExpectOnlyBytesChanged(before, chip.regData, {7});
    EXPECT_EQ(page.Text(k6129Percent[kBlue]), L"52%");

    page.Click(21419); // link
    page.MoveSlider(k6129Sliders[kGreen], 10);
    for (const Colour colour : kColours)
        EXPECT_EQ(chip.regData[ByteOf(colour, ColourByte::X)], 0xC0 | 10);
    EXPECT_EQ(page.Text(k6129Gain[kBlue]), L"17.2");

    page.Type(k6129LowGrey[kGreen], L"3");
    EXPECT_EQ(chip.regData[11], 0xC3);

    Page second(kFM6129Type, chip);
    EXPECT_FALSE(second.Checked(21419));
    EXPECT_FALSE(second.Checked(21420));
    EXPECT_EQ(second.EditValue(k6129LowGrey[kGreen]), 3);
}

TEST(Fm612xPages, Fm6129ExEditsTouchOneFieldAndTheSecondBufferCountsAsChange) {
    SimulatedChip chip;
    chip.modelName = "FM6129";
    chip.regData.fill(0x00);
    Page page(kFM6129ExType, chip);
    wchar_t title[128] = {};
    GetWindowTextW(page.Window(), title, 128);
    EXPECT_STREQ(title, L"FM6129 Chip Extended Parameter Settings");

    // Ghost level of green: 21501 + 3 x 3 + 1.
    chip.ClearLog();
    page.Type(21511, L"12");
    EXPECT_EQ(chip.regData[10], 0xC0);
    EXPECT_EQ(Writes(chip), kChangedCycle);
    page.Type(21511, L"99"); // the edit keeps to the field's range
    EXPECT_EQ(chip.regData[10], 0xF0);

    page.Type(21511, L"0");
    chip.ClearLog();
    page.Type(21501, L"0"); // unchanged value: the edit sends nothing
    page.Type(21501, L"1");
    page.Type(21501, L"0");
    EXPECT_EQ(Writes(chip), (std::vector<std::string>{"SetRegData", "MarkModified", "UpdateHostState",
                                                      "SetRegData", "UpdateHostState"}));
    chip.regDataEx[3] = 1;
    chip.ClearLog();
    page.Type(21501, L"1");
    page.Type(21501, L"0");
    EXPECT_EQ(chip.CountCalls("MarkModified"), 2);
}

} // namespace
