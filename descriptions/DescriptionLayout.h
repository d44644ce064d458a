// How a described page lays out its controls: a row per field (its label, then its controls), a column
// per colour under the colour's name, fields grouped in boxes, the link switch on top and the page's
// buttons at the bottom. Widths follow the texts of the language in use, so the longest translation
// fits; everything else is in dialog units, as in the hand-laid templates.
//
// Portable: the page hands in how wide a text is and how big a dialog unit is, and creates the
// windows the plan lists, in the plan's order (group boxes first, then the tab order).
#pragma once

#include "descriptions/ChipDescription.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace chipdesc {

struct Rect {
    int left = 0, top = 0, right = 0, bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

enum class Role : std::uint8_t {
    GroupBox,
    LinkSwitch,
    ColourHeader,
    Label,
    Control,
    Spin, // the spin buttons of the number edit just before: a place, not a window of its own
    Readout,
    // The output-current read-out of a field: its switch, the reference edit of each colour (followed
    // by its spin place), the gain fraction and the current of each colour.
    CurrentSwitch,
    Reference,
    Fraction,
    Current,
    PageButton, // one of the description's buttons
    DefaultButton,
    OkButton,
    CancelButton,
    // The register text and its Copy and Paste buttons; a table's Load button (after its Label, both
    // with the table's index as their button).
    RegisterText,
    CopyButton,
    PasteButton,
    TableButton,
};

struct PlannedWindow {
    Role role = Role::Label;
    int field = -1;  // Label, Control, Readout and the current read-out's windows
    int colour = -1; // Control, Readout (0 for a field with one control), ColourHeader, Reference,
                     // Fraction, Current
    int id = 0;      // 0: the window needs no id
    std::wstring text;
    Rect rect;       // pixels in the page; a combo box's includes its drop-down list
    int button = -1; // PageButton: the button's index; TableButton and its Label: the table's
};

// Rows a page may move to another column only together: a group box with its rows, or a row outside
// any group with the rows of its output-current read-out. Pixels from the top of the one-column plan.
struct Band {
    int top = 0, bottom = 0;
};

struct LayoutPlan {
    std::vector<PlannedWindow> windows;
    int width = 0;
    int height = 0;
    std::vector<Band> bands; // top to bottom, each starting where the one before ends
};

struct LayoutTexts {
    std::function<std::wstring(std::string_view stringId)> translate;
    std::function<int(std::wstring_view text)> measure; // pixels in the page's font
};

// The dialog's base units: a dialog unit is baseX / 4 pixels across and baseY / 8 down.
struct DialogUnits {
    int baseX = 6;
    int baseY = 13;
    int X(int dlu) const { return (dlu * baseX + 2) / 4; }
    int Y(int dlu) const { return (dlu * baseY + 4) / 8; }
};

// The first id a control without one of its own gets; ids the description names are skipped.
inline constexpr int kFirstAutomaticId = 30001;
// The page's buttons keep the ids every chip page uses.
inline constexpr int kDefaultButtonId = 8025;
inline constexpr int kOkButtonId = 8570;
inline constexpr int kCancelButtonId = 8571;
// What an operator may enter as the reference of an output-current read-out.
inline constexpr int kReferenceMin = 0;
inline constexpr int kReferenceMax = 1000000;
inline constexpr int kReferenceDefault = 1000;

LayoutPlan PlanLayout(const Description& description, const LayoutTexts& texts, DialogUnits units);

// The text of an item, a unit or a label: translated unless written literally.
std::wstring ItemText(const Item& item, const LayoutTexts& texts);
// An item's text with "{n}" standing for a repeated field's number (none: left as written).
std::wstring NumberedText(const Item& item, int number, const LayoutTexts& texts);
std::wstring LabelText(const Field& field, const LayoutTexts& texts);
// A value as a field shows it in text: its item's text (a code no item names as its number), hex
// digits, or the number and its unit.
std::wstring ValueText(const Field& field, Value value, const LayoutTexts& texts);

} // namespace chipdesc
