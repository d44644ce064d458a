// Operator actions on a page, sent the way the controls themselves would tell the page.
#include "workbench/PageSession.h"

#include "workbench/Win32Text.h"

#include <commctrl.h>

#include <algorithm>
#include <cwctype>

namespace {

struct Search {
    int id;
    HWND found;
};

BOOL CALLBACK FindById(HWND window, LPARAM param) {
    auto* search = reinterpret_cast<Search*>(param);
    if (GetDlgCtrlID(window) != search->id)
        return TRUE;
    search->found = window;
    return FALSE;
}

// The page's control with this id, also inside groups of child windows.
HWND FindControl(HWND page, int id) {
    if (HWND control = GetDlgItem(page, id))
        return control;
    Search search{id, nullptr};
    EnumChildWindows(page, FindById, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    std::wstring lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](wchar_t c) { return std::towlower(c); });
    return lower;
}

std::string KindOf(const std::wstring& className) {
    if (className == L"msctls_trackbar32")
        return "a slider";
    if (className == L"button")
        return "a button";
    if (className == L"combobox")
        return "a combo box";
    if (className.find(L"edit") != std::wstring::npos)
        return "an edit";
    if (className == L"static")
        return "a label";
    return "a " + Utf8(className);
}

void Notify(HWND control, WORD code) {
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

// A combo box's items, quoted and separated by commas, for a message.
std::string ItemList(HWND combo, int count) {
    std::string items;
    for (int i = 0; i < count; ++i) {
        const auto length = static_cast<int>(SendMessageW(combo, CB_GETLBTEXTLEN, i, 0));
        std::wstring item(static_cast<std::size_t>(std::max(length, 0)) + 1, L'\0');
        SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item.data()));
        item.resize(static_cast<std::size_t>(std::max(length, 0)));
        items += (i ? ", \"" : "\"") + Utf8(item) + "\"";
    }
    return items;
}

// Picks the item the action names, by index or by text; empty, or why there is no such item.
std::string ChooseItem(HWND combo, const ScriptAction& action, const std::string& name) {
    const auto count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    int index = action.value;
    if (index < 0) {
        const std::wstring text = Wide(action.text);
        index = static_cast<int>(SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                              reinterpret_cast<LPARAM>(text.c_str())));
        if (index == CB_ERR) {
            const std::string items = ItemList(combo, count);
            return name + " has no item \"" + action.text + "\" (items: " + (items.empty() ? "none" : items) +
                   ")";
        }
    } else if (index >= count) {
        return name + " has " + std::to_string(count) + " items" +
               (count ? " (0 to " + std::to_string(count - 1) + ")" : "") + ", no item " +
               std::to_string(index);
    }
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Notify(combo, CBN_SELCHANGE);
    return {};
}

} // namespace

std::string PageSession::Run(const ScriptAction& action) {
    if (!m_chip)
        return "no page is open";
    if (action.kind == ScriptActionKind::Poke)
        return Poke(action);
    if (!m_page)
        return "the chip has no page";
    if (action.kind == ScriptActionKind::Reread) {
        Note("host sent 0x0903 (read the chip again)");
        SendReread();
        return {};
    }

    HWND control = FindControl(m_page, action.controlId);
    const std::string name = "control " + std::to_string(action.controlId);
    if (!control)
        return "the page has no " + name;
    const std::wstring className = ClassOf(control);
    auto wrongKind = [&](const char* wanted) {
        return name + " is " + KindOf(className) + ", not " + wanted;
    };
    if (!IsWindowVisible(control))
        return name + " is hidden: an operator cannot reach it";
    if (!IsWindowEnabled(control))
        return name + " is disabled: an operator cannot change it";

    switch (action.kind) {
    case ScriptActionKind::Slider:
        if (className != L"msctls_trackbar32")
            return wrongKind("a slider");
        MoveSlider(control, action.value);
        return {};
    case ScriptActionKind::Click:
        if (className != L"button")
            return wrongKind("a button or check box");
        SendMessageW(control, BM_CLICK, 0, 0);
        return {};
    case ScriptActionKind::Check:
        if (className != L"button")
            return wrongKind("a check box");
        SetCheck(control, action.value != 0, name);
        return {};
    case ScriptActionKind::Combo:
        if (className != L"combobox")
            return wrongKind("a combo box");
        return ChooseItem(control, action, name);
    case ScriptActionKind::Edit:
        if (className.find(L"edit") == std::wstring::npos)
            return wrongKind("an edit");
        TypeText(control, action.text);
        return {};
    default:
        return "cannot carry out " + action.written;
    }
}

std::string PageSession::Poke(const ScriptAction& action) {
    ChipImageSnapshot images = TakeSnapshot(*m_chip, true);
    for (NamedImage& image : images) {
        if (image.name != action.image)
            continue;
        if (action.value + action.bytes.size() > image.bytes.size())
            return action.image + " holds " + std::to_string(image.bytes.size()) + " bytes; offset " +
                   std::to_string(action.value) + " with " + std::to_string(action.bytes.size()) +
                   " bytes runs past its end";
        std::copy(action.bytes.begin(), action.bytes.end(), image.bytes.begin() + action.value);
        StoreImage(*m_chip, image.name, image.bytes);
        Note("host wrote " + HexBytes(action.bytes) + " into " + action.image + " at " +
             std::to_string(action.value));
        return {};
    }
    return "unknown image " + action.image;
}

void PageSession::MoveSlider(HWND slider, int position) {
    SendMessageW(slider, TBM_SETPOS, TRUE, position);
    // The trackbar keeps the position inside its range; the page hears where it really is.
    const auto reached = static_cast<WORD>(SendMessageW(slider, TBM_GETPOS, 0, 0));
    const UINT scroll = (GetWindowLongPtrW(slider, GWL_STYLE) & TBS_VERT) ? WM_VSCROLL : WM_HSCROLL;
    SendMessageW(GetParent(slider), scroll, MAKEWPARAM(TB_THUMBPOSITION, reached),
                 reinterpret_cast<LPARAM>(slider));
    if (static_cast<int>(static_cast<short>(reached)) != position)
        Note("the slider stopped at " + std::to_string(static_cast<short>(reached)) +
             ", the end of its range");
}

void PageSession::SetCheck(HWND box, bool on, const std::string& name) {
    const bool checked = SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
    if (checked != on)
        SendMessageW(box, BM_CLICK, 0, 0);
    else
        Note(name + " is already " + (checked ? "on" : "off"));
}

void PageSession::TypeText(HWND edit, const std::string& text) {
    // Focus in, the new text, focus out: the edit tells the page itself (EN_KILLFOCUS) as it does when
    // an operator tabs away. The frame takes the focus, not the page, which would hand it straight
    // back to the edit.
    SetFocus(edit);
    const std::wstring wide = Wide(text);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    SetFocus(GetAncestor(m_page, GA_ROOT));
}
