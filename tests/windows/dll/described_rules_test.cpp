// Rules between fields on a described page, made up for the test: a change that breaks a refusing
// rule writes nothing and shows the chip's value again, one that breaks a warning rule is written;
// each tells the operator, and a chip that already breaks them is shown as it is and told once.
#include "OperatorActions.h"

#include <gtest/gtest.h>

namespace {

const char kRulesPage[] = R"([page]
class = CRegvaneRulesTest
[field shift]
label = "Shift"
bits = 2[3:0]
control = number
ids = 101
[field span]
label = "Span"
bits = 2[7:4]
control = number
ids = 102
[rule ordered]
check = shift <= span
message = "Shift above span"
[rule even]
check = span % 2 == 0
message = "Span odd"
on-break = warn
)";

using DescribedRules = PageTest;

TEST_F(DescribedRules, ARefusedChangeKeepsTheChipAWarnedOneIsWrittenAndABrokenChipIsToldOnce) {
    const std::wstring path = WriteDescription(L"CRegvaneRulesTest.desc", kRulesPage);
    SimulatedChip chip{7, 0};
    MessageBoxWatcher boxes;
    const auto told = [&](std::size_t box) { return boxes.Boxes().at(box).text; };
    chip.regData[2] = 0x42; // span 4, shift 2
    HWND page = OpenDescribed(path, &chip);
    Enter(page, 101, L"5");
    EXPECT_EQ(chip.regData[2], 0x42);
    EXPECT_EQ(ItemText(page, 101), L"2");
    Enter(page, 102, L"5");
    EXPECT_EQ(chip.regData[2], 0x52);
    SendMessageW(page, 0x0903, 0, 0); // the fill finds what the operator was just told
    ASSERT_EQ(boxes.Boxes().size(), 2u);
    EXPECT_EQ(told(0) + L"|" + told(1), L"Shift above span|Span odd");

    chip.regData[2] = 0x35; // span 3, shift 5
    CloseAll();
    page = OpenDescribed(path, &chip);
    SendMessageW(page, 0x0903, 0, 0);
    EXPECT_EQ(ItemText(page, 101), L"5");
    EXPECT_EQ(chip.regData[2], 0x35);
    ASSERT_EQ(boxes.Boxes().size(), 3u);
    EXPECT_EQ(told(2), L"Shift above span\n\nSpan odd");
    CloseAll();
    DeleteFileW(path.c_str());
}

} // namespace
