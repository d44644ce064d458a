// Register parameter files: the exact file the ICN2055 family writes, what its reader accepts and
// refuses, the row counts the host's chip ids select, the CNS7363 and MBI5292 layouts, and that no
// failed export or refused import costs the operator a setting. The pages' dialogs, messages and
// call order are held by the Windows page tests.
#include "TempFolder.h"
#include "framework/StdioFileEx.h"
#include "paramfiles/ParamChipTable.h"
#include "paramfiles/ParamFileFormat.h"
#include "paramfiles/RegisterParamTable.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> SplitCrLf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

// A file of the ICN2055's layout: `rows` rows of address, 0x10, 0x20, 0x30.
std::string Icn2055File(const std::string& tag, int rows, int firstAddress = 0) {
    std::string text = tag + "\r\nAddr,RReg,GReg,BReg\r\n";
    char row[32];
    for (int i = 0; i < rows; ++i) {
        std::snprintf(row, sizeof row, "0x%02x,0x10,0x20,0x30\r\n", firstAddress + i);
        text += row;
    }
    return text;
}

// A host whose two ids are fixed and whose every question is counted.
class CountingIds : public ChipIdQuery {
public:
    CountingIds(std::uint16_t type, std::uint16_t subType) : type(type), subType(subType) {}
    std::uint16_t ChipType() override { return ++typeQueries, type; }
    std::uint16_t ChipSubType() override { return ++subTypeQueries, subType; }
    std::uint16_t type, subType;
    int typeQueries = 0, subTypeQueries = 0;
};

// An ICN2055 whose colour values are all different, some below 16.
SimulatedChip Icn2055() {
    SimulatedChip chip(193, 0);
    for (std::size_t i = 0; i < chip.regData2.size(); ++i)
        chip.regData2[i] = static_cast<std::uint8_t>(i * 7 + 3);
    for (std::size_t i = 0; i < chip.regDataEx.size(); ++i)
        chip.regDataEx[i] = static_cast<std::uint8_t>(0xA0 + i);
    return chip;
}

TEST(ParamFileFormat, ScansFieldsAsHexadecimalTheWayScanfDoes) {
    std::uint32_t fields[4] = {};
    EXPECT_EQ(ScanHexFields(L"0x10,3f,0X1FF, ff", fields), 4);
    EXPECT_EQ(std::vector<std::uint32_t>(fields, fields + 4),
              (std::vector<std::uint32_t>{0x10, 0x3f, 0x1ff, 0xff}));
    EXPECT_EQ(ScanHexFields(L"-1", std::span(fields, 1)), 1);
    EXPECT_EQ(fields[0], 0xffffffffu);
    EXPECT_EQ(ScanHexFields(L"12 ,34", fields), 1) << "a comma must follow the number directly";
    EXPECT_EQ(ScanHexFields(L"12 34", fields), 1);
    EXPECT_EQ(ScanHexFields(L"1x5", fields), 1);
    EXPECT_EQ(fields[0], 1u);
    EXPECT_EQ(ScanHexFields(L"\t\v\f\r\n 1f", fields), 1);
    EXPECT_EQ(fields[0], 0x1fu);
    EXPECT_EQ(ScanHexFields(L"Addr,RReg", fields), 1) << "the header's first word reads as a number";
    EXPECT_EQ(fields[0], 0xADDu);
    EXPECT_EQ(StripTrailingCommas(L"TAG ,,,"), L"TAG ");
    EXPECT_EQ(FileDialogFilter(L"(*.csv)|*.csv|"), std::wstring(L"(*.csv)\0*.csv\0", 14));
}

TEST(ParamChipTable, RowCountChainMixesSubTypeAndTypeAndAsksAfreshPerTest) {
    const struct {
        std::uint16_t type, subType;
        ParamRowSource source;
        int rows, subTypeQueries, typeQueries;
    } cases[] = {
        {0, 294, ParamRowSource::Fixed, 42, 1, 0}, // 42-row group by sub-type: first test decides
        {294, 0, ParamRowSource::Fixed, 45, 2, 5}, // the same chip by type only falls through
        {548, 0, ParamRowSource::Fixed, 34, 1, 1}, // ICND2163S by type
        {0, 548, ParamRowSource::Fixed, 45, 2, 5}, // ... but not by sub-type
        {0, 317, ParamRowSource::Fixed, 42, 2, 1}, // ICND1069 by sub-type
        {298, 0, ParamRowSource::Fixed, 47, 2, 2},
        {300, 0, ParamRowSource::Fixed, 45, 2, 3},
        {309, 0, ParamRowSource::Icnd3065HostList, 0, 2, 4},
        {392, 0, ParamRowSource::Icnd3069HostList, 0, 2, 5},
    };
    for (const auto& c : cases) {
        CountingIds ids(c.type, c.subType);
        const ParamRowPlan plan = ParamRowPlanFor(ids);
        SCOPED_TRACE(testing::Message() << "type " << c.type << " sub-type " << c.subType);
        EXPECT_EQ(plan.source, c.source);
        if (c.source == ParamRowSource::Fixed) {
            EXPECT_EQ(plan.rows, c.rows);
        }
        EXPECT_EQ(ids.subTypeQueries, c.subTypeQueries);
        EXPECT_EQ(ids.typeQueries, c.typeQueries);
    }
    for (const std::uint16_t subType : {292, 342, 358, 379, 381, 402}) { // the rest of the 42-row group
        CountingIds ids(0, subType);
        EXPECT_EQ(ParamRowPlanFor(ids).rows, 42) << subType;
    }
}

TEST(ChipParamTable, ExportIsTagHeaderAndRowsInCrLfNamedByTheSubTypeWhenThereIsOne) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    ASSERT_EQ(table.Export(dir.File("icn2055.csv")), kParamFileOk);
    const std::string written = dir.Read("icn2055.csv");
    const auto lines = SplitCrLf(written);
    ASSERT_EQ(lines.size(), 47u);
    EXPECT_EQ(lines[0], "CHIP_ICN2055_PARAMETER_FILE");
    EXPECT_EQ(lines[1], "Addr,RReg,GReg,BReg");
    EXPECT_EQ(lines[2], "0x00,0x03,0x0a,0x11"); // the large record from byte 0
    EXPECT_EQ(lines[43], "0x29,0x60,0x67,0x6e");
    EXPECT_EQ(lines[44], "0x2a,0xa0,0xa1,0xa2"); // row 42 onwards: record A from byte 0
    EXPECT_EQ(written.find("\n"), written.find("\r\n") + 1) << "no lone line feed";
    EXPECT_FALSE(fs::exists(TemporaryPathFor(dir.File("icn2055.csv"))));

    // A chip reported only by its type keeps its tag but gets 45 rows, not its group's 42.
    SimulatedChip byType(294, 0), bySubType(13, 294);
    ChipParamTable(&byType).Export(dir.File("type.csv"));
    ChipParamTable(&bySubType).Export(dir.File("sub.csv"));
    const auto typeLines = SplitCrLf(dir.Read("type.csv"));
    const auto subLines = SplitCrLf(dir.Read("sub.csv"));
    ASSERT_EQ(typeLines.size(), 47u);
    ASSERT_EQ(subLines.size(), 44u);
    EXPECT_EQ(typeLines[0], "CHIP_ICN2055S_PARAMETER_FILE");
    EXPECT_EQ(subLines[0], "CHIP_ICN2055S_PARAMETER_FILE");

    // A chip the routines do not know: no tag line, no default name.
    SimulatedChip unknown(47, 0);
    ChipParamTable unknownTable(&unknown);
    EXPECT_EQ(unknownTable.DefaultFileName(), L"");
    ASSERT_EQ(unknownTable.Export(dir.File("unknown.csv")), kParamFileOk);
    EXPECT_EQ(SplitCrLf(dir.Read("unknown.csv"))[0], "Addr,RReg,GReg,BReg");
}

TEST(ChipParamTable, ImportKeepsForeignAddressesAndAnUnchangedImportMarksNothing) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    // Addresses that are not the page's own survive for as long as the page lives.
    const std::string file = Icn2055File("CHIP_ICN2055_PARAMETER_FILE,,,", 45, 0x80);
    dir.Write("in.csv", file);
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regDataEx[15], 0xA0 + 15) << "record A beyond the table is left alone";
    ASSERT_EQ(table.Export(dir.File("out.csv")), kParamFileOk);
    EXPECT_EQ(dir.Read("out.csv"), "CHIP_ICN2055_PARAMETER_FILE\r\n" + file.substr(file.find("Addr")));

    ChipParamTable reopened(&chip);
    ASSERT_EQ(reopened.Export(dir.File("same.csv")), kParamFileOk);
    chip.ClearLog();
    ASSERT_EQ(reopened.Import(dir.File("same.csv")).result, kParamFileOk);
    reopened.ReportChange();
    EXPECT_EQ(chip.CountCalls("MarkModified"), 0);
    EXPECT_EQ(chip.CountCalls("UpdateHostState"), 1);
}

TEST(ChipParamTable, RefusesAnotherChipsTagAndChangesNothing) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    for (const std::string tag : {"CHIP_ICN2055_PARAMETER_FILE ", "chip_icn2055_parameter_file",
                                  "CHIP_ICN2065_PARAMETER_FILE", "CHIP_ICN2055_PARAMETER_FILE ,", ""}) {
        dir.Write("in.csv", Icn2055File(tag, 45));
        chip.ClearLog();
        const ParamImportResult result = table.Import(dir.File("in.csv"));
        EXPECT_EQ(result.result, kParamFileFailed) << '"' << tag << '"';
        EXPECT_EQ(result.status, ParamReadStatus::WrongTag);
        EXPECT_TRUE(chip.CallNames(false).empty()) << '"' << tag << '"';
    }
    EXPECT_EQ(table.Import(dir.File("missing.csv")).status, ParamReadStatus::CannotOpen);
}

TEST(ChipParamTable, ShortFilesAndBadFieldsKeepTheOldValues) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    const auto old = chip.regData2;
    ChipParamTable table(&chip);
    std::string file = Icn2055File("CHIP_ICN2055_PARAMETER_FILE", 10);
    file += "0x0a,0x1ff,3f\r\n"; // row 10: too big, unprefixed, blue missing
    file += "not a row\r\n";     // row 11: changes nothing
    dir.Write("in.csv", file);
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[9 * 3], 0x10);
    EXPECT_EQ(chip.regData2[10 * 3], 0xff);
    EXPECT_EQ(chip.regData2[10 * 3 + 1], 0x3f);
    EXPECT_EQ(chip.regData2[10 * 3 + 2], old[10 * 3 + 2]);
    EXPECT_TRUE(std::equal(chip.regData2.begin() + 33, chip.regData2.begin() + 126, old.begin() + 33));
    EXPECT_EQ(table.Row(11)[0], 11) << "the address of an unparsable row stays";
    EXPECT_TRUE(table.Row(-1).empty() && table.Row(45).empty());

    // Lines after the last row are never taken. A spreadsheet program may save "Unicode text".
    std::string utf16("\xFF\xFE", 2);
    for (const char c : Icn2055File("CHIP_ICN2055_PARAMETER_FILE", 60))
        utf16 += std::string{c, '\0'};
    dir.Write("long.csv", utf16);
    ASSERT_EQ(table.Import(dir.File("long.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regDataEx[2 * 3], 0x10);
    EXPECT_EQ(chip.regDataEx[3 * 3], 0xA0 + 9);
}

TEST(ChipParamTable, HostListedChipsExportAtMost128RowsAndImportKeepsTheRest) {
    TempFolder dir;
    SimulatedChip chip(309, 0);
    for (int row = 0; row < 200; ++row)
        chip.icnd3065Rows.push_back({static_cast<std::uint8_t>(row), 1, 2, 3});
    ChipParamTable table(&chip);
    ASSERT_EQ(table.Export(dir.File("ChipICND3065Param.csv")), kParamFileOk);
    const auto lines = SplitCrLf(dir.Read("ChipICND3065Param.csv"));
    ASSERT_EQ(lines.size(), 130u);
    EXPECT_EQ(lines[0], "CHIP_ICND3065_PARAMETER_FILE");
    EXPECT_EQ(lines[129], "0x7f,0x01,0x02,0x03");

    // A file with more rows than the block replaces 128 of them; the host keeps all 200.
    dir.Write("in.csv", Icn2055File("CHIP_ICND3065_PARAMETER_FILE", 200));
    chip.ClearLog();
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    table.ReportChange();
    ASSERT_EQ(chip.icnd3065Rows.size(), 200u);
    EXPECT_EQ(chip.icnd3065Rows[127][1], 0x10);
    EXPECT_EQ(chip.icnd3065Rows[128][1], 1);
    EXPECT_EQ(chip.CallNames(false),
              (std::vector<std::string>{"SetICND3065ParamRows", "MarkModified", "UpdateHostState"}));

    // A host listing no rows: a file of the tag and the header, taken back.
    SimulatedChip none(309, 0);
    ChipParamTable empty(&none);
    ASSERT_EQ(empty.Export(dir.File("none.csv")), kParamFileOk);
    EXPECT_EQ(SplitCrLf(dir.Read("none.csv")).size(), 2u);
    EXPECT_EQ(empty.Import(dir.File("none.csv")).result, kParamFileOk);

    // A host stating more rows than its list can carry is held to the list; a change only in the
    // host's list is a change, and goes back whole.
    SimulatedChip icnd3069(392, 0);
    icnd3069.icnd3069Rows.assign(300, {9, 9, 9, 9});
    ChipParamTable big(&icnd3069);
    EXPECT_EQ(big.RowCount(), 128);
    dir.Write("3069.csv", "CHIP_ICND3069_PARAMETER_FILE\r\nheader\r\n1,2,3,4\r\n");
    ASSERT_EQ(big.Import(dir.File("3069.csv")).result, kParamFileOk);
    ASSERT_EQ(icnd3069.icnd3069Rows.size(), kParamRowListCapacity);
    EXPECT_EQ(icnd3069.icnd3069Rows[0], (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
    EXPECT_EQ(icnd3069.icnd3069Rows[1], (std::array<std::uint8_t, 4>{9, 9, 9, 9}));
    EXPECT_TRUE(big.DiffersFromSnapshot());
    big.RestoreSnapshot();
    EXPECT_EQ(icnd3069.icnd3069Rows,
              (std::vector<std::array<std::uint8_t, 4>>(kParamRowListCapacity, {9, 9, 9, 9})));
    // A shorter list goes back with its own length.
    icnd3069.icnd3069Rows.assign(3, {7, 7, 7, 7});
    ChipParamTable shortList(&icnd3069);
    ASSERT_EQ(shortList.Import(dir.File("3069.csv")).result, kParamFileOk);
    shortList.RestoreSnapshot();
    EXPECT_EQ(icnd3069.icnd3069Rows, (std::vector<std::array<std::uint8_t, 4>>(3, {7, 7, 7, 7})));
}

TEST(ParamFileVariants, Cns7363WritesSixFieldsWithoutAddressAndReadsThemBack) {
    TempFolder dir;
    SimulatedChip chip(302, 0);
    for (std::size_t i = 0; i < chip.regData2.size(); ++i)
        chip.regData2[i] = static_cast<std::uint8_t>(i);
    Cns7363ParamTable table(&chip);
    EXPECT_EQ(table.DefaultFileName(), L"ChipCNS7363Param.csv");
    ASSERT_EQ(table.Export(dir.File("cns.csv")), kParamFileOk);
    const auto lines = SplitCrLf(dir.Read("cns.csv"));
    ASSERT_EQ(lines.size(), 20u);
    EXPECT_EQ(lines[0], "CHIP_CNS7363_PARAMETER_FILE");
    EXPECT_EQ(lines[1], "RReg(High),RReg(Low),GReg(High),GReg(Low),BReg(High),BReg(Low)");
    EXPECT_EQ(lines[19], "0x66,0x67,0x68,0x69,0x6a,0x6b");

    dir.Write("in.csv", "CHIP_CNS7363_PARAMETER_FILE,,,,,\r\nheader\r\nff,fe,fd,fc,fb,fa\r\n");
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[5], 0xfa);
    EXPECT_EQ(chip.regData2[6], 6);
}

TEST(ParamFileVariants, Mbi5292StatesItsRowCountSkipsEmptyLinesOnlyAndTellsAWrongTagApart) {
    TempFolder dir;
    SimulatedChip chip(521, 0);
    for (std::size_t i = 0; i < chip.regData2.size(); ++i)
        chip.regData2[i] = static_cast<std::uint8_t>(0x80 + i / 2);
    Mbi5292ParamTable table(&chip);
    ASSERT_EQ(table.Export(dir.File("mbi.csv")), kParamFileOk);
    const auto lines = SplitCrLf(dir.Read("mbi.csv"));
    ASSERT_EQ(lines.size(), 18u);
    EXPECT_EQ(lines[0], "MBI5292");
    EXPECT_EQ(lines[1], "Register Count: 16");
    EXPECT_EQ(lines[2], "0x80,0x80,0x81,0x81,0x82,0x82,0x83,0x83");

    // A spreadsheet's emptied row is a row that changes nothing; the rows after it keep their places.
    // Forty empty lines before the rows do not end the import early.
    dir.Write("in.csv",
              "MBI5292\r\n\r\nRegister Count: 3\r\n" + std::string(80, '\n') +
                  "1,2,3,4,5,6,7,8\r\n\r\n,,,,,,,\r\n21,22,23,24,25,26,27,28\r\n31,32,33,34,35,36,37,38\r\n");
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 1);
    EXPECT_EQ(chip.regData2[8], 0x84) << "the emptied row keeps what the chip held";
    EXPECT_EQ(chip.regData2[16], 0x21);
    EXPECT_EQ(chip.regData2[24], 0x8c) << "the fourth row is beyond the stated count";

    dir.Write("minus.csv", "MBI5292\r\nRegister Count: -3\r\n9,9,9,9,9,9,9,9\r\n");
    ASSERT_EQ(table.Import(dir.File("minus.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 1) << "a count below zero is no row";
    dir.Write("tag.csv", "CHIP_MBI5292_PARAMETER_FILE\r\nRegister Count: 16\r\n");
    EXPECT_EQ(table.Import(dir.File("tag.csv")).status, ParamReadStatus::WrongTag);
    dir.Write("count.csv", "MBI5292\r\nAddr,RReg\r\n1,2,3,4,5,6,7,8\r\n");
    const ParamImportResult badHeader = table.Import(dir.File("count.csv"));
    EXPECT_EQ(badHeader.result, kParamFileFailed);
    EXPECT_EQ(badHeader.status, ParamReadStatus::BadHeader);
    dir.Write("count.csv", "MBI5292\r\nRegister Count: many\r\n1,2,3,4,5,6,7,8\r\n");
    EXPECT_EQ(table.Import(dir.File("count.csv")).status, ParamReadStatus::BadHeader) << "a count has digits";
    EXPECT_EQ(chip.regData2[0], 1);
}

TEST(ParamFileSafety, AnExportTheDiskCannotTakeLeavesTheEarlierFileIntact) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    // The disk fills up part way (a file size limit makes the writes fail for real).
    const std::wstring target = dir.File("keep.csv");
    dir.Write("keep.csv", "earlier file");
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = 200;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const ParamFileResult full = table.Export(target);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(full, kParamFileFailed);
    EXPECT_EQ(dir.Read("keep.csv"), "earlier file");
    EXPECT_FALSE(fs::exists(TemporaryPathFor(target)));

    ASSERT_EQ(table.Export(target), kParamFileOk);
    EXPECT_EQ(SplitCrLf(dir.Read("keep.csv")).size(), 47u);
}

TEST(ParamFileSafety, HugeAndBinaryFilesAreReadOnlyAsFarAsTheRowsNeed) {
    TempFolder dir;
    ParamFileLayout untagged;
    untagged.header = L"Addr,RReg,GReg,BReg";
    ParamFileLayout tagged = untagged;
    tagged.tagLine = L"CHIP_ICN2055_PARAMETER_FILE";
    std::vector<std::uint8_t> block(kParamBlockBytes, 0x5a);

    // 1 GiB of zero bytes that takes no disk.
    std::ofstream(dir.Path("huge.csv")).close();
    fs::resize_file(dir.Path("huge.csv"), 1ull << 30);
    const ParamReadOutcome refused = ReadParamFile(dir.File("huge.csv"), tagged, block, 45);
    EXPECT_EQ(refused.status, ParamReadStatus::WrongTag);
    EXPECT_LE(refused.bytesRead, CStdioFileEx::kMaxLineChars + 1);
    const ParamReadOutcome taken = ReadParamFile(dir.File("huge.csv"), untagged, block, 128);
    EXPECT_TRUE(taken.ok());
    EXPECT_LE(taken.bytesRead, 130ull * CStdioFileEx::kMaxLineChars);
    EXPECT_EQ(taken.rowsRead, 128);
    std::vector<std::uint8_t> twoRows(8);
    EXPECT_EQ(ReadParamFile(dir.File("huge.csv"), untagged, twoRows, 45).rowsRead, 2)
        << "no more rows than fit";

    // Nothing but line breaks, in a layout that skips empty lines: read only as far as 18 lines of
    // the longest line would take, and taken as a file without rows.
    ParamFileLayout mbi5292;
    mbi5292.tagLine = L"MBI5292";
    mbi5292.fieldsPerRow = 8;
    mbi5292.headerCarriesRowCount = true;
    mbi5292.skipEmptyLines = true;
    dir.Write("blank.csv", "MBI5292\r\nRegister Count: 16\r\n" + std::string(8 << 20, '\n') + "1,2\r\n");
    const ParamReadOutcome blank = ReadParamFile(dir.File("blank.csv"), mbi5292, block, 16);
    EXPECT_TRUE(blank.ok());
    EXPECT_LE(blank.bytesRead, 18u * CStdioFileEx::kMaxLineChars + 1);
    EXPECT_GT(blank.bytesRead, 16u * CStdioFileEx::kMaxLineChars) << "not a count of empty lines";
    EXPECT_EQ(block[0], 0x5a);
}

} // namespace
