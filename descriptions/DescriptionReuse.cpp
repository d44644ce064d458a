// Fields declared once and used again: a field like another (its keys read again, the copy's own
// overriding them, its place moved by an offset), and a field or a group of fields repeated at a
// distance.
#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>
#include <map>
#include <set>

namespace chipdesc::detail {

namespace {

constexpr std::size_t kMaxExpandedFields = 1000;

// Keys a copy never takes from its base: control ids must differ, a page has one current read-out, and
// a copy of a repeated field is one field unless it says otherwise.
bool BelongsToOneField(std::string_view key) {
    static constexpr std::string_view kKeys[] = {
        "ids",          "label-id",      "readout-ids",        "current", "current-ids", "current-switch-id",
        "fraction-ids", "reference-ids", "reference-decimals", "like",    "offset",      "repeat"};
    return std::find(std::begin(kKeys), std::end(kKeys), key) != std::end(kKeys);
}

bool SameGroup(const Field& a, const Field& b) {
    return a.group.text == b.group.text && a.group.literal == b.group.literal;
}

} // namespace

bool Parser::ResolveCopies() {
    std::map<std::string, std::size_t, std::less<>> named;
    for (std::size_t i = 0; i < m_drafts.size(); ++i)
        named.emplace(m_drafts[i].field.name, i);
    // Each copy is resolved after its base, following the chain of bases by hand: a long chain must
    // not run the host's stack dry.
    std::vector<bool> resolved(m_drafts.size(), false);
    std::vector<bool> onChain(m_drafts.size(), false);
    std::vector<std::pair<std::size_t, std::size_t>> chain; // a copy and its base
    for (std::size_t first = 0; first < m_drafts.size(); ++first) {
        bool chainBroken = false; // a cycle or a missing base: every copy on the chain is refused
        for (std::size_t at = first; !resolved[at] && !m_drafts[at].likeName.empty();) {
            FieldDraft& copy = m_drafts[at];
            const auto base = named.find(copy.likeName);
            if (onChain[at] || base == named.end() || base->second == at) {
                if (onChain[at])
                    Fail(copy.LineOf("like"), ErrorCode::CopyCycle, copy.field.name);
                else
                    Fail(copy.LineOf("like"), ErrorCode::UnknownField, copy.likeName);
                copy.broken = chainBroken = true;
                break;
            }
            onChain[at] = true;
            chain.emplace_back(at, base->second);
            at = base->second;
        }
        // A copy of a refused field is refused with it, not told again.
        for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
            FieldDraft& copy = m_drafts[link->first];
            copy.broken = chainBroken || copy.broken || m_drafts[link->second].broken ||
                          !Inherit(link->first, link->second);
            resolved[link->first] = true;
        }
        chain.clear();
        resolved[first] = true;
    }
    return ExpandRepeats();
}

// The copy's keys: its base's (resolved already), less those it gives itself, then its own.
bool Parser::Inherit(std::size_t index, std::size_t baseIndex) {
    FieldDraft& copy = m_drafts[index];
    const int likeLine = copy.LineOf("like");
    FieldDraft resolved;
    resolved.field.name = copy.field.name;
    resolved.field.line = copy.field.line;
    // What goes wrong in what the copy takes over is the copy's problem: it is reported at its "like".
    for (const KeyText& key : m_drafts[baseIndex].keys)
        if (!copy.Has(key.key) && !BelongsToOneField(key.key))
            resolved.keys.push_back({key.key, key.value, likeLine, key.column});
    resolved.keys.insert(resolved.keys.end(), copy.keys.begin(), copy.keys.end());
    for (const KeyText& key : resolved.keys) {
        resolved.keyLines.emplace(std::string(key.key), key.line);
        if (!KeyLine(key.line, key.column, Section::Field, key.key, key.value, &resolved))
            return false;
    }
    // Without bits of its own the copy lies where its base lies, moved by its own offset.
    if (!copy.Has("bits")) {
        resolved.offset += m_drafts[baseIndex].offset;
        if (copy.Has("offset"))
            resolved.keyLines["bits"] = copy.LineOf("offset");
    }
    resolved.broken = copy.broken;
    copy = std::move(resolved);
    return true;
}

// A repeated field becomes NAME-1 to NAME-COUNT. Consecutive fields of one group repeated as often
// repeat together: the group's first copy, then its second, each in a box of its own when the title
// says "{n}". False for more fields than a page can hold: nothing more is checked.
bool Parser::ExpandRepeats() {
    if (std::none_of(m_drafts.begin(), m_drafts.end(), [](const FieldDraft& d) { return d.repeatCount; }))
        return true;
    std::vector<FieldDraft> expanded;
    std::set<std::string, std::less<>> names;
    for (const FieldDraft& draft : m_drafts)
        names.insert(draft.field.name);
    for (std::size_t first = 0; first < m_drafts.size();) {
        const FieldDraft& head = m_drafts[first];
        std::size_t end = first + 1;
        while (head.repeatCount && !head.field.group.text.empty() && end < m_drafts.size() &&
               m_drafts[end].repeatCount == head.repeatCount && SameGroup(m_drafts[end].field, head.field))
            ++end;
        if (!head.repeatCount) {
            expanded.push_back(std::move(m_drafts[first++]));
            continue;
        }
        for (std::size_t i = first; i < end; ++i)
            for (const std::string_view key : {"ids", "label-id", "readout-ids", "current"})
                if (m_drafts[i].Has(key) && !m_drafts[i].broken)
                    m_drafts[i].broken = !Fail(m_drafts[i].LineOf(key), ErrorCode::BadValue, key);
        for (int number = 1; number <= head.repeatCount; ++number) {
            const std::string suffix = "-" + std::to_string(number);
            for (std::size_t i = first; i < end; ++i) {
                FieldDraft copy = m_drafts[i];
                copy.field.name += suffix;
                copy.field.copyNumber = number;
                copy.offset += (number - 1) * copy.repeatEvery;
                // Where a copy goes wrong, the repeat made it.
                if (number > 1)
                    copy.keyLines["bits"] = copy.LineOf("repeat");
                // More rows than a page can sensibly hold (and than its automatic ids can number).
                if (expanded.size() >= kMaxExpandedFields)
                    return Fail(copy.LineOf("repeat"), ErrorCode::BadValue, "repeat");
                if (!names.insert(copy.field.name).second) {
                    Fail(copy.LineOf("repeat"), ErrorCode::DuplicateName, copy.field.name);
                    continue;
                }
                // Shown by a field of its own group: by that field's copy of the same number.
                for (std::size_t j = first; j < end; ++j)
                    if (copy.showIfName == m_drafts[j].field.name)
                        copy.showIfName += suffix;
                expanded.push_back(std::move(copy));
            }
        }
        first = end;
    }
    m_drafts = std::move(expanded);
    return true;
}

} // namespace chipdesc::detail
