// A described page's combo items with their codes, the values it only shows, and its help.
#include "dialogs/described/DescribedPage.h"

#include "framework/ModuleInstance.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"

#include <commctrl.h>

#include <algorithm>

using namespace chipdesc;

LayoutTexts TranslatedLayoutTexts() {
    LayoutTexts texts;
    texts.translate = [](std::string_view id) { return Tr(Utf8ToWide(id)); };
    return texts;
}

void CDescribedPage::ShowItem(const ControlSlot& slot, Value value) const {
    const Field& field = FieldOf(slot);
    const auto named = static_cast<LRESULT>(field.items.size());
    if (::SendMessageW(slot.window, CB_GETCOUNT, 0, 0) > named)
        ::SendMessageW(slot.window, CB_DELETESTRING, static_cast<WPARAM>(named), 0);
    LRESULT shown = ItemOf(field, value);
    if (shown < 0) {
        shown = named;
        ::SendMessageW(slot.window, CB_ADDSTRING, 0,
                       reinterpret_cast<LPARAM>(std::to_wstring(value).c_str()));
    }
    ::SendMessageW(slot.window, CB_SETCURSEL, static_cast<WPARAM>(shown), 0);
}

bool CDescribedPage::ShowsUnnamedValue(const ControlSlot& slot) const {
    const LRESULT chosen = ::SendMessageW(slot.window, CB_GETCURSEL, 0, 0);
    return chosen < 0 || chosen >= static_cast<LRESULT>(FieldOf(slot).items.size());
}

Value CDescribedPage::ItemValue(const ControlSlot& slot) const {
    if (ShowsUnnamedValue(slot))
        return slot.value;
    return FieldOf(slot).itemCodes[static_cast<std::size_t>(::SendMessageW(slot.window, CB_GETCURSEL, 0, 0))];
}

void CDescribedPage::ShowReadOnlyValue(const ControlSlot& slot, Value value) const {
    const Field& field = FieldOf(slot);
    if (field.control == Control::Check) {
        ::SendMessageW(slot.window, BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED, 0);
        return;
    }
    const std::wstring text = ValueText(field, value, TranslatedLayoutTexts());
    if (CWnd(slot.window).GetWindowText() != text)
        ::SetWindowTextW(slot.window, text.c_str());
}

void CDescribedPage::AddHelp() {
    const std::vector<Field>& fields = m_description->fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].help.text.empty())
            continue;
        if (!m_help) {
            // Owned by the host's frame, as every pop-up of a child window: the page destroys it.
            m_help = ::CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                       CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, m_hWnd,
                                       nullptr, ResourceInstance(), nullptr);
            // Help is read, not glanced at: wrapped into lines, and kept up while the pointer rests.
            RECT lines{0, 0, 200, 0};
            ::MapDialogRect(m_hWnd, &lines);
            ::SendMessageW(m_help, TTM_SETMAXTIPWIDTH, 0, lines.right);
            ::SendMessageW(m_help, TTM_SETDELAYTIME, TTDT_AUTOPOP, 30000);
        }
        std::wstring text = ItemText(fields[i].help, TranslatedLayoutTexts());
        for (HWND window : m_fieldWindows[i]) {
            TOOLINFOW tool{};
            tool.cbSize = TTTOOLINFOW_V2_SIZE; // common controls 5 as well as 6
            tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
            tool.hwnd = m_hWnd;
            tool.uId = reinterpret_cast<UINT_PTR>(window);
            tool.lpszText = text.data();
            ::SendMessageW(m_help, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        }
    }
}

void CDescribedPage::OnDestroy() {
    m_scroller.Detach();
    if (m_help)
        ::DestroyWindow(m_help);
    m_help = nullptr;
}

void CDescribedPage::RestoreRecords() {
    const std::vector<Field>& fields = m_description->fields;
    if (!Chip() || std::none_of(fields.begin(), fields.end(), [](const Field& f) { return f.readOnly; })) {
        CChipDialog::RestoreSnapshot();
        return;
    }
    for (const Source source : m_description->page.changeTest) {
        const std::span<const std::uint8_t> snapshot = Changes().Snapshot(source);
        if (snapshot.empty())
            continue;
        Bytes bytes{};
        std::copy(snapshot.begin(), snapshot.end(), bytes.begin());
        std::optional<Bytes> now;
        for (const Field& field : fields)
            if (field.readOnly && field.source == source) {
                if (!now)
                    now = ReadSource(source);
                CopyFieldBits(field, *now, bytes);
            }
        WriteSource(source, bytes);
    }
}
