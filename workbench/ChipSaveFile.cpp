#include "workbench/ChipSaveFile.h"

#include "workbench/ChipImages.h"

#include <charconv>
#include <limits>
#include <set>
#include <vector>

namespace {

std::string_view Trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    while (!(text = Trim(text)).empty()) {
        const std::size_t end = text.find_first_of(" \t");
        words.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end);
    }
    return words;
}

template <class T> bool ParseNumber(std::string_view word, T& value, int base = 10) {
    const char* end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, value, base);
    return result.ec == std::errc() && result.ptr == end;
}

SaveFileError Error(int line, std::string reason) {
    return {line, std::move(reason)};
}

const std::set<std::string, std::less<>> kRequiredImages = {"regData", "regDataEx", "regData2", "regData3",
                                                            "regData4"};
const std::set<std::string, std::less<>> kRowImages = {"icnd3065Rows", "icnd3069Rows"};

// What an image line must hold, for the error message.
std::string SizeRule(const SimulatedChip& chip, std::string_view name) {
    if (kRowImages.count(name))
        return "whole rows of " + std::to_string(kParamRowBytes) + " bytes, at most " +
               std::to_string(kParamRowListCapacity) + " rows";
    for (const NamedImage& image : TakeSnapshot(chip))
        if (image.name == name)
            return std::to_string(image.bytes.size()) + " bytes";
    return "?";
}

// Host values, read the same way for every integer key.
template <class T>
std::optional<SaveFileError> ReadValue(int line, std::string_view key,
                                       const std::vector<std::string_view>& args, T& value, long long min,
                                       long long max) {
    long long parsed = 0;
    if (args.size() != 1 || !ParseNumber(args[0], parsed) || parsed < min || parsed > max)
        return Error(line, std::string(key) + " needs one whole number from " + std::to_string(min) + " to " +
                               std::to_string(max));
    value = static_cast<T>(parsed);
    return std::nullopt;
}

// The first line: the format this workbench writes.
std::optional<SaveFileError> ReadFormat(int line, std::string_view key,
                                        const std::vector<std::string_view>& args) {
    int format = 0;
    if (key != "format" || args.size() != 1 || !ParseNumber(args[0], format))
        return Error(line, "not a workbench chip file (it must start with 'format " +
                               std::to_string(kChipSaveFormat) + "')");
    if (format != kChipSaveFormat)
        return Error(line, "format " + std::to_string(format) + " is not the format " +
                               std::to_string(kChipSaveFormat) + " this workbench reads");
    return std::nullopt;
}

// A register image's line: hexadecimal bytes, as many as the image holds.
std::optional<SaveFileError> ReadImage(int line, std::string_view key,
                                       const std::vector<std::string_view>& args, const SimulatedChip& chip,
                                       SimulatedChip& read) {
    std::vector<std::uint8_t> bytes;
    for (const std::string_view word : args) {
        std::uint8_t byte = 0;
        // Not "'" + std::string(word): GCC 12 at -O3 warns of an overlapping copy there.
        if (word.size() != 2 || !ParseNumber(word, byte, 16))
            return Error(line, std::string(1, '\'').append(word) + "' in " + std::string(key) +
                                   " is not a two-digit hexadecimal byte");
        bytes.push_back(byte);
    }
    if (!StoreImage(read, std::string(key), bytes))
        return Error(line, std::string(key) + " needs " + SizeRule(chip, key) + ", found " +
                               std::to_string(bytes.size()) + " bytes");
    return std::nullopt;
}

// The type or sub-type line, which must name the chip's own.
std::optional<SaveFileError> ReadChipNumber(int line, std::string_view key,
                                            const std::vector<std::string_view>& args,
                                            const SimulatedChip& chip) {
    std::uint16_t value = 0;
    if (auto error = ReadValue(line, key, args, value, 0, 65535))
        return error;
    const std::uint16_t expected = key == "type" ? chip.chipType : chip.chipSubType;
    if (value != expected)
        return Error(line, "the file is for " + std::string(key == "type" ? "chip type " : "sub-type ") +
                               std::to_string(value) + ", not " + std::to_string(expected));
    return std::nullopt;
}

// One "key value" line after the format, into read.
std::optional<SaveFileError> ReadKeyLine(int line, std::string_view text, std::string_view key,
                                         const std::vector<std::string_view>& args, const SimulatedChip& chip,
                                         SimulatedChip& read) {
    constexpr long long kIntMin = std::numeric_limits<int>::min();
    constexpr long long kIntMax = std::numeric_limits<int>::max();
    if (key == "type" || key == "subtype")
        return ReadChipNumber(line, key, args, chip);
    if (key == "model") {
        const std::string_view name = Trim(text.substr(key.size()));
        read.modelName = std::string(name);
        return name.empty() ? Error(line, "model needs a chip name") : std::optional<SaveFileError>();
    }
    if (key == "gain") {
        if (args.size() != 2 || !ParseNumber(args[0], read.gainMin) || !ParseNumber(args[1], read.gainMax))
            return Error(line, "gain needs two whole numbers, the lowest and the highest gain");
        return std::nullopt;
    }
    if (key == "kind")
        return ReadValue(line, key, args, read.registerKind, kIntMin, kIntMax);
    if (key == "count")
        return ReadValue(line, key, args, read.count, 0, std::numeric_limits<std::uint32_t>::max());
    if (key == "param")
        return ReadValue(line, key, args, read.chipParam, 0, 65535);
    if (key == "slider")
        return ReadValue(line, key, args, read.sliderValue, kIntMin, kIntMax);
    if (kRequiredImages.count(key) || kRowImages.count(key))
        return ReadImage(line, key, args, chip, read);
    return Error(line, "unknown line '" + std::string(key) + "'");
}

// What the whole file must have had.
std::optional<SaveFileError> CheckComplete(bool formatSeen, const std::set<std::string, std::less<>>& seen,
                                           bool ended) {
    if (!formatSeen)
        return Error(0, "the file is empty");
    for (const char* required :
         {"type", "subtype", "regData", "regDataEx", "regData2", "regData3", "regData4"})
        if (!seen.count(required))
            return Error(0, std::string("the file has no ") + required + " line");
    if (!ended)
        return Error(0, "the file ends early (no 'end' line)");
    return std::nullopt;
}

// The images and host values a whole file gave.
void TakeWhatWasRead(const SimulatedChip& read, SimulatedChip& chip) {
    chip.modelName = read.modelName;
    chip.gainMin = read.gainMin;
    chip.gainMax = read.gainMax;
    chip.registerKind = read.registerKind;
    chip.count = read.count;
    chip.chipParam = read.chipParam;
    chip.sliderValue = read.sliderValue;
    chip.regData = read.regData;
    chip.regDataEx = read.regDataEx;
    chip.regData2 = read.regData2;
    chip.regData3 = read.regData3;
    chip.regData4 = read.regData4;
    chip.icnd3065Rows = read.icnd3065Rows;
    chip.icnd3069Rows = read.icnd3069Rows;
}

} // namespace

std::string SaveFileError::ToString() const {
    return line > 0 ? "line " + std::to_string(line) + ": " + reason : reason;
}

std::string FormatChipSaveFile(const SimulatedChip& chip) {
    std::string text =
        "# RegvaneWorkbench simulated chip: register images and host values, saved after every "
        "change.\n# Edit only while the workbench is closed.\n";
    text += "format " + std::to_string(kChipSaveFormat) + "\n";
    text += "type " + std::to_string(chip.chipType) + "\n";
    text += "subtype " + std::to_string(chip.chipSubType) + "\n";
    text += "model " + chip.modelName + "\n";
    text += "gain " + std::to_string(chip.gainMin) + " " + std::to_string(chip.gainMax) + "\n";
    text += "kind " + std::to_string(chip.registerKind) + "\n";
    text += "count " + std::to_string(chip.count) + "\n";
    text += "param " + std::to_string(chip.chipParam) + "\n";
    text += "slider " + std::to_string(chip.sliderValue) + "\n";
    for (const NamedImage& image : TakeSnapshot(chip))
        text += image.name + " " + HexBytes(image.bytes) + "\n";
    text += "end\n";
    return text;
}

std::optional<SaveFileError> ReadChipSaveFile(std::string_view text, SimulatedChip& chip) {
    SimulatedChip read = chip;
    read.icnd3065Rows.clear();
    read.icnd3069Rows.clear();
    std::set<std::string, std::less<>> seen;
    bool formatSeen = false;
    bool ended = false;
    int lineNumber = 0;
    while (!text.empty()) {
        const std::size_t newline = text.find('\n');
        const std::string_view line = Trim(text.substr(0, newline));
        text = newline == std::string_view::npos ? std::string_view() : text.substr(newline + 1);
        ++lineNumber;
        if (line.empty() || line.front() == '#')
            continue;
        if (ended)
            return Error(lineNumber, "text after the 'end' line");
        const std::vector<std::string_view> words = Words(line);
        const std::string_view key = words[0];
        const std::vector<std::string_view> args(words.begin() + 1, words.end());
        std::optional<SaveFileError> error;
        if (!formatSeen) {
            error = ReadFormat(lineNumber, key, args);
            formatSeen = true;
        } else if (key == "end") {
            ended = true;
        } else if (!seen.insert(std::string(key)).second) {
            error = Error(lineNumber, std::string(key) + " appears twice");
        } else {
            error = ReadKeyLine(lineNumber, line, key, args, chip, read);
        }
        if (error)
            return error;
    }
    if (auto error = CheckComplete(formatSeen, seen, ended))
        return error;
    TakeWhatWasRead(read, chip);
    return std::nullopt;
}
