// One chip page as the host holds it: the simulated chip behind IRegvane, the page made through the
// module's CreateRegvaneHwnd as a child of a view window, and the record of everything the page
// asked of the host. Both the window and the scripted mode run pages through this.
#pragma once

#include "workbench/ChipImages.h"
#include "workbench/ChipStore.h"
#include "workbench/HostModule.h"
#include "workbench/SimulatedChip.h"
#include "workbench/WorkbenchScript.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

// The user message a host sends a page to make it read the chip again.
inline constexpr UINT kRereadMessage = 0x0903;

class PageSession {
public:
    PageSession(HostModule& module, SimulatedHostCallback& callback);
    ~PageSession();
    PageSession(const PageSession&) = delete;
    PageSession& operator=(const PageSession&) = delete;

    struct Opened {
        bool hasPage = false;
        bool fromFile = false; // the chip's images came from the store
        std::string warning;   // a damaged save file that was set aside
    };
    // Sets up the chip with its start values, then (with a store, unless reset) what was saved for
    // it, and asks the module for its page as a child of view. The page is shown. A register kind
    // other than 0 replaces the chip's: the raw editor shows and names other controls for each.
    Opened Open(int chipType, int subType, HWND view, const ChipStore* store, bool reset,
                int registerKind = 0);
    // The designer: the page a chip description file renders, on the chip of the page class the file
    // describes (the chip table's first page of that class, with what the store saved for it), or on
    // a blank chip for a class the table does not list. Opening a description of the same class again
    // keeps the chip and its bytes. A file that cannot be used leaves everything as it was; problems
    // then says what is wrong, "file:line: reason" for each of the file's problems.
    Opened OpenDescription(const std::wstring& path, HWND view, const ChipStore* store, bool reset,
                           std::vector<std::string>& problems);
    void Close();

    HWND Page() const { return m_page; }
    bool IsOpen() const { return m_chip != nullptr; }
    SimulatedChip& Chip() { return *m_chip; }
    // The page's class as the module names it ("CRegvaneMbi5153").
    std::string PageClass() const;
    // The chip behind the page: "MBI5153"; for a page of the extended range also the chip type it
    // runs on ("ICN2055 of chip type 193").
    std::string ChipDescription() const;
    // The caption a host passes; empty lets the page keep its own title.
    std::wstring caption;

    // What happened since the last call, one line each: the page's calls to the chip and to the
    // host callback, messages posted to the frame, message boxes, and the workbench's own notes.
    std::vector<std::string> TakeLog();
    void Note(std::string line);
    // The frame window reports the user messages it receives (0x0904: "open page wParam").
    void NoteFrameMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Call after anything that may have changed the chip: remembers which bytes the change touched
    // and saves the chip when it differs from what was saved. Empty, or why saving failed.
    std::string AfterChange();
    // Grows by one with every change of the chip's images: the window redraws its view then.
    unsigned ChangeCount() const { return m_changeCount; }
    // The register images, with the bytes the last change touched marked.
    std::vector<HexLine> ImageLines() const { return FormatImages(m_now, m_beforeLastChange); }

    // Carries out one operator action on the page as a person would; empty, or why it could not.
    std::string Run(const ScriptAction& action);
    // Sends the page 0x0903: the host tells it the chip changed and must be read again.
    void SendReread();

private:
    // A new simulated chip for a page of this type and sub-type, with what the store saved for it.
    void SetUpChip(int chipType, int subType, const ChipStore* store, bool reset, Opened& opened);
    void ShowPage();
    // The operator actions of Run.
    std::string Poke(const ScriptAction& action);
    void MoveSlider(HWND slider, int position);
    void SetCheck(HWND box, bool on, const std::string& name);
    void TypeText(HWND edit, const std::string& text);

    HostModule& m_module;
    SimulatedHostCallback& m_callback;
    std::unique_ptr<SimulatedChip> m_chip;
    std::string m_describedClass; // the class of the open description; empty for a numbered page
    const ChipStore* m_store = nullptr;
    // The number the page was asked for, which names its save file.
    int m_pageType = 0;
    int m_pageSubType = 0;
    HWND m_page = nullptr;
    std::size_t m_chipLogRead = 0;
    std::size_t m_callbackLogRead = 0;
    // Lines collected so far, in the order things happened.
    std::vector<std::string> m_pending;
    void CollectCalls();
    std::string m_savedText;
    unsigned m_changeCount = 0;
    ChipImageSnapshot m_now;
    ChipImageSnapshot m_beforeLastChange;
};

// Delivers every waiting message, the way the host's message loop would between two clicks.
void PumpMessages();
