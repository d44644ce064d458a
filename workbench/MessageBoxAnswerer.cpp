#include "workbench/MessageBoxAnswerer.h"

#include <dlgs.h>

#include <algorithm>

namespace {

// Pages are child windows: a visible top-level dialog of this process is a box a page opened.
BOOL CALLBACK CollectBoxes(HWND window, LPARAM param) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (process == GetCurrentProcessId() && IsWindowVisible(window) && std::wstring(className) == L"#32770")
        reinterpret_cast<std::vector<HWND>*>(param)->push_back(window);
    return TRUE;
}

std::wstring TextOf(HWND window) {
    wchar_t text[2048] = {};
    GetWindowTextW(window, text, 2048);
    return text;
}

// The file-type list (cmb1) is in every common file dialog and in no message box.
bool IsFileDialog(HWND window) {
    return window && GetDlgItem(window, cmb1) != nullptr;
}

// The file-name field: an edit (edt1) in some dialog layouts, an editable combo (cmb13) in others.
HWND FileNameField(HWND dialog) {
    if (HWND edit = GetDlgItem(dialog, edt1))
        return edit;
    return GetDlgItem(dialog, cmb13);
}

void Press(HWND box, int button) {
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

} // namespace

MessageBoxAnswerer::MessageBoxAnswerer() {
    // File dialogs move the working folder to the folder they show; the run's own is taken first.
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    m_workingFolder = folder;
    InitializeCriticalSection(&m_lock);
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

MessageBoxAnswerer::~MessageBoxAnswerer() {
    InterlockedExchange(&m_stop, 1);
    WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
    DeleteCriticalSection(&m_lock);
}

std::vector<std::wstring> MessageBoxAnswerer::TakeAnswered() {
    EnterCriticalSection(&m_lock);
    std::vector<std::wstring> answered;
    answered.swap(m_answered);
    LeaveCriticalSection(&m_lock);
    return answered;
}

void MessageBoxAnswerer::Answer(HWND box) {
    std::wstring line;
    if (IsFileDialog(box)) {
        HWND nameField = FileNameField(box);
        const std::wstring proposed = TextOf(nameField);
        line = L"file dialog \"" + TextOf(box) + L"\" ";
        if (proposed.empty()) {
            line += L"proposed no file: cancelled";
            Press(box, IDCANCEL);
        } else {
            const bool hasFolder = proposed.find_first_of(L"\\/:") != std::wstring::npos;
            const std::wstring path = hasFolder ? proposed : m_workingFolder + L"\\" + proposed;
            line += L"answered with " + path;
            DWORD_PTR ignored = 0;
            SendMessageTimeoutW(nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()), SMTO_BLOCK,
                                5000, &ignored);
            Press(box, IDOK);
        }
    } else {
        // 0xFFFF is the static control that holds a message box's text.
        const bool question = IsFileDialog(GetWindow(box, GW_OWNER));
        line = L"message box answered with " + std::wstring(question ? L"Yes: " : L"OK: ") + TextOf(box) +
               L": " + TextOf(GetDlgItem(box, 0xFFFF));
        Press(box, question ? IDYES : IDOK);
    }
    EnterCriticalSection(&m_lock);
    m_answered.push_back(line);
    LeaveCriticalSection(&m_lock);
}

DWORD WINAPI MessageBoxAnswerer::Run(void* param) {
    auto* self = static_cast<MessageBoxAnswerer*>(param);
    while (!InterlockedCompareExchange(&self->m_stop, 0, 0)) {
        std::vector<HWND> boxes;
        EnumWindows(CollectBoxes, reinterpret_cast<LPARAM>(&boxes));
        for (HWND box : boxes) {
            if (std::find(self->m_seen.begin(), self->m_seen.end(), box) != self->m_seen.end())
                continue;
            self->m_seen.push_back(box);
            self->Answer(box);
        }
        Sleep(20);
    }
    return 0;
}
