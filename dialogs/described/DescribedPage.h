// The page a chip description renders. It is a chip page like the hand-written ones: it snapshots the
// records its description's change test names when it is constructed, translates and titles itself,
// and every change of a control runs one cycle: read the field's record (and the records the chip
// wants handed back with it), patch the field into every colour copy it has, write back, change test.
// Its controls are laid out from the description inside the page class's template frame.
#pragma once

#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionLayout.h"
#include "dialogs/common/ChipDialog.h"
#include "dialogs/described/PageScroller.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CNumberEdit;
class CVirtualGrid;
class RegisterParamTable;
namespace chipdesc {
struct Rule; // DescriptionRules.h
}

// Texts of a description as the page shows them: string ids through the module's translator.
chipdesc::LayoutTexts TranslatedLayoutTexts();

class CDescribedPage : public CChipDialog {
public:
    // The template is the page class's own; only its frame is used (style, size, caption, font).
    CDescribedPage(std::shared_ptr<const chipdesc::Description> description, IRegvane* chip,
                   const wchar_t* caption, HWND parent);
    ~CDescribedPage() override;

    BOOL Create(UINT templateId, HWND parent) override;
    const char* DialogClassName() const override { return m_description->page.className.c_str(); }
    const chipdesc::Description& Description() const { return *m_description; }

    // The frame of pages whose class has no template of its own (a description of a class the chip
    // table does not list, opened in the workbench's designer).
    static constexpr UINT kFallbackFrameTemplate = 8224;

protected:
    BOOL OnInitDialog() override;
    void OnInitControls() override;
    void RefreshFromChip() override;
    bool OnCommand(UINT code, UINT id, HWND control) override;
    bool OnHScroll(UINT code, UINT position, HWND scrollBar) override;
    bool OnVScroll(UINT code, UINT position, HWND scrollBar) override;
    bool OnOtherMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) override;
    void OnNumberEditChanged(UINT id, HWND edit) override;
    void ApplyHostRanges() override;
    bool ChipDiffersFromSnapshot() override;
    void RestoreSnapshot() override;
    void OnDestroy() override;
    bool OnNotify(NMHDR* header, LRESULT& result) override;

private:
    using Bytes = std::array<std::uint8_t, kLargestHostRecord>;
    struct ControlSlot {
        int field;
        int colour;
        int id;
        HWND window = nullptr;
        HWND readout = nullptr;
        std::unique_ptr<CNumberEdit> edit;
        std::wstring shownText; // what a hex edit showed before the operator typed
        // What the chip holds, as decoded from it or as last written: read-outs and writes of the
        // other colours take it, whatever the control can show.
        chipdesc::Value value = 0;
    };

    const chipdesc::Field& FieldOf(const ControlSlot& slot) const {
        return m_description->fields[static_cast<std::size_t>(slot.field)];
    }
    ControlSlot* SlotWithId(UINT id);
    ControlSlot* SlotWithWindow(HWND window);

    Bytes ReadSource(chipdesc::Source source) const;
    void WriteSource(chipdesc::Source source, Bytes& bytes) const;

    const chipdesc::LayoutPlan& Plan(HFONT font) const;
    void CreateControls();
    // The page as big as its columns; one taller than the host's room is that tall (scrolledHeight)
    // and scrolls.
    void FitToHostArea(const chipdesc::LayoutPlan& plan, int scrolledHeight);
    // The numeric edit a planned window needs (a number field's, a reference's), or null.
    std::unique_ptr<CNumberEdit> MakeEdit(const chipdesc::PlannedWindow& planned,
                                          const chipdesc::Field* field) const;
    void AddControlSlot(const chipdesc::PlannedWindow& planned, HWND window,
                        std::unique_ptr<CNumberEdit> edit);
    // What the chip held for a field when the page opened, where the snapshot has it.
    chipdesc::Value SnapshotValue(const chipdesc::Field& field, int colour) const;
    void ShowValue(ControlSlot& slot, chipdesc::Value value);
    chipdesc::Value ControlValue(const ControlSlot& slot) const;
    // A combo selects the item naming the value, or an entry of the value's number after its items.
    void ShowItem(const ControlSlot& slot, chipdesc::Value value) const;
    // The value of the item chosen; the chip's value while the number entry is.
    chipdesc::Value ItemValue(const ControlSlot& slot) const;
    // The combo shows a value no item names.
    bool ShowsUnnamedValue(const ControlSlot& slot) const;
    // A value only shown: its text, or a lamp lit while it is not zero.
    void ShowReadOnlyValue(const ControlSlot& slot, chipdesc::Value value) const;
    // The help of each field that has one, over its label and its controls.
    void AddHelp();
    // Cancel's records: what the page saw, but the values it only shows as the chip holds them now.
    void RestoreRecords();
    // The chip's value kept, shown as far as the control can, and read out.
    void ShowChipValue(ControlSlot& slot, chipdesc::Value value);
    void UpdateReadout(const ControlSlot& slot) const;
    // Read-outs of other fields whose formulas name this one.
    void UpdateReadoutsNaming(int field) const;
    // A host value read and shown in the fields showing it.
    void ShowHostValue(chipdesc::Source source);
    // Shows the fields of the records marked read.
    void ShowRecords(const std::array<Bytes, chipdesc::kSourceCount>& records,
                     const std::array<bool, chipdesc::kSourceCount>& read);
    // Shows or hides the fields whose show-if field lies in a record marked read.
    void ShowFieldsTheyAllow(const std::array<Bytes, chipdesc::kSourceCount>& records,
                             const std::array<bool, chipdesc::kSourceCount>& read);

    // The cycle of one change: values[colour] go into the colours the change touches.
    using ColourValues = std::array<chipdesc::Value, chipdesc::kMaxColours>;
    using ColourFlags = std::array<bool, chipdesc::kMaxColours>;
    void ChangeField(int field, const ColourValues& values, const ColourFlags& touched);
    void OnControlChanged(ControlSlot& slot);
    void OnHexEdited(ControlSlot& slot);
    // Writes valueOf(field, record as read, colour copy) into every copy of each field `picks` picks,
    // record by record, leaving a copy it gives nothing for; true when a record was written.
    using FieldValue =
        std::function<std::optional<chipdesc::Value>(const chipdesc::Field&, const Bytes&, int)>;
    bool PatchRecords(const std::function<bool(const chipdesc::Field&)>& picks, const FieldValue& valueOf,
                      bool onlyWhenChanged);
    void WriteDefaults();
    // The fields the chip wants written whenever the page fills itself (copies made equal again, the
    // host's count): written, shown and reported when that changes the chip.
    void WriteOnFillFields();
    // The change test under the description's notice rule (OK's always ends with UpdateHostState).
    int ReportChange();
    // The output-current read-out, when the description has one.
    void UpdateCurrentGroup();
    void UpdateCurrent(int colour);

    // The description's rules (DescribedRules.cpp). False: the change breaks a rule that refuses it,
    // the field's controls show the chip's value again; `warnings`: the rules it breaks that warn.
    bool RulesAllowChange(int field, const ColourValues& values,
                          std::vector<const chipdesc::Rule*>& warnings);
    void TellRulesTheChipBreaks();
    void TellRules(const std::vector<const chipdesc::Rule*>& rules) const;
    std::optional<std::int64_t> RuleValue(int field) const;

    // The description's buttons (DescribedButtons.cpp). False: no such button.
    bool OnPageButton(UINT id);
    void CallChipFunction(const chipdesc::Button& button);
    // The table of the page class, for descriptions with an export or import button.
    static std::unique_ptr<RegisterParamTable> ParamTableFor(const chipdesc::Description& description,
                                                             IRegvane* chip);

    // The description's grids (DescribedGrids.cpp): each cell edit is the cycle of the cell's field.
    void AddGrid(const chipdesc::PlannedWindow& planned, HWND list, const std::vector<int>& widths);
    // The grids on the records marked read show them.
    void ShowGrids(const std::array<Bytes, chipdesc::kSourceCount>& records,
                   const std::array<bool, chipdesc::kSourceCount>& read);
    struct ShownGrid;
    std::vector<std::shared_ptr<ShownGrid>> m_grids; // shared: complete only in DescribedGrids.cpp

    // Kept per page class for the life of the module: a reopened page starts with the operator's
    // last choices, and a page of another class keeps its own.
    struct ClassSettings {
        int linked = 0;
        int showCurrent = 0;
        std::array<int, chipdesc::kMaxColours> reference{}; // whole numbers, whatever the edits take
    };
    ClassSettings& Settings() const;
    int& LinkSwitch() const;
    // The switches and references as the settings hold them.
    void ShowSwitches();
    void ShowSwitchesOnPagesSharingThem();
    static std::vector<CDescribedPage*>& OpenPages();

    // The register text and the tables (DescribedPageSections.cpp): true for a window of theirs.
    bool NoteSectionWindow(const chipdesc::PlannedWindow& planned, HWND window);
    void UpdateRegisterText();
    void CopyRegisterText();
    void PasteRegisterText();
    void LoadTable(std::size_t index);
    bool OnSectionCommand(UINT code, UINT id);
    HWND m_registerText = nullptr;
    int m_copyId = 0;
    int m_pasteId = 0;
    std::vector<int> m_tableIds;

    std::shared_ptr<const chipdesc::Description> m_description;
    std::unique_ptr<RegisterParamTable> m_paramTable; // its snapshot is part of the change test
    std::vector<std::pair<int, int>> m_buttonIds;     // a button's control id, its index
    std::vector<ControlSlot> m_slots;
    std::vector<std::vector<HWND>> m_fieldWindows; // label, controls and read-outs of each field
    int m_linkId = 0;
    struct CurrentColour {
        std::unique_ptr<CNumberEdit> reference;
        HWND fraction = nullptr;
        HWND current = nullptr;
    };
    mutable ClassSettings m_pageSettings; // when the description keeps them per page
    int m_currentField = -1;
    int m_currentSwitchId = 0;
    std::array<CurrentColour, chipdesc::kMaxColours> m_current;
    HWND m_help = nullptr;                          // the tooltips of the fields' help
    std::vector<const chipdesc::Rule*> m_rulesTold; // broken, and the operator told
    CPageScroller m_scroller;
};
