// Grids: the section, the fields that are its columns, and the field per cell that replaces each.
#include "descriptions/DescriptionGrids.h"

#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>

namespace chipdesc {

namespace {

// The %d a name takes: 1, 2, or -1 for another % sequence.
int NumbersIn(std::string_view pattern) {
    int numbers = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%')
            continue;
        if (i + 1 < pattern.size() && (pattern[i + 1] == 'd' || pattern[i + 1] == '%')) {
            numbers += pattern[++i] == 'd';
            continue;
        }
        return -1;
    }
    return numbers;
}

} // namespace

std::wstring RowName(const Grid& grid, std::wstring_view pattern, int row) {
    const bool grouped = grid.perGroup > 0 && std::count(pattern.begin(), pattern.end(), L'%') >= 2;
    int numbers[2] = {grouped ? row / grid.perGroup + grid.first : row + grid.first,
                      grouped ? row % grid.perGroup + grid.first : row + grid.first};
    std::wstring name;
    int next = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == L'%' && i + 1 < pattern.size() && pattern[i + 1] == L'd') {
            name += std::to_wstring(numbers[std::min(next++, 1)]);
            ++i;
        } else if (pattern[i] == L'%' && i + 1 < pattern.size() && pattern[i + 1] == L'%') {
            name += L'%';
            ++i;
        } else {
            name += pattern[i];
        }
    }
    return name;
}

bool ParseCell(const Field& cell, std::wstring_view typed, int& value) {
    while (!typed.empty() && typed.front() == L' ')
        typed.remove_prefix(1);
    while (!typed.empty() && typed.back() == L' ')
        typed.remove_suffix(1);
    const bool hex = cell.control == Control::Hex;
    if (hex && typed.size() > 2 && typed[0] == L'0' && (typed[1] == L'x' || typed[1] == L'X'))
        typed.remove_prefix(2);
    const bool negative = !hex && !typed.empty() && typed.front() == L'-';
    if (negative)
        typed.remove_prefix(1);
    if (typed.empty() || typed.size() > 8)
        return false;
    long long parsed = 0;
    for (const wchar_t c : typed) {
        int digit = -1;
        if (c >= L'0' && c <= L'9')
            digit = c - L'0';
        else if (hex && c >= L'a' && c <= L'f')
            digit = c - L'a' + 10;
        else if (hex && c >= L'A' && c <= L'F')
            digit = c - L'A' + 10;
        if (digit < 0)
            return false;
        parsed = parsed * (hex ? 16 : 10) + digit;
    }
    value = static_cast<int>(negative ? -parsed : parsed);
    return true;
}

void PlanGrids(const Description& description, const LayoutTexts& texts, DialogUnits units, int x, int& y,
               LayoutPlan& plan, const std::function<int()>& nextId) {
    auto measure = [&](const std::wstring& text) { return texts.measure ? texts.measure(text) : 0; };
    const int padding = units.X(10);
    for (std::size_t index = 0; index < description.grids.size(); ++index) {
        const Grid& grid = description.grids[index];
        const auto gridIndex = static_cast<int>(index);
        const int top = y;
        if (!grid.label.text.empty()) {
            plan.windows.push_back({Role::Label, -1, -1, 0, ItemText(grid.label, texts),
                                    {x, y, x + measure(ItemText(grid.label, texts)), y + units.Y(9)}});
            plan.windows.back().grid = gridIndex;
            y += units.Y(11);
        }
        // The rows' names grow with their numbers: the first and the last are the widest.
        const std::wstring pattern = ItemText(grid.rowNames, texts);
        std::vector<int> widths{std::max(measure(RowName(grid, pattern, 0)),
                                         measure(RowName(grid, pattern, grid.rows - 1))) +
                                padding};
        for (int column = 0; column < grid.columns; ++column) {
            const Field& cell = description.fields[static_cast<std::size_t>(grid.Cell(0, column))];
            int width = measure(ItemText(cell.label, texts));
            for (const int value : {cell.minimum, cell.maximum})
                width = std::max(width, measure(ValueText(cell, value, texts)));
            widths.push_back(width + padding);
        }
        int width = units.X(14) + 4; // the scroll bar and the borders
        for (const int column : widths)
            width += column;
        const int rowHeight = units.Y(9);
        const int height = units.Y(11) + std::min(grid.rows, kGridVisibleRows) * rowHeight + 4;
        PlannedWindow list{Role::Grid, -1, -1, grid.id ? grid.id : nextId(), L"", {x, y, x + width, y + height}};
        list.grid = gridIndex;
        plan.windows.push_back(std::move(list));
        plan.gridColumns.push_back(std::move(widths));
        y += height + units.Y(6);
        plan.bands.push_back({top, y}); // a grid flows into another column whole, with its label
    }
}

namespace detail {

bool Parser::GridHeader(int number, std::string_view name) {
    if (!IsName(name))
        return Fail(number, ErrorCode::BadValue, name);
    if (std::any_of(m_grids.begin(), m_grids.end(), [&](const GridDraft& g) { return g.grid.name == name; }))
        return Fail(number, ErrorCode::DuplicateName, name);
    GridDraft draft;
    draft.grid.name = std::string(name);
    draft.grid.line = number;
    m_grids.push_back(std::move(draft));
    m_section = Section::Grid;
    return true;
}

// Each column takes its grid's record; each grid says how it repeats and how its rows are named.
bool Parser::AssignGridColumns() {
    for (GridDraft& draft : m_grids)
        draft.broken = draft.broken || !CheckGrid(draft);
    for (FieldDraft& draft : m_drafts) {
        if (draft.gridName.empty() || draft.broken)
            continue;
        const auto grid = std::find_if(m_grids.begin(), m_grids.end(),
                                       [&](const GridDraft& g) { return g.grid.name == draft.gridName; });
        if (grid == m_grids.end())
            draft.broken = !Fail(draft.LineOf("grid"), ErrorCode::BadValue, draft.gridName);
        else // the column of a refused grid is refused with it
            draft.broken = grid->broken || !CheckGridColumn(draft, *grid);
    }
    return true;
}

bool Parser::CheckGrid(const GridDraft& draft) {
    const Grid& grid = draft.grid;
    if (!draft.keyLines.count("rows"))
        return Fail(grid.line, ErrorCode::MissingKey, "rows");
    if (!draft.keyLines.count("row-names"))
        return Fail(grid.line, ErrorCode::MissingKey, "row-names");
    if (IsHostValue(grid.source))
        return Fail(draft.LineOf("record"), ErrorCode::BadValue, SourceName(grid.source));
    const int numbers = grid.rowNames.literal ? NumbersIn(grid.rowNames.text) : 1;
    if (numbers < 0 || numbers > 2)
        return Fail(draft.LineOf("row-names"), ErrorCode::BadValue, grid.rowNames.text);
    if (numbers == 2 && grid.perGroup == 0)
        return Fail(draft.LineOf("row-names"), ErrorCode::MissingKey, "per");
    if (grid.byteStep == 0 && grid.bitStep == 0 && grid.rows > 1)
        return Fail(draft.LineOf("step"), ErrorCode::MissingKey, "step");
    return true;
}

// A column holds one plain number per cell, edited in the grid.
bool Parser::CheckGridColumn(FieldDraft& draft, const GridDraft& grid) {
    Field& field = draft.field;
    if (draft.Has("record") && field.source != grid.grid.source)
        return Fail(draft.LineOf("record"), ErrorCode::BadValue, SourceName(field.source));
    field.source = grid.grid.source;
    if (field.control != Control::Number && field.control != Control::Hex)
        return Fail(draft.LineOf("control"), ErrorCode::BadValue, "control");
    for (const char* key : {"colours", "stride", "readout", "current", "on-fill", "show-if", "ids",
                            "label-id", "group", "host-range", "access", "unit", "step", "repeat"})
        if (draft.Has(key))
            return Fail(draft.LineOf(key), ErrorCode::BadValue, key);
    return true;
}

// Every column becomes a field per row, its bits moved by the grid's step; a row's bits must stay in
// the record and each run within its byte.
bool Parser::ExpandGrids() {
    std::vector<FieldDraft> cells;
    for (GridDraft& draft : m_grids) {
        const std::size_t before = cells.size();
        // A grid with a column refused is refused with it.
        if (draft.broken ||
            std::any_of(m_drafts.begin(), m_drafts.end(),
                        [&](const FieldDraft& d) { return d.gridName == draft.grid.name && d.broken; }) ||
            !ExpandGrid(draft, cells)) {
            draft.broken = true;
            draft.grid.cells.clear();
            cells.resize(before);
        }
    }
    // The columns leave; their cells come after the other fields, grid by grid, row by row.
    const auto columnCount = static_cast<int>(std::count_if(
        m_drafts.begin(), m_drafts.end(), [](const FieldDraft& d) { return !d.gridName.empty(); }));
    std::erase_if(m_drafts, [](const FieldDraft& d) { return !d.gridName.empty(); });
    for (GridDraft& draft : m_grids) {
        for (int& cell : draft.grid.cells)
            cell -= columnCount;
        m_description.grids.push_back(draft.grid);
    }
    for (FieldDraft& cell : cells)
        m_drafts.push_back(std::move(cell));
    return true;
}

bool Parser::ExpandGrid(GridDraft& draft, std::vector<FieldDraft>& cells) {
    Grid& grid = draft.grid;
    std::vector<const FieldDraft*> columns;
    for (const FieldDraft& field : m_drafts)
        if (field.gridName == grid.name)
            columns.push_back(&field);
    if (columns.empty()) { // not told when a refused field may have been one
        if (!AnyFieldBroken())
            Fail(grid.line, ErrorCode::MissingKey, "grid = " + grid.name);
        return false;
    }
    grid.columns = static_cast<int>(columns.size());
    const std::size_t bytes = SourceBytes(grid.source);
    // More cells than the record has bits cannot all fit; said before making them.
    if (static_cast<std::size_t>(grid.rows) * columns.size() > bytes * 8)
        return Fail(draft.LineOf("rows"), ErrorCode::OutOfRange,
                    std::to_string(grid.rows) + " x " + std::to_string(columns.size()));
    for (int row = 0; row < grid.rows; ++row) {
        const int shift = row * (grid.byteStep * 8 + grid.bitStep);
        for (const FieldDraft* column : columns) {
            FieldDraft cell = *column;
            cell.field.name += "." + std::to_string(row);
            cell.field.grid = static_cast<int>(&draft - m_grids.data());
            for (BitRun& run : cell.field.positions[0].runs)
                for (BitCopy& copy : run.copies) {
                    const int bit = copy.byte * 8 + copy.lsb + shift;
                    copy.byte = static_cast<std::uint16_t>(bit / 8);
                    copy.lsb = static_cast<std::uint8_t>(bit % 8);
                    if (copy.byte >= bytes)
                        return Fail(draft.LineOf("rows"), ErrorCode::OutsideRecord,
                                    std::to_string(copy.byte) + " (" + cell.field.name + ", " +
                                        std::string(SourceName(grid.source)) + ", " + std::to_string(bytes) +
                                        " bytes)");
                    if (copy.lsb + run.width > 8)
                        return Fail(draft.LineOf("bit-step"), ErrorCode::BadBits,
                                    cell.field.name + " " + std::to_string(copy.byte) + "[" +
                                        std::to_string(copy.lsb + run.width - 1) + ":" +
                                        std::to_string(copy.lsb) + "]");
                }
            grid.cells.push_back(static_cast<int>(m_drafts.size() + cells.size()));
            cells.push_back(std::move(cell));
        }
    }
    return true;
}

} // namespace detail

} // namespace chipdesc
