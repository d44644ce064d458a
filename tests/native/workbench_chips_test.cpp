// The workbench's chip names and list search, the chip an extended page runs on, the register view
// and the pictures' index. Which rows the list has is held by the Windows workbench tests, which
// open every row (soak) and picture the pages of chosen types.
#include "workbench/ChipCatalog.h"
#include "workbench/ChipImages.h"
#include "workbench/ChipPresets.h"
#include "workbench/PagesIndex.h"

#include <gtest/gtest.h>

namespace {

TEST(WorkbenchChips, ChipNamesComeFromThePageClass) {
    EXPECT_EQ(ModelNameFromClassName("CRegvane_SUM2017T", 9), "SUM2017T");
    EXPECT_EQ(ModelNameFromClassName("CRegvaneMbi5153", 47), "MBI5153");
    EXPECT_EQ(ModelNameFromClassName("CRegvaneSM16169SHEx", 65616), "SM16169SH");
    EXPECT_EQ(ModelNameFromClassName("CRegvan_FM6648", 182), "FM6648");
    EXPECT_EQ(ModelNameFromClassName("CMY9868SetDlgEx", 10), "MY9868");
    EXPECT_EQ(ModelNameFromClassName("CChipRegModifyICN2053", 65544), "ICN2053");
    EXPECT_EQ(ModelNameFromClassName("CchipRegModify", 81), "CHIP81");
}

TEST(WorkbenchChips, SearchMatchesEveryWordAgainstNumberClassAndChipIgnoringCase) {
    const CatalogEntry mbi{47, 138, "CRegvane_SM16159", "SM16159", 9300, true};
    const CatalogEntry ex{65540, 0, "CRegvane_SUM2017TEx", "SUM2017T", 20029, false};
    EXPECT_TRUE(MatchesSearch(mbi, "47/138"));
    EXPECT_TRUE(MatchesSearch(mbi, " 47  regvane_sm "));
    EXPECT_FALSE(MatchesSearch(mbi, "47 mbi"));
    EXPECT_TRUE(MatchesSearch(ex, "65536+4"));
    EXPECT_TRUE(MatchesSearch(ex, "65540 sum2017t"));
    EXPECT_EQ(EntryLabel(ex), "65536+4");
    EXPECT_FALSE(ParseChipTypeNumber("47a"));
    EXPECT_FALSE(ParseChipTypeNumber("-5"));
    EXPECT_FALSE(ParseChipTypeNumber("65536+"));
}

// A host hands an extended page the chip it extends: the chip named by the page's class. (The
// ICN2055EX on an ICN2055 is held by the Windows workbench test.)
TEST(WorkbenchChips, AnExtendedPageRunsOnTheChipItExtends) {
    const struct {
        int page;
        std::uint16_t type, subType;
    } cases[] = {
        {65536 + 15, 179, 0}, // CRegvaneFM6126EX
        {65536 + 71, 4, 312}, // CRegvaneRT5938Ex: type 4 gives the RT5938 page for sub-type 312
        {65536 + 57, 292, 0}, // CRegvaneICND2165Ex: no page of its own; its parameter files go by 292
        {65536 + 0, 0, 0},    // the raw register editor belongs to no chip
        {65536 + 1, 0, 0},    // CChip5153Extension: no numbered page names a "5153"
    };
    for (const auto& c : cases) {
        SimulatedChip chip;
        SetUpSimulatedChip(chip, c.page, 0);
        EXPECT_EQ(chip.chipType, c.type) << c.page;
        EXPECT_EQ(chip.chipSubType, c.subType) << c.page;
    }
    EXPECT_EQ(ExtendedPageBase(193), nullptr);
}

TEST(WorkbenchChips, TheRegisterViewMarksExactlyTheBytesThatChanged) {
    SimulatedChip chip;
    const ChipImageSnapshot before = TakeSnapshot(chip);
    chip.regData[3] = 0x2b;
    chip.regData[15] = 0x01;
    chip.regData2[17] = 0xff;
    const std::vector<HexLine> lines = FormatImages(TakeSnapshot(chip), before);
    // regData, regDataEx, 8 lines of regData2, regData3, 2 lines of regData4.
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(CaretLine(lines[0]), std::string(22, ' ') + "^^" + std::string(34, ' ') + "^^");
    EXPECT_EQ(CaretLine(lines[1]), "");
    // Continuation lines show the offset and keep the bytes in the same columns.
    EXPECT_EQ(lines[3].text.substr(0, 19), "         +10 00 ff ");
    EXPECT_EQ(CaretLine(lines[3]), std::string(16, ' ') + "^^");
    EXPECT_EQ(lines[12].text, "         +10 00 00 00 00");

    // An image that was not there before is all new.
    chip.icnd3069Rows = {{1, 2, 3, 4}};
    const std::vector<HexLine> withRows = FormatImages(TakeSnapshot(chip), before);
    EXPECT_EQ(withRows.back().text, "icnd3069Rows 01 02 03 04");
    EXPECT_EQ(withRows.back().marked.size(), 4u);
}

TEST(WorkbenchChips, ThePicturesIndexShowsEveryPageAndSaysWhichHaveNone) {
    EXPECT_EQ(PictureFileName(65540, 0, "CRegvane_SUM2017TEx"), "65540-CRegvane_SUM2017TEx.png");
    const std::string html =
        PagesIndexHtml({{"47", "CRegvaneMbi5153", "MBI5153", "00047-CRegvaneMbi5153.png", 495, 452},
                        {"47/138", "CRegvane_SM16159", "SM<16159>", "", 0, 0}});
    EXPECT_NE(html.find("<img src=\"00047-CRegvaneMbi5153.png\" width=\"495\" height=\"452\""),
              std::string::npos);
    EXPECT_NE(html.find("Pages: 1; chip types without a page: 1"), std::string::npos);
    EXPECT_NE(html.find("SM&lt;16159&gt;"), std::string::npos);
    EXPECT_EQ(html.find("SM<16159>"), std::string::npos);
}

} // namespace
