// The workbench's window: the list of chip pages on the left, the open page on the right as the
// host would show it, and under it the chip's register images and every call the page made.
#pragma once

#include "workbench/ChipCatalog.h"
#include "workbench/ChipStore.h"
#include "workbench/HostModule.h"
#include "workbench/PageSession.h"
#include "workbench/WorkbenchOptions.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class MainWindow {
public:
    MainWindow(HostModule& module, SimulatedHostCallback& callback, const WorkbenchOptions& options);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // Creates and shows the window; false when that fails.
    bool Create();
    HWND Handle() const { return m_window; }
    // Routes keyboard messages to the menus' shortcuts and between the controls; true when handled.
    bool PreTranslate(MSG& message);
    // After every message: shows the page's new calls and changed bytes, and saves the chip.
    void Refresh();

    // Opens the page of a chip; the reason when it has none.
    bool OpenPage(int chipType, int subType, bool reset = false);
    // The designer: opens the page a chip description renders and draws it again whenever the file
    // changes; a file that cannot be used is reported in the log and the status bar, and the last
    // good page stays. False when no page could be opened.
    bool OpenDescription(const std::wstring& path);
    PageSession& Session() { return m_session; }

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void CreateControls();
    void Layout();
    void FillList();
    void OnCommand(UINT id, UINT code);
    void OnListNotify(NMHDR* header);
    void OpenSelected();
    void SetLanguage(int index);
    void SavePicture();
    void ShowImages();
    void AppendLog(const std::vector<std::string>& lines);
    void SetStatus(const std::string& text);
    const CatalogEntry* SelectedEntry() const;
    void SelectRow(int chipType, int subType);
    void SaveSettings() const;
    void FitToPage();
    // The view made the host's room (--area) again, for the next page to open in.
    HWND RoomForPage() const;
    void ChooseDescription();
    void CheckDescriptionChanged();

    HostModule& m_module;
    SimulatedHostCallback& m_callback;
    WorkbenchOptions m_options;
    ChipStore m_store;
    PageSession m_session;
    std::vector<CatalogEntry> m_catalog;
    std::vector<int> m_rows; // catalog index of each list row after the search
    int m_openType = 0;
    int m_openSubType = 0;
    unsigned m_shownChange = ~0u;

    HWND m_window = nullptr;
    HWND m_search = nullptr;
    HWND m_list = nullptr;
    HWND m_subTypeLabel = nullptr;
    HWND m_subType = nullptr;
    HWND m_openButton = nullptr;
    HWND m_rereadButton = nullptr;
    HWND m_searchLabel = nullptr;
    HWND m_view = nullptr;
    HWND m_imagesLabel = nullptr;
    HWND m_images = nullptr;
    HWND m_logLabel = nullptr;
    HWND m_log = nullptr;
    HWND m_status = nullptr;
    HFONT m_uiFont = nullptr;
    HFONT m_monoFont = nullptr;
    int m_imagesWidth = 470; // wide enough for a whole line of bytes in the fixed-pitch font
    HACCEL m_accelerators = nullptr;
    SIZE m_pageSize{0, 0};
    // The description the designer shows, and the version of the file it last drew.
    std::wstring m_describedPath;
    std::pair<std::uint64_t, std::uint64_t> m_describedVersion{0, 0};
};

// The window mode of the workbench: runs until the window closes. Returns a WorkbenchExit.
int RunWindow(const WorkbenchOptions& options, HostModule& module, SimulatedHostCallback& callback);
