// Register parameter files: the exact file the ICN2055 family writes, what its reader accepts and
// refuses, the row counts the host's chip ids select, the CNS7363 and MBI5292 layouts, and that no
// failed export or refused import costs the operator a setting.
#include "framework/StdioFileEx.h"
#include "framework/TextEncoding.h"
#include "paramfiles/ParamChipTable.h"
#include "paramfiles/ParamFileFormat.h"
#include "paramfiles/RegisterParamTable.h"
#include "workbench/SimulatedChip.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

class TempFolder {
public:
    explicit TempFolder(const std::string& extra = "") {
        m_path = fs::temp_directory_path() /
                 ("regvane_param_" +
                  std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + extra);
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~TempFolder() { fs::remove_all(m_path); }
    // Names are UTF-8, as the file system takes them here.
    fs::path Path(const std::string& name) const { return m_path / name; }
    std::wstring File(const std::string& name) const { return Utf8ToWide(Path(name).string()); }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(Path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    fs::path m_path;
};

std::vector<std::string> SplitCrLf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find("\r\n", start);
        if (end == std::string::npos) {
            lines.push_back(text.substr(start));
            break;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

std::string Hex(unsigned value) {
    char text[8];
    std::snprintf(text, sizeof text, "0x%02x", value);
    return text;
}

// A host whose two ids are fixed and whose every question is counted.
class CountingIds : public ChipIdQuery {
public:
    CountingIds(std::uint16_t type, std::uint16_t subType) : type(type), subType(subType) {}
    std::uint16_t ChipType() override {
        ++typeQueries;
        return type;
    }
    std::uint16_t ChipSubType() override {
        ++subTypeQueries;
        return subType;
    }
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

std::string Icn2055File(const std::string& tag, int rows, const std::string& rowSuffix = "") {
    std::string text = tag + "\r\nAddr,RReg,GReg,BReg\r\n";
    for (int row = 0; row < rows; ++row)
        text += Hex(static_cast<unsigned>(row)) + "," + Hex(0x10) + "," + Hex(0x20) + "," + Hex(0x30) +
                rowSuffix + "\r\n";
    return text;
}

TEST(ParamFileFormat, FieldsHaveTwoLowerCaseHexDigitsAndFiltersBecomeWin32Lists) {
    std::wstring text;
    const std::pair<int, const wchar_t*> cases[] = {{0, L"0x00"},  {5, L"0x05"},  {15, L"0x0f"},
                                                    {16, L"0x10"}, {26, L"0x1a"}, {255, L"0xff"}};
    for (const auto& [value, expected] : cases) {
        FormatHexByte(text, static_cast<std::uint8_t>(value));
        EXPECT_EQ(text, expected);
    }
    const std::wstring filter = FileDialogFilter(kParamFileFilter);
    EXPECT_EQ(filter, std::wstring(L"(*.csv)\0*.csv\0All Files (*.*)\0*.*\0", 34));
    EXPECT_EQ(filter.c_str()[34], L'\0') << "the list ends in two NULs";
}

TEST(ParamFileFormat, ScansFieldsAsHexadecimalTheWayScanfDoes) {
    std::uint32_t fields[4] = {};
    EXPECT_EQ(ScanHexFields(L"0x10,3f,0X1FF, ff", fields), 4);
    EXPECT_EQ(fields[0], 0x10u);
    EXPECT_EQ(fields[1], 0x3fu);
    EXPECT_EQ(fields[2], 0x1ffu);
    EXPECT_EQ(fields[3], 0xffu);
    EXPECT_EQ(ScanHexFields(L"-1", std::span(fields, 1)), 1);
    EXPECT_EQ(fields[0], 0xffffffffu);
    EXPECT_EQ(ScanHexFields(L"12 ,34", fields), 1) << "a comma must follow the number directly";
    EXPECT_EQ(ScanHexFields(L"0x10,,5", fields), 1);
    EXPECT_EQ(ScanHexFields(L"Addr,RReg", fields), 1) << "the header's first word reads as a number";
    EXPECT_EQ(fields[0], 0xADDu);
    EXPECT_EQ(ScanHexFields(L"zz,1", fields), 0);
    EXPECT_EQ(ScanHexFields(L"", fields), 0);
    EXPECT_EQ(StripTrailingCommas(L"TAG,,,"), L"TAG");
    EXPECT_EQ(StripTrailingCommas(L"TAG ,"), L"TAG ");
}

TEST(ParamChipTable, NamesTwentyThreeChipsOnceEach) {
    std::set<std::uint16_t> ids;
    for (const ParamChipInfo& chip : ParamChipTable())
        ids.insert(chip.id);
    EXPECT_EQ(ids.size(), 23u);
    EXPECT_EQ(ParamChipTable().size(), 23u);
    const ParamChipInfo* chip = FindParamChip(342);
    ASSERT_NE(chip, nullptr);
    EXPECT_STREQ(chip->fileName, L"ChipICND1065SParam.csv");
    EXPECT_STREQ(chip->tagLine, L"CHIP_ICND1065S_PARAMETER_FILE");
    EXPECT_EQ(FindParamChip(47), nullptr);
}

TEST(ParamChipTable, TheSubTypeNamesTheFileWhenTheHostReportsOne) {
    CountingIds bySubType(13, 294);
    EXPECT_EQ(ParamFileChipId(bySubType), 294);
    EXPECT_EQ(bySubType.typeQueries, 0);
    CountingIds byType(193, 0);
    EXPECT_EQ(ParamFileChipId(byType), 193);
    EXPECT_EQ(byType.subTypeQueries + byType.typeQueries, 2);
}

TEST(ParamChipTable, RowCountChainMixesSubTypeAndTypeAndAsksAfreshPerTest) {
    struct Case {
        std::uint16_t type, subType;
        ParamRowSource source;
        int rows;
        int subTypeQueries, typeQueries;
    };
    const Case cases[] = {
        {0, 294, ParamRowSource::Fixed, 42, 1, 0}, // 42-row group by sub-type: first test decides
        {294, 0, ParamRowSource::Fixed, 45, 2, 5}, // the same chip by type only falls through
        {548, 0, ParamRowSource::Fixed, 34, 1, 1}, // ICND2163S by type
        {0, 548, ParamRowSource::Fixed, 45, 2, 5}, // ... but not by sub-type
        {0, 317, ParamRowSource::Fixed, 42, 2, 1}, // ICND1069 by sub-type
        {317, 0, ParamRowSource::Fixed, 45, 2, 5},
        {298, 0, ParamRowSource::Fixed, 47, 2, 2},
        {300, 0, ParamRowSource::Fixed, 45, 2, 3},
        {309, 0, ParamRowSource::Icnd3065HostList, 0, 2, 4},
        {392, 0, ParamRowSource::Icnd3069HostList, 0, 2, 5},
        {193, 0, ParamRowSource::Fixed, 45, 2, 5},
    };
    for (const Case& c : cases) {
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
}

TEST(ChipParamTable, Icn2055ExportIsTagHeaderAnd45RowsInCrLf) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    ASSERT_EQ(table.Export(dir.File("ChipICN2055Param.csv")), kParamFileOk);

    const std::string written = dir.Read("ChipICN2055Param.csv");
    const auto lines = SplitCrLf(written);
    ASSERT_EQ(lines.size(), 47u);
    EXPECT_EQ(lines[0], "CHIP_ICN2055_PARAMETER_FILE");
    EXPECT_EQ(lines[1], "Addr,RReg,GReg,BReg");
    EXPECT_EQ(lines[2], "0x00,0x03,0x0a,0x11"); // the large record from byte 0
    EXPECT_EQ(lines[43], "0x29,0x60,0x67,0x6e");
    EXPECT_EQ(lines[44], "0x2a,0xa0,0xa1,0xa2"); // row 42 onwards: record A from byte 0
    EXPECT_EQ(lines[46], "0x2c,0xa6,0xa7,0xa8");
    EXPECT_EQ(written.find("\n"), written.find("\r\n") + 1) << "no lone line feed";
    EXPECT_NE(written.find("0x0f,"), std::string::npos);
    EXPECT_EQ(written.find("0xf,"), std::string::npos);
    EXPECT_EQ(table.DefaultFileName(), L"ChipICN2055Param.csv");
    EXPECT_FALSE(fs::exists(TemporaryPathFor(dir.File("ChipICN2055Param.csv"))));
}

TEST(ChipParamTable, AChipReportedOnlyByTypeKeepsItsTagButWrites45Rows) {
    TempFolder dir;
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
    ChipParamTable table(&unknown);
    EXPECT_EQ(table.DefaultFileName(), L"");
    ASSERT_EQ(table.Export(dir.File("unknown.csv")), kParamFileOk);
    EXPECT_EQ(SplitCrLf(dir.Read("unknown.csv"))[0], "Addr,RReg,GReg,BReg");
}

TEST(ChipParamTable, ImportHandsTheTableToTheHostAndExportReproducesIt) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    // Addresses that are not the page's own survive for as long as the page lives.
    std::string file = "CHIP_ICN2055_PARAMETER_FILE,,,\r\nAddr,RReg,GReg,BReg\r\n";
    for (unsigned row = 0; row < 45; ++row)
        file += Hex(0x80 + row) + "," + Hex(row) + "," + Hex(row + 100) + "," + Hex(255 - row) + "\r\n";
    dir.Write("in.csv", file);
    chip.ClearLog();
    const ParamImportResult result = table.Import(dir.File("in.csv"));
    ASSERT_EQ(result.result, kParamFileOk);
    table.ReportChange();
    EXPECT_EQ(chip.regData2[0], 0);
    EXPECT_EQ(chip.regData2[41 * 3 + 2], 255 - 41);
    EXPECT_EQ(chip.regDataEx[0], 42);
    EXPECT_EQ(chip.regDataEx[2 * 3 + 1], 144);
    EXPECT_EQ(chip.regDataEx[15], 0xA0 + 15) << "record A beyond the table is left alone";
    EXPECT_EQ(chip.CallNames(false),
              (std::vector<std::string>{"SetRegData", "SetRegDataEx", "SetRegData2", "SetRegData3",
                                        "MarkModified", "UpdateHostState"}));

    ASSERT_EQ(table.Export(dir.File("out.csv")), kParamFileOk);
    EXPECT_EQ(dir.Read("out.csv"), "CHIP_ICN2055_PARAMETER_FILE\r\n" + file.substr(file.find("Addr")));

    // A new page on the same chip reads the same values back.
    ChipParamTable reopened(&chip);
    ASSERT_EQ(reopened.RowCount(), 45);
    EXPECT_EQ(reopened.Row(44)[3], 255 - 44);

    // Importing what the chip already holds marks nothing.
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
    const SimulatedChip before = chip;
    for (const std::string tag : {"CHIP_ICN2055_PARAMETER_FILE ", "chip_icn2055_parameter_file",
                                  "CHIP_ICN2065_PARAMETER_FILE", "CHIP_ICN2055_PARAMETER_FILE ,", ""}) {
        dir.Write("in.csv", Icn2055File(tag, 45));
        chip.ClearLog();
        const ParamImportResult result = table.Import(dir.File("in.csv"));
        EXPECT_EQ(result.result, kParamFileFailed) << '"' << tag << '"';
        EXPECT_EQ(result.status, ParamReadStatus::WrongTag);
        EXPECT_TRUE(chip.CallNames(false).empty()) << '"' << tag << '"';
    }
    EXPECT_EQ(chip.regData2, before.regData2);
    EXPECT_EQ(chip.regDataEx, before.regDataEx);
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
    for (std::size_t i = 11 * 3; i < 42 * 3; ++i)
        EXPECT_EQ(chip.regData2[i], old[i]) << i;
    EXPECT_EQ(table.Row(11)[0], 11) << "the address of an unparsable row stays";

    // Lines after the last row are never taken.
    dir.Write("long.csv", Icn2055File("CHIP_ICN2055_PARAMETER_FILE", 60));
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
    EXPECT_EQ(table.RowCount(), 128);
    ASSERT_EQ(table.Export(dir.File("ChipICND3065Param.csv")), kParamFileOk);
    const auto lines = SplitCrLf(dir.Read("ChipICND3065Param.csv"));
    ASSERT_EQ(lines.size(), 130u);
    EXPECT_EQ(lines[0], "CHIP_ICND3065_PARAMETER_FILE");
    EXPECT_EQ(lines[129], "0x7f,0x01,0x02,0x03");

    // A file with more rows than the block replaces 128 of them; the host keeps all 200.
    std::string file = "CHIP_ICND3065_PARAMETER_FILE\r\nAddr,RReg,GReg,BReg\r\n";
    for (int row = 0; row < 200; ++row)
        file += Hex(static_cast<unsigned>(row)) + ",0x44,0x55,0x66\r\n";
    dir.Write("in.csv", file);
    chip.ClearLog();
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    table.ReportChange();
    ASSERT_EQ(chip.icnd3065Rows.size(), 200u);
    EXPECT_EQ(chip.icnd3065Rows[127][1], 0x44);
    EXPECT_EQ(chip.icnd3065Rows[128][1], 1);
    EXPECT_EQ(chip.CallNames(false),
              (std::vector<std::string>{"SetICND3065ParamRows", "MarkModified", "UpdateHostState"}));

    // A host stating more rows than its list can carry is held to the list.
    SimulatedChip icnd3069(392, 0);
    icnd3069.icnd3069Rows.assign(300, {9, 9, 9, 9});
    ChipParamTable big(&icnd3069);
    EXPECT_EQ(big.RowCount(), 128);
    dir.Write("3069.csv", "CHIP_ICND3069_PARAMETER_FILE\r\nheader\r\n1,2,3,4\r\n");
    ASSERT_EQ(big.Import(dir.File("3069.csv")).result, kParamFileOk);
    ASSERT_EQ(icnd3069.icnd3069Rows.size(), kParamRowListCapacity);
    EXPECT_EQ(icnd3069.icnd3069Rows[0], (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
    EXPECT_EQ(icnd3069.icnd3069Rows[1], (std::array<std::uint8_t, 4>{9, 9, 9, 9}));
}

TEST(ChipParamTable, TheSnapshotCoversTheRecordsAndTheHostListAndGoesBackWhole) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    const SimulatedChip original = chip;
    ChipParamTable table(&chip);
    dir.Write("in.csv", Icn2055File("CHIP_ICN2055_PARAMETER_FILE", 45));
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_TRUE(table.DiffersFromSnapshot());
    table.RestoreSnapshot();
    EXPECT_FALSE(table.DiffersFromSnapshot());
    EXPECT_EQ(chip.regData2, original.regData2);
    EXPECT_EQ(chip.regDataEx, original.regDataEx);

    SimulatedChip listed(392, 0);
    listed.icnd3069Rows.assign(3, {1, 2, 3, 4});
    ChipParamTable listTable(&listed);
    dir.Write("list.csv", "CHIP_ICND3069_PARAMETER_FILE\r\nAddr\r\n5,6,7,8\r\n");
    ASSERT_EQ(listTable.Import(dir.File("list.csv")).result, kParamFileOk);
    EXPECT_TRUE(listTable.DiffersFromSnapshot()) << "a change only in the host's list is a change";
    listTable.RestoreSnapshot();
    EXPECT_EQ(listed.icnd3069Rows, (std::vector<std::array<std::uint8_t, 4>>(3, {1, 2, 3, 4})));
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
    EXPECT_EQ(lines[2], "0x00,0x01,0x02,0x03,0x04,0x05");
    EXPECT_EQ(lines[19], "0x66,0x67,0x68,0x69,0x6a,0x6b");

    dir.Write("in.csv", "CHIP_CNS7363_PARAMETER_FILE,,,,,\r\nheader\r\nff,fe,fd,fc,fb,fa\r\n");
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 0xff);
    EXPECT_EQ(chip.regData2[5], 0xfa);
    EXPECT_EQ(chip.regData2[6], 6);
    EXPECT_EQ(chip.regData2[108], 108) << "bytes past the table are not the table's";
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
    dir.Write("in.csv", "MBI5292\r\n\r\nRegister Count: 3\r\n\r\n1,2,3,4,5,6,7,8\r\n\r\n,,,,,,,\r\n"
                        "21,22,23,24,25,26,27,28\r\n31,32,33,34,35,36,37,38\r\n");
    ASSERT_EQ(table.Import(dir.File("in.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 1);
    EXPECT_EQ(chip.regData2[8], 0x84) << "the emptied row keeps what the chip held";
    EXPECT_EQ(chip.regData2[15], 0x87);
    EXPECT_EQ(chip.regData2[16], 0x21);
    EXPECT_EQ(chip.regData2[24], 0x8c) << "the fourth row is beyond the stated count";

    // Forty empty lines before the rows do not end the import early; a line of blanks is a row.
    std::string padded = "MBI5292\r\nRegister Count: 16\r\n";
    for (int i = 0; i < 40; ++i)
        padded += "\r\n";
    dir.Write("padded.csv", padded + "f1,f2,f3,f4,f5,f6,f7,f8\r\n   \r\n31,32,33,34,35,36,37,38\r\n");
    ASSERT_EQ(table.Import(dir.File("padded.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 0xf1);
    EXPECT_EQ(chip.regData2[8], 0x84);
    EXPECT_EQ(chip.regData2[16], 0x31);

    dir.Write("tag.csv", "CHIP_MBI5292_PARAMETER_FILE\r\nRegister Count: 16\r\n");
    EXPECT_EQ(table.Import(dir.File("tag.csv")).status, ParamReadStatus::WrongTag);
    dir.Write("count.csv", "MBI5292\r\nAddr,RReg\r\n1,2,3,4,5,6,7,8\r\n");
    const ParamImportResult badHeader = table.Import(dir.File("count.csv"));
    EXPECT_EQ(badHeader.result, kParamFileFailed);
    EXPECT_EQ(badHeader.status, ParamReadStatus::BadHeader);
    EXPECT_EQ(chip.regData2[0], 0xf1);
}

TEST(ParamFileSafety, AFailedExportLeavesTheEarlierFileIntact) {
    TempFolder dir;
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    EXPECT_EQ(table.Export(dir.File("no such folder/x.csv")), kParamFileFailed);
    EXPECT_FALSE(fs::exists(dir.Path("no such folder")));

    const std::wstring target = dir.File("keep.csv");
    dir.Write("keep.csv", "earlier file");
    EXPECT_FALSE(WriteFileReplacing(target, [](CStdioFileEx& file) {
        file.WriteString(L"CHIP_ICN2055_PARAMETER_FILE\r\n");
        return false; // the writer gave up part way
    }));
    EXPECT_EQ(dir.Read("keep.csv"), "earlier file");
    EXPECT_FALSE(fs::exists(TemporaryPathFor(target)));

    // The disk fills up part way (a file size limit makes the writes fail for real).
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

    // A complete export replaces it.
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
    const std::uint64_t bound = 130ull * CStdioFileEx::kMaxLineChars;

    // 1 GiB of zero bytes that takes no disk.
    const fs::path huge = dir.Path("huge.csv");
    std::ofstream(huge).close();
    fs::resize_file(huge, 1ull << 30);
    const std::wstring hugePath = dir.File("huge.csv");
    const ParamReadOutcome refused = ReadParamFile(hugePath, tagged, block, 45);
    EXPECT_EQ(refused.status, ParamReadStatus::WrongTag);
    EXPECT_LE(refused.bytesRead, CStdioFileEx::kMaxLineChars + 1);
    const ParamReadOutcome taken = ReadParamFile(hugePath, untagged, block, 128);
    EXPECT_TRUE(taken.ok());
    EXPECT_LE(taken.bytesRead, bound);
    EXPECT_EQ(taken.rowsRead, 128);

    // Random bytes, line breaks included.
    std::mt19937 random(12345);
    std::string noise(4 << 20, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    dir.Write("noise.csv", noise);
    const ParamReadOutcome read = ReadParamFile(dir.File("noise.csv"), untagged, block, 128);
    EXPECT_TRUE(read.ok());
    EXPECT_LE(read.linesRead, 130u);
    EXPECT_EQ(ReadParamFile(dir.File("noise.csv"), tagged, block, 45).status, ParamReadStatus::WrongTag);

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

TEST(ParamFileSafety, PathsWithNonAsciiNamesAndUtf16FilesWork) {
    TempFolder dir("_\xE5\x8F\x82\xE6\x95\xB0\xC3\xA9");
    SimulatedChip chip = Icn2055();
    ChipParamTable table(&chip);
    const std::wstring path = dir.File("\xE5\xAF\x84\xE5\xAD\x98\xE5\x99\xA8.csv");
    ASSERT_EQ(table.Export(path), kParamFileOk);
    ASSERT_TRUE(fs::exists(dir.Path("\xE5\xAF\x84\xE5\xAD\x98\xE5\x99\xA8.csv")));
    ASSERT_EQ(table.Import(path).result, kParamFileOk);

    // A spreadsheet program that saves "Unicode text".
    const std::string text = Icn2055File("CHIP_ICN2055_PARAMETER_FILE,,,", 1);
    std::string utf16("\xFF\xFE", 2);
    for (const char c : text)
        utf16 += std::string{c, '\0'};
    dir.Write("utf16.csv", utf16);
    ASSERT_EQ(table.Import(dir.File("utf16.csv")).result, kParamFileOk);
    EXPECT_EQ(chip.regData2[0], 0x10);
}

} // namespace
