#include "descriptions/DescriptionLayout.h"

#include "descriptions/DescriptionFormula.h"
#include "descriptions/DescriptionReadouts.h"
#include "descriptions/SectionLayout.h"
#include "framework/TextEncoding.h"

#include <algorithm>
#include <set>

namespace chipdesc {

namespace {

// Dialog units, as the templates use them.
constexpr int kMargin = 7;
constexpr int kRow = 16;
constexpr int kLabelHeight = 9;
constexpr int kLabelGap = 6;
constexpr int kColumnGap = 8;
constexpr int kReadoutGap = 3;
constexpr int kGroupIndent = 6;
constexpr int kGroupTitle = 11;
constexpr int kGroupBottom = 4;
constexpr int kGroupGap = 4;
constexpr int kSpinWidth = 10;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;

int ControlHeight(Control control) {
    switch (control) {
    case Control::Slider:
        return 14;
    case Control::Check:
        return 10;
    default:
        return 12;
    }
}

std::wstring NumberText(const Field& field, Value value, const LayoutTexts& texts) {
    std::wstring text = std::to_wstring(value);
    if (!field.unit.text.empty())
        text += L" " + ItemText(field.unit, texts);
    return text;
}

class Planner {
public:
    Planner(const Description& description, const LayoutTexts& texts, DialogUnits units)
        : m_description(description), m_texts(texts), m_units(units) {
        for (const Field& field : description.fields) {
            for (const auto* ids :
                 {&field.ids, &field.readoutIds, &field.referenceIds, &field.fractionIds, &field.currentIds})
                m_usedIds.insert(ids->begin(), ids->end());
            m_usedIds.insert(field.labelId);
            m_usedIds.insert(field.currentSwitchId);
        }
        for (const Button& button : description.buttons)
            m_usedIds.insert(button.id);
        for (const int id : SectionIds(description))
            m_usedIds.insert(id);
        m_usedIds.insert(description.page.linkId);
        m_usedIds.insert(description.page.defaultId);
    }

    LayoutPlan Plan();

private:
    int X(int dlu) const { return m_units.X(dlu); }
    int Y(int dlu) const { return m_units.Y(dlu); }
    int Measure(const std::wstring& text) const { return m_texts.measure ? m_texts.measure(text) : 0; }
    std::wstring Translate(const std::string& id) const {
        return m_texts.translate ? m_texts.translate(id) : Utf8ToWide(id);
    }
    int NextId() {
        while (m_usedIds.count(m_nextId))
            ++m_nextId;
        m_usedIds.insert(m_nextId);
        return m_nextId++;
    }
    int ControlWidth(const Field& field) const;
    int ReadoutWidth(const Field& field) const;
    int FormulaWidth(const Field& field) const;
    int CellWidth(const Field& field) const {
        const int cell =
            ControlWidth(field) + (field.readout.empty() ? 0 : X(kReadoutGap) + ReadoutWidth(field));
        return std::max(cell, CurrentCellWidth(field));
    }
    int ReferenceWidth(const Field& field) const;
    int CurrentCellWidth(const Field& field) const;
    // Where the labels and the colours' columns are, as wide as their widest texts.
    struct Columns {
        int labelX = 0;
        int labelWidth = 0;
        int first = 0; // the first column of controls
        int width = 0; // of each colour's column
        int gap = 0;
        int indent = 0;        // of rows in group boxes
        bool coloured = false; // a row has a control per colour
        std::vector<std::wstring> headers;
        int X(int colour) const { return first + colour * (width + gap); }
    };
    struct GroupSpan {
        std::wstring title;
        int top, bottom;
    };
    Columns MeasureColumns(const std::vector<int>& rows) const;
    // The link switch and the colours' names, from y down.
    void AddSwitchAndHeaders(const Columns& columns, int& y);
    // The rows of the fields with controls, from y down, in their group boxes.
    std::vector<GroupSpan> AddRows(const std::vector<int>& rows, const Columns& columns, int& y);
    void AddFieldRow(int row, const Columns& columns, int y);
    // The switch and the three rows of a field's output-current read-out, from y down.
    void AddCurrentRows(int row, const Field& field, const Columns& columns, int& y);
    // The description's buttons from y down, in rows from labelX to right (or a little further).
    void AddPageButtons(int labelX, int right, int& y);
    // Default, OK and Cancel from y down; Cancel ends at right or further.
    void AddButtons(int labelX, int right, int& y);
    // At least the templates' button width, wider where a translation needs it.
    int ButtonWidth(const std::wstring& text) const {
        return std::max(X(kButtonWidth), Measure(text) + X(10));
    }
    int RightEdge() const;
    int IdOr(const std::vector<int>& ids, int colour) {
        return ids.empty() ? NextId() : ids[static_cast<std::size_t>(colour)];
    }
    void Add(Role role, int field, int colour, int id, std::wstring text, Rect rect) {
        m_plan.windows.push_back({role, field, colour, id, std::move(text), rect});
    }

    const Description& m_description;
    const LayoutTexts& m_texts;
    DialogUnits m_units;
    std::set<int> m_usedIds;
    int m_nextId = kFirstAutomaticId;
    LayoutPlan m_plan;
};

int Planner::ControlWidth(const Field& field) const {
    switch (field.control) {
    case Control::Slider:
        return X(100);
    case Control::Check:
        return X(10);
    case Control::Hex: { // a byte's two digits as wide as the register editor's
        const auto digits = static_cast<std::size_t>(HexDigits(field));
        return digits <= 2
                   ? X(20)
                   : std::max(Measure(std::wstring(digits, L'0')), Measure(std::wstring(digits, L'd'))) +
                         X(10);
    }
    case Control::Combo: {
        int widest = 0;
        for (const Item& item : field.items)
            widest = std::max(widest, Measure(ItemText(item, m_texts)));
        return std::max(X(32), widest + X(20));
    }
    case Control::Number: {
        const int widest = std::max(Measure(NumberText(field, field.minimum, m_texts)),
                                    Measure(NumberText(field, field.maximum, m_texts)));
        // Room for the text, the edit's margins and the spin buttons inside it.
        return std::max(X(36), widest + X(8) + X(11));
    }
    case Control::None:
        break;
    }
    return 0;
}

int Planner::ReadoutWidth(const Field& field) const {
    int widest = 0;
    for (const Value value : {field.minimum, field.maximum, (field.minimum + field.maximum) / 2})
        if (const auto text = FormatReadout(field.readout, static_cast<int>(value)))
            widest = std::max(widest, Measure(*text));
    return std::max(widest, FormulaWidth(field)) + X(2);
}

// A formula need not grow with the value (a rate that divides by it): the longest texts it gives over
// the range (every value of a range up to 256 wide), other fields at their lowest and highest.
int Planner::FormulaWidth(const Field& field) const {
    if (!field.formula)
        return 0;
    constexpr std::int64_t kSamples = 256;
    const std::int64_t span = static_cast<std::int64_t>(field.maximum) - field.minimum;
    const std::int64_t step = std::max<std::int64_t>(1, span / kSamples);
    std::set<std::wstring> longest{L"-"};
    std::set<std::wstring> ends; // measured whatever their length, as a routine's are
    for (const bool highest : {false, true}) {
        const FieldValueOf others = [&](int other) {
            const Field& named = m_description.fields[static_cast<std::size_t>(other)];
            return std::optional<std::int64_t>(highest ? named.maximum : named.minimum);
        };
        for (std::int64_t value = field.minimum; value <= field.maximum; value += step) {
            std::wstring text = *ReadoutText(field, value, others);
            if (text.size() > longest.begin()->size())
                longest.clear();
            if (longest.empty() || (text.size() == longest.begin()->size() && longest.size() < 4))
                longest.insert(std::move(text));
        }
        for (const int value : {field.minimum, field.maximum, (field.minimum + field.maximum) / 2})
            ends.insert(*ReadoutText(field, value, others));
    }
    longest.merge(ends);
    int widest = 0;
    for (const std::wstring& text : longest)
        widest = std::max(widest, Measure(text));
    return widest;
}

int Planner::ReferenceWidth(const Field& field) const {
    const std::wstring decimals =
        field.referenceDecimals > 0
            ? L"." + std::wstring(static_cast<std::size_t>(field.referenceDecimals), L'0')
            : std::wstring();
    const int widest = std::max(Measure(std::to_wstring(kReferenceMin) + decimals),
                                Measure(std::to_wstring(kReferenceMax) + decimals));
    return std::max(X(36), widest + X(8) + X(11));
}

int Planner::CurrentCellWidth(const Field& field) const {
    if (field.current.empty())
        return 0;
    int widest = ReferenceWidth(field);
    for (const int reference : {1, kReferenceDefault})
        for (const Value value : {field.minimum, field.maximum})
            if (const auto text = FormatCurrent(field.current, static_cast<int>(value), reference))
                widest = std::max({widest, Measure(text->fraction), Measure(text->current)});
    return widest + X(2);
}

void Planner::AddCurrentRows(int row, const Field& field, const Columns& columns, int& y) {
    const int labelX = columns.labelX;
    const std::wstring switchText = Translate("IDS_ShowOutputCurrent");
    const int switchId = field.currentSwitchId ? field.currentSwitchId : NextId();
    Add(Role::CurrentSwitch, row, -1, switchId, switchText,
        {labelX, y + Y(3), labelX + Measure(switchText) + X(14), y + Y(13)});
    y += Y(kRow);
    const struct {
        const char* label;
        Role role;
        const std::vector<int>& ids;
    } rows[] = {{"IDS_Reference", Role::Reference, field.referenceIds},
                {"IDS_GainFraction", Role::Fraction, field.fractionIds},
                {"IDS_OutputCurrent", Role::Current, field.currentIds}};
    const int cellWidth = CurrentCellWidth(field) - X(2);
    for (const auto& current : rows) {
        Add(Role::Label, row, -1, 0, Translate(current.label),
            {labelX, y + Y(4), labelX + columns.labelWidth, y + Y(4) + Y(kLabelHeight)});
        for (int colour = 0; colour < m_description.page.colourCount; ++colour) {
            const int x = columns.X(colour);
            const int id = IdOr(current.ids, colour);
            if (current.role == Role::Reference) {
                const int top = y + (Y(kRow) - Y(12)) / 2;
                const Rect rect{x, top, x + ReferenceWidth(field) - X(kSpinWidth), top + Y(12)};
                Add(Role::Reference, row, colour, id, {}, rect);
                Add(Role::Spin, row, colour, 0, {},
                    {rect.right, rect.top, rect.right + X(kSpinWidth), rect.bottom});
            } else {
                Add(current.role, row, colour, id, {},
                    {x, y + Y(4), x + cellWidth, y + Y(4) + Y(kLabelHeight)});
            }
        }
        y += Y(kRow);
    }
}

LayoutPlan Planner::Plan() {
    std::vector<int> rows;
    for (std::size_t i = 0; i < m_description.fields.size(); ++i)
        if (m_description.fields[i].control != Control::None)
            rows.push_back(static_cast<int>(i));
    const Columns columns = MeasureColumns(rows);
    int y = Y(kMargin);
    AddSwitchAndHeaders(columns, y);
    const std::vector<GroupSpan> groups = AddRows(rows, columns, y);
    PlanSections(
        m_description, m_texts, m_units, columns.labelX, RightEdge(), y,
        [this](int id) { return id ? id : NextId(); }, m_plan.windows);
    AddPageButtons(columns.labelX, RightEdge(), y);
    AddButtons(columns.labelX, RightEdge(), y);
    // Group boxes go first: behind their rows, and out of the tab order.
    const int boxRight = RightEdge() + columns.indent;
    std::vector<PlannedWindow> boxes;
    for (const GroupSpan& span : groups)
        boxes.push_back(
            {Role::GroupBox, -1, -1, 0, span.title, {X(kMargin), span.top, boxRight, span.bottom}});
    m_plan.windows.insert(m_plan.windows.begin(), boxes.begin(), boxes.end());
    m_plan.width = boxRight + X(kMargin);
    m_plan.height = y + Y(kMargin);
    return std::move(m_plan);
}

Planner::Columns Planner::MeasureColumns(const std::vector<int>& rows) const {
    Columns columns;
    bool grouped = false;
    for (const int row : rows) {
        const Field& field = m_description.fields[static_cast<std::size_t>(row)];
        columns.labelWidth = std::max(columns.labelWidth, Measure(LabelText(field, m_texts)));
        if (!field.current.empty())
            for (const char* label : {"IDS_Reference", "IDS_GainFraction", "IDS_OutputCurrent"})
                columns.labelWidth = std::max(columns.labelWidth, Measure(Translate(label)));
        grouped = grouped || !field.group.text.empty();
        if (field.PerColour()) {
            columns.coloured = true;
            columns.width = std::max(columns.width, CellWidth(field));
        }
    }
    if (columns.coloured)
        for (const Item& label : m_description.page.colourLabels) {
            columns.headers.push_back(ItemText(label, m_texts));
            columns.width = std::max(columns.width, Measure(columns.headers.back()));
        }
    columns.indent = grouped ? X(kGroupIndent) : 0;
    columns.labelX = X(kMargin) + columns.indent;
    columns.first = columns.labelX + columns.labelWidth + X(kLabelGap);
    columns.gap = X(kColumnGap);
    return columns;
}

void Planner::AddSwitchAndHeaders(const Columns& columns, int& y) {
    const Page& page = m_description.page;
    if (!page.link.text.empty()) {
        const std::wstring text = ItemText(page.link, m_texts);
        const int id = page.linkId ? page.linkId : NextId();
        Add(Role::LinkSwitch, -1, -1, id, text,
            {columns.labelX, y + Y(1), columns.labelX + Measure(text) + X(14), y + Y(11)});
        y += Y(14);
    }
    if (columns.coloured) {
        for (int colour = 0; colour < static_cast<int>(columns.headers.size()); ++colour)
            Add(Role::ColourHeader, -1, colour, 0, columns.headers[colour],
                {columns.X(colour), y, columns.X(colour) + columns.width, y + Y(kLabelHeight)});
        y += Y(11);
    }
}

std::vector<Planner::GroupSpan> Planner::AddRows(const std::vector<int>& rows, const Columns& columns,
                                                 int& y) {
    std::vector<GroupSpan> groups;
    Item group;
    std::wstring title;
    auto closeGroup = [&] {
        if (group.text.empty())
            return;
        groups.back().bottom = y + Y(kGroupBottom);
        y += Y(kGroupBottom) + Y(kGroupGap);
        m_plan.bands.back().bottom = y;
    };
    for (const int row : rows) {
        const Field& field = m_description.fields[static_cast<std::size_t>(row)];
        const std::wstring fieldTitle = NumberedText(field.group, field.copyNumber, m_texts);
        if (field.group.text != group.text || field.group.literal != group.literal || fieldTitle != title) {
            closeGroup();
            group = field.group;
            title = fieldTitle;
            if (!group.text.empty()) {
                groups.push_back({title, y, 0});
                m_plan.bands.push_back({y, y});
                y += Y(kGroupTitle);
            }
        }
        if (group.text.empty())
            m_plan.bands.push_back({y, y});
        AddFieldRow(row, columns, y);
        y += Y(kRow);
        if (!field.current.empty())
            AddCurrentRows(row, field, columns, y);
        m_plan.bands.back().bottom = y;
    }
    closeGroup();
    return groups;
}

void Planner::AddFieldRow(int row, const Columns& columns, int y) {
    const Field& field = m_description.fields[static_cast<std::size_t>(row)];
    Add(Role::Label, row, -1, field.labelId, LabelText(field, m_texts),
        {columns.labelX, y + Y(4), columns.labelX + columns.labelWidth, y + Y(4) + Y(kLabelHeight)});
    const int height = Y(ControlHeight(field.control));
    const int controlTop = y + (Y(kRow) - height) / 2;
    const int width = ControlWidth(field);
    for (int colour = 0; colour < field.ControlCount(); ++colour) {
        const int x = field.PerColour() ? columns.X(colour) : columns.first;
        const int id = IdOr(field.ids, colour);
        Rect rect{x, controlTop, x + width, controlTop + height};
        // A value only shown is a box of text: no list, no spin buttons.
        if (field.control == Control::Combo && !field.readOnly) // the drop-down list hangs below the box
            rect.bottom += Y(10) * std::min<int>(static_cast<int>(field.items.size()), 12) + Y(4);
        if (field.control == Control::Number && !field.readOnly) { // the spin buttons take the right end
            rect.right -= X(kSpinWidth);
            Add(Role::Control, row, colour, id, {}, rect);
            Add(Role::Spin, row, colour, 0, {},
                {rect.right, rect.top, rect.right + X(kSpinWidth), rect.bottom});
        } else {
            Add(Role::Control, row, colour, id, {}, rect);
        }
        if (!field.readout.empty()) {
            const int readoutId = IdOr(field.readoutIds, colour);
            const int left = x + width + X(kReadoutGap);
            Add(Role::Readout, row, colour, readoutId, {},
                {left, y + Y(4), left + ReadoutWidth(field), y + Y(4) + Y(kLabelHeight)});
        }
    }
}

void Planner::AddButtons(int labelX, int right, int& y) {
    const Page& page = m_description.page;
    if (!page.defaultButton && !page.okCancel)
        return;
    y += Y(4);
    const int bottom = y + Y(kButtonHeight);
    int left = labelX;
    if (page.defaultButton) {
        const std::wstring text = Translate("IDS_Default");
        const int width = ButtonWidth(text);
        Add(Role::DefaultButton, -1, -1, page.defaultId ? page.defaultId : kDefaultButtonId, text,
            {left, y, left + width, bottom});
        left += width + X(4);
    }
    if (page.okCancel) {
        const std::wstring okText = Translate("IDS_OK");
        const std::wstring cancelText = Translate("IDS_Cancel");
        const int okWidth = ButtonWidth(okText);
        const int cancelWidth = ButtonWidth(cancelText);
        const int cancelRight =
            std::max({right, labelX + 3 * X(kButtonWidth), left + okWidth + X(4) + cancelWidth});
        const int cancelLeft = cancelRight - cancelWidth;
        const int okLeft = cancelLeft - X(4) - okWidth;
        Add(Role::OkButton, -1, -1, kOkButtonId, okText, {okLeft, y, okLeft + okWidth, bottom});
        Add(Role::CancelButton, -1, -1, kCancelButtonId, cancelText, {cancelLeft, y, cancelRight, bottom});
    }
    y = bottom;
}

void Planner::AddPageButtons(int labelX, int right, int& y) {
    const std::vector<Button>& buttons = m_description.buttons;
    if (buttons.empty())
        return;
    right = std::max(right, labelX + 3 * X(kButtonWidth) + 2 * X(4));
    y += Y(4);
    int left = labelX;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const std::wstring text = ItemText(buttons[i].label, m_texts);
        const int width = ButtonWidth(text);
        if (left > labelX && left + width > right) { // on to the next row
            left = labelX;
            y += Y(kButtonHeight) + Y(4);
        }
        Add(Role::PageButton, -1, -1, buttons[i].id ? buttons[i].id : NextId(), text,
            {left, y, left + width, y + Y(kButtonHeight)});
        m_plan.windows.back().button = static_cast<int>(i);
        left += width + X(4);
    }
    y += Y(kButtonHeight);
}

int Planner::RightEdge() const {
    int right = 0;
    for (const PlannedWindow& window : m_plan.windows)
        right = std::max(right, window.rect.right);
    return right;
}

} // namespace

std::wstring ItemText(const Item& item, const LayoutTexts& texts) {
    if (item.literal || !texts.translate)
        return Utf8ToWide(item.text);
    return texts.translate(item.text);
}

std::wstring NumberedText(const Item& item, int number, const LayoutTexts& texts) {
    std::wstring text = ItemText(item, texts);
    if (number > 0)
        for (std::size_t at = text.find(L"{n}"); at != std::wstring::npos; at = text.find(L"{n}", at))
            text.replace(at, 3, std::to_wstring(number));
    return text;
}

std::wstring LabelText(const Field& field, const LayoutTexts& texts) {
    return NumberedText(field.label, field.copyNumber, texts);
}

LayoutPlan PlanLayout(const Description& description, const LayoutTexts& texts, DialogUnits units) {
    return Planner(description, texts, units).Plan();
}

} // namespace chipdesc
