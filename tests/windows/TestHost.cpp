#include "TestHost.h"

#include <algorithm>
#include <dlgs.h>
#include <stdexcept>

RegvaneLibrary& RegvaneLibrary::Get() {
    static RegvaneLibrary library = [] {
        RegvaneLibrary lib;
        std::string error = lib.Load();
        lib.CreateRegvaneWnd = reinterpret_cast<CreateRegvaneWndFn>(
            reinterpret_cast<void*>(GetProcAddress(lib.module, "CreateRegvaneWnd")));
        if (error.empty() &&
            !(lib.CreateRegvaneWnd && lib.RegvaneDialogClassName && lib.RegvaneCreateDescribedPage))
            error = "regvane.dll lacks an entry point the tests call";
        if (!error.empty())
            throw std::runtime_error(error);
        return lib;
    }();
    return library;
}

HostFrame::HostFrame() {
    m_frame = CreateWindowExW(0, L"STATIC", L"Test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 760,
                              nullptr, nullptr, nullptr, nullptr);
    // Pages take their keyboard and command routing from a dialog-like parent.
    m_view = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                             0, 990, 740, m_frame, nullptr, nullptr, nullptr);
}

HostFrame::~HostFrame() {
    DestroyWindow(m_frame);
}

void PumpMessages() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

std::wstring WindowText(HWND window) {
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

std::wstring ItemText(HWND dialog, int id) {
    return WindowText(GetDlgItem(dialog, id));
}

SimulatedHostCallback& InstallHostCallback(int language) {
    static SimulatedHostCallback callback;
    callback.language = language;
    RegvaneLibrary& lib = RegvaneLibrary::Get();
    lib.InitRegvane(&callback);
    lib.RegvaneLanguageChanged();
    return callback;
}

namespace {

// A common file dialog, or a question one of them asks: never a page's own message box. The
// file-type list (cmb1) is in every common file dialog and in no message box.
bool BelongsToFileDialog(HWND window) {
    auto isFileDialog = [](HWND w) { return w && GetDlgItem(w, cmb1) != nullptr; };
    return isFileDialog(window) || isFileDialog(GetWindow(window, GW_OWNER));
}

// The icon of a message box is a static control showing one of the system icons.
bool ShowsIcon(HWND box, LPCWSTR icon) {
    HICON expected = LoadIconW(nullptr, icon);
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (expected && reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)) == expected)
            return true;
    return false;
}

void Press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

} // namespace

void WatchDialogs(const std::atomic<bool>& stop, const std::function<bool(HWND)>& answer) {
    std::vector<HWND> answered;
    while (!stop) {
        std::vector<HWND> found;
        EnumWindows(
            [](HWND window, LPARAM list) {
                DWORD process = 0;
                GetWindowThreadProcessId(window, &process);
                wchar_t className[16] = {};
                GetClassNameW(window, className, 16);
                if (process == GetCurrentProcessId() && IsWindowVisible(window) &&
                    std::wstring(className) == L"#32770")
                    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        for (HWND window : found)
            if (std::find(answered.begin(), answered.end(), window) == answered.end() && answer(window))
                answered.push_back(window);
        Sleep(20);
    }
}

MessageBoxWatcher::MessageBoxWatcher()
    : DialogWatcher([this](HWND box) {
          if (BelongsToFileDialog(box))
              return false; // FileDialogWatcher's to answer
          // 0xFFFF: the message text of a message box.
          const Box seen{WindowText(box), WindowText(GetDlgItem(box, 0xFFFF)),
                         ShowsIcon(box, IDI_INFORMATION), ShowsIcon(box, IDI_ERROR)};
          Note([&](std::vector<Box>& all) { all.push_back(seen); });
          Press(box, IDOK);
          return true;
      }) {}

FileDialogWatcher::FileDialogWatcher(std::vector<std::wstring> answers)
    : DialogWatcher([this, answers = std::move(answers), next = std::size_t(0)](HWND window) mutable {
          if (!BelongsToFileDialog(window))
              return false;
          if (GetDlgItem(window, cmb1) == nullptr) {
              // A question of the file dialog: noted with its dialog, answered Yes.
              const std::wstring prompt = WindowText(GetDlgItem(window, 0xFFFF));
              Note([&](std::vector<Dialog>& all) {
                  if (!all.empty())
                      all.back().prompts.push_back(prompt);
              });
              Press(window, IDYES);
              return true;
          }
          // The file-name field: an edit (edt1) in some dialog layouts, an editable combo (cmb13) in others.
          HWND nameField = GetDlgItem(window, edt1) ? GetDlgItem(window, edt1) : GetDlgItem(window, cmb13);
          Dialog seen{WindowText(nameField), {}, {}};
          HWND types = GetDlgItem(window, cmb1);
          for (LRESULT i = 0, count = SendMessageW(types, CB_GETCOUNT, 0, 0); i < count; ++i) {
              wchar_t text[256] = {};
              if (SendMessageW(types, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0) < 255)
                  SendMessageW(types, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
              seen.fileTypes.push_back(text);
          }
          Note([&](std::vector<Dialog>& all) { all.push_back(seen); });
          if (m_probe)
              m_probe();
          const std::wstring answer = next < answers.size() ? answers[next] : L"";
          ++next;
          if (!answer.empty()) {
              DWORD_PTR ignored = 0;
              SendMessageTimeoutW(nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(answer.c_str()),
                                  SMTO_BLOCK, 5000, &ignored);
          }
          Press(window, answer.empty() ? IDCANCEL : IDOK);
          return true;
      }) {}
