#include "workbench/ChipImages.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kNameWidth = 13; // "icnd3065Rows" and a space
static_assert(kHexLineChars == kNameWidth + kBytesPerLine * 3);

template <std::size_t N> NamedImage Image(const char* name, const std::array<std::uint8_t, N>& bytes) {
    return {name, std::vector<std::uint8_t>(bytes.begin(), bytes.end())};
}

NamedImage Rows(const char* name, const std::vector<std::array<std::uint8_t, kParamRowBytes>>& rows) {
    NamedImage image{name, {}};
    for (const auto& row : rows)
        image.bytes.insert(image.bytes.end(), row.begin(), row.end());
    return image;
}

template <std::size_t N>
bool Store(std::array<std::uint8_t, N>& image, const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() != N)
        return false;
    std::copy(bytes.begin(), bytes.end(), image.begin());
    return true;
}

bool StoreRows(std::vector<std::array<std::uint8_t, kParamRowBytes>>& rows,
               const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() % kParamRowBytes || bytes.size() > kParamRowListCapacity * kParamRowBytes)
        return false;
    rows.resize(bytes.size() / kParamRowBytes);
    for (std::size_t i = 0; i < rows.size(); ++i)
        std::memcpy(rows[i].data(), bytes.data() + i * kParamRowBytes, kParamRowBytes);
    return true;
}

const NamedImage* Find(const ChipImageSnapshot& snapshot, const std::string& name) {
    for (const NamedImage& image : snapshot)
        if (image.name == name)
            return &image;
    return nullptr;
}

} // namespace

ChipImageSnapshot TakeSnapshot(const SimulatedChip& chip, bool includeEmptyRowLists) {
    ChipImageSnapshot snapshot{Image("regData", chip.regData), Image("regDataEx", chip.regDataEx),
                               Image("regData2", chip.regData2), Image("regData3", chip.regData3),
                               Image("regData4", chip.regData4)};
    if (includeEmptyRowLists || !chip.icnd3065Rows.empty())
        snapshot.push_back(Rows("icnd3065Rows", chip.icnd3065Rows));
    if (includeEmptyRowLists || !chip.icnd3069Rows.empty())
        snapshot.push_back(Rows("icnd3069Rows", chip.icnd3069Rows));
    return snapshot;
}

bool StoreImage(SimulatedChip& chip, const std::string& name, const std::vector<std::uint8_t>& bytes) {
    if (name == "regData")
        return Store(chip.regData, bytes);
    if (name == "regDataEx")
        return Store(chip.regDataEx, bytes);
    if (name == "regData2")
        return Store(chip.regData2, bytes);
    if (name == "regData3")
        return Store(chip.regData3, bytes);
    if (name == "regData4")
        return Store(chip.regData4, bytes);
    if (name == "icnd3065Rows")
        return StoreRows(chip.icnd3065Rows, bytes);
    if (name == "icnd3069Rows")
        return StoreRows(chip.icnd3069Rows, bytes);
    return false;
}

std::vector<HexLine> FormatImages(const ChipImageSnapshot& now, const ChipImageSnapshot& before) {
    std::vector<HexLine> lines;
    for (const NamedImage& image : now) {
        const NamedImage* old = Find(before, image.name);
        for (std::size_t start = 0; start == 0 || start < image.bytes.size(); start += kBytesPerLine) {
            HexLine line;
            char prefix[32];
            if (start == 0)
                std::snprintf(prefix, sizeof prefix, "%-*s", static_cast<int>(kNameWidth),
                              image.name.c_str());
            else
                std::snprintf(prefix, sizeof prefix, "%*s+%02zx ", static_cast<int>(kNameWidth - 4), "",
                              start);
            line.text = prefix;
            const std::size_t end = std::min(image.bytes.size(), start + kBytesPerLine);
            for (std::size_t i = start; i < end; ++i) {
                if (i > start)
                    line.text += ' ';
                const bool changed = !old || i >= old->bytes.size() || old->bytes[i] != image.bytes[i];
                if (changed)
                    line.marked.push_back({line.text.size(), 2});
                char hex[3];
                std::snprintf(hex, sizeof hex, "%02x", image.bytes[i]);
                line.text += hex;
            }
            lines.push_back(std::move(line));
            if (image.bytes.empty())
                break;
        }
    }
    return lines;
}

std::string CaretLine(const HexLine& line) {
    std::string carets;
    for (const HexLine::Range& range : line.marked) {
        carets.resize(range.begin, ' ');
        carets.append(range.length, '^');
    }
    return carets;
}

std::string HexBytes(const std::vector<std::uint8_t>& bytes) {
    std::string text;
    char hex[4];
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::snprintf(hex, sizeof hex, i ? " %02x" : "%02x", bytes[i]);
        text += hex;
    }
    return text;
}
