#include "workbench/WorkbenchOptions.h"

#include "workbench/ChipCatalog.h"

#include <charconv>
#include <string_view>
#include <utility>

const char* const kWorkbenchUsage =
    R"(RegvaneWorkbench: plays the host for regvane.dll, with simulated chips.

  RegvaneWorkbench [--type N [--subtype S]] [--language L] [--script FILE] [--do "ACTIONS"] [--screenshot FILE.png]
                                                                 the window
  RegvaneWorkbench --headless --type N [--subtype S] [--script FILE] [--do "ACTIONS"] [--screenshot FILE.png]
  RegvaneWorkbench --all-pages FOLDER [--types N,N,...]          a picture of every chip page
  RegvaneWorkbench --list                                        every chip page: type, class, chip
  RegvaneWorkbench [--headless] --describe FILE.desc [--do "ACTIONS"] [--screenshot FILE.png]
                                                                 the page a chip description renders
  RegvaneWorkbench --check-description FILE.desc...              checks chip descriptions
  RegvaneWorkbench --check-labels [--language L] [--types N,N,...]
                                                                 texts that do not fit their controls

  --type N          chip type number, e.g. 47 or 65536+4
  --subtype S       the chip's sub-type (chooses the page for 4, 5, 6, 9, 11, 13, 46, 47, 67, 91, 129, 349)
  --script FILE     operator actions, one a line: slider ID POS | click ID | check ID on|off |
                    combo ID INDEX | combo ID "text" | edit ID TEXT | reread | poke IMAGE OFFSET BYTE...
  --do "ACTIONS"    the same actions on the command line, separated by ';'
  --screenshot F    where the page's picture goes: --headless writes it after the actions (default:
                    screenshots\page-N.png two folders above the program), the window once the page
                    opened and the actions ran
  --profile DIR     where simulated chips are saved (default: %APPDATA%\Regvane\Workbench)
  --reset           start the chip from its start values
  --language L      1..13, the host's language index (3 = English, 1 = Simplified Chinese)
  --describe FILE   the designer: opens the page a chip description renders on the simulated chip of
                    the class it describes, and draws it again whenever the file changes (the chip
                    keeps its bytes); a mistake shows in the log with file, line and reason
  --area WxH        the room the host gives a page, in pixels (default 990x740): a described page
                    taller than that flows into columns, and scrolls when it still does not fit
  --check-description FILE...
                    prints "FILE: ok" or "FILE:LINE: reason" for each chip description
  --check-labels    opens every page with texts of its own (or those of --types) in every language
                    (or in --language L) and prints each text that does not fit its control, with the
                    language files the module found

Headless runs answer a message box with OK, and a file dialog with the file name it proposes in the
working folder (or cancel it when it proposes none).

Exit status: 0 done, 1 bad command line or script, 2 regvane.dll unusable, 3 no page for the chip,
4 an action could not be carried out, 5 a screenshot could not be written, 6 a chip description
cannot be used, 7 a text does not fit its control.
)";

namespace {

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text)
        narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
}

std::optional<int> Integer(const std::wstring& text) {
    const std::string narrow = Narrow(text);
    int value = 0;
    const char* end = narrow.data() + narrow.size();
    const auto result = std::from_chars(narrow.data(), end, value);
    if (narrow.empty() || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return value;
}

// Actions are ASCII but for edit texts and combo items: keep those as UTF-8.
void AppendUtf8(std::string& out, const std::wstring& text) {
    for (const wchar_t c : text) {
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | ((c >> 12) & 0x0F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
}

// Each option's value read into the options; empty, or why the value is wrong.
std::string SetChipType(const std::wstring& value, WorkbenchOptions& o) {
    const std::string text = Narrow(value);
    const std::optional<int> type = ParseChipTypeNumber(text);
    if (!type)
        return "--type " + text + ": not a chip type number (write e.g. 47 or 65536+4)";
    o.chipType = *type;
    return {};
}

// A whole number from lowest to highest; otherwise "OPTION VALUE: why".
std::string SetNumber(const std::wstring& value, int& out, int lowest, int highest, const char* option,
                      const char* why) {
    const std::optional<int> number = Integer(value);
    if (!number || *number < lowest || *number > highest)
        return std::string(option) + " " + Narrow(value) + ": " + why;
    out = *number;
    return {};
}

std::string SetSubType(const std::wstring& value, WorkbenchOptions& o) {
    return SetNumber(value, o.subType, 0, 65535, "--subtype", "not a number from 0 to 65535");
}

std::string SetLanguage(const std::wstring& value, WorkbenchOptions& o) {
    return SetNumber(value, o.language, 1, 13, "--language", "the host's languages are 1 to 13");
}

std::string SetArea(const std::wstring& value, WorkbenchOptions& o) {
    const std::size_t x = value.find(L'x');
    const std::optional<int> width = Integer(value.substr(0, x));
    const std::optional<int> height = x == std::wstring::npos ? std::nullopt : Integer(value.substr(x + 1));
    if (!width || !height || *width < 1 || *height < 1)
        return "--area " + Narrow(value) + ": write the width and height in pixels, e.g. 990x740";
    o.areaWidth = *width;
    o.areaHeight = *height;
    return {};
}

std::string AddActions(const std::wstring& value, WorkbenchOptions& o) {
    if (!o.inlineActions.empty())
        o.inlineActions += ';';
    AppendUtf8(o.inlineActions, value);
    return {};
}

std::string SetTypes(const std::wstring& value, WorkbenchOptions& o) {
    const std::string list = Narrow(value);
    std::size_t start = 0;
    while (start <= list.size()) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        const std::string item = list.substr(start, comma - start);
        const std::optional<int> type = ParseChipTypeNumber(item);
        if (!type)
            return "--types: '" + item + "' is not a chip type number";
        o.onlyTypes.push_back(*type);
        start = comma + 1;
    }
    return {};
}

template <std::wstring WorkbenchOptions::*member>
std::string SetText(const std::wstring& value, WorkbenchOptions& o) {
    o.*member = value;
    return {};
}

struct ValueOption {
    std::wstring_view name;
    const char* needs; // what the message says is missing without a value
    std::string (*set)(const std::wstring& value, WorkbenchOptions& o);
};

constexpr ValueOption kValueOptions[] = {
    {L"--type", "a chip type number", SetChipType},
    {L"--subtype", "a sub-type number", SetSubType},
    {L"--language", "a language index", SetLanguage},
    {L"--script", "a script file", SetText<&WorkbenchOptions::scriptFile>},
    {L"--do", "actions, e.g. --do \"slider 8123 20; click 8025\"", AddActions},
    {L"--screenshot", "a .png file name", SetText<&WorkbenchOptions::screenshot>},
    {L"--all-pages", "a folder for the pictures", SetText<&WorkbenchOptions::allPagesFolder>},
    {L"--types", "chip type numbers separated by commas", SetTypes},
    {L"--describe", "a chip description file", SetText<&WorkbenchOptions::describe>},
    {L"--profile", "a folder", SetText<&WorkbenchOptions::profile>},
    {L"--area", "a width and height in pixels, e.g. 990x740", SetArea},
};

constexpr std::pair<std::wstring_view, bool WorkbenchOptions::*> kSwitches[] = {
    {L"--help", &WorkbenchOptions::help},
    {L"-h", &WorkbenchOptions::help},
    {L"/?", &WorkbenchOptions::help},
    {L"--list", &WorkbenchOptions::list},
    {L"--headless", &WorkbenchOptions::headless},
    {L"--reset", &WorkbenchOptions::reset},
    {L"--check-labels", &WorkbenchOptions::checkLabels},
};

// Options that only go with some others; empty when these go together.
std::string CheckCombination(const WorkbenchOptions& o) {
    if (!o.allPagesFolder.empty() && (o.chipType || !o.scriptFile.empty() || !o.inlineActions.empty()))
        return "--all-pages takes every page as it starts; it does not go with --type, --script or --do";
    if (o.allPagesFolder.empty() && !o.checkLabels && !o.onlyTypes.empty())
        return "--types only limits --all-pages or --check-labels";
    if (!o.describe.empty() && (o.chipType || !o.allPagesFolder.empty()))
        return "--describe opens the chip a description names; it does not go with --type or --all-pages";
    if (o.headless && !o.chipType && o.allPagesFolder.empty() && o.describe.empty())
        return "--headless needs --type (for example --type 47) or --describe";
    return {};
}

// The option at args[i] with its values, which it steps i over; empty, or what is wrong.
std::string ReadOption(const std::vector<std::wstring>& args, std::size_t& i, WorkbenchOptions& o) {
    const std::wstring& arg = args[i];
    const std::string name = Narrow(arg);
    for (const auto& [option, flag] : kSwitches)
        if (arg == option) {
            o.*flag = true;
            return {};
        }
    for (const ValueOption& option : kValueOptions)
        if (arg == option.name)
            return i + 1 < args.size() ? option.set(args[++i], o) : name + " needs " + option.needs;
    if (arg == L"--check-description") {
        while (i + 1 < args.size() && args[i + 1].rfind(L"--", 0) != 0)
            o.checkDescriptions.push_back(args[++i]);
        return o.checkDescriptions.empty() ? name + " needs chip description files" : std::string();
    }
    return "unknown option " + name + " (see --help)";
}

} // namespace

ParsedOptions ParseOptions(const std::vector<std::wstring>& args) {
    ParsedOptions parsed;
    for (std::size_t i = 0; i < args.size() && parsed.error.empty(); ++i)
        parsed.error = ReadOption(args, i, parsed.options);
    if (parsed.error.empty())
        parsed.error = CheckCombination(parsed.options);
    return parsed;
}
