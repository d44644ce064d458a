// The chip-type table: what the host gets for every number, and that the lists agree with each other.
#include "factory/ChipTypes.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

// A host whose sub-type answers are counted.
struct CountingHost {
    std::uint16_t subType = 0;
    int queries = 0;
    SubTypeQuery Query() {
        return [this] {
            ++queries;
            return subType;
        };
    }
};

std::optional<std::string> ClassFor(int chipType, std::uint16_t subType = 0, int* queries = nullptr) {
    CountingHost host{subType};
    const ChipChoice choice = ChooseChipClass(chipType, host.Query());
    if (queries)
        *queries = host.queries;
    if (!choice)
        return std::nullopt;
    return std::string(choice.chipClass->className);
}

TEST(ChipTypeTable, CountsTypesClassesAndTemplates) {
    EXPECT_EQ(AllChipTypes().size(), 386u);
    EXPECT_EQ(AllChipClasses().size(), 339u);
    std::set<unsigned> templates;
    for (const ChipClassInfo& info : AllChipClasses())
        templates.insert(info.templateId);
    EXPECT_EQ(templates.size(), 336u);

    std::set<std::string> names;
    for (const ChipClassInfo& info : AllChipClasses())
        EXPECT_TRUE(names.insert(info.className).second) << info.className << " is listed twice";
}

TEST(ChipTypeTable, EveryTemplateHasExactlyOneOwnerAndSharersFollowIt) {
    std::map<unsigned, const ChipClassInfo*> owners;
    for (const ChipClassInfo& info : AllChipClasses()) {
        if (info.sharesTemplate) {
            ASSERT_TRUE(owners.count(info.templateId))
                << info.className << " shares template " << info.templateId << " before any class owns it";
        } else {
            EXPECT_TRUE(owners.emplace(info.templateId, &info).second)
                << "template " << info.templateId << " is owned by " << owners[info.templateId]->className
                << " and " << info.className;
        }
        EXPECT_STRNE(info.chipName, "") << info.className;
    }
    std::vector<std::string> sharingTemplate8800;
    for (const ChipClassInfo& info : AllChipClasses())
        if (info.templateId == 8800)
            sharingTemplate8800.push_back(info.className);
    EXPECT_EQ(sharingTemplate8800,
              (std::vector<std::string>{"CRegvaneUCS9812", "CRegvaneHBS1920", "CRegvaneSM16813P"}));
    EXPECT_EQ(FindChipClass("CRegvane_VM0622F")->templateId, 20199u);
    EXPECT_TRUE(FindChipClass("CRegvane_VM0622F")->sharesTemplate);
    EXPECT_FALSE(FindChipClass("CRegvane_VM0622")->sharesTemplate);
}

TEST(ChipTypeTable, EveryClassIsReachableAndOneTakesTheModeForm) {
    std::set<std::string> reachable;
    for (const ChipTypeInfo& type : AllChipTypes())
        reachable.insert(type.className);
    // Classes only some sub-types reach.
    for (auto [type, subType] : std::vector<std::pair<int, std::uint16_t>>{{4, 312},
                                                                           {9, 85},
                                                                           {11, 173},
                                                                           {11, 63},
                                                                           {11, 387},
                                                                           {46, 82},
                                                                           {47, 138},
                                                                           {91, 329},
                                                                           {129, 230},
                                                                           {349, 360}})
        reachable.insert(*ClassFor(type, subType));
    for (const ChipClassInfo& info : AllChipClasses())
        EXPECT_TRUE(reachable.count(info.className)) << info.className << " is reached by no chip type";

    std::vector<std::string> modeForm;
    for (const ChipClassInfo& info : AllChipClasses())
        if (info.constructor == ChipConstructor::ChipModeCaptionParent)
            modeForm.push_back(info.className);
    EXPECT_EQ(modeForm, std::vector<std::string>{"CRegvaneHighMode"});
    EXPECT_TRUE(FindChipClass("CchipRegModify")->custom);
    EXPECT_EQ(FindChipClass("CchipRegModify")->constructor, ChipConstructor::ChipParent);
}

TEST(ChipTypeTable, TypesAreAscendingAndAgreeWithTheDispatch) {
    int previous = -1;
    for (const ChipTypeInfo& type : AllChipTypes()) {
        EXPECT_GT(type.chipType, previous);
        previous = type.chipType;
        EXPECT_EQ(FindChipType(type.chipType), &type);
        const ChipClassInfo* info = FindChipClass(type.className);
        ASSERT_NE(info, nullptr) << type.className;
        EXPECT_EQ(info->templateId, type.templateId) << type.chipType;
        if (!type.dependsOnSubType) {
            EXPECT_EQ(ClassFor(type.chipType), type.className) << type.chipType;
        }
    }
    int bySubType = 0;
    for (const ChipTypeInfo& type : AllChipTypes())
        bySubType += type.dependsOnSubType ? 1 : 0;
    EXPECT_EQ(bySubType, 12);
    // The one sub-type number whose other sub-types give nothing is listed with the page it can give.
    ASSERT_NE(FindChipType(67), nullptr);
    EXPECT_STREQ(FindChipType(67)->className, "CRegvaneWS2816A");
    EXPECT_STREQ(FindChipType(4)->className, "CRegvane_MBI5124");
}

TEST(ChipTypeTable, SampleNumbersGiveTheirClassAndTemplate) {
    const struct {
        int chipType;
        const char* className;
        unsigned templateId;
    } samples[] = {
        {7, "CRegvane_SUM2018", 9090},
        {10, "CMY9868SetDlgEx", 9082},
        {24, "CRegvane_MY9266", 8094},
        {25, "CRegvane_MY9266", 8094},
        {81, "CchipRegModify", 8224},
        {96, "CRegvaneLS9929", 11300},
        {102, "CRegvaneLS9929", 11300},
        {150, "CRegvaneLS9929", 11300},
        {159, "CRegvaneLS9929", 11300},
        {190, "CRegvaneLS9929", 11300},
        {538, "CRegvaneLS9929", 11300},
        {134, "CRegvaneUCS9812", 8800},
        {209, "CRegvaneHBS1920", 8800},
        {211, "CRegvaneSM16813P", 8800},
        {376, "CRegvane_VM0622", 20199},
        {396, "CRegvane_VM0622F", 20199},
        {196, "CRegvaneMbi5153", 8229},
        {253, "CRegvane_SM16380", 20077},
        {256, "CRegvaneRT5965", 20089},
        {257, "CRegvaneRT5967", 20420},
        {548, "CRegvaneICND2163S", 20235},
        {65536, "CchipRegModify", 8224},
        {65536 + 1, "CChip5153Extension", 8614},
        {65536 + 17, "CRegvaneHighMode", 20408},
        {65536 + 9, "CRegvaneICN2038SEX", 8901},
        {65536 + 11, "CRegvane_SUM2117Ex", 20110},
        {65652, "CRegvaneICND2163SEx", 20236},
    };
    for (const auto& sample : samples) {
        const ChipChoice choice = ChooseChipClass(sample.chipType, [] { return std::uint16_t{0}; });
        ASSERT_TRUE(choice) << sample.chipType;
        EXPECT_STREQ(choice.chipClass->className, sample.className) << sample.chipType;
        EXPECT_EQ(choice.chipClass->templateId, sample.templateId) << sample.chipType;
        EXPECT_EQ(&AllChipClasses()[choice.classIndex], choice.chipClass);
    }
}

TEST(ChipTypeTable, NumbersWithoutAPageNeverAskTheHost) {
    for (int chipType : {-1,  0,   1,    2,     3,          14,         15,    29,    32,     254,       255,
                         549, 550, 1000, 65535, 65536 + 10, 65536 + 23, 65653, 70000, 131072, 0x7fffffff}) {
        int queries = -1;
        EXPECT_EQ(ClassFor(chipType, 0, &queries), std::nullopt) << chipType;
        EXPECT_EQ(queries, 0) << chipType;
        EXPECT_EQ(FindChipType(chipType), nullptr) << chipType;
    }
    // Every number from 0 to past the last block: a page exactly where the list has one.
    for (int chipType = 0; chipType <= 66000; ++chipType) {
        int queries = 0;
        const auto name = ClassFor(chipType, 1, &queries);
        const ChipTypeInfo* listed = FindChipType(chipType);
        if (chipType == 67)
            continue; // sub-type 1 gives no page there
        EXPECT_EQ(name.has_value(), listed != nullptr) << chipType;
        if (listed && !listed->dependsOnSubType) {
            EXPECT_EQ(queries, 0) << chipType;
        }
    }
}

TEST(ChipTypeTable, SubTypeRowsAreTestedInOrderOneQueryEach) {
    const struct {
        int chipType;
        std::uint16_t subType;
        const char* className; // null: no page
        int queries;
    } cases[] = {
        {4, 160, nullptr, 1},
        {4, 169, nullptr, 1},
        {5, 170, nullptr, 1},
        {6, 312, "CRegvaneRT5938", 2},
        {13, 312, "CRegvaneRT5938", 2},
        {13, 0, "CRegvane_MBI5124", 2},
        {4, 85, "CRegvane_MBI5124", 2},
        {9, 85, "CRegvane_SUM2017T", 1},
        {9, 312, "CchipRegModify", 1},
        {11, 173, "CRegvaneSM16227", 1},
        {11, 63, "CRegvaneFM6182", 2},
        {11, 387, "CRegvaneSM16208", 3},
        {11, 161, nullptr, 4},
        {11, 167, nullptr, 4},
        {11, 160, "CRegvane_MY9862", 4},
        {46, 82, "CRegvaneMBI5043", 1},
        {46, 138, "CRegvane5041B", 1},
        {47, 138, "CRegvane_SM16159", 1},
        {47, 212, "CRegvaneMbi5153", 1},
        {67, 403, "CRegvaneWS2816A", 1},
        {67, 402, nullptr, 1},
        {67, 0, nullptr, 1},
        {91, 329, "CRegvane_H8106", 1},
        {91, 330, "CRegvaneGW6803", 1},
        {129, 230, "CRegvaneCS2033", 1},
        {129, 265, "CRegvaneCS2033", 1},
        {129, 231, "CRegvaneSum2033", 1},
        {349, 360, "CRegvaneDP3153", 1},
        {349, 349, "CRegvaneDP3254", 1},
    };
    for (const auto& c : cases) {
        int queries = 0;
        const auto name = ClassFor(c.chipType, c.subType, &queries);
        const std::optional<std::string> expected =
            c.className ? std::optional<std::string>(c.className) : std::nullopt;
        EXPECT_EQ(name, expected) << c.chipType << "/" << c.subType;
        EXPECT_EQ(queries, c.queries) << c.chipType << "/" << c.subType;
    }
}

TEST(ChipTypeTable, EachRowAsksAfreshSoAChangingAnswerIsFollowed) {
    // The no-page row sees 100, the next row sees 312: the second answer decides.
    std::vector<std::uint16_t> answers{100, 312};
    std::size_t asked = 0;
    const ChipChoice choice = ChooseChipClass(4, [&] { return answers[asked++]; });
    ASSERT_TRUE(choice);
    EXPECT_STREQ(choice.chipClass->className, "CRegvaneRT5938");
    EXPECT_EQ(asked, 2u);
}

TEST(ChipTypeTable, SubTypeNumbersGiveNoPageWhenTheHostCannotBeAsked) {
    for (const ChipTypeInfo& type : AllChipTypes())
        EXPECT_EQ(static_cast<bool>(ChooseChipClass(type.chipType, SubTypeQuery{})), !type.dependsOnSubType)
            << type.chipType;
}

} // namespace
