// The chip-type table's shape and the template each page gets. Which page every number and sub-type
// opens, and that each sub-type row asks the host afresh, is held by the Windows factory tests.
#include "factory/ChipTypes.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

TEST(ChipTypeTable, CountsTypesClassesAndTemplatesAndTheSharersOfATemplate) {
    EXPECT_EQ(AllChipTypes().size(), 386u);
    EXPECT_EQ(AllChipClasses().size(), 339u);
    std::set<unsigned> templates;
    std::set<std::string> names;
    std::vector<std::string> sharingTemplate8800;
    for (const ChipClassInfo& info : AllChipClasses()) {
        // A class that shares a template follows the one that owns it.
        EXPECT_EQ(templates.insert(info.templateId).second, !info.sharesTemplate) << info.className;
        EXPECT_TRUE(names.insert(info.className).second) << info.className << " is listed twice";
        if (info.templateId == 8800)
            sharingTemplate8800.push_back(info.className);
    }
    EXPECT_EQ(templates.size(), 336u);
    EXPECT_EQ(sharingTemplate8800,
              (std::vector<std::string>{"CRegvaneUCS9812", "CRegvaneHBS1920", "CRegvaneSM16813P"}));
    EXPECT_TRUE(FindChipClass("CRegvane_VM0622F")->sharesTemplate);
}

// Language files name a page's texts by its template number, so each page must keep its own. (Which
// class each number opens is held by the Windows factory tests.)
TEST(ChipTypeTable, SampleNumbersGiveTheirTemplate) {
    const std::pair<int, unsigned> samples[] = {
        {7, 9090},    {10, 9082},    {24, 8094},     {81, 8224},    {102, 11300},   {209, 8800},
        {376, 20199}, {396, 20199},  {196, 8229},    {253, 20077},  {256, 20089},   {257, 20420},
        {548, 20235}, {65537, 8614}, {65553, 20408}, {65545, 8901}, {65547, 20110}, {65652, 20236}};
    for (const auto& [chipType, templateId] : samples) {
        const ChipChoice choice = ChooseChipClass(chipType, [] { return std::uint16_t{0}; });
        ASSERT_TRUE(choice) << chipType;
        EXPECT_EQ(choice.chipClass->templateId, templateId) << chipType;
        EXPECT_EQ(&AllChipClasses()[choice.classIndex], choice.chipClass);
    }
}

} // namespace
