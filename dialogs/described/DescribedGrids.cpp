// The description's grids on the page: a list per grid whose cells show the record as last read or
// written, and whose edits each run the cycle of the cell's own field.
#include "descriptions/DescriptionGrids.h"
#include "dialogs/described/DescribedPage.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "framework/VirtualGrid.h"
#include "module/ModuleState.h"

using namespace chipdesc;

struct CDescribedPage::ShownGrid {
    ShownGrid(const Grid& grid, std::wstring rowNames, CVirtualList::CellText cellText,
              CVirtualGrid::CommitCell commit)
        : grid(grid), rowNames(std::move(rowNames)), list(std::move(cellText), std::move(commit)) {}

    const Grid& grid;
    std::wstring rowNames;
    Bytes record{}; // as last read or written
    CVirtualGrid list;
};

void CDescribedPage::AddGrid(const PlannedWindow& planned, HWND window, const std::vector<int>& widths) {
    const Grid& grid = m_description->grids[static_cast<std::size_t>(planned.grid)];
    const std::size_t at = m_grids.size();
    auto cellOf = [this, at](int row, int column) -> std::pair<int, const Field&> {
        const int index = m_grids[at]->grid.Cell(row, column - 1);
        return {index, m_description->fields[static_cast<std::size_t>(index)]};
    };
    auto cellText = [this, at, cellOf](int row, int column, std::wstring& text) {
        const ShownGrid& shown = *m_grids[at];
        if (column == 0)
            text = RowName(shown.grid, shown.rowNames, row);
        else
            text = ValueText(cellOf(row, column).second,
                             ReadValue(cellOf(row, column).second, shown.record, 0), TranslatedLayoutTexts());
    };
    auto commit = [this, cellOf](int row, int column, const std::wstring& typed) -> CVirtualGrid::Verdict {
        const auto [index, cell] = cellOf(row, column);
        int value = 0;
        if (!ParseCell(cell, typed, value) || value < cell.minimum || value > cell.maximum) {
            std::wstring reason = Tr(L"IDS_Grid_Range");
            for (const auto& [mark, limit] : {std::pair{L"{min}", cell.minimum}, {L"{max}", cell.maximum}})
                if (const std::size_t place = reason.find(mark); place != std::wstring::npos)
                    reason.replace(place, 5, ValueText(cell, limit, TranslatedLayoutTexts()));
            return {false, reason};
        }
        if (CanWrite())
            ChangeField(index, {value, value, value}, {true, false, false});
        return {true, {}};
    };
    m_grids.push_back(std::make_shared<ShownGrid>(grid, ItemText(grid.rowNames, TranslatedLayoutTexts()),
                                                  cellText, commit));
    CVirtualGrid& list = m_grids.back()->list;
    list.Attach(window, 1);
    std::vector<CVirtualList::Column> columns{{L"", widths[0]}};
    for (int column = 0; column < grid.columns; ++column)
        columns.push_back(
            {ItemText(m_description->fields[static_cast<std::size_t>(grid.Cell(0, column))].label,
                      TranslatedLayoutTexts()),
             widths[static_cast<std::size_t>(column + 1)]});
    list.List().AddColumns(columns);
    list.List().SetRowCount(grid.rows);
}

void CDescribedPage::ShowGrids(const std::array<Bytes, kSourceCount>& records,
                               const std::array<bool, kSourceCount>& read) {
    for (const std::shared_ptr<ShownGrid>& shown : m_grids)
        if (read[static_cast<std::size_t>(shown->grid.source)]) {
            shown->record = records[static_cast<std::size_t>(shown->grid.source)];
            shown->list.List().Refresh();
        }
}

bool CDescribedPage::OnNotify(NMHDR* header, LRESULT& result) {
    for (const std::shared_ptr<ShownGrid>& shown : m_grids)
        if (shown->list.OnNotify(header, result))
            return true;
    return CChipDialog::OnNotify(header, result);
}
