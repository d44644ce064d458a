#include "descriptions/DescriptionLayout.h"

#include "descriptions/DescriptionReadouts.h"
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

std::wstring NumberText(const Field& field, int value, const LayoutTexts& texts) {
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
            for (const int id : field.ids)
                m_usedIds.insert(id);
            for (const int id : field.readoutIds)
                m_usedIds.insert(id);
            m_usedIds.insert(field.labelId);
        }
        m_usedIds.insert(description.page.linkId);
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
    int CellWidth(const Field& field) const {
        return ControlWidth(field) + (field.readout.empty() ? 0 : X(kReadoutGap) + ReadoutWidth(field));
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
    case Control::Hex:
        return X(20);
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
    for (const int value : {field.minimum, field.maximum, (field.minimum + field.maximum) / 2})
        if (const auto text = FormatReadout(field.readout, value))
            widest = std::max(widest, Measure(*text));
    return widest + X(2);
}

LayoutPlan Planner::Plan() {
    const Page& page = m_description.page;
    const std::vector<Field>& fields = m_description.fields;
    std::vector<int> rows;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].control != Control::None)
            rows.push_back(static_cast<int>(i));

    int labelWidth = 0;
    bool colouredRows = false;
    bool grouped = false;
    int columnWidth = 0;
    for (const int row : rows) {
        const Field& field = fields[static_cast<std::size_t>(row)];
        labelWidth = std::max(labelWidth, Measure(ItemText(field.label, m_texts)));
        grouped = grouped || !field.group.text.empty();
        if (field.ControlCount() == kColourCount) {
            colouredRows = true;
            columnWidth = std::max(columnWidth, CellWidth(field));
        }
    }
    std::array<std::wstring, kColourCount> headers;
    if (colouredRows)
        for (int colour = 0; colour < kColourCount; ++colour) {
            headers[colour] = Translate(page.colourLabels[colour]);
            columnWidth = std::max(columnWidth, Measure(headers[colour]));
        }

    const int indent = grouped ? X(kGroupIndent) : 0;
    const int labelX = X(kMargin) + indent;
    const int firstColumn = labelX + labelWidth + X(kLabelGap);
    auto columnX = [&](int colour) { return firstColumn + colour * (columnWidth + X(kColumnGap)); };

    int y = Y(kMargin);
    if (!page.link.empty()) {
        const std::wstring text = Translate(page.link);
        const int id = page.linkId ? page.linkId : NextId();
        Add(Role::LinkSwitch, -1, -1, id, text,
            {labelX, y + Y(1), labelX + Measure(text) + X(14), y + Y(11)});
        y += Y(14);
    }
    if (colouredRows) {
        for (int colour = 0; colour < kColourCount; ++colour)
            Add(Role::ColourHeader, -1, colour, 0, headers[colour],
                {columnX(colour), y, columnX(colour) + columnWidth, y + Y(kLabelHeight)});
        y += Y(11);
    }

    struct GroupSpan {
        std::wstring title;
        int top, bottom;
    };
    std::vector<GroupSpan> groups;
    Item group;
    auto closeGroup = [&] {
        if (group.text.empty())
            return;
        groups.back().bottom = y + Y(kGroupBottom);
        y += Y(kGroupBottom) + Y(kGroupGap);
    };
    for (const int row : rows) {
        const Field& field = fields[static_cast<std::size_t>(row)];
        if (field.group.text != group.text || field.group.literal != group.literal) {
            closeGroup();
            group = field.group;
            if (!group.text.empty()) {
                groups.push_back({ItemText(group, m_texts), y, 0});
                y += Y(kGroupTitle);
            }
        }
        Add(Role::Label, row, -1, field.labelId, ItemText(field.label, m_texts),
            {labelX, y + Y(4), labelX + labelWidth, y + Y(4) + Y(kLabelHeight)});
        const int height = Y(ControlHeight(field.control));
        const int controlTop = y + (Y(kRow) - height) / 2;
        const int width = ControlWidth(field);
        for (int colour = 0; colour < field.ControlCount(); ++colour) {
            const int x = field.ControlCount() == kColourCount ? columnX(colour) : firstColumn;
            const int id = field.ids.empty() ? NextId() : field.ids[static_cast<std::size_t>(colour)];
            Rect rect{x, controlTop, x + width, controlTop + height};
            if (field.control == Control::Combo) // the drop-down list hangs below the box
                rect.bottom += Y(10) * std::min<int>(static_cast<int>(field.items.size()), 12) + Y(4);
            Add(Role::Control, row, colour, id, {}, rect);
            if (!field.readout.empty()) {
                const int readoutId =
                    field.readoutIds.empty() ? NextId() : field.readoutIds[static_cast<std::size_t>(colour)];
                const int left = x + width + X(kReadoutGap);
                Add(Role::Readout, row, colour, readoutId, {},
                    {left, y + Y(4), left + ReadoutWidth(field), y + Y(4) + Y(kLabelHeight)});
            }
        }
        y += Y(kRow);
    }
    closeGroup();

    int right = 0;
    for (const PlannedWindow& window : m_plan.windows)
        right = std::max(right, window.rect.right);
    if (page.defaultButton || page.okCancel) {
        y += Y(4);
        const int bottom = y + Y(kButtonHeight);
        if (page.defaultButton)
            Add(Role::DefaultButton, -1, -1, kDefaultButtonId, Translate("IDS_Default"),
                {labelX, y, labelX + X(kButtonWidth), bottom});
        if (page.okCancel) {
            const int cancelLeft = std::max(right, labelX + 3 * X(kButtonWidth)) - X(kButtonWidth);
            const int okLeft = cancelLeft - X(4) - X(kButtonWidth);
            Add(Role::OkButton, -1, -1, kOkButtonId, Translate("IDS_OK"),
                {okLeft, y, okLeft + X(kButtonWidth), bottom});
            Add(Role::CancelButton, -1, -1, kCancelButtonId, Translate("IDS_Cancel"),
                {cancelLeft, y, cancelLeft + X(kButtonWidth), bottom});
        }
        y = bottom;
        for (const PlannedWindow& window : m_plan.windows)
            right = std::max(right, window.rect.right);
    }

    // Group boxes go first: behind their rows, and out of the tab order.
    std::vector<PlannedWindow> boxes;
    for (const GroupSpan& span : groups)
        boxes.push_back(
            {Role::GroupBox, -1, -1, 0, span.title, {X(kMargin), span.top, right + indent, span.bottom}});
    m_plan.windows.insert(m_plan.windows.begin(), boxes.begin(), boxes.end());
    m_plan.width = right + indent + X(kMargin);
    m_plan.height = y + Y(kMargin);
    return std::move(m_plan);
}

} // namespace

std::wstring ItemText(const Item& item, const LayoutTexts& texts) {
    if (item.literal || !texts.translate)
        return Utf8ToWide(item.text);
    return texts.translate(item.text);
}

LayoutPlan PlanLayout(const Description& description, const LayoutTexts& texts, DialogUnits units) {
    return Planner(description, texts, units).Plan();
}

} // namespace chipdesc
