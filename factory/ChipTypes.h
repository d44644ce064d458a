// The chip-type table as data: which page class, under which template, the host gets for a chip-type
// number. Portable, so the factory, the workbench and the native tests share one dispatch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

// How the factory constructs a page class (see factory/ChipTypeTable.h).
enum class ChipConstructor { Chip, ChipParent, ChipCaptionParent, ChipModeCaptionParent };

// What a page class gives the operator (the kind column of factory/ChipTypeTable.h).
enum class ChipPageKind : std::uint8_t {
    Raw,         // the raw register editor, made from the table
    Described,   // made from the table too, and laid out from the description the module ships
    ParamTable,  // a register parameter table with Export and Import
    HandWritten, // any other page with behaviour of its own
};
// "raw", "described", "table", "hand-written".
const char* ChipPageKindName(ChipPageKind kind);

struct ChipClassInfo {
    const char* className;
    const char* chipName; // the caption of a generic page's template
    unsigned templateId;
    ChipConstructor constructor;
    ChipPageKind kind;
    bool sharesTemplate; // uses the template of another class, which emits it
    // A class the table itself makes, on the raw register editor; a description may lay it out.
    bool MadeFromTable() const { return kind == ChipPageKind::Raw || kind == ChipPageKind::Described; }
};

struct ChipTypeInfo {
    int chipType;
    const char* className; // for a sub-type number: the page most sub-types get
    unsigned templateId;
    bool dependsOnSubType;
};

// Every page class, in table order (the factory's constructor table follows the same order).
std::span<const ChipClassInfo> AllChipClasses();
const ChipClassInfo* FindChipClass(std::string_view className);

// Every chip-type number that can give a page, ascending. For a number that depends on the sub-type
// the class is that of its "any other" row, or, when that row gives no page, of its first row that
// gives one.
std::span<const ChipTypeInfo> AllChipTypes();
const ChipTypeInfo* FindChipType(int chipType);

// Asks the host for the chip's sub-type; called once per sub-type row tested, never for a number
// whose page follows from the number alone. An empty query means the sub-type cannot be asked, and
// such numbers give no page.
using SubTypeQuery = std::function<std::uint16_t()>;

struct ChipChoice {
    const ChipClassInfo* chipClass = nullptr; // null: no page
    std::size_t classIndex = 0;               // position in AllChipClasses()
    explicit operator bool() const { return chipClass != nullptr; }
};

ChipChoice ChooseChipClass(int chipType, const SubTypeQuery& querySubType);
