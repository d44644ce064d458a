// The workbench's chip list, the start values of its simulated chips, and the register view.
#include "factory/ChipTypes.h"
#include "workbench/ChipCatalog.h"
#include "workbench/ChipImages.h"
#include "workbench/ChipPresets.h"
#include "workbench/PagesIndex.h"

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(WorkbenchChips, ChipNamesComeFromThePageClass) {
    EXPECT_EQ(ModelNameFromClassName("CRegvane_SUM2017T", 9), "SUM2017T");
    EXPECT_EQ(ModelNameFromClassName("CRegvaneMbi5153", 47), "MBI5153");
    EXPECT_EQ(ModelNameFromClassName("CRegvaneICN2055EX", 65549), "ICN2055");
    EXPECT_EQ(ModelNameFromClassName("CRegvaneSM16169SHEx", 65616), "SM16169SH");
    EXPECT_EQ(ModelNameFromClassName("CRegvan_FM6648", 182), "FM6648");
    EXPECT_EQ(ModelNameFromClassName("CMY9868SetDlgEx", 10), "MY9868");
    EXPECT_EQ(ModelNameFromClassName("CChipRegModifyICN2053", 65544), "ICN2053");
    EXPECT_EQ(ModelNameFromClassName("CchipRegModify", 81), "CHIP81");
}

TEST(WorkbenchChips, TheListHasEveryTypeAndARowForEachPageASubTypeCanGive) {
    const std::vector<CatalogEntry>& catalog = ChipCatalog();
    std::set<std::pair<int, int>> rows;
    std::set<int> types, bySubType;
    for (const CatalogEntry& entry : catalog) {
        EXPECT_TRUE(rows.insert({entry.chipType, entry.subType}).second) << EntryLabel(entry);
        types.insert(entry.chipType);
        if (entry.needsSubType)
            bySubType.insert(entry.chipType);
        // Every row opens the page it names.
        EXPECT_EQ(PageClassFor(entry.chipType, entry.subType), entry.className) << EntryLabel(entry);
    }
    EXPECT_EQ(types.size(), AllChipTypes().size());
    EXPECT_EQ(bySubType, (std::set<int>{4, 5, 6, 9, 11, 13, 46, 47, 67, 91, 129, 349}));
    auto classOf = [&](int type, int subType) {
        for (const CatalogEntry& entry : catalog)
            if (entry.chipType == type && entry.subType == subType)
                return entry.className;
        return std::string("(no row)");
    };
    EXPECT_EQ(classOf(47, 138), "CRegvane_SM16159");
    EXPECT_EQ(classOf(4, 312), "CRegvaneRT5938");
    EXPECT_EQ(classOf(4, 160), "(no row)"); // a sub-type with no page
    EXPECT_EQ(classOf(67, 0), "(no row)");  // only sub-type 403 gives type 67 a page
    EXPECT_EQ(classOf(67, 403), "CRegvaneWS2816A");
    EXPECT_EQ(classOf(129, 230), "CRegvaneCS2033");
    EXPECT_EQ(classOf(129, 265), "(no row)"); // the same page as 230
}

TEST(WorkbenchChips, SearchMatchesEveryWordAgainstNumberClassAndChipIgnoringCase) {
    const CatalogEntry mbi{47, 138, "CRegvane_SM16159", "SM16159", 9300, true};
    const CatalogEntry ex{65540, 0, "CRegvane_SUM2017TEx", "SUM2017T", 20029, false};
    EXPECT_TRUE(MatchesSearch(mbi, ""));
    EXPECT_TRUE(MatchesSearch(mbi, "47/138"));
    EXPECT_TRUE(MatchesSearch(mbi, " 47  regvane_sm "));
    EXPECT_FALSE(MatchesSearch(mbi, "47 mbi"));
    EXPECT_TRUE(MatchesSearch(ex, "65536+4"));
    EXPECT_TRUE(MatchesSearch(ex, "65540 sum2017t"));
    EXPECT_EQ(EntryLabel(mbi), "47/138");
    EXPECT_EQ(EntryLabel(ex), "65536+4");
    EXPECT_EQ(ParseChipTypeNumber("65536+4"), 65540);
    EXPECT_FALSE(ParseChipTypeNumber("47a"));
    EXPECT_FALSE(ParseChipTypeNumber("-5"));
    EXPECT_FALSE(ParseChipTypeNumber("65536+"));
    EXPECT_FALSE(ParseChipTypeNumber(""));
}

TEST(WorkbenchChips, StartValuesFollowTheChipsLayout) {
    SimulatedChip mbi;
    SetUpSimulatedChip(mbi, 47, 138);
    EXPECT_EQ(mbi.chipSubType, 138);
    EXPECT_EQ(mbi.modelName, "SM16159");

    // Both start at gain 60; the FM6126 stores the two low gain bits (X bits 3..2) inverted.
    SimulatedChip fm6126, fm6127;
    SetUpSimulatedChip(fm6126, 179, 0);
    SetUpSimulatedChip(fm6127, 184, 0);
    for (const int x : {3, 5, 7}) {
        EXPECT_EQ(fm6126.regData[x - 1] & 0x07, 7);
        EXPECT_EQ(fm6126.regData[x] & 0x8C, 0x8C);
        EXPECT_EQ(fm6127.regData[x] & 0x8C, 0x80);
    }

    SimulatedChip icnd3065;
    SetUpSimulatedChip(icnd3065, 309, 0);
    EXPECT_EQ(icnd3065.icnd3065Rows.size(), 48u);
    // Setting up again forgets what the chip held before.
    SetUpSimulatedChip(icnd3065, 81, 0);
    EXPECT_TRUE(icnd3065.icnd3065Rows.empty());
    EXPECT_EQ(icnd3065.modelName, "CHIP81");
    EXPECT_EQ(icnd3065.regData[3], 0x3F);
}

// A host hands an extended page the chip it extends: the chip named by the page's class.
TEST(WorkbenchChips, AnExtendedPageRunsOnTheChipItExtends) {
    const struct {
        int page;
        std::uint16_t type, subType;
    } cases[] = {
        {65536 + 13, 193, 0}, // CRegvaneICN2055EX: the ICN2055, whose numbered page is CRegvaneICN2055Basic
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
    EXPECT_EQ(lines[0].text, "regData      00 00 00 2b 00 00 00 00 00 00 00 00 00 00 00 01");
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
