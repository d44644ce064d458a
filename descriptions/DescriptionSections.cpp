// The sections of format version 2 that are not fields: [register-text] and [table NAME], read and
// checked against the page.
#include "descriptions/DescriptionSections.h"

#include "descriptions/PackedTable.h"
#include "descriptions/RegisterText.h"
#include "host/RegvaneTypes.h"

#include <algorithm>

namespace chipdesc::detail {

bool ReadLineFormat(KeyValue& v) {
    if (v.words.size() != 1 || !IsQuoted(v.value))
        return v.Fail(v.value);
    v.page.registerText->format = std::string(Trim(v.value.substr(1, v.value.size() - 2)));
    return true;
}

bool ReadTableCount(KeyValue& v) {
    TableSpec& table = v.page.tables.back();
    const std::size_t dots = v.value.find("..");
    const bool range = dots != std::string_view::npos;
    if (!ParseInt(Trim(v.value.substr(0, dots)), table.minimumCount) ||
        !ParseInt(range ? Trim(v.value.substr(dots + 2)) : v.value, table.maximumCount) ||
        table.minimumCount < 1 || table.minimumCount > table.maximumCount ||
        table.maximumCount > kMaxTableValues)
        return v.Fail(v.value);
    return true;
}

bool ReadChipFunction(KeyValue& v) {
    TableSpec& table = v.page.tables.back();
    static constexpr std::size_t kEntries[] = {kFunctionTableEntries, kFunctionTable2Entries,
                                               kFunctionTable3Entries};
    if (v.words.size() != 2 || !ParseInt(v.words[0], table.functionTable) || table.functionTable < 1 ||
        table.functionTable > 3 || !ParseInt(v.words[1], table.entry) || table.entry < 0 ||
        static_cast<std::size_t>(table.entry) >= kEntries[table.functionTable - 1])
        return v.Fail(v.value);
    return true;
}

bool Parser::IsSectionOfVersion2(std::string_view name) {
    return name == "register-text" || name.starts_with("table ") || name.starts_with("table\t");
}

bool Parser::SectionHeader(int number, std::string_view name) {
    Page& page = m_description.page;
    if (name == "register-text") {
        if (page.registerText)
            return Fail(number, ErrorCode::DuplicateKey, "[register-text]");
        page.registerText.emplace().line = number;
        m_textDraft.line = number;
        m_section = Section::RegisterText;
        return true;
    }
    const std::string_view tableName = Trim(name.substr(6));
    if (!IsName(tableName))
        return Fail(number, ErrorCode::BadValue, tableName);
    if (std::any_of(page.tables.begin(), page.tables.end(),
                    [&](const TableSpec& t) { return t.name == tableName; }))
        return Fail(number, ErrorCode::DuplicateName, tableName);
    TableSpec& table = page.tables.emplace_back();
    table.name = std::string(tableName);
    table.line = number;
    m_tableDrafts.push_back({number, {}});
    m_section = Section::Table;
    return true;
}

std::map<std::string, int, std::less<>>& Parser::SectionKeyLines() {
    return *m_section == Section::RegisterText ? m_textDraft.keyLines : m_tableDrafts.back().keyLines;
}

bool Parser::ClaimSectionIds(const std::function<bool(int id, int line)>& claim) const {
    const Page& page = m_description.page;
    if (page.registerText && !m_textDraft.broken)
        for (const int id : page.registerText->ids)
            claim(id, m_textDraft.LineOf("ids"));
    for (std::size_t i = 0; i < page.tables.size(); ++i)
        if (!m_tableDrafts[i].broken)
            claim(page.tables[i].id, m_tableDrafts[i].LineOf("id"));
    return true;
}

bool Parser::FinishSectionsOfVersion2() {
    const Page& page = m_description.page;
    const int firstLine = page.registerText     ? page.registerText->line
                          : page.tables.empty() ? 0
                                                : page.tables[0].line;
    if (firstLine && page.formatVersion < 2)
        return Fail(firstLine, ErrorCode::MissingKey, "format-version = 2");
    if (page.registerText && !m_textDraft.broken)
        CheckRegisterText();
    for (std::size_t i = 0; i < page.tables.size(); ++i)
        for (const char* key : {"label", "count", "function"})
            if (!m_tableDrafts[i].broken && !m_tableDrafts[i].keyLines.count(key)) {
                Fail(page.tables[i].line, ErrorCode::MissingKey, key);
                break;
            }
    return true;
}

bool Parser::CheckRegisterText() {
    const Page& page = m_description.page;
    const RegisterTextSpec& text = *page.registerText;
    const std::vector<Source> records = TextRecords(m_description);
    if (records.empty())
        return Fail(text.line, ErrorCode::MissingKey, "records");
    // Cancel puts back what a paste wrote: only records the change test covers can be pasted.
    for (const Source source : records)
        if (!AnyFieldBroken() &&
            (std::find(page.changeTest.begin(), page.changeTest.end(), source) == page.changeTest.end() ||
             std::none_of(m_description.fields.begin(), m_description.fields.end(),
                          [&](const Field& f) { return f.source == source; })))
            return Fail(m_textDraft.LineOf("records"), ErrorCode::BadValue, SourceName(source));
    if (!LineFormatProblem(text.format, records.size() > 1).empty())
        return Fail(m_textDraft.LineOf("line"), ErrorCode::BadValue, text.format);
    if (!text.ids.empty() && text.ids.size() != 3)
        return Fail(m_textDraft.LineOf("ids"), ErrorCode::BadValue, "ids");
    return true;
}

} // namespace chipdesc::detail
