// The checks of pages with other than three colours and of fields wider than a slider or signed.
#include "descriptions/ChipDescriptionParser.h"

#include <climits>

namespace chipdesc::detail {

// A label per colour; three colours have theirs by default.
bool Parser::CheckColours() {
    const Page& page = m_description.page;
    if (PageKeyRefused("colour-labels"))
        return true;
    if (m_page.keyLines.count("colour-labels")) {
        if (static_cast<int>(page.colourLabels.size()) != page.colourCount)
            return Fail(m_page.LineOf("colour-labels"), ErrorCode::BadValue,
                        std::to_string(page.colourLabels.size()) + " / " + std::to_string(page.colourCount));
    } else if (page.colourCount != kDefaultColours) {
        return Fail(m_page.LineOf("colours"), ErrorCode::MissingKey, "colour-labels");
    }
    return true;
}

// A sign needs a sign bit and bits that are the value's own; a hex control shows plain bits.
bool Parser::CheckSign(FieldDraft& draft) {
    const Field& field = draft.field;
    if (field.signedness == Signedness::Unsigned)
        return true;
    if (IsHostValue(field.source) || field.Width() < 2 || field.coding == Coding::Set ||
        field.control == Control::Hex)
        return Fail(draft.LineOf("signed"), ErrorCode::BadValue, "signed");
    return true;
}

// A slider's positions are 32-bit signed; a wider range needs a number or hex control. The read-out
// routines take a 32-bit signed value too.
bool Parser::CheckControlHolds(FieldDraft& draft) {
    const Field& field = draft.field;
    const bool beyondInt = field.minimum < INT_MIN || field.maximum > INT_MAX;
    if (field.control == Control::Slider && beyondInt)
        return Fail(draft.LineOf(draft.Has("range") ? "range" : "control"), ErrorCode::ControlCannotHold,
                    std::to_string(field.minimum) + ".." + std::to_string(field.maximum));
    for (const char* key : {"readout", "current"})
        if (draft.Has(key) && beyondInt)
            return Fail(draft.LineOf(key), ErrorCode::BadValue, key);
    return true;
}

} // namespace chipdesc::detail
