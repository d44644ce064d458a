#include "dialogs/described/DescribedPage.h"

#include "descriptions/DescriptionFlow.h"
#include "descriptions/DescriptionFormula.h"
#include "descriptions/DescriptionLayout.h"
#include "descriptions/DescriptionReadouts.h"
#include "dialogs/common/HostRecords.h"
#include "framework/ModuleInstance.h"
#include "framework/NumberEdit.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "module/ModuleState.h"
#include "paramfiles/RegisterParamTable.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <optional>

using namespace chipdesc;

namespace {

std::wstring TranslateId(std::string_view id) {
    return Tr(Utf8ToWide(id));
}

// The class keeps a reference as a whole number: its decimals are dropped.
int KeptReference(const CNumberEdit& reference) {
    return static_cast<int>(reference.GetValue());
}

struct WindowKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD exStyle = 0;
};

WindowKind KindOf(Role role, const Field* field) {
    const Control control = field ? field->control : Control::None;
    switch (role) {
    case Role::GroupBox:
        return {L"BUTTON", BS_GROUPBOX};
    case Role::LinkSwitch:
    case Role::CurrentSwitch:
        return {L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP};
    case Role::Reference:
        return {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case Role::PageButton:
    case Role::DefaultButton:
    case Role::OkButton:
    case Role::CancelButton:
    case Role::CopyButton:
    case Role::PasteButton:
    case Role::TableButton:
        return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP};
    case Role::RegisterText:
        return {L"EDIT", ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case Role::Control:
        break;
    case Role::Grid:
        // Made as its grid takes it: the grid draws the titles, and its edit lies over the cells.
        return {WC_LISTVIEWW,
                LVS_REPORT | LVS_OWNERDATA | LVS_NOSORTHEADER | LVS_NOCOLUMNHEADER | WS_CLIPCHILDREN |
                    WS_TABSTOP,
                WS_EX_CLIENTEDGE};
    default: // a field's texts take the pointer, for its help
        return {L"STATIC", SS_LEFT | SS_NOPREFIX | (field && !field->help.text.empty() ? SS_NOTIFY : 0u)};
    }
    if (field->readOnly) // a lamp, or text the operator can read and copy but not change
        return control == Control::Check
                   ? WindowKind{L"BUTTON", BS_RADIOBUTTON}
                   : WindowKind{L"EDIT", ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    switch (control) {
    case Control::Slider:
        return {TRACKBAR_CLASSW, TBS_HORZ | TBS_BOTTOM | TBS_NOTICKS | WS_TABSTOP};
    case Control::Check:
        return {L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP};
    case Control::Combo:
        return {WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP};
    default:
        return {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    }
}

} // namespace

CDescribedPage::CDescribedPage(std::shared_ptr<const chipdesc::Description> description, IRegvane* chip,
                               const wchar_t* caption, HWND parent)
    : CChipDialog(CDescribedPage::kFallbackFrameTemplate, chip, parent,
                  description->page.title == Title::Caption ? caption : nullptr,
                  std::vector<CoveredRecord>(description->page.changeTest.begin(),
                                             description->page.changeTest.end())),
      m_description(std::move(description)), m_paramTable(ParamTableFor(*m_description, chip)),
      m_currentField(m_description->CurrentField()) {
    OpenPages().push_back(this);
    m_pageSettings.reference.fill(kReferenceDefault);
}

CDescribedPage::~CDescribedPage() {
    std::erase(OpenPages(), this);
}

BOOL CDescribedPage::Create(UINT templateId, HWND parent) {
    return CreateFrame(templateId, parent) || CreateFrame(kFallbackFrameTemplate, parent);
}

CDescribedPage::Bytes CDescribedPage::ReadSource(Source source) const {
    Bytes bytes{};
    if (Chip())
        ReadHostRecord(*Chip(), source, bytes.data());
    return bytes;
}

void CDescribedPage::WriteSource(Source source, Bytes& bytes) const {
    if (Chip())
        WriteHostRecord(*Chip(), source, bytes.data());
}

int CDescribedPage::ReportChange() {
    return Changes().Notify(ChipDiffersFromSnapshot(), m_description->page.notice == Notice::Either);
}

CDescribedPage::ClassSettings& CDescribedPage::Settings() const {
    if (!m_description->page.switchesPerClass)
        return m_pageSettings;
    static std::map<std::string, ClassSettings, std::less<>> settings;
    const auto [entry, added] = settings.try_emplace(m_description->page.className);
    if (added)
        entry->second.reference.fill(kReferenceDefault);
    return entry->second;
}

int& CDescribedPage::LinkSwitch() const {
    return Settings().linked;
}

std::vector<CDescribedPage*>& CDescribedPage::OpenPages() {
    static std::vector<CDescribedPage*> pages;
    return pages;
}

void CDescribedPage::ShowSwitchesOnPagesSharingThem() {
    // Another page of the class open beside this one shows what its sliders and read-outs now do.
    for (CDescribedPage* other : OpenPages())
        if (other != this && &other->Settings() == &Settings())
            other->ShowSwitches();
}

BOOL CDescribedPage::OnInitDialog() {
    const BOOL result = CChipDialog::OnInitDialog();
    WriteOnFillFields();
    return result;
}

void CDescribedPage::OnInitControls() {
    const Page& page = m_description->page;
    if (page.title == Title::Model) {
        SetWindowText(ChipModelName(Chip()) + L" " + TranslateId(page.titleString));
    }
    CreateControls();
    // A host value is shown, never edited; one the fills do not read is read when the page opens.
    const std::vector<Source> fillReads = m_description->RefreshReads();
    for (const Field& field : m_description->fields)
        if (IsHostValue(field.source) &&
            std::find(fillReads.begin(), fillReads.end(), field.source) == fillReads.end())
            ShowHostValue(field.source);
    for (ControlSlot& slot : m_slots)
        if (!FieldOf(slot).Editable() && !FieldOf(slot).readOnly)
            ::EnableWindow(slot.window, FALSE);
    AddHelp();
}

// The layout of a description in the language and the font in use. Measuring every text is most of
// what laying out costs, so each page class keeps the plan of its latest description, which every
// page of the class reuses until the description, the language or the font changes. The plan does
// not keep its description alive: a designer reloading a file, or a file changed in the host's
// folder, leaves one plan per class, never one per version.
const LayoutPlan& CDescribedPage::Plan(HFONT font) const {
    struct Cached {
        std::weak_ptr<const chipdesc::Description> description;
        std::wstring language;
        int baseX = 0, baseY = 0;
        LayoutPlan plan;
    };
    static std::map<std::string, Cached, std::less<>> plans;
    RECT units{0, 0, 4, 8};
    ::MapDialogRect(m_hWnd, &units);
    std::wstring language = Translator().PrimaryPath() + L"|" + Translator().FallbackPath();
    Cached& cached = plans[m_description->page.className];
    if (cached.description.lock() == m_description && cached.language == language &&
        cached.baseX == units.right && cached.baseY == units.bottom)
        return cached.plan;
    HDC dc = ::GetDC(m_hWnd);
    const HGDIOBJ oldFont = ::SelectObject(dc, font);
    LayoutTexts texts;
    texts.translate = TranslateId;
    texts.measure = [dc](std::wstring_view text) {
        SIZE size{};
        ::GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
        return static_cast<int>(size.cx);
    };
    cached = {m_description, std::move(language), units.right, units.bottom,
              PlanLayout(*m_description, texts, {units.right, units.bottom})};
    ::SelectObject(dc, oldFont);
    ::ReleaseDC(m_hWnd, dc);
    return cached.plan;
}

std::unique_ptr<CNumberEdit> CDescribedPage::MakeEdit(const PlannedWindow& planned, const Field* field) const {
    std::unique_ptr<CNumberEdit> edit;
    if (planned.role == Role::Control && field && field->control == Control::Number && !field->readOnly) {
        // Set up before it takes its window, and the window made with the value the chip held when
        // the page opened: the edit then needs no new text until the chip changes.
        LayoutTexts texts;
        texts.translate = TranslateId;
        edit = std::make_unique<CNumberEdit>();
        edit->SetRange(field->minimum, field->maximum);
        edit->SetStep(field->step);
        if (!field->unit.text.empty())
            edit->SetUnit(ItemText(field->unit, texts));
        edit->SetValue(static_cast<double>(SnapshotValue(*field, planned.colour)));
    } else if (planned.role == Role::Reference) {
        edit = std::make_unique<CNumberEdit>();
        edit->SetRange(kReferenceMin, kReferenceMax);
        edit->SetPrecision(m_description->fields[static_cast<std::size_t>(m_currentField)].referenceDecimals);
        edit->SetValue(Settings().reference[static_cast<std::size_t>(planned.colour)]);
    }
    return edit;
}

void CDescribedPage::AddControlSlot(const PlannedWindow& planned, HWND window, std::unique_ptr<CNumberEdit> edit) {
    const Field& field = m_description->fields[static_cast<std::size_t>(planned.field)];
    ControlSlot slot{planned.field, planned.colour, planned.id, window, nullptr, std::move(edit), {}};
    switch (field.readOnly ? Control::None : field.control) {
    case Control::Slider:
        ::SendMessageW(window, TBM_SETRANGEMIN, FALSE, static_cast<LPARAM>(field.minimum));
        ::SendMessageW(window, TBM_SETRANGEMAX, TRUE, static_cast<LPARAM>(field.maximum));
        // A position still inside the new range leaves Wine's thumb where the old range drew it.
        if (field.minimum < 0)
            ::SendMessageW(window, TBM_SETPOS, TRUE, static_cast<LPARAM>(field.minimum));
        break;
    case Control::Combo: {
        LayoutTexts texts;
        texts.translate = TranslateId;
        for (const Item& item : field.items) {
            const std::wstring itemText = ItemText(item, texts);
            ::SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(itemText.c_str()));
        }
        break;
    }
    case Control::Number:
        slot.edit->SubclassWindow(window);
        break;
    default:
        break;
    }
    m_slots.push_back(std::move(slot));
}

void CDescribedPage::CreateControls() {
    const HFONT font = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    // The room: the host's view, and never less than the class's own template, which hosts make room for.
    RECT frame{}, view{};
    ::GetClientRect(m_hWnd, &frame);
    ::GetClientRect(::GetParent(m_hWnd), &view);
    const PageArea area{std::max(frame.right, view.right), std::max(frame.bottom, view.bottom),
                        ::GetSystemMetrics(SM_CXVSCROLL)};
    const FlowedPlan flowed = FlowIntoColumns(Plan(font), area);
    const LayoutPlan& plan = flowed.plan;
    const std::vector<Field>& fields = m_description->fields;
    m_fieldWindows.assign(fields.size(), {});
    CNumberEdit* lastEdit = nullptr;
    for (const PlannedWindow& planned : plan.windows) {
        if (planned.role == Role::Spin) {
            if (lastEdit)
                lastEdit->EnableSpin(
                    RECT{planned.rect.left, planned.rect.top, planned.rect.right, planned.rect.bottom});
            continue;
        }
        const Field* field = planned.field >= 0 ? &fields[static_cast<std::size_t>(planned.field)] : nullptr;
        std::unique_ptr<CNumberEdit> edit = MakeEdit(planned, field);
        const std::wstring text = edit ? edit->Format(edit->GetValue()) : planned.text;
        const WindowKind kind = KindOf(planned.role, field);
        // As the dialog manager makes a template's controls: they do not notify the page of their
        // creation and destruction.
        HWND window = ::CreateWindowExW(kind.exStyle | WS_EX_NOPARENTNOTIFY, kind.windowClass, text.c_str(),
                                        WS_CHILD | WS_VISIBLE | kind.style, planned.rect.left,
                                        planned.rect.top, planned.rect.Width(), planned.rect.Height(), m_hWnd,
                                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(planned.id)),
                                        ResourceInstance(), nullptr);
        ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        if (field)
            m_fieldWindows[static_cast<std::size_t>(planned.field)].push_back(window);
        if (planned.role == Role::LinkSwitch)
            m_linkId = planned.id;
        if (NoteSectionWindow(planned, window))
            continue;
        if (edit)
            lastEdit = edit.get();
        switch (planned.role) {
        case Role::CurrentSwitch:
            m_currentSwitchId = planned.id;
            continue;
        case Role::PageButton:
            m_buttonIds.emplace_back(planned.id, planned.button);
            continue;
        case Role::Grid:
            AddGrid(planned, window, plan.gridColumns[static_cast<std::size_t>(planned.grid)]);
            continue;
        case Role::Reference:
            edit->SubclassWindow(window);
            m_current[static_cast<std::size_t>(planned.colour)].reference = std::move(edit);
            continue;
        case Role::Fraction:
            m_current[static_cast<std::size_t>(planned.colour)].fraction = window;
            continue;
        case Role::Current:
            m_current[static_cast<std::size_t>(planned.colour)].current = window;
            continue;
        default:
            break;
        }
        if (planned.role == Role::Readout) {
            for (ControlSlot& slot : m_slots)
                if (slot.field == planned.field && slot.colour == planned.colour)
                    slot.readout = window;
            continue;
        }
        if (planned.role == Role::Control)
            AddControlSlot(planned, window, std::move(edit));
    }
    FitToHostArea(plan, flowed.scrolls ? area.height : 0);
}

void CDescribedPage::FitToHostArea(const LayoutPlan& plan, int scrolledHeight) {
    if (!scrolledHeight) {
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, plan.width, plan.height,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, ::GetWindowLongPtrW(m_hWnd, GWL_STYLE) | WS_VSCROLL);
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, plan.width + ::GetSystemMetrics(SM_CXVSCROLL), scrolledHeight,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    RECT row{0, 0, 0, 16}; // a row of the layout, in dialog units
    ::MapDialogRect(m_hWnd, &row);
    m_scroller.Attach(m_hWnd, plan.height, row.bottom);
}

Value CDescribedPage::SnapshotValue(const chipdesc::Field& field, int colour) const {
    const std::span<const std::uint8_t> snapshot = Changes().Snapshot(field.source);
    return snapshot.empty() ? field.minimum : ReadValue(field, snapshot, colour);
}

void CDescribedPage::ShowValue(ControlSlot& slot, Value value) {
    if (FieldOf(slot).readOnly) {
        ShowReadOnlyValue(slot, value);
        return;
    }
    switch (FieldOf(slot).control) {
    case Control::Slider:
        ::SendMessageW(slot.window, TBM_SETPOS, TRUE, static_cast<LPARAM>(value));
        break;
    case Control::Check:
        ::SendMessageW(slot.window, BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED, 0);
        break;
    case Control::Combo:
        ShowItem(slot, value);
        break;
    case Control::Number:
        // An edit that holds the value already is left alone (and so is what an operator is typing
        // into it when the host has the chip read again).
        if (slot.edit->GetValue() != static_cast<double>(value))
            slot.edit->SetValue(static_cast<double>(value));
        break;
    case Control::Hex:
        slot.shownText = FormatHex(static_cast<std::uint32_t>(value), HexDigits(FieldOf(slot)));
        ::SetWindowTextW(slot.window, slot.shownText.c_str());
        break;
    case Control::None:
        break;
    }
}

Value CDescribedPage::ControlValue(const ControlSlot& slot) const {
    switch (FieldOf(slot).control) {
    case Control::Slider:
        return static_cast<int>(::SendMessageW(slot.window, TBM_GETPOS, 0, 0));
    case Control::Check:
        return ::SendMessageW(slot.window, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0;
    case Control::Combo:
        return ItemValue(slot);
    case Control::Number:
        return std::llround(slot.edit->GetValue());
    default:
        break;
    }
    return 0;
}

void CDescribedPage::ShowChipValue(ControlSlot& slot, Value value) {
    slot.value = value;
    ShowValue(slot, value);
    UpdateReadout(slot);
    UpdateReadoutsNaming(slot.field);
}

void CDescribedPage::UpdateReadout(const ControlSlot& slot) const {
    if (!slot.readout)
        return;
    // A field a formula names gives its value of the read-out's colour, or its only one.
    const auto valueOf = [&](int field) -> std::optional<std::int64_t> {
        const int colour =
            m_description->fields[static_cast<std::size_t>(field)].ControlCount() > 1 ? slot.colour : 0;
        for (const ControlSlot& named : m_slots)
            if (named.field == field && named.colour == colour)
                return named.value;
        return std::nullopt;
    };
    if (const auto text = ReadoutText(FieldOf(slot), slot.value, valueOf))
        ::SetWindowTextW(slot.readout, text->c_str());
}

void CDescribedPage::UpdateReadoutsNaming(int field) const {
    for (const ControlSlot& slot : m_slots) {
        const std::shared_ptr<const ReadoutFormula>& formula = FieldOf(slot).formula;
        if (slot.field != field && formula &&
            std::find(formula->fields.begin(), formula->fields.end(), field) != formula->fields.end())
            UpdateReadout(slot);
    }
}

void CDescribedPage::ShowHostValue(Source source) {
    const Value value = Chip() ? ReadHostValue(*Chip(), source) : 0;
    for (ControlSlot& slot : m_slots)
        if (FieldOf(slot).source == source)
            ShowChipValue(slot, value);
}

void CDescribedPage::RefreshFromChip() {
    std::array<Bytes, kSourceCount> records{};
    std::array<bool, kSourceCount> read{};
    for (const Source source : m_description->RefreshReads()) {
        if (IsHostValue(source)) {
            ShowHostValue(source);
            continue;
        }
        records[static_cast<std::size_t>(source)] = ReadSource(source);
        read[static_cast<std::size_t>(source)] = true;
    }
    ShowRecords(records, read);
    WriteOnFillFields();
    ShowSwitches();
    UpdateRegisterText();
    TellRulesTheChipBreaks();
}

void CDescribedPage::ShowRecords(const std::array<Bytes, kSourceCount>& records,
                                 const std::array<bool, kSourceCount>& read) {
    auto wasRead = [&](const Field& field) { return read[static_cast<std::size_t>(field.source)]; };
    for (ControlSlot& slot : m_slots) {
        const Field& field = FieldOf(slot);
        if (IsHostValue(field.source) || !wasRead(field))
            continue;
        ShowChipValue(slot, ReadValue(field, records[static_cast<std::size_t>(field.source)], slot.colour));
    }
    ShowGrids(records, read);
    ShowFieldsTheyAllow(records, read);
}

void CDescribedPage::ShowFieldsTheyAllow(const std::array<Bytes, kSourceCount>& records,
                                         const std::array<bool, kSourceCount>& read) {
    const std::vector<Field>& fields = m_description->fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int condition = fields[i].showIf;
        if (condition < 0)
            continue;
        const Field& state = fields[static_cast<std::size_t>(condition)];
        const auto source = static_cast<std::size_t>(state.source);
        if (!read[source])
            continue;
        const bool shown = ReadValue(state, records[source], 0) != 0;
        for (HWND window : m_fieldWindows[i])
            ::ShowWindow(window, shown ? SW_SHOW : SW_HIDE);
    }
}

CDescribedPage::ControlSlot* CDescribedPage::SlotWithId(UINT id) {
    for (ControlSlot& slot : m_slots)
        if (slot.id == static_cast<int>(id))
            return &slot;
    return nullptr;
}

CDescribedPage::ControlSlot* CDescribedPage::SlotWithWindow(HWND window) {
    for (ControlSlot& slot : m_slots)
        if (window && slot.window == window)
            return &slot;
    return nullptr;
}

void CDescribedPage::ChangeField(int fieldIndex, const ColourValues& values, const ColourFlags& touched) {
    std::vector<const Rule*> warnings;
    if (!RulesAllowChange(fieldIndex, values, warnings))
        return;
    const Field& field = m_description->fields[static_cast<std::size_t>(fieldIndex)];
    const Page& page = m_description->page;
    Bytes record = ReadSource(field.source);
    // Records the chip wants handed back with every write, unchanged.
    std::vector<std::pair<Source, Bytes>> carried;
    for (const Source source : page.carry)
        if (source != field.source)
            carried.emplace_back(source, ReadSource(source));
    const auto copies = static_cast<int>(field.positions.size());
    for (int copy = 0; copy < copies; ++copy) {
        const int colour = field.colours == Colours::Equal || field.colours == Colours::None ? 0 : copy;
        if (touched[static_cast<std::size_t>(colour)])
            WriteValue(field, record, copy, values[static_cast<std::size_t>(colour)]);
    }
    WriteSource(field.source, record);
    for (auto& [source, bytes] : carried)
        WriteSource(source, bytes);
    if (page.refreshAfterChange) {
        RefreshFromChip();
    } else {
        // What the chip now holds, cut to the field's width, whatever the control shows.
        for (ControlSlot& slot : m_slots)
            if (slot.field == fieldIndex && touched[static_cast<std::size_t>(slot.colour)]) {
                slot.value = ReadValue(field, record, slot.colour);
                UpdateReadout(slot);
            }
        UpdateReadoutsNaming(fieldIndex);
        // A field the operator just set may be what shows or hides others.
        std::array<Bytes, kSourceCount> records{};
        std::array<bool, kSourceCount> read{};
        records[static_cast<std::size_t>(field.source)] = record;
        read[static_cast<std::size_t>(field.source)] = true;
        ShowGrids(records, read);
        ShowFieldsTheyAllow(records, read);
        UpdateRegisterText();
    }
    if (fieldIndex == m_currentField && Settings().showCurrent)
        for (int colour = 0; colour < m_description->page.colourCount; ++colour)
            UpdateCurrent(colour);
    ReportChange();
    TellRules(warnings);
}

void CDescribedPage::OnControlChanged(ControlSlot& slot) {
    const Field& field = FieldOf(slot);
    // A code no item names stays as the chip holds it until the operator picks an item.
    if (!CanWrite() || !field.Editable() || (field.control == Control::Combo && ShowsUnnamedValue(slot)))
        return;
    ColourValues values{};
    ColourFlags touched{};
    const Value value = ControlValue(slot);
    if (field.colours == Colours::Linked) {
        // Every change writes every colour; linked, the moved control sets the others, else they keep
        // what the chip holds.
        const bool linked = LinkSwitch() != 0;
        for (ControlSlot& other : m_slots) {
            if (other.field != slot.field)
                continue;
            if (linked && &other != &slot)
                ShowValue(other, value);
            values[static_cast<std::size_t>(other.colour)] = linked || &other == &slot ? value : other.value;
            touched[static_cast<std::size_t>(other.colour)] = linked || &other == &slot ||
                                                              field.control != Control::Combo ||
                                                              ItemOf(field, other.value) >= 0;
        }
    } else {
        values[static_cast<std::size_t>(slot.colour)] = value;
        touched[static_cast<std::size_t>(slot.colour)] = true;
    }
    ChangeField(slot.field, values, touched);
}

void CDescribedPage::OnHexEdited(ControlSlot& slot) {
    // Focus may move while the page is being built; nothing the operator typed is pending then.
    if (!CanWrite() || !FieldOf(slot).Editable())
        return;
    const std::wstring typed = CWnd(slot.window).GetWindowText();
    const Field& field = FieldOf(slot);
    const std::optional<std::uint32_t> value = ParseHex(typed, HexDigits(field));
    if (!value || *value > field.maximum) {
        // A byte's hex edit says what the register editor's do; a wider one says how far it goes.
        std::wstring tip = Tr(field.Width() == 8 ? L"IDS_INPUT_TIP" : L"IDS_HexValueTip");
        if (const std::size_t at = tip.find(L"{max}"); at != std::wstring::npos)
            tip.replace(at, 5, FormatHex(static_cast<std::uint32_t>(field.maximum), HexDigits(field)));
        MsgBox(m_hWnd, tip, ApplicationName(), MB_OK | MB_ICONINFORMATION);
        ::SetWindowTextW(slot.window, slot.shownText.c_str());
        return;
    }
    ShowValue(slot, *value);
    ColourValues values{};
    ColourFlags touched{};
    values[static_cast<std::size_t>(slot.colour)] = *value;
    touched[static_cast<std::size_t>(slot.colour)] = true;
    ChangeField(slot.field, values, touched);
}

bool CDescribedPage::PatchRecords(const std::function<bool(const Field&)>& picks, const FieldValue& valueOf,
                                  bool onlyWhenChanged) {
    // Each record holding a picked field is read and written once; the page then shows what it wrote.
    const std::vector<Field>& fields = m_description->fields;
    std::array<Bytes, kSourceCount> records{};
    std::array<bool, kSourceCount> written{};
    for (const Source source : m_description->RecordsInUse()) {
        auto picked = [&](const Field& f) { return f.source == source && picks(f); };
        if (std::none_of(fields.begin(), fields.end(), picked))
            continue;
        const Bytes read = ReadSource(source);
        Bytes& record = records[static_cast<std::size_t>(source)];
        record = read;
        for (const Field& field : fields)
            if (picked(field))
                for (int copy = 0; copy < static_cast<int>(field.positions.size()); ++copy)
                    if (const std::optional<int> value = valueOf(field, read, copy))
                        WriteValue(field, record, copy, *value);
        if (onlyWhenChanged && record == read)
            continue;
        WriteSource(source, record);
        written[static_cast<std::size_t>(source)] = true;
    }
    ShowRecords(records, written);
    return std::find(written.begin(), written.end(), true) != written.end();
}

void CDescribedPage::WriteDefaults() {
    if (!CanWrite())
        return;
    PatchRecords([](const Field& f) { return f.defaultValue.has_value(); },
                 [](const Field& f, const Bytes&, int) { return f.defaultValue; }, false);
    if (m_currentSwitchId)
        UpdateCurrentGroup();
    ReportChange();
    UpdateRegisterText();
}

void CDescribedPage::WriteOnFillFields() {
    if (!CanWrite())
        return;
    const bool written =
        PatchRecords([](const Field& f) { return f.onFill != OnFill::Nothing; },
                     [this](const Field& f, const Bytes& read, int copy) -> std::optional<Value> {
                         // The chip keeps the count's low bits, so only they are taken,
                         // whatever the host says.
                         if (f.onFill == OnFill::HostCount)
                             return static_cast<Value>(Chip()->GetCount() & 0xFFFFFFu);
                         // A code no item names is left as it is.
                         const Value value = ReadValue(f, read, copy);
                         if (f.control == Control::Combo && ItemOf(f, value) < 0)
                             return std::nullopt;
                         return value;
                     },
                     true);
    if (written) {
        ReportChange();
        UpdateRegisterText();
    }
}

bool CDescribedPage::OnHScroll(UINT code, UINT position, HWND scrollBar) {
    ControlSlot* slot = SlotWithWindow(scrollBar);
    if (!slot || FieldOf(*slot).control != Control::Slider)
        return false;
    OnControlChanged(*slot);
    return true;
}

bool CDescribedPage::OnVScroll(UINT code, UINT position, HWND scrollBar) {
    INT_PTR result = 0;
    return m_scroller.OnMessage(WM_VSCROLL, MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(scrollBar),
                                result);
}

bool CDescribedPage::OnOtherMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) {
    return m_scroller.OnMessage(message, wParam, lParam, result);
}

void CDescribedPage::ApplyHostRanges() {
    // Asked of the host each time the page is shown, once whatever the number of fields using it.
    std::optional<std::pair<int, int>> gainRange;
    for (ControlSlot& slot : m_slots) {
        const Field& field = FieldOf(slot);
        if (field.hostRange.empty())
            continue;
        if (!gainRange)
            gainRange = HostGainBytes();
        Value minimum = gainRange->first;
        Value maximum = gainRange->second;
        if (!field.hostRangeAsGiven) {
            // Lowest first, within what the field holds; a range outside it leaves the field's own.
            const auto [lowest, highest] = std::minmax(gainRange->first, gainRange->second);
            minimum = std::max<Value>(lowest, field.minimum);
            maximum = std::min<Value>(highest, field.maximum);
            if (minimum > maximum) {
                minimum = field.minimum;
                maximum = field.maximum;
            }
        }
        if (field.control == Control::Slider) {
            ::SendMessageW(slot.window, TBM_SETRANGEMIN, FALSE, static_cast<LPARAM>(minimum));
            ::SendMessageW(slot.window, TBM_SETRANGEMAX, TRUE, static_cast<LPARAM>(maximum));
        } else if (slot.edit) {
            slot.edit->SetRange(static_cast<double>(minimum), static_cast<double>(maximum));
        }
    }
}

void CDescribedPage::OnNumberEditChanged(UINT id, HWND edit) {
    for (int colour = 0; colour < m_description->page.colourCount; ++colour) {
        const CurrentColour& current = m_current[static_cast<std::size_t>(colour)];
        if (!current.reference || current.reference->GetSafeHwnd() != edit)
            continue;
        Settings().reference[static_cast<std::size_t>(colour)] = KeptReference(*current.reference);
        if (Settings().showCurrent)
            UpdateCurrent(colour);
        ShowSwitchesOnPagesSharingThem();
        return;
    }
    if (ControlSlot* slot = SlotWithId(id); slot && FieldOf(*slot).control == Control::Number)
        OnControlChanged(*slot);
}

bool CDescribedPage::OnCommand(UINT code, UINT id, HWND control) {
    if (code == BN_CLICKED && m_linkId && id == static_cast<UINT>(m_linkId)) {
        LinkSwitch() = IsButtonChecked(m_linkId) ? 1 : 0;
        ShowSwitchesOnPagesSharingThem();
        return true;
    }
    if (code == BN_CLICKED && m_currentSwitchId && id == static_cast<UINT>(m_currentSwitchId)) {
        Settings().showCurrent = IsButtonChecked(m_currentSwitchId) ? 1 : 0;
        UpdateCurrentGroup();
        ShowSwitchesOnPagesSharingThem();
        return true;
    }
    if (OnSectionCommand(code, id))
        return true;
    const int defaultId = m_description->page.defaultId ? m_description->page.defaultId : kDefaultButtonId;
    if (code == BN_CLICKED && id == static_cast<UINT>(defaultId) && m_description->page.defaultButton) {
        WriteDefaults();
        return true;
    }
    if (code == BN_CLICKED && OnPageButton(id))
        return true;
    if (ControlSlot* slot = SlotWithId(id)) {
        const Control kind = FieldOf(*slot).control;
        if ((kind == Control::Combo && code == CBN_SELCHANGE) ||
            (kind == Control::Check && code == BN_CLICKED)) {
            OnControlChanged(*slot);
            return true;
        }
        if (kind == Control::Hex && code == EN_KILLFOCUS) {
            OnHexEdited(*slot);
            return true;
        }
    }
    return CChipDialog::OnCommand(code, id, control);
}
