#include "workbench/MainWindow.h"

#include "module/LanguageSelection.h"
#include "workbench/HeadlessRun.h"
#include "workbench/HostWindows.h"
#include "workbench/ScreenCapture.h"
#include "workbench/Win32Text.h"
#include "workbench/WorkbenchResources.h"

#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr wchar_t kMainClass[] = L"RegvaneWorkbenchMain";

enum ControlId {
    kSearchId = IDC_SEARCH,
    kListId = IDC_CHIP_LIST,
    kSubTypeId = IDC_SUBTYPE,
    kOpenId = IDC_OPEN,
    kRereadId = IDC_REREAD,
    kImagesId = IDC_IMAGES,
    kLogId = IDC_CALL_LOG,
    kStatusId = IDC_STATUS,
};

constexpr int kMargin = 8;
constexpr int kListWidth = 360;
constexpr int kRowHeight = 24;
constexpr int kMaxLogLines = 20000;

// The register view's colours for the bytes the last change touched.
constexpr COLORREF kMarkedText = RGB(160, 0, 0);
constexpr COLORREF kMarkedBack = RGB(255, 236, 150);

// The window's own settings, beside the saved chips: "language 3", "type 47", "subtype 0".
constexpr wchar_t kSettingsFile[] = L"workbench-settings.txt";

int ReadSetting(const ChipStore& store, const char* name, int fallback) {
    const std::string text = store.ReadFile(kSettingsFile);
    const std::string key = std::string(name) + " ";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        if (text.compare(at, key.size(), key) == 0) {
            int value = 0;
            if (std::sscanf(text.c_str() + at + key.size(), "%d", &value) == 1)
                return value;
        }
        at = end + 1;
    }
    return fallback;
}

HWND Child(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
           DWORD exStyle = 0) {
    return CreateWindowExW(exStyle, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 10, 10, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                           nullptr);
}

void Place(HWND window, int x, int y, int width, int height) {
    SetWindowPos(window, nullptr, x, y, std::max(width, 0), std::max(height, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

MainWindow::MainWindow(HostModule& module, SimulatedHostCallback& callback, const WorkbenchOptions& options)
    : m_module(module), m_callback(callback), m_options(options), m_store(options.profile),
      m_session(module, callback), m_catalog(ChipCatalog()) {}

MainWindow::~MainWindow() {
    m_session.Close();
    if (m_window)
        DestroyWindow(m_window);
    if (m_accelerators)
        DestroyAcceleratorTable(m_accelerators);
    if (m_monoFont)
        DeleteObject(m_monoFont);
}

bool MainWindow::Create() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&classes);
    LoadLibraryW(L"riched20.dll");

    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszMenuName = MAKEINTRESOURCEW(IDR_WORKBENCH_MENU);
    windowClass.lpszClassName = kMainClass;
    RegisterClassExW(&windowClass);

    const std::wstring title = L"RegvaneWorkbench - regvane.dll " + Wide(m_module.Version());
    m_window = CreateWindowExW(WS_EX_CONTROLPARENT, kMainClass, title.c_str(),
                               WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 1240, 860,
                               nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (!m_window)
        return false;

    ACCEL keys[] = {{FVIRTKEY, VK_F5, IDM_REREAD}, {FVIRTKEY | FCONTROL, 'F', IDM_FIND}};
    m_accelerators = CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));

    // The Language menu lists the host's thirteen languages by index.
    HMENU languages = GetSubMenu(GetMenu(m_window), 2);
    DeleteMenu(languages, 0, MF_BYPOSITION);
    for (int index = 1; index <= kLanguageCount; ++index) {
        const std::wstring item = std::to_wstring(index) + L"  " + LanguageDisplayName(index);
        AppendMenuW(languages, MF_STRING, IDM_LANGUAGE_FIRST + index - 1, item.c_str());
    }
    CheckMenuRadioItem(languages, IDM_LANGUAGE_FIRST, IDM_LANGUAGE_LAST,
                       IDM_LANGUAGE_FIRST + m_callback.language - 1, MF_BYCOMMAND);

    FillList();
    Layout();
    ShowWindow(m_window, SW_SHOWDEFAULT);
    UpdateWindow(m_window);
    SetFocus(m_search);
    return true;
}

void MainWindow::CreateControls() {
    m_uiFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    m_monoFont =
        CreateFontW(-13, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New");

    m_searchLabel = Child(m_window, L"STATIC", L"Find:", SS_LEFT, -1);
    m_search = Child(m_window, L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kSearchId, WS_EX_CLIENTEDGE);
    SendMessageW(m_search, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"type number, class or chip"));
    m_list = Child(m_window, WC_LISTVIEWW, L"", WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                   kListId, WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(m_list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    const struct {
        const wchar_t* title;
        int width;
    } columns[] = {{L"Type", 72}, {L"Page class", 165}, {L"Chip", 96}};
    for (int i = 0; i < 3; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<wchar_t*>(columns[i].title);
        column.cx = columns[i].width;
        ListView_InsertColumn(m_list, i, &column);
    }
    m_subTypeLabel = Child(m_window, L"STATIC", L"Sub-type:", SS_LEFT, -1);
    m_subType =
        Child(m_window, L"EDIT", L"0", WS_TABSTOP | ES_NUMBER | ES_AUTOHSCROLL, kSubTypeId, WS_EX_CLIENTEDGE);
    SendMessageW(m_subType, EM_SETLIMITTEXT, 5, 0);
    m_openButton = Child(m_window, L"BUTTON", L"&Open", WS_TABSTOP | BS_PUSHBUTTON, kOpenId);
    m_rereadButton = Child(m_window, L"BUTTON", L"&Re-read (0x0903)", WS_TABSTOP | BS_PUSHBUTTON, kRereadId);

    m_view = CreateHostView(m_window, 0, 0, 10, 10);
    m_imagesLabel =
        Child(m_window, L"STATIC", L"Register images (marked: the bytes of the last change)", SS_LEFT, -1);
    m_images = Child(m_window, RICHEDIT_CLASSW, L"",
                     WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL |
                         ES_AUTOHSCROLL,
                     kImagesId, WS_EX_CLIENTEDGE);
    m_logLabel = Child(m_window, L"STATIC", L"Calls of the page to the host", SS_LEFT, -1);
    m_log = Child(m_window, L"LISTBOX", L"",
                  WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOTIFY, kLogId,
                  WS_EX_CLIENTEDGE);
    SendMessageW(m_log, LB_SETHORIZONTALEXTENT, 2400, 0);
    m_status = Child(m_window, STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, kStatusId);

    for (HWND control : {m_searchLabel, m_search, m_list, m_subTypeLabel, m_subType, m_openButton,
                         m_rereadButton, m_imagesLabel, m_logLabel, m_status})
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_uiFont), FALSE);
    for (HWND control : {m_images, m_log})
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_monoFont), FALSE);
    // No byte of a register image may hide behind the edge: the view takes its longest line's width,
    // its borders, its inner margins and its scroll bar.
    HDC dc = GetDC(m_images);
    const HGDIOBJ oldFont = SelectObject(dc, m_monoFont);
    const std::wstring longest(kHexLineChars, L'0');
    SIZE text{};
    GetTextExtentPoint32W(dc, longest.c_str(), static_cast<int>(longest.size()), &text);
    SelectObject(dc, oldFont);
    ReleaseDC(m_images, dc);
    m_imagesWidth = std::max<int>(m_imagesWidth, text.cx + 4 * GetSystemMetrics(SM_CXEDGE) +
                                                     GetSystemMetrics(SM_CXVSCROLL) + 2 * kMargin);
    EnableWindow(m_rereadButton, FALSE);
}

void MainWindow::Layout() {
    if (!m_window || !m_status)
        return;
    SendMessageW(m_status, WM_SIZE, 0, 0);
    RECT client{}, statusRect{};
    GetClientRect(m_window, &client);
    GetWindowRect(m_status, &statusRect);
    const int width = client.right;
    const int height = client.bottom - (statusRect.bottom - statusRect.top);

    // Left: finding and opening a chip.
    int y = kMargin;
    Place(m_searchLabel, kMargin, y + 4, 40, 18);
    Place(m_search, kMargin + 44, y, kListWidth - 44, 22);
    y += 22 + kMargin;
    const int bottomRow = height - kMargin - kRowHeight;
    Place(m_list, kMargin, y, kListWidth, bottomRow - kMargin - y);
    Place(m_subTypeLabel, kMargin, bottomRow + 4, 60, 18);
    Place(m_subType, kMargin + 62, bottomRow, 60, kRowHeight);
    Place(m_openButton, kMargin + 130, bottomRow, 70, kRowHeight);
    Place(m_rereadButton, kMargin + 208, bottomRow, kListWidth - 208, kRowHeight);

    // Right: the page as the host shows it, and under it what the page did to the chip.
    const int left = kListWidth + 2 * kMargin;
    const int pageWidth = std::max<int>(m_pageSize.cx, 200);
    const int pageHeight = std::max<int>(m_pageSize.cy, 120);
    Place(m_view, left, kMargin, std::min(pageWidth, width - left - kMargin), pageHeight);
    const int below = kMargin + pageHeight + kMargin;
    const int imagesWidth = m_imagesWidth;
    Place(m_imagesLabel, left, below, imagesWidth, 18);
    Place(m_images, left, below + 20, imagesWidth, height - below - 20 - kMargin);
    const int logLeft = left + imagesWidth + kMargin;
    Place(m_logLabel, logLeft, below, width - logLeft - kMargin, 18);
    Place(m_log, logLeft, below + 20, width - logLeft - kMargin, height - below - 20 - kMargin);
}

void MainWindow::FillList() {
    const std::string search = Utf8([&] {
        wchar_t text[256] = {};
        GetWindowTextW(m_search, text, 256);
        return std::wstring(text);
    }());
    SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(m_list);
    m_rows.clear();
    for (std::size_t i = 0; i < m_catalog.size(); ++i) {
        const CatalogEntry& entry = m_catalog[i];
        if (!MatchesSearch(entry, search))
            continue;
        const int row = static_cast<int>(m_rows.size());
        m_rows.push_back(static_cast<int>(i));
        const std::wstring cells[] = {Wide(EntryLabel(entry)), Wide(entry.className), Wide(entry.modelName)};
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = const_cast<wchar_t*>(cells[0].c_str());
        ListView_InsertItem(m_list, &item);
        ListView_SetItemText(m_list, row, 1, const_cast<wchar_t*>(cells[1].c_str()));
        ListView_SetItemText(m_list, row, 2, const_cast<wchar_t*>(cells[2].c_str()));
    }
    SendMessageW(m_list, WM_SETREDRAW, TRUE, 0);
    if (!m_rows.empty())
        ListView_SetItemState(m_list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SetStatus(std::to_string(m_rows.size()) + " of " + std::to_string(m_catalog.size()) +
              " chip pages listed");
}

void MainWindow::SelectRow(int chipType, int subType) {
    // The row of that exact sub-type, else the type's "any other sub-type" row.
    int best = -1;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const CatalogEntry& entry = m_catalog[m_rows[row]];
        if (entry.chipType == chipType && (best < 0 || entry.subType == subType))
            best = static_cast<int>(row);
    }
    if (best < 0)
        return;
    ListView_SetItemState(m_list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemState(m_list, best, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(m_list, best, FALSE);
    SetDlgItemInt(m_window, kSubTypeId, static_cast<UINT>(subType), FALSE);
}

static std::string SubTypeHelp(int chipType) {
    std::string pages;
    for (const CatalogEntry& entry : ChipCatalog())
        if (entry.chipType == chipType)
            pages += (pages.empty() ? "" : ", ") +
                     std::string(entry.subType ? std::to_string(entry.subType) : "others") + ": " +
                     entry.className;
    return "Type " + ChipTypeLabel(chipType) + " picks its page by sub-type (" + pages + ")";
}

const CatalogEntry* MainWindow::SelectedEntry() const {
    const int row = ListView_GetNextItem(m_list, -1, LVNI_SELECTED);
    return row >= 0 && row < static_cast<int>(m_rows.size()) ? &m_catalog[m_rows[row]] : nullptr;
}

void MainWindow::OpenSelected() {
    const CatalogEntry* entry = SelectedEntry();
    if (!entry) {
        SetStatus("Pick a chip in the list first.");
        return;
    }
    OpenPage(entry->chipType, static_cast<int>(GetDlgItemInt(m_window, kSubTypeId, nullptr, FALSE)));
}

void MainWindow::FitToPage() {
    m_pageSize = {0, 0};
    if (m_session.Page()) {
        RECT rect{};
        GetWindowRect(m_session.Page(), &rect);
        m_pageSize = {rect.right - rect.left, rect.bottom - rect.top};
        // Grow the window so the page and the views under it fit, within the screen.
        RECT window{}, client{}, work{};
        GetWindowRect(m_window, &window);
        GetClientRect(m_window, &client);
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        const int extraWidth = (window.right - window.left) - client.right;
        const int extraHeight = (window.bottom - window.top) - client.bottom;
        const int neededWidth =
            kListWidth + 3 * kMargin + std::max<int>(m_pageSize.cx, 470 + 360) + extraWidth;
        const int neededHeight = m_pageSize.cy + 320 + extraHeight;
        const int newWidth =
            std::min<int>(std::max<int>(neededWidth, window.right - window.left), work.right - work.left);
        const int newHeight =
            std::min<int>(std::max<int>(neededHeight, window.bottom - window.top), work.bottom - work.top);
        SetWindowPos(m_window, nullptr, 0, 0, newWidth, newHeight, SWP_NOMOVE | SWP_NOZORDER);
    }
    Layout();
    EnableWindow(m_rereadButton, m_session.Page() != nullptr);
    m_shownChange = ~0u;
    Refresh();
}

HWND MainWindow::RoomForPage() const {
    SetWindowPos(m_view, nullptr, 0, 0, m_options.areaWidth, m_options.areaHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return m_view;
}

bool MainWindow::OpenPage(int chipType, int subType, bool reset) {
    m_describedPath.clear();
    AppendLog(m_session.TakeLog());
    const PageSession::Opened opened = m_session.Open(chipType, subType, RoomForPage(), &m_store, reset);
    m_openType = chipType;
    m_openSubType = subType;
    SetDlgItemInt(m_window, kSubTypeId, static_cast<UINT>(subType), FALSE);
    std::string label = ChipTypeLabel(chipType);
    if (subType)
        label.append(1, '/').append(std::to_string(subType));
    AppendLog({"---- chip type " + label + ": " + (opened.hasPage ? m_session.PageClass() : "no page") +
               " (" + m_session.Chip().modelName + "), " +
               (opened.fromFile ? "saved images" : "start values")});
    if (!opened.warning.empty())
        MessageBoxW(m_window, Wide(opened.warning).c_str(), L"RegvaneWorkbench", MB_OK | MB_ICONWARNING);
    FitToPage();
    SelectRow(chipType, subType);
    SetStatus("Chip type " + label +
              (opened.hasPage ? ": " + m_session.PageClass() : ": regvane.dll gives no page") + " (" +
              m_session.ChipDescription() + ")" + "  -  saved in " +
              DisplayPath(m_store.FileFor(chipType, subType)));
    SaveSettings();
    return opened.hasPage;
}

namespace {

// A file's last write time and size: when either moves, the file changed.
std::pair<std::uint64_t, std::uint64_t> FileVersion(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return {0, 0};
    return {(std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32) | data.ftLastWriteTime.dwLowDateTime,
            (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow};
}

constexpr UINT_PTR kDescriptionTimer = 1;
constexpr UINT kDescriptionPollMs = 500;

} // namespace

bool MainWindow::OpenDescription(const std::wstring& path) {
    AppendLog(m_session.TakeLog());
    m_describedPath = path;
    m_describedVersion = FileVersion(path);
    SetTimer(m_window, kDescriptionTimer, kDescriptionPollMs, nullptr);
    std::vector<std::string> problems;
    const PageSession::Opened opened =
        m_session.OpenDescription(path, RoomForPage(), &m_store, false, problems);
    if (!problems.empty()) {
        Layout();
        AppendLog(m_session.TakeLog());
        AppendLog({"description " + DisplayPath(path) + " cannot be used:"});
        AppendLog(problems);
        const std::size_t more = problems.size() - 1;
        SetStatus(problems.front() +
                  (more ? "  (and " + std::to_string(more) + " more in the log)" : std::string()) +
                  (opened.hasPage ? "  -  the last good page stays" : ""));
        return opened.hasPage;
    }
    const SimulatedChip& chip = m_session.Chip();
    m_openType = chip.chipType;
    m_openSubType = chip.chipSubType;
    AppendLog({"---- description " + DisplayPath(path) + ": " + m_session.PageClass() +
               (chip.chipType ? " on chip type " + ChipTypeLabel(chip.chipType) + " (" + chip.modelName + ")"
                              : " on a blank chip")});
    FitToPage();
    SetStatus("Description " + DisplayPath(path) + ": " + m_session.PageClass() +
              "  -  drawn again whenever the file changes");
    return opened.hasPage;
}

void MainWindow::CheckDescriptionChanged() {
    if (m_describedPath.empty())
        return;
    const auto version = FileVersion(m_describedPath);
    if (version == m_describedVersion)
        return;
    m_describedVersion = version;
    OpenDescription(m_describedPath);
}

void MainWindow::ChooseDescription() {
    wchar_t file[MAX_PATH] = {};
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_window;
    dialog.lpstrFilter = L"Chip descriptions (*.desc)\0*.desc\0All files (*.*)\0*.*\0";
    dialog.lpstrFile = file;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrTitle = L"Open a chip description";
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    if (GetOpenFileNameW(&dialog))
        OpenDescription(file);
}

void MainWindow::SetLanguage(int index) {
    m_callback.language = index;
    m_module.RegvaneLanguageChanged();
    CheckMenuRadioItem(GetSubMenu(GetMenu(m_window), 2), IDM_LANGUAGE_FIRST, IDM_LANGUAGE_LAST,
                       IDM_LANGUAGE_FIRST + index - 1, MF_BYCOMMAND);
    AppendLog(m_session.TakeLog());
    AppendLog({"---- language " + std::to_string(index) + " (" + Utf8(LanguageDisplayName(index)) +
               "): RegvaneLanguageChanged called"});
    SaveSettings();
    // Pages take their texts when they open: the open page opens again in the new language.
    if (!m_describedPath.empty())
        OpenDescription(m_describedPath);
    else if (m_session.IsOpen())
        OpenPage(m_openType, m_openSubType);
}

void MainWindow::SavePicture() {
    if (!m_session.Page()) {
        SetStatus("No page is open.");
        return;
    }
    wchar_t path[MAX_PATH] = {};
    const std::wstring name = L"page-" + std::to_wstring(m_openType) +
                              (m_openSubType ? L"-" + std::to_wstring(m_openSubType) : L"") + L".png";
    wcsncpy(path, name.c_str(), MAX_PATH - 1);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_window;
    dialog.lpstrFilter = L"PNG pictures (*.png)\0*.png\0";
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrDefExt = L"png";
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetSaveFileNameW(&dialog))
        return;
    UpdateWindow(m_window);
    SIZE size{};
    bool cropped = false;
    const std::string error = CaptureWindowPng(m_session.Page(), path, size, cropped);
    SetStatus(error.empty() ? "Picture saved: " + DisplayPath(path) : "No picture: " + error);
}

void MainWindow::Refresh() {
    if (!m_window)
        return;
    const std::string saveError = m_session.AfterChange();
    if (!saveError.empty())
        SetStatus("The chip was not saved: " + saveError);
    AppendLog(m_session.TakeLog());
    if (m_session.ChangeCount() != m_shownChange) {
        m_shownChange = m_session.ChangeCount();
        ShowImages();
    }
}

void MainWindow::ShowImages() {
    const int firstLine = static_cast<int>(SendMessageW(m_images, EM_GETFIRSTVISIBLELINE, 0, 0));
    SendMessageW(m_images, WM_SETREDRAW, FALSE, 0);
    std::wstring text;
    struct Mark {
        LONG begin, end;
    };
    std::vector<Mark> marks;
    if (m_session.IsOpen()) {
        for (const HexLine& line : m_session.ImageLines()) {
            const LONG start = static_cast<LONG>(text.size());
            for (const HexLine::Range& range : line.marked)
                marks.push_back({start + static_cast<LONG>(range.begin),
                                 start + static_cast<LONG>(range.begin + range.length)});
            // A rich edit keeps one character, "\r", between paragraphs.
            text += Wide(line.text) + L"\r";
        }
    }
    SetWindowTextW(m_images, text.c_str());
    CHARFORMAT2W marked{};
    marked.cbSize = sizeof marked;
    marked.dwMask = CFM_COLOR | CFM_BACKCOLOR | CFM_BOLD;
    marked.dwEffects = CFE_BOLD;
    marked.crTextColor = kMarkedText;
    marked.crBackColor = kMarkedBack;
    for (const Mark& mark : marks) {
        SendMessageW(m_images, EM_SETSEL, mark.begin, mark.end);
        SendMessageW(m_images, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&marked));
    }
    SendMessageW(m_images, EM_SETSEL, 0, 0);
    SendMessageW(m_images, EM_LINESCROLL, 0, firstLine);
    SendMessageW(m_images, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(m_images, nullptr, TRUE);
}

void MainWindow::AppendLog(const std::vector<std::string>& lines) {
    if (lines.empty() || !m_log)
        return;
    for (const std::string& line : lines)
        SendMessageW(m_log, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line).c_str()));
    auto count = static_cast<int>(SendMessageW(m_log, LB_GETCOUNT, 0, 0));
    for (; count > kMaxLogLines; --count)
        SendMessageW(m_log, LB_DELETESTRING, 0, 0);
    SendMessageW(m_log, LB_SETTOPINDEX, static_cast<WPARAM>(count - 1), 0);
}

void MainWindow::SetStatus(const std::string& text) {
    if (m_status)
        SendMessageW(m_status, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(Wide(text).c_str()));
}

void MainWindow::SaveSettings() const {
    std::string text = "language " + std::to_string(m_callback.language) + "\n";
    if (m_openType)
        text += "type " + std::to_string(m_openType) + "\nsubtype " + std::to_string(m_openSubType) + "\n";
    m_store.WriteFile(kSettingsFile, text);
}

void MainWindow::OnCommand(UINT id, UINT code) {
    switch (id) {
    case kSearchId:
        if (code == EN_CHANGE)
            FillList();
        break;
    case kOpenId:
    case IDM_OPEN:
        OpenSelected();
        break;
    case IDOK: // Enter: opens the chip when the list or the sub-type has the focus
        if (GetFocus() == m_list || GetFocus() == m_subType || GetFocus() == m_search)
            OpenSelected();
        break;
    case kRereadId:
    case IDM_REREAD:
        if (m_session.Page()) {
            m_session.Note("host sent 0x0903 (read the chip again)");
            m_session.SendReread();
        }
        break;
    case IDM_FIND:
        SetFocus(m_search);
        SendMessageW(m_search, EM_SETSEL, 0, -1);
        break;
    case IDM_RESET:
        if (m_session.IsOpen() &&
            MessageBoxW(m_window, L"Forget what this chip holds and start it from its start values?",
                        L"RegvaneWorkbench", MB_OKCANCEL | MB_ICONQUESTION) == IDOK) {
            OpenPage(m_openType, m_openSubType, true);
            // The start values become the saved chip at once, so the reset outlives the program.
            if (const std::string error = m_store.Save(m_session.Chip(), m_openType, m_openSubType);
                !error.empty())
                SetStatus("The chip was not saved: " + error);
        }
        break;
    case IDM_SCREENSHOT:
        SavePicture();
        break;
    case IDM_OPEN_DESCRIPTION:
        ChooseDescription();
        break;
    case IDM_CLOSE_PAGE:
        m_describedPath.clear();
        m_session.Close();
        m_pageSize = {0, 0};
        EnableWindow(m_rereadButton, FALSE);
        Layout();
        m_shownChange = ~0u;
        Refresh();
        break;
    case IDM_CLEAR_LOG:
        SendMessageW(m_log, LB_RESETCONTENT, 0, 0);
        break;
    case IDM_EXIT:
        DestroyWindow(m_window);
        break;
    default:
        if (id >= IDM_LANGUAGE_FIRST && id <= IDM_LANGUAGE_LAST)
            SetLanguage(static_cast<int>(id - IDM_LANGUAGE_FIRST + 1));
        break;
    }
}

void MainWindow::OnListNotify(NMHDR* header) {
    if (header->code == LVN_ITEMCHANGED) {
        const auto* change = reinterpret_cast<NMLISTVIEW*>(header);
        if ((change->uNewState & LVIS_SELECTED) && !(change->uOldState & LVIS_SELECTED))
            if (const CatalogEntry* entry = SelectedEntry()) {
                SetDlgItemInt(m_window, kSubTypeId, static_cast<UINT>(entry->subType), FALSE);
                SetStatus(entry->needsSubType ? SubTypeHelp(entry->chipType)
                                              : EntryLabel(*entry) + ": " + entry->className + " (" +
                                                    entry->modelName + "); Enter or Open opens it");
            }
    } else if (header->code == NM_DBLCLK || header->code == NM_RETURN) {
        OpenSelected();
    }
}

bool MainWindow::PreTranslate(MSG& message) {
    if (m_accelerators && TranslateAcceleratorW(m_window, m_accelerators, &message))
        return true;
    return IsDialogMessageW(m_window, &message) != FALSE;
}

LRESULT CALLBACK MainWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        self->m_window = window;
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcW(window, message, wParam, lParam);
    return self->HandleMessage(message, wParam, lParam);
}

LRESULT MainWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsPageRequest(message)) {
        m_session.NoteFrameMessage(message, wParam, lParam);
        return 0;
    }
    switch (message) {
    case WM_CREATE:
        CreateControls();
        return 0;
    case WM_TIMER:
        if (wParam == kDescriptionTimer)
            CheckDescriptionChanged();
        return 0;
    case WM_SIZE:
        Layout();
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {800, 500};
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header->idFrom == kListId)
            OnListNotify(header);
        return 0;
    }
    case WM_DESTROY:
        m_session.Close();
        m_window = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(m_window, message, wParam, lParam);
    }
}

int RunWindow(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback) {
    std::vector<ScriptAction> actions;
    if (!LoadScript(options, actions))
        return kExitBadCommandLine;
    const ChipStore settings(options.profile);
    if (!options.language) {
        const int saved = ReadSetting(settings, "language", 3);
        if (saved != callback.language && saved >= 1 && saved <= kLanguageCount) {
            callback.language = saved;
            module.RegvaneLanguageChanged();
        }
    }
    MainWindow window(module, callback, options);
    if (!window.Create()) {
        std::fprintf(stderr, "error: the workbench window could not be created (%s)\n",
                     LastErrorText().c_str());
        return kExitModuleUnusable;
    }
    const int chipType = options.chipType ? *options.chipType : ReadSetting(settings, "type", 47);
    const int subType = options.chipType ? options.subType : ReadSetting(settings, "subtype", 0);
    int status = kExitDone;
    const bool opened = options.describe.empty() ? window.OpenPage(chipType, subType, options.reset)
                                                 : window.OpenDescription(options.describe);
    if (opened) {
        // A script given with the window runs where everyone can watch it.
        for (const ScriptAction& action : actions) {
            window.Session().Note("> " + action.written + "    (" + action.where + ")");
            if (const std::string error = window.Session().Run(action); !error.empty()) {
                window.Session().Note("error: " + error);
                std::fprintf(stderr, "error: %s: %s\n", action.where.c_str(), error.c_str());
                status = kExitActionFailed;
                break;
            }
            PumpMessages();
            window.Refresh();
        }
        if (!options.screenshot.empty() && !WritePagePicture(window.Session().Page(), options.screenshot) &&
            status == kExitDone)
            status = kExitScreenshotFailed;
    }

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window.PreTranslate(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        window.Refresh();
    }
    return status;
}
