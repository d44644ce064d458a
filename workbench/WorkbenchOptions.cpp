#include "workbench/WorkbenchOptions.h"

#include "workbench/ChipCatalog.h"

#include <charconv>

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
  --check-description FILE...
                    prints "FILE: ok" or "FILE:LINE: reason" for each chip description

Headless runs answer a message box with OK, and a file dialog with the file name it proposes in the
working folder (or cancel it when it proposes none).

Exit status: 0 done, 1 bad command line or script, 2 regvane.dll unusable, 3 no page for the chip,
4 an action could not be carried out, 5 a screenshot could not be written, 6 a chip description
cannot be used.
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

} // namespace

ParsedOptions ParseOptions(const std::vector<std::wstring>& args) {
    ParsedOptions parsed;
    WorkbenchOptions& o = parsed.options;
    auto fail = [&](std::string message) {
        parsed.error = std::move(message);
        return parsed;
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::wstring& arg = args[i];
        const bool hasValue = i + 1 < args.size();
        const std::string name = Narrow(arg);
        auto value = [&]() -> const std::wstring& { return args[++i]; };
        auto needsValue = [&](const char* what) { return fail(name + " needs " + what); };

        if (arg == L"--help" || arg == L"-h" || arg == L"/?") {
            o.help = true;
        } else if (arg == L"--list") {
            o.list = true;
        } else if (arg == L"--headless") {
            o.headless = true;
        } else if (arg == L"--reset") {
            o.reset = true;
        } else if (arg == L"--type") {
            if (!hasValue)
                return needsValue("a chip type number");
            const std::string text = Narrow(value());
            const std::optional<int> type = ParseChipTypeNumber(text);
            if (!type)
                return fail("--type " + text + ": not a chip type number (write e.g. 47 or 65536+4)");
            o.chipType = *type;
        } else if (arg == L"--subtype") {
            if (!hasValue)
                return needsValue("a sub-type number");
            const std::optional<int> subType = Integer(value());
            if (!subType || *subType < 0 || *subType > 65535)
                return fail("--subtype " + Narrow(args[i]) + ": not a number from 0 to 65535");
            o.subType = *subType;
        } else if (arg == L"--language") {
            if (!hasValue)
                return needsValue("a language index");
            const std::optional<int> language = Integer(value());
            if (!language || *language < 1 || *language > 13)
                return fail("--language " + Narrow(args[i]) + ": the host's languages are 1 to 13");
            o.language = *language;
        } else if (arg == L"--script") {
            if (!hasValue)
                return needsValue("a script file");
            o.scriptFile = value();
        } else if (arg == L"--do") {
            if (!hasValue)
                return needsValue("actions, e.g. --do \"slider 8123 20; click 8025\"");
            if (!o.inlineActions.empty())
                o.inlineActions += ';';
            // Actions are ASCII but for edit texts and combo items: keep those as UTF-8.
            for (const wchar_t c : value()) {
                if (c < 0x80) {
                    o.inlineActions += static_cast<char>(c);
                } else if (c < 0x800) {
                    o.inlineActions += static_cast<char>(0xC0 | (c >> 6));
                    o.inlineActions += static_cast<char>(0x80 | (c & 0x3F));
                } else {
                    o.inlineActions += static_cast<char>(0xE0 | ((c >> 12) & 0x0F));
                    o.inlineActions += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
                    o.inlineActions += static_cast<char>(0x80 | (c & 0x3F));
                }
            }
        } else if (arg == L"--screenshot") {
            if (!hasValue)
                return needsValue("a .png file name");
            o.screenshot = value();
        } else if (arg == L"--all-pages") {
            if (!hasValue)
                return needsValue("a folder for the pictures");
            o.allPagesFolder = value();
        } else if (arg == L"--types") {
            if (!hasValue)
                return needsValue("chip type numbers separated by commas");
            const std::string list = Narrow(value());
            std::size_t start = 0;
            while (start <= list.size()) {
                const std::size_t comma = std::min(list.find(',', start), list.size());
                const std::string item = list.substr(start, comma - start);
                const std::optional<int> type = ParseChipTypeNumber(item);
                if (!type)
                    return fail("--types: '" + item + "' is not a chip type number");
                o.onlyTypes.push_back(*type);
                start = comma + 1;
            }
        } else if (arg == L"--describe") {
            if (!hasValue)
                return needsValue("a chip description file");
            o.describe = value();
        } else if (arg == L"--check-description") {
            while (i + 1 < args.size() && args[i + 1].rfind(L"--", 0) != 0)
                o.checkDescriptions.push_back(value());
            if (o.checkDescriptions.empty())
                return needsValue("chip description files");
        } else if (arg == L"--profile") {
            if (!hasValue)
                return needsValue("a folder");
            o.profile = value();
        } else {
            return fail("unknown option " + name + " (see --help)");
        }
    }
    if (!o.allPagesFolder.empty() && (o.chipType || !o.scriptFile.empty() || !o.inlineActions.empty()))
        return fail(
            "--all-pages takes every page as it starts; it does not go with --type, --script or --do");
    if (o.allPagesFolder.empty() && !o.onlyTypes.empty())
        return fail("--types only limits --all-pages");
    if (!o.describe.empty() && (o.chipType || !o.allPagesFolder.empty()))
        return fail(
            "--describe opens the chip a description names; it does not go with --type or --all-pages");
    if (o.headless && !o.chipType && o.allPagesFolder.empty() && o.describe.empty())
        return fail("--headless needs --type (for example --type 47) or --describe");
    return parsed;
}
