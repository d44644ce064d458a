// Rules between fields: `[rule NAME]` with `check = CONDITION` over the page's fields, a message and
// what a change that breaks it does. A condition that is 0, or has no value (a division by zero), is
// broken.
#pragma once

#include "descriptions/ChipDescription.h"
#include "descriptions/DescriptionExpression.h"
#include "descriptions/DescriptionFormula.h"

#include <cstdint>
#include <string>
#include <vector>

namespace chipdesc {

enum class OnBreak : std::uint8_t {
    Refuse, // nothing written, the control shows the chip's value again
    Warn,   // written, the operator told
};

struct Rule {
    std::string name;
    int line = 0; // of its section header
    Expression check;
    std::vector<int> fields; // per name of the check: the field it names
    Item message;
    OnBreak onBreak = OnBreak::Refuse;

    bool Names(int field) const;
};

// The rules broken by the values valueOf gives; only those naming `changed`, or all for -1.
std::vector<const Rule*> BrokenRules(const Description& description, const FieldValueOf& valueOf,
                                     int changed = -1);

namespace detail {
struct KeyValue;
bool ReadRuleCheck(KeyValue& v);
bool ReadRuleMessage(KeyValue& v);
bool ReadOnBreak(KeyValue& v);
} // namespace detail

} // namespace chipdesc
