#include "workbench/PageSession.h"

#include "workbench/ChipCatalog.h"
#include "workbench/ChipPresets.h"
#include "workbench/ChipSaveFile.h"
#include "workbench/Win32Text.h"

#include "descriptions/ChipDescription.h"

#include <algorithm>
#include <cstdio>

namespace {

// The page class a description file names; empty when the file does not parse.
std::string DescribedClass(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    std::string text(chipdesc::kMaxDescriptionBytes, '\0');
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
    CloseHandle(file);
    text.resize(read);
    const chipdesc::ParseResult parsed = chipdesc::Parse(text, {});
    const auto* description = std::get_if<chipdesc::Description>(&parsed);
    return description ? description->page.className : std::string();
}

// What the module says of a description, a problem a line.
std::vector<std::string> ProblemLines(const std::wstring& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        lines.push_back(Utf8(std::wstring_view(text).substr(start, end - start)));
        start = end + 1;
    }
    return lines;
}

} // namespace

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

PageSession::PageSession(HostModule& module, SimulatedHostCallback& callback)
    : m_module(module), m_callback(callback), m_callbackLogRead(callback.log.size()) {}

PageSession::~PageSession() {
    Close();
}

void PageSession::SetUpChip(int chipType, int subType, const ChipStore* store, bool reset, Opened& opened) {
    Close();
    CollectCalls();
    m_chip = std::make_unique<SimulatedChip>();
    m_chipLogRead = 0;
    SetUpSimulatedChip(*m_chip, chipType, subType);
    m_chip->OfferChipFunctions();
    m_pageType = chipType;
    m_pageSubType = subType;
    m_store = store;
    if (store && !reset) {
        const ChipStore::Loaded loaded = store->Load(*m_chip, chipType, subType);
        opened.fromFile = loaded.fromFile;
        opened.warning = loaded.warning;
        if (!loaded.warning.empty())
            Note("warning: " + loaded.warning);
    }
    m_savedText = FormatChipSaveFile(*m_chip);
    m_now = m_beforeLastChange = TakeSnapshot(*m_chip);
    ++m_changeCount;
}

void PageSession::ShowPage() {
    if (!m_page)
        return;
    SetWindowPos(m_page, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(m_page, SW_SHOW);
}

PageSession::Opened PageSession::Open(int chipType, int subType, HWND view, const ChipStore* store,
                                      bool reset, int registerKind) {
    Opened opened;
    SetUpChip(chipType, subType, store, reset, opened);
    if (registerKind)
        m_chip->registerKind = registerKind;
    m_page = m_module.CreateRegvaneHwnd(chipType, m_chip.get(), caption.c_str(), view);
    opened.hasPage = m_page != nullptr;
    ShowPage();
    return opened;
}

PageSession::Opened PageSession::OpenDescription(const std::wstring& path, HWND view, const ChipStore* store,
                                                 bool reset, std::vector<std::string>& problems) {
    Opened opened;
    if (!m_module.RegvaneCheckDescription || !m_module.RegvaneCreateDescribedPage) {
        problems = {"this regvane.dll has no chip-description designer"};
        return opened;
    }
    std::wstring text(kProblemChars, L'\0');
    if (m_module.RegvaneCheckDescription(path.c_str(), text.data(), kProblemChars) != 0) {
        problems = ProblemLines(text.c_str());
        opened.hasPage = m_page != nullptr;
        return opened;
    }
    const std::string className = DescribedClass(path);
    const CatalogEntry* entry = nullptr;
    for (const CatalogEntry& row : ChipCatalog())
        if (!entry && row.className == className)
            entry = &row;
    if (m_chip && !reset && className == m_describedClass) {
        // The same page class drawn again: the chip keeps its bytes.
        if (m_page && IsWindow(m_page))
            DestroyWindow(m_page);
        m_page = nullptr;
        AfterChange();
    } else {
        SetUpChip(entry ? entry->chipType : 0, entry ? entry->subType : 0, entry ? store : nullptr, reset,
                  opened);
        m_chip->OfferDesignerFunctions();
        m_describedClass = className;
    }
    m_page = m_module.RegvaneCreateDescribedPage(path.c_str(), m_chip.get(), caption.c_str(), view,
                                                 text.data(), kProblemChars);
    problems = ProblemLines(text.c_str());
    opened.hasPage = m_page != nullptr;
    ShowPage();
    return opened;
}

void PageSession::Close() {
    if (m_page && IsWindow(m_page))
        DestroyWindow(m_page);
    m_page = nullptr;
    if (m_chip) {
        AfterChange(); // a page may write its chip while it closes
        CollectCalls();
    }
    m_chip.reset();
    m_store = nullptr;
    m_describedClass.clear();
}

std::string PageSession::PageClass() const {
    if (m_page && m_module.RegvaneDialogClassName)
        if (const char* name = m_module.RegvaneDialogClassName(m_page))
            return name;
    return m_chip ? PageClassFor(m_pageType, m_pageSubType) : "";
}

std::string PageSession::ChipDescription() const {
    if (!m_chip)
        return "";
    if (m_pageType <= 0xFFFF)
        return m_chip->modelName;
    if (!m_chip->chipType)
        return m_chip->modelName + ", no numbered chip type";
    std::string text = m_chip->modelName + " of chip type " + ChipTypeLabel(m_chip->chipType);
    if (m_chip->chipSubType) {
        text += '/';
        text += std::to_string(m_chip->chipSubType);
    }
    return text;
}

void PageSession::CollectCalls() {
    if (m_chip) {
        for (; m_chipLogRead < m_chip->log.size(); ++m_chipLogRead)
            m_pending.push_back(m_chip->log[m_chipLogRead].ToString());
    }
    for (; m_callbackLogRead < m_callback.log.size(); ++m_callbackLogRead)
        m_pending.push_back("callback " + m_callback.log[m_callbackLogRead].ToString());
}

void PageSession::Note(std::string line) {
    CollectCalls();
    m_pending.push_back(std::move(line));
}

void PageSession::NoteFrameMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    char text[96];
    std::snprintf(text, sizeof text, "frame received 0x%04X(%lld, %lld)%s", message,
                  static_cast<long long>(wParam), static_cast<long long>(lParam),
                  message == 0x0904 ? " = open host page" : "");
    Note(text);
}

std::vector<std::string> PageSession::TakeLog() {
    CollectCalls();
    std::vector<std::string> lines;
    lines.swap(m_pending);
    return lines;
}

std::string PageSession::AfterChange() {
    if (!m_chip)
        return {};
    ChipImageSnapshot now = TakeSnapshot(*m_chip);
    bool changed = now.size() != m_now.size();
    for (std::size_t i = 0; !changed && i < now.size(); ++i)
        changed = now[i].name != m_now[i].name || now[i].bytes != m_now[i].bytes;
    if (changed) {
        ++m_changeCount;
        m_beforeLastChange = std::move(m_now);
        m_now = std::move(now);
    }
    if (!m_store)
        return {};
    std::string text = FormatChipSaveFile(*m_chip);
    if (text == m_savedText)
        return {};
    std::string error = m_store->Save(*m_chip, m_pageType, m_pageSubType);
    if (error.empty())
        m_savedText = std::move(text);
    else
        Note("error: the chip was not saved: " + error);
    return error;
}

void PageSession::SendReread() {
    if (m_page)
        SendMessageW(m_page, kRereadMessage, 0, 0);
}
