#include "workbench/WorkbenchScript.h"

#include "workbench/ChipImages.h"

#include <charconv>

namespace {

// A line split into words; a quoted word keeps its spaces and may be empty.
struct Tokens {
    std::vector<std::string> words;
    std::vector<bool> quoted;
    std::string error;
};

Tokens Tokenize(std::string_view line) {
    Tokens tokens;
    std::size_t i = 0;
    while (i < line.size()) {
        const char c = line[i];
        if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '#') {
            break;
        } else if (c == '"') {
            const std::size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos) {
                tokens.error = "a quote is not closed";
                return tokens;
            }
            tokens.words.emplace_back(line.substr(i + 1, close - i - 1));
            tokens.quoted.push_back(true);
            i = close + 1;
        } else {
            std::size_t end = i;
            while (end < line.size() && line[end] != ' ' && line[end] != '\t' && line[end] != '\r' &&
                   line[end] != '"' && line[end] != '#')
                ++end;
            tokens.words.emplace_back(line.substr(i, end - i));
            tokens.quoted.push_back(false);
            i = end;
        }
    }
    return tokens;
}

// Decimal, or hexadecimal after 0x.
std::optional<long long> Number(const std::string& word) {
    std::string_view digits = word;
    int base = 10;
    bool negative = false;
    if (!digits.empty() && digits.front() == '-') {
        negative = true;
        digits.remove_prefix(1);
    }
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        base = 16;
        digits.remove_prefix(2);
    }
    long long value = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, base);
    if (digits.empty() || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return negative ? -value : value;
}

struct Usage {
    const char* name;
    ScriptActionKind kind;
    const char* form;
};

constexpr Usage kUsages[] = {
    {"slider", ScriptActionKind::Slider, "slider ID POSITION"},
    {"click", ScriptActionKind::Click, "click ID"},
    {"check", ScriptActionKind::Check, "check ID on|off"},
    {"combo", ScriptActionKind::Combo, "combo ID INDEX, or combo ID \"item text\""},
    {"edit", ScriptActionKind::Edit, "edit ID TEXT"},
    {"reread", ScriptActionKind::Reread, "reread"},
    {"poke", ScriptActionKind::Poke, "poke IMAGE OFFSET BYTE..."},
};

// poke IMAGE OFFSET BYTE...
std::optional<std::string> ParsePoke(const std::vector<std::string>& w, const std::string& form,
                                     ScriptAction& action) {
    if (w.size() < 4)
        return "poke needs an image, an offset and at least one byte" + form;
    // Fixed images have the sizes of an empty chip; row lists can grow to the host's capacity.
    std::size_t size = 0;
    std::string names;
    for (const NamedImage& image : TakeSnapshot(SimulatedChip(), true)) {
        names += (names.empty() ? "" : ", ") + image.name;
        if (image.name == w[1])
            size = image.bytes.empty() ? kParamRowListCapacity * kParamRowBytes : image.bytes.size();
    }
    if (!size)
        return "unknown image '" + w[1] + "' (images: " + names + ")";
    action.image = w[1];
    const std::optional<long long> offset = Number(w[2]);
    if (!offset || *offset < 0 || *offset >= static_cast<long long>(size))
        return "offset '" + w[2] + "' is not a byte of " + w[1] + " (0 to " + std::to_string(size - 1) + ")";
    action.value = static_cast<int>(*offset);
    for (std::size_t i = 3; i < w.size(); ++i) {
        std::string digits = w[i];
        if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X'))
            digits.erase(0, 2);
        unsigned value = 0;
        const char* end = digits.data() + digits.size();
        const auto result = std::from_chars(digits.data(), end, value, 16);
        if (digits.empty() || digits.size() > 2 || result.ec != std::errc() || result.ptr != end)
            return "'" + w[i] + "' is not a hexadecimal byte";
        action.bytes.push_back(static_cast<std::uint8_t>(value));
    }
    if (static_cast<std::size_t>(*offset) + action.bytes.size() > size)
        return "the bytes run past the end of " + w[1] + " (" + std::to_string(size) + " bytes)";
    return std::nullopt;
}

// The word after a control id: a slider's position, on or off, a combo's item, an edit's text.
std::optional<std::string> ParseControlValue(const Tokens& tokens, ScriptAction& action) {
    const std::vector<std::string>& w = tokens.words;
    switch (action.kind) {
    case ScriptActionKind::Slider: {
        const std::optional<long long> position = tokens.quoted[2] ? std::nullopt : Number(w[2]);
        if (!position || *position < -32768 || *position > 32767)
            return "slider position '" + w[2] + "' is not a number from -32768 to 32767";
        action.value = static_cast<int>(*position);
        break;
    }
    case ScriptActionKind::Check:
        if (w[2] != "on" && w[2] != "off")
            return "check takes on or off, not '" + w[2] + "'";
        action.value = w[2] == "on" ? 1 : 0;
        break;
    case ScriptActionKind::Combo:
        if (tokens.quoted[2]) {
            action.value = -1;
            action.text = w[2];
        } else {
            const std::optional<long long> index = Number(w[2]);
            if (!index || *index < 0 || *index > 32767)
                return "combo item '" + w[2] + "' is neither an index from 0 nor a quoted item text";
            action.value = static_cast<int>(*index);
        }
        break;
    case ScriptActionKind::Edit:
        action.text = w[2];
        break;
    default:
        break;
    }
    return std::nullopt;
}

// An action on a control: its id, then (but for a click) one value.
std::optional<std::string> ParseControlAction(const Tokens& tokens, const Usage& usage,
                                              const std::string& form, ScriptAction& action) {
    const std::vector<std::string>& w = tokens.words;
    if (w.size() < 2)
        return std::string(usage.name) + " needs a control id" + form;
    const std::optional<long long> id = tokens.quoted[1] ? std::nullopt : Number(w[1]);
    if (!id)
        return "control id '" + w[1] + "' is not a number" + form;
    if (*id < 1 || *id > 65535)
        return "control id " + w[1] + " is outside 1..65535";
    action.controlId = static_cast<int>(*id);

    const std::size_t wanted = action.kind == ScriptActionKind::Click ? 2 : 3;
    if (w.size() < wanted)
        return std::string(usage.name) + " needs " +
               (action.kind == ScriptActionKind::Slider  ? "a position"
                : action.kind == ScriptActionKind::Check ? "on or off"
                : action.kind == ScriptActionKind::Combo ? "an item index or text"
                                                         : "the text to type") +
               form;
    if (w.size() > wanted)
        return "too much on the line after '" + w[wanted - 1] + "'" +
               (action.kind == ScriptActionKind::Edit ? " (put text with spaces in quotes)" : "") + form;
    return ParseControlValue(tokens, action);
}

// One action from one line's words; the reason when they do not make one.
std::optional<std::string> ParseAction(const Tokens& tokens, ScriptAction& action) {
    const std::vector<std::string>& w = tokens.words;
    const Usage* usage = nullptr;
    for (const Usage& u : kUsages)
        if (w[0] == u.name && !tokens.quoted[0])
            usage = &u;
    if (!usage)
        return "unknown action '" + w[0] + "' (actions: slider, click, check, combo, edit, reread, poke)";
    action.kind = usage->kind;
    const std::string form = std::string(" (") + usage->form + ")";
    if (action.kind == ScriptActionKind::Reread)
        return w.size() == 1 ? std::nullopt : std::optional<std::string>("reread takes nothing more" + form);
    if (action.kind == ScriptActionKind::Poke)
        return ParsePoke(w, form, action);
    return ParseControlAction(tokens, *usage, form, action);
}

} // namespace

ParsedScript ParseScript(std::string_view text, std::string_view sourceName, bool semicolonsSeparate) {
    ParsedScript script;
    int number = 0;
    while (!text.empty()) {
        // The end of this action: a newline, or a ';' outside quotes when those separate too.
        std::size_t end = 0;
        bool inQuotes = false;
        for (; end < text.size(); ++end) {
            const char c = text[end];
            if (c == '"')
                inQuotes = !inQuotes;
            if (c == '\n' || (semicolonsSeparate && c == ';' && !inQuotes))
                break;
        }
        const std::string_view line = text.substr(0, end);
        text = end < text.size() ? text.substr(end + 1) : std::string_view();
        ++number;

        const std::string where =
            std::string(sourceName) + (semicolonsSeparate ? " action " : " line ") + std::to_string(number);
        Tokens tokens = Tokenize(line);
        if (!tokens.error.empty()) {
            script.actions.clear();
            script.error = ScriptError{where, tokens.error};
            return script;
        }
        if (tokens.words.empty()) {
            if (semicolonsSeparate)
                --number; // "a; ; b" and a trailing ';' count no empty actions
            continue;
        }
        ScriptAction action{};
        action.where = where;
        const std::size_t commentStart = [&] {
            bool quoted = false;
            for (std::size_t i = 0; i < line.size(); ++i) {
                if (line[i] == '"')
                    quoted = !quoted;
                else if (line[i] == '#' && !quoted)
                    return i;
            }
            return line.size();
        }();
        std::string_view written = line.substr(0, commentStart);
        while (!written.empty() &&
               (written.back() == ' ' || written.back() == '\t' || written.back() == '\r'))
            written.remove_suffix(1);
        while (!written.empty() && (written.front() == ' ' || written.front() == '\t'))
            written.remove_prefix(1);
        action.written = std::string(written);
        if (std::optional<std::string> reason = ParseAction(tokens, action)) {
            script.actions.clear();
            script.error = ScriptError{where, *reason};
            return script;
        }
        script.actions.push_back(std::move(action));
    }
    return script;
}
