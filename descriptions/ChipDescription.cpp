// The description model: the records fields live in, and what a parsed description says of itself.
#include "descriptions/ChipDescription.h"

#include "descriptions/ChipDescriptionParser.h"

#include <algorithm>

namespace chipdesc {

namespace {

struct SourceInfo {
    Source source;
    std::string_view name;
};
constexpr std::array<SourceInfo, kSourceCount> kSources{{
    {Source::Block, "block"},
    {Source::RecordA, "record-a"},
    {Source::RecordB, "record-b"},
    {Source::Large, "large"},
    {Source::Record20, "record20"},
    {Source::SliderValue, "slider-value"},
}};

} // namespace

std::optional<Source> detail::SourceNamed(std::string_view name) {
    for (const SourceInfo& info : kSources)
        if (info.name == name)
            return info.source;
    return std::nullopt;
}

std::string_view SourceName(Source source) {
    return kSources[static_cast<std::size_t>(source)].name;
}

int Field::Width() const {
    int width = 0;
    if (!positions.empty())
        for (const BitRun& run : positions.front().runs)
            width += run.width;
    return width;
}

std::vector<Source> Description::RecordsInUse() const {
    std::vector<Source> records;
    for (const SourceInfo& info : kSources) {
        if (IsHostValue(info.source))
            continue;
        if (std::any_of(fields.begin(), fields.end(),
                        [&](const Field& f) { return f.source == info.source; }))
            records.push_back(info.source);
    }
    return records;
}

std::vector<Source> Description::RefreshReads() const {
    return page.refreshReads.empty() ? RecordsInUse() : page.refreshReads;
}

int Description::CurrentField() const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!fields[i].current.empty())
            return static_cast<int>(i);
    return -1;
}

int Description::FieldIndex(std::string_view name) const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name == name)
            return static_cast<int>(i);
    return -1;
}

std::string_view ReasonStringId(ErrorCode code) {
    // In the order of ErrorCode.
    static constexpr std::array<std::string_view, kErrorCodeCount> kIds{
        "IDS_DescError_TooLarge",      "IDS_DescError_NotText",         "IDS_DescError_LineTooLong",
        "IDS_DescError_Syntax",        "IDS_DescError_UnknownSection",  "IDS_DescError_UnknownKey",
        "IDS_DescError_DuplicateKey",  "IDS_DescError_MissingKey",      "IDS_DescError_BadValue",
        "IDS_DescError_BadBits",       "IDS_DescError_OutsideRecord",   "IDS_DescError_Overlap",
        "IDS_DescError_ItemsDoNotFit", "IDS_DescError_RangeDoesNotFit", "IDS_DescError_UnknownStringId",
        "IDS_DescError_UnknownField",  "IDS_DescError_DuplicateName",   "IDS_DescError_DuplicateId",
        "IDS_DescError_NoFields",      "IDS_DescError_OutOfRange",      "IDS_DescError_NoParamTable",
        "IDS_DescError_NewerFormat",   "IDS_DescError_BadFormula",      "IDS_DescError_DivisionByZero",
        "IDS_DescError_CopyCycle",     "IDS_DescError_ControlCannotHold",
    };
    return kIds[static_cast<std::size_t>(code)];
}

} // namespace chipdesc
