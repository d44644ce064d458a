// A described page's register text (shown, copied, pasted back) and its tables (loaded from a file,
// packed and handed to a chip function).
#include "dialogs/described/DescribedPage.h"

#include "descriptions/PackedTable.h"
#include "descriptions/RegisterText.h"
#include "descriptions/SectionLayout.h"
#include "dialogs/common/ChipTables.h"
#include "framework/ModuleInstance.h"
#include "framework/StdioFileEx.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/ParamFileDialog.h"

#include <cstdio>
#include <cstring>

using namespace chipdesc;

namespace {

constexpr wchar_t kTableFilter[] = L"(*.txt)|*.txt|All Files (*.*)|*.*||";

std::wstring ClipboardText(HWND owner) {
    std::wstring text;
    if (!::IsClipboardFormatAvailable(CF_UNICODETEXT) || !::OpenClipboard(owner))
        return text;
    if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT))
        if (const auto* chars = static_cast<const wchar_t*>(::GlobalLock(data))) {
            // No more than a pasted text may hold: the parser refuses a longer one anyway.
            text.assign(chars, wcsnlen(chars, kMaxPastedBytes + 1));
            ::GlobalUnlock(data);
        }
    ::CloseClipboard();
    return text;
}

void SetClipboardText(HWND owner, const std::wstring& text) {
    if (!::OpenClipboard(owner))
        return;
    ::EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    if (HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes)) {
        if (void* target = ::GlobalLock(memory)) {
            std::memcpy(target, text.c_str(), bytes);
            ::GlobalUnlock(memory);
        }
        if (!::SetClipboardData(CF_UNICODETEXT, memory))
            ::GlobalFree(memory);
    }
    ::CloseClipboard();
}

// At most one byte more than a table file may have, so that the parser can say it is too large.
bool ReadTableFile(const std::wstring& path, std::string& text) {
    std::FILE* file = OpenFileWide(path, L"rb");
    if (!file)
        return false;
    text.resize(kMaxTableFileBytes + 1);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    return !failed;
}

std::wstring PasteProblemText(const PasteProblem& problem, std::string_view className) {
    static constexpr const wchar_t* kIds[] = {L"IDS_RegisterText_NoText", L"IDS_RegisterText_OtherClass",
                                              L"IDS_RegisterText_BadLine", L"IDS_RegisterText_NotOfPage"};
    std::wstring text = Tr(kIds[static_cast<std::size_t>(problem.error)]);
    text = ReplaceAll(std::move(text), L"{line}", std::to_wstring(problem.line));
    text = ReplaceAll(std::move(text), L"{text}", Utf8ToWide(problem.detail));
    return ReplaceAll(std::move(text), L"{class}", Utf8ToWide(className));
}

std::wstring TableProblemText(const TableProblem& problem, const TableSpec& table) {
    static constexpr const wchar_t* kReasons[] = {L"IDS_TableError_TooLarge", L"IDS_TableError_NotANumber",
                                                  L"IDS_TableError_OutOfRange", L"IDS_TableError_Count"};
    const std::wstring count =
        table.minimumCount == table.maximumCount
            ? std::to_wstring(table.maximumCount)
            : std::to_wstring(table.minimumCount) + L".." + std::to_wstring(table.maximumCount);
    std::wstring reason = Tr(kReasons[static_cast<std::size_t>(problem.error)]);
    reason = ReplaceAll(std::move(reason), L"{detail}", Utf8ToWide(problem.detail));
    reason = ReplaceAll(std::move(reason), L"{count}", count);
    reason = ReplaceAll(std::move(reason), L"{bits}", std::to_wstring(table.valueBits));
    std::wstring text = ReplaceAll(Tr(L"IDS_Table_BadFile"), L"{line}", std::to_wstring(problem.line));
    return ReplaceAll(std::move(text), L"{reason}", reason);
}

} // namespace

bool CDescribedPage::NoteSectionWindow(const PlannedWindow& planned, HWND window) {
    switch (planned.role) {
    case Role::RegisterText:
        m_registerText = window;
        // A scroll bar only where the layout gave the lines one.
        if (TextRegisters(*m_description).size() + 1 > static_cast<std::size_t>(kRegisterTextLines))
            ::ShowScrollBar(window, SB_VERT, TRUE);
        return true;
    case Role::CopyButton:
        m_copyId = planned.id;
        return true;
    case Role::PasteButton:
        m_pasteId = planned.id;
        return true;
    case Role::TableButton:
        m_tableIds.resize(std::max(m_tableIds.size(), static_cast<std::size_t>(planned.button) + 1));
        m_tableIds[static_cast<std::size_t>(planned.button)] = planned.id;
        return true;
    default:
        return planned.role == Role::Label && planned.button >= 0;
    }
}

void CDescribedPage::UpdateRegisterText() {
    if (!m_registerText)
        return;
    std::array<Bytes, kSourceCount> records{};
    for (const Source source : TextRecords(*m_description))
        records[static_cast<std::size_t>(source)] = ReadSource(source);
    const std::wstring text = Utf8ToWide(FormatRegisterText(*m_description, [&](Source source) {
        return std::span<const std::uint8_t>(records[static_cast<std::size_t>(source)])
            .first(SourceBytes(source));
    }));
    // Set only when it changed: the operator's selection and scroll position stay.
    if (CWnd(m_registerText).GetWindowText() != text)
        ::SetWindowTextW(m_registerText, text.c_str());
}

void CDescribedPage::CopyRegisterText() {
    SetClipboardText(m_hWnd, CWnd(m_registerText).GetWindowText());
}

void CDescribedPage::PasteRegisterText() {
    if (!CanWrite())
        return;
    const PasteResult pasted = ParseRegisterText(*m_description, WideToUtf8(ClipboardText(m_hWnd)));
    if (const auto* problem = std::get_if<PasteProblem>(&pasted)) {
        MsgBox(m_hWnd, PasteProblemText(*problem, m_description->page.className), ApplicationName(),
               MB_OK | MB_ICONWARNING);
        return;
    }
    // A change of each record the text holds, as a control's change is: read, patch, write (with the
    // records the chip wants handed back), change test.
    for (const PastedRecord& record : std::get<std::vector<PastedRecord>>(pasted)) {
        Bytes bytes = ReadSource(record.source);
        for (const auto& [address, value] : record.bytes)
            bytes[address] = value;
        std::vector<std::pair<Source, Bytes>> carried;
        for (const Source source : m_description->page.carry)
            if (source != record.source)
                carried.emplace_back(source, ReadSource(source));
        WriteSource(record.source, bytes);
        for (auto& [source, carriedBytes] : carried)
            WriteSource(source, carriedBytes);
        ReportChange();
    }
    RefreshFromChip();
}

void CDescribedPage::LoadTable(std::size_t index) {
    const TableSpec& table = m_description->page.tables[index];
    std::wstring path;
    if (!Chip() || !AskOpenPath(m_hWnd, kTableFilter, L"txt", path))
        return;
    std::string text;
    if (!ReadTableFile(path, text)) {
        MsgBox(m_hWnd, Tr(L"IDS_Table_Unreadable"), ApplicationName(), MB_OK | MB_ICONWARNING);
        return;
    }
    const TableOutcome outcome = SendTable(*Chip(), table, text);
    std::wstring message;
    UINT icon = MB_ICONWARNING;
    switch (outcome.kind) {
    case TableOutcome::Kind::BadFile:
        message = TableProblemText(outcome.problem, table);
        break;
    case TableOutcome::Kind::TooLarge:
        message = ReplaceAll(Tr(L"IDS_Table_TooLarge"), L"{size}", std::to_wstring(outcome.packedBytes));
        message = ReplaceAll(std::move(message), L"{limit}", std::to_wstring(kMaxPackedBytes));
        break;
    case TableOutcome::Kind::NotOffered:
        message = Tr(L"IDS_Table_NotOffered");
        break;
    case TableOutcome::Kind::Failed:
        message = Tr(L"IDS_Table_Failed");
        break;
    case TableOutcome::Kind::Sent:
        message = ReplaceAll(Tr(L"IDS_Table_Sent"), L"{size}", std::to_wstring(outcome.packedBytes));
        icon = MB_ICONINFORMATION;
        break;
    }
    MsgBox(m_hWnd, message, ApplicationName(), MB_OK | icon);
}

bool CDescribedPage::OnSectionCommand(UINT code, UINT id) {
    if (code != BN_CLICKED || id == 0)
        return false;
    if (m_registerText && id == static_cast<UINT>(m_copyId)) {
        CopyRegisterText();
        return true;
    }
    if (m_registerText && id == static_cast<UINT>(m_pasteId)) {
        PasteRegisterText();
        return true;
    }
    for (std::size_t i = 0; i < m_tableIds.size(); ++i)
        if (id == static_cast<UINT>(m_tableIds[i])) {
            LoadTable(i);
            return true;
        }
    return false;
}
