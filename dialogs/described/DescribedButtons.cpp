// The description's buttons on the page: another page of the host, the chip read again, the
// defaults, the page class's parameter file, and the host's chip functions.
#include "dialogs/common/ChipFunctions.h"
#include "dialogs/common/HostRecords.h"
#include "dialogs/described/DescribedPage.h"
#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/ParamFileDialog.h"

#include <algorithm>

using namespace chipdesc;

std::unique_ptr<RegisterParamTable> CDescribedPage::ParamTableFor(const chipdesc::Description& description,
                                                                  IRegvane* chip) {
    const bool usesFile =
        std::any_of(description.buttons.begin(), description.buttons.end(),
                    [](const Button& b) { return b.action == Action::Export || b.action == Action::Import; });
    const std::optional<ParamTableKind> kind = ParamTableKindOf(description.page.className);
    return usesFile && kind ? MakeParamTable(*kind, chip) : nullptr;
}

bool CDescribedPage::ChipDiffersFromSnapshot() {
    // Both are read, whatever differs first: the host sees the same calls whatever changed.
    const bool records = CChipDialog::ChipDiffersFromSnapshot();
    const bool table = m_paramTable && m_paramTable->DiffersFromSnapshot();
    return records || table;
}

void CDescribedPage::RestoreSnapshot() {
    if (m_paramTable)
        m_paramTable->RestoreSnapshot();
    RestoreRecords();
}

bool CDescribedPage::OnPageButton(UINT id) {
    const auto found = std::find_if(m_buttonIds.begin(), m_buttonIds.end(), [id](const auto& button) {
        return button.first == static_cast<int>(id);
    });
    if (found == m_buttonIds.end())
        return false;
    const Button& button = m_description->buttons[static_cast<std::size_t>(found->second)];
    switch (button.action) {
    case Action::GoToPage:
        RequestHostPage(button.page);
        break;
    case Action::Reread:
        RefreshFromChip();
        break;
    case Action::Defaults:
        WriteDefaults();
        break;
    case Action::Export:
        ExportAsked(*this, found->first, m_paramTable.get());
        break;
    case Action::Import:
        if (ImportAsked(*this, found->first, *ParamTableKindOf(m_description->page.className),
                        m_paramTable.get(), [this] { ReportChange(); }))
            RefreshFromChip();
        break;
    case Action::Function:
        CallChipFunction(button);
        break;
    }
    return true;
}

void CDescribedPage::CallChipFunction(const Button& button) {
    if (!CanWrite())
        return;
    Bytes record{};
    std::intptr_t argument = 0;
    if (button.argument == Argument::Value) {
        const Field& field = m_description->fields[static_cast<std::size_t>(button.field)];
        argument = IsHostValue(field.source) ? ReadHostValue(*Chip(), field.source)
                                             : ReadValue(field, ReadSource(field.source), 0);
    } else if (button.argument == Argument::Record) {
        record = ReadSource(button.record);
        argument = reinterpret_cast<std::intptr_t>(record.data());
    }
    switch (::CallChipFunction(*Chip(), button.table, static_cast<std::size_t>(button.entry), argument)) {
    case ChipFunctionResult::Done:
        // The function may have changed what the chip holds.
        SendChipState(*Chip());
        RefreshFromChip();
        break;
    case ChipFunctionResult::NotOffered:
        MsgBox(m_hWnd, Tr(L"IDS_ChipFunction_NotOffered"), ApplicationName(), MB_ICONINFORMATION);
        break;
    case ChipFunctionResult::Failed:
        MsgBox(m_hWnd, Tr(L"IDS_ChipFunction_Failed"), ApplicationName(), MB_ICONERROR);
        break;
    }
}
