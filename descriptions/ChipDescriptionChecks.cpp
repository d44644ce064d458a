// Finishing a description once every line is read: each field's positions and range from what its
// keys said, the keys that only make sense together, and what the fields and the page say of each
// other.
#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>

namespace chipdesc::detail {

namespace {

// The id lists of a current read-out, each with the key that gives it.
std::array<std::pair<const char*, const std::vector<int>*>, 3> CurrentIdLists(const Field& field) {
    return {{{"reference-ids", &field.referenceIds},
             {"fraction-ids", &field.fractionIds},
             {"current-ids", &field.currentIds}}};
}

} // namespace

// False when there is nothing to check: no page or no field (not said again when a refused header
// may have been one).
bool Parser::CheckSections() {
    if (!m_havePage || m_drafts.empty()) {
        if (m_problems.count == 0)
            Fail(m_lastLine, ErrorCode::NoFields, "");
        return false;
    }
    if (m_description.page.className.empty())
        Fail(m_page.line, ErrorCode::MissingKey, "class");
    return true;
}

bool Parser::FinishField(FieldDraft& draft) {
    Field& field = draft.field;
    if (!draft.Has("control"))
        return Fail(field.line, ErrorCode::MissingKey, "control");
    if (field.control != Control::None && field.label.text.empty())
        return Fail(field.line, ErrorCode::MissingKey, "label");
    const bool placed =
        IsHostValue(field.source) ? FinishHostValue(draft) : PlaceBits(draft) && CheckBits(draft);
    return placed && CheckSign(draft) && FitRange(draft) && CheckControlHolds(draft) &&
           CheckKeysAgree(draft) && CheckCurrentKeys(draft) && CheckReadOnly(draft);
}

// A value the host reports has no bits, one value, and a range of its own.
bool Parser::FinishHostValue(FieldDraft& draft) {
    const Field& field = draft.field;
    if (draft.Has("bits"))
        return Fail(draft.LineOf("bits"), ErrorCode::BadValue, "bits");
    if (field.colours != Colours::None)
        return Fail(draft.LineOf("colours"), ErrorCode::BadValue, "colours");
    if (field.control != Control::Slider && field.control != Control::Number &&
        field.control != Control::None)
        return Fail(draft.LineOf("control"), ErrorCode::BadValue, "control");
    if (!draft.Has("range"))
        return Fail(field.line, ErrorCode::MissingKey, "range");
    return true;
}

// A position per colour copy: one each as the bits give them, or the first colour's repeated at the
// stride; all of them moved by the field's offset.
bool Parser::PlaceBits(FieldDraft& draft) {
    Field& field = draft.field;
    const int colours = m_description.page.colourCount;
    if (draft.alternatives.empty())
        return Fail(field.line, ErrorCode::MissingKey, "bits");
    if (draft.alternatives.size() != 1 &&
        (field.colours == Colours::None || static_cast<int>(draft.alternatives.size()) != colours))
        return Fail(draft.LineOf("bits"), ErrorCode::BadBits, "|");
    const int stride = draft.fieldStride > 0 ? draft.fieldStride : m_description.page.stride;
    const int copies = field.colours == Colours::None ? 1 : colours;
    for (int colour = 0; colour < copies; ++colour) {
        const bool repeated = draft.alternatives.size() == 1;
        Position position = draft.alternatives[repeated ? 0 : static_cast<std::size_t>(colour)];
        for (BitRun& run : position.runs)
            for (BitCopy& copy : run.copies) {
                const int byte = copy.byte + draft.offset + (repeated ? colour * stride : 0);
                if (byte < 0 || byte > 0xFFFF)
                    return Fail(draft.LineOf("bits"), ErrorCode::OutsideRecord, std::to_string(byte));
                copy.byte = static_cast<std::uint16_t>(byte);
            }
        field.positions.push_back(std::move(position));
    }
    return true;
}

// Every copy inside the record, every colour as wide, and a coding's bits within that width.
bool Parser::CheckBits(FieldDraft& draft) {
    const Field& field = draft.field;
    const int bitsLine = draft.LineOf("bits");
    int width = -1;
    const std::size_t bytes = SourceBytes(field.source);
    for (const Position& position : field.positions) {
        int positionWidth = 0;
        for (const BitRun& run : position.runs) {
            positionWidth += run.width;
            for (const BitCopy& copy : run.copies)
                if (copy.byte >= bytes)
                    return Fail(bitsLine, ErrorCode::OutsideRecord,
                                std::to_string(copy.byte) + " (" + std::string(SourceName(field.source)) +
                                    ", " + std::to_string(bytes) + " bytes)");
        }
        if (positionWidth > kMaxFieldBits || (width >= 0 && positionWidth != width))
            return Fail(bitsLine, ErrorCode::BadBits, std::to_string(positionWidth) + " bits");
        width = positionWidth;
    }
    const Value mask = (Value{1} << width) - 1;
    if ((field.coding == Coding::Xor || field.coding == Coding::Set) && (field.codingArgument & ~mask))
        return Fail(draft.LineOf("coding"), ErrorCode::RangeDoesNotFit, std::to_string(field.codingArgument));
    return true;
}

// The values the control offers: its items, a check's two, a byte, or the range within what the
// field can hold.
bool Parser::FitRange(FieldDraft& draft) {
    Field& field = draft.field;
    const auto [low, high] =
        IsHostValue(field.source) ? std::pair{field.minimum, field.maximum} : CodableRange(field);
    switch (field.control) {
    case Control::Combo: {
        if (field.items.empty())
            return Fail(field.line, ErrorCode::MissingKey, "items");
        const auto [lowest, highest] = std::minmax_element(field.itemCodes.begin(), field.itemCodes.end());
        if (*lowest < low || *highest > high)
            return Fail(draft.LineOf("items"), ErrorCode::ItemsDoNotFit, std::to_string(field.Width()));
        field.minimum = *lowest;
        field.maximum = *highest;
        return true;
    }
    case Control::Check:
        if (low != 0 || high < 1)
            return Fail(draft.LineOf("bits"), ErrorCode::RangeDoesNotFit, "0..1");
        field.minimum = 0;
        field.maximum = 1;
        return true;
    case Control::Hex:
        if (field.readOnly || !draft.gridName.empty()) // shown in as many digits as it takes
            break;
        if (field.coding != Coding::Plain)
            return Fail(draft.LineOf("coding"), ErrorCode::BadValue, "hex");
        field.minimum = 0;
        field.maximum = high;
        return true;
    default:
        break;
    }
    if (!draft.Has("range")) {
        field.minimum = low;
        field.maximum = high;
    } else if (!field.cutToWidth && !IsHostValue(field.source) &&
               (field.minimum < low || field.maximum > high)) {
        return Fail(draft.LineOf("range"), ErrorCode::RangeDoesNotFit,
                    std::to_string(field.minimum) + ".." + std::to_string(field.maximum));
    }
    return true;
}

// Keys that belong to a kind of control or of value, refused on any other.
bool Parser::CheckKeysAgree(FieldDraft& draft) {
    const Field& field = draft.field;
    if (!field.items.empty() && field.control != Control::Combo)
        return Fail(draft.LineOf("items"), ErrorCode::BadValue, "items");
    if (field.defaultValue && (*field.defaultValue < field.minimum || *field.defaultValue > field.maximum))
        return Fail(draft.LineOf("default"), ErrorCode::RangeDoesNotFit, std::to_string(*field.defaultValue));
    if (field.defaultValue && !field.Editable())
        return Fail(draft.LineOf("default"), ErrorCode::BadValue, "default");
    if (field.defaultValue && field.control == Control::Combo && ItemOf(field, *field.defaultValue) < 0)
        return Fail(draft.LineOf("default"), ErrorCode::RangeDoesNotFit, std::to_string(*field.defaultValue));
    const std::size_t controls = static_cast<std::size_t>(field.ControlCount());
    if (draft.Has("ids") && (field.ids.size() != controls || field.control == Control::None))
        return Fail(draft.LineOf("ids"), ErrorCode::BadValue, "ids");
    if (draft.Has("readout-ids") && (field.readoutIds.size() != controls || field.readout.empty()))
        return Fail(draft.LineOf("readout-ids"), ErrorCode::BadValue, "readout-ids");
    if (draft.Has("readout") && field.control == Control::None)
        return Fail(draft.LineOf("readout"), ErrorCode::BadValue, "readout");
    // A host value has no place of its own to write; the host's count is one value, shown at most.
    const bool countFits = field.colours == Colours::None &&
                           (field.control == Control::None || field.control == Control::Number);
    if (draft.Has("on-fill") &&
        (IsHostValue(field.source) || (field.onFill == OnFill::HostCount && !countFits)))
        return Fail(draft.LineOf("on-fill"), ErrorCode::BadValue, "on-fill");
    if ((draft.Has("step") || draft.Has("unit")) && field.control != Control::Number)
        return Fail(draft.LineOf(draft.Has("step") ? "step" : "unit"), ErrorCode::BadValue, "number");
    if (draft.Has("host-range") &&
        (!field.Editable() || (field.control != Control::Slider && field.control != Control::Number)))
        return Fail(draft.LineOf("host-range"), ErrorCode::BadValue, "host-range");
    return true;
}

// The current read-out belongs to a value per colour that the operator sets.
bool Parser::CheckCurrentKeys(FieldDraft& draft) {
    const Field& field = draft.field;
    const auto colours = static_cast<std::size_t>(m_description.page.colourCount);
    if (draft.Has("current") && (!field.PerColour() || !field.Editable()))
        return Fail(draft.LineOf("current"), ErrorCode::BadValue, "current");
    for (const char* key :
         {"current-switch-id", "reference-ids", "fraction-ids", "current-ids", "reference-decimals"})
        if (draft.Has(key) && field.current.empty())
            return Fail(draft.LineOf(key), ErrorCode::MissingKey, "current");
    for (const auto& [key, ids] : CurrentIdLists(field))
        if (!ids->empty() && ids->size() != colours)
            return Fail(draft.LineOf(key), ErrorCode::BadValue, key);
    return true;
}

// A value the page only shows, as a number, hex digits, an item's text or a lamp: nothing may write
// it (a default, a host range and a current read-out are refused as for any value not edited).
bool Parser::CheckReadOnly(FieldDraft& draft) {
    const Field& field = draft.field;
    if (!field.readOnly)
        return true;
    if (field.control == Control::Slider || field.control == Control::None)
        return Fail(draft.LineOf("access"), ErrorCode::BadValue, "read-only");
    if (field.colours == Colours::Linked)
        return Fail(draft.LineOf("colours"), ErrorCode::BadValue, "linked");
    if (draft.Has("on-fill"))
        return Fail(draft.LineOf("on-fill"), ErrorCode::BadValue, "on-fill");
    return true;
}

// A show-if names another field; linked colours need the page's switch.
bool Parser::ConnectFields() {
    for (std::size_t i = 0; i < m_drafts.size(); ++i) {
        FieldDraft& draft = m_drafts[i];
        if (draft.broken)
            continue;
        if (!draft.showIfName.empty()) {
            const auto found = std::find_if(m_drafts.begin(), m_drafts.end(), [&](const FieldDraft& d) {
                return d.field.name == draft.showIfName;
            });
            if (found == m_drafts.end() || found == m_drafts.begin() + static_cast<std::ptrdiff_t>(i))
                draft.broken = !Fail(draft.LineOf("show-if"), ErrorCode::UnknownField, draft.showIfName);
            else
                draft.field.showIf = static_cast<int>(found - m_drafts.begin());
        }
        if (draft.field.colours == Colours::Linked && m_description.page.link.text.empty())
            draft.broken = !Fail(draft.LineOf("colours"), ErrorCode::MissingKey, "link");
    }
    return true;
}

// A Default button needs a field's default, its id the button; one current read-out a page.
bool Parser::CheckPageKeys() {
    const Page& page = m_description.page;
    if (page.defaultButton && !AnyFieldBroken() &&
        std::none_of(m_drafts.begin(), m_drafts.end(),
                     [](const FieldDraft& d) { return d.field.defaultValue; }))
        Fail(m_page.LineOf("buttons"), ErrorCode::MissingKey, "default");
    const auto hasCurrent = [](const FieldDraft& d) { return d.Has("current"); };
    if (std::count_if(m_drafts.begin(), m_drafts.end(), hasCurrent) > 1)
        Fail(std::find_if(m_drafts.rbegin(), m_drafts.rend(), hasCurrent)->LineOf("current"),
             ErrorCode::DuplicateKey, "current");
    if (page.defaultId && !page.defaultButton)
        Fail(m_page.LineOf("default-id"), ErrorCode::MissingKey, "buttons");
    return true;
}

// Each field overlapping one before it is told once, with the first it overlaps.
bool Parser::CheckOverlaps() {
    // Per record, which field owns each bit (index + 1).
    std::array<std::vector<int>, kSourceCount> owners;
    const auto claimBits = [&](std::size_t i) {
        const Field& field = m_drafts[i].field;
        std::vector<int>& bits = owners[static_cast<std::size_t>(field.source)];
        bits.resize(SourceBytes(field.source) * 8, 0);
        for (const Position& position : field.positions)
            for (const BitRun& run : position.runs)
                for (const BitCopy& copy : run.copies)
                    for (int bit = copy.lsb; bit < copy.lsb + run.width; ++bit) {
                        int& owner = bits[copy.byte * 8u + static_cast<unsigned>(bit)];
                        if (owner != 0)
                            return Fail(m_drafts[i].LineOf("bits"), ErrorCode::Overlap,
                                        m_drafts[static_cast<std::size_t>(owner - 1)].field.name);
                        owner = static_cast<int>(i) + 1;
                    }
        return true;
    };
    for (std::size_t i = 0; i < m_drafts.size(); ++i)
        if (!m_drafts[i].broken && !claimBits(i))
            m_drafts[i].broken = true;
    return true;
}

bool Parser::CheckIds() {
    std::vector<int> seen;
    auto claim = [&](int id, int line) {
        if (id == 0)
            return true;
        if (std::find(seen.begin(), seen.end(), id) != seen.end())
            return Fail(line, ErrorCode::DuplicateId, std::to_string(id));
        seen.push_back(id);
        return true;
    };
    // Every id given twice is told, at each line that gives it again.
    claim(m_description.page.linkId, m_page.LineOf("link-id"));
    claim(m_description.page.defaultId, m_page.LineOf("default-id"));
    ClaimSectionIds(claim);
    for (const FieldDraft& draft : m_drafts) {
        if (draft.broken)
            continue;
        claim(draft.field.labelId, draft.LineOf("label-id"));
        for (const int id : draft.field.ids)
            claim(id, draft.LineOf("ids"));
        for (const int id : draft.field.readoutIds)
            claim(id, draft.LineOf("readout-ids"));
        claim(draft.field.currentSwitchId, draft.LineOf("current-switch-id"));
        for (const auto& [key, ids] : CurrentIdLists(draft.field))
            for (const int id : *ids)
                claim(id, draft.LineOf(key));
    }
    for (const ButtonDraft& draft : m_buttons)
        if (!draft.broken)
            claim(draft.button.id, draft.LineOf("id"));
    return true;
}

// A fill from the chip must read every record a field shows.
bool Parser::CheckRefreshReads() {
    const std::vector<Source>& reads = m_description.page.refreshReads;
    if (AnyFieldBroken())
        return true;
    for (const Source source : m_description.RecordsInUse())
        if (!reads.empty() && std::find(reads.begin(), reads.end(), source) == reads.end())
            return Fail(m_page.LineOf("refresh-reads"), ErrorCode::MissingKey,
                        std::string(SourceName(source)));
    return true;
}

// Unless the page says otherwise, the change test covers the skeleton's two records and every other
// record a field writes.
void Parser::CompleteChangeTest() {
    std::vector<Source>& changeTest = m_description.page.changeTest;
    if (!m_page.keyLines.count("change-test"))
        for (const Source source : m_description.RecordsInUse())
            if (std::find(changeTest.begin(), changeTest.end(), source) == changeTest.end())
                changeTest.push_back(source);
}

} // namespace chipdesc::detail
