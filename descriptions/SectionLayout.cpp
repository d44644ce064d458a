#include "descriptions/SectionLayout.h"

#include "descriptions/RegisterText.h"
#include "framework/TextEncoding.h"

#include <algorithm>

namespace chipdesc {

namespace {

// Dialog units, as the rows use them.
constexpr int kGap = 4;
constexpr int kLabelHeight = 9;
constexpr int kTextLine = 8; // a line of the page's font
constexpr int kScrollBar = 10;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;

std::wstring Translate(const LayoutTexts& texts, std::string_view id) {
    return texts.translate ? texts.translate(id) : Utf8ToWide(id);
}
int Measure(const LayoutTexts& texts, const std::wstring& text) {
    return texts.measure ? texts.measure(text) : 0;
}

} // namespace

std::vector<int> SectionIds(const Description& description) {
    std::vector<int> ids;
    if (description.page.registerText)
        ids = description.page.registerText->ids;
    for (const TableSpec& table : description.page.tables)
        ids.push_back(table.id);
    return ids;
}

void PlanSections(const Description& description, const LayoutTexts& texts, DialogUnits units, int left,
                  int right, int& y, const std::function<int(int id)>& idOr,
                  std::vector<PlannedWindow>& windows) {
    const Page& page = description.page;
    auto button = [&](Role role, int table, int id, const char* textId, int x) {
        const std::wstring text = Translate(texts, textId);
        const int width = std::max(units.X(kButtonWidth), Measure(texts, text) + units.X(10));
        windows.push_back(
            {role, -1, -1, idOr(id), text, {x, y, x + width, y + units.Y(kButtonHeight)}, table});
        return x + width + units.X(kGap);
    };
    if (page.registerText) {
        // As wide as its longest line (every line is as long whatever the bytes), as high as its lines
        // up to a dozen, then scrolled.
        const std::wstring text = Utf8ToWide(
            FormatRegisterText(description, [](Source) { return std::span<const std::uint8_t>(); }));
        int widest = 0;
        int lines = 0;
        for (std::size_t start = 0; start < text.size(); ++lines) {
            const std::size_t end = std::min(text.find(L"\r\n", start), text.size());
            widest = std::max(widest, Measure(texts, text.substr(start, end - start)));
            start = end + 2;
        }
        const bool scrolled = lines > kRegisterTextLines;
        const int width = widest + units.X(8) + (scrolled ? units.X(kScrollBar) : 0);
        const int height = units.Y(kTextLine) * std::min(lines, kRegisterTextLines) + units.Y(6);
        const std::vector<int>& ids = page.registerText->ids;
        auto idOf = [&](std::size_t i) { return ids.empty() ? 0 : ids[i]; };
        y += units.Y(kGap);
        const Rect textRect{left, y, std::max(right, left + width), y + height};
        windows.push_back({Role::RegisterText, -1, -1, idOr(idOf(0)), {}, textRect, -1});
        y += height + units.Y(kGap);
        const int x = button(Role::CopyButton, -1, idOf(1), "IDS_RegisterText_Copy", left);
        button(Role::PasteButton, -1, idOf(2), "IDS_RegisterText_Paste", x);
        y += units.Y(kButtonHeight);
    }
    int labelWidth = 0;
    for (const TableSpec& table : page.tables)
        labelWidth = std::max(labelWidth, Measure(texts, ItemText(table.label, texts)));
    for (std::size_t i = 0; i < page.tables.size(); ++i) {
        const int table = static_cast<int>(i);
        y += units.Y(kGap);
        const int labelTop = y + (units.Y(kButtonHeight) - units.Y(kLabelHeight)) / 2;
        const Rect labelRect{left, labelTop, left + labelWidth, labelTop + units.Y(kLabelHeight)};
        windows.push_back({Role::Label, -1, -1, 0, ItemText(page.tables[i].label, texts), labelRect, table});
        button(Role::TableButton, table, page.tables[i].id, "IDS_Table_Load", left + labelWidth + units.X(6));
        y += units.Y(kButtonHeight);
    }
}

} // namespace chipdesc
