// Operator sessions on chip pages, every host call written down with its bytes, held against the
// trace the page left when it was last accepted (tests/windows/traces/<class>.trace). A page that
// is rebuilt (from a chip description instead of C++, say) must give the host exactly the same calls.
//
// REGVANE_RECORD_TRACES=1 writes the traces instead of comparing; review the diff before keeping one.
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace {

// An operator session on one page: each step noted, then the host calls it caused with their bytes.
class TracedSession {
public:
    TracedSession(int type, SimulatedChip& chip) : m_chip(chip) {
        InstallHostCallback();
        m_chip.ClearLog();
        Step("open",
             [&] { m_window = RegvaneLibrary::Get().CreateRegvaneHwnd(type, &chip, L"", m_host.View()); });
    }
    ~TracedSession() {
        if (IsWindow(m_window))
            DestroyWindow(m_window);
    }

    void Slider(int id, int position) {
        Step("slider " + Args(id, position), [&] { MoveSlider(m_window, id, position); });
    }
    void Select(int id, int index) {
        Step("select " + Args(id, index), [&] { ::Select(m_window, id, index); });
    }
    void Type(int id, const std::wstring& text) {
        Step("type " + std::to_string(id) + " " + std::string(text.begin(), text.end()),
             [&] { Enter(m_window, id, text.c_str()); });
    }
    void Click(int id) {
        Step("click " + std::to_string(id), [&] { ::Click(m_window, id); });
    }
    void Reread() {
        Step("host: read the chip again", [&] { SendMessageW(m_window, 0x0903, 0, 0); });
    }
    void ShowAgain() {
        Step("host: hide and show the page", [&] {
            ShowWindow(m_window, SW_HIDE);
            ShowWindow(m_window, SW_SHOW);
        });
    }
    // A change the host makes behind the page: noted, and the page hears of it only later.
    void Host(const std::string& what, const std::function<void()>& change) {
        m_trace << "> host: " << what << "\n";
        change();
    }

    std::string Trace() const { return m_trace.str(); }

private:
    static std::string Args(int id, int value) { return std::to_string(id) + " " + std::to_string(value); }
    void Step(const std::string& step, const std::function<void()>& action) {
        m_trace << "> " << step << "\n";
        action();
        for (const HostCall& call : m_chip.log)
            m_trace << "  " << call.ToString() << "\n";
        m_chip.ClearLog();
    }

    SimulatedChip& m_chip;
    HostFrame m_host;
    HWND m_window = nullptr;
    std::ostringstream m_trace;
};

// A chip whose every byte differs, so that a field read from the wrong place shows.
SimulatedChip PatternChip(const char* model) {
    SimulatedChip chip;
    chip.modelName = model;
    for (std::size_t i = 0; i < chip.regData.size(); ++i)
        chip.regData[i] = static_cast<std::uint8_t>(0x5A + i * 0x25);
    for (std::size_t i = 0; i < chip.regDataEx.size(); ++i)
        chip.regDataEx[i] = static_cast<std::uint8_t>(0xC3 ^ (i * 0x11));
    for (std::size_t i = 0; i < chip.regData4.size(); ++i)
        chip.regData4[i] = static_cast<std::uint8_t>(i * 7);
    chip.sliderValue = 41;
    return chip;
}

void ExpectTrace(const std::string& className, const std::string& trace) {
    const std::string path =
        std::string(REGVANE_SOURCE_DIR) + "/tests/windows/traces/" + className + ".trace";
    if (const char* record = std::getenv("REGVANE_RECORD_TRACES"); record && *record == '1') {
        std::ofstream(path, std::ios::binary) << trace;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << "no trace " << path;
    std::stringstream expected;
    expected << file.rdbuf();
    // Line by line, so that a difference names its step.
    std::istringstream want(expected.str()), got(trace);
    std::string wantLine, gotLine, step;
    for (int line = 1; std::getline(want, wantLine); ++line) {
        if (wantLine.rfind("> ", 0) == 0)
            step = wantLine;
        ASSERT_TRUE(std::getline(got, gotLine)) << className << ": the trace ends before line " << line;
        ASSERT_EQ(gotLine, wantLine) << className << " line " << line << ", after " << step;
    }
    EXPECT_FALSE(std::getline(got, gotLine)) << className << ": more calls than accepted: " << gotLine;
}

// The FM6126 and FM6127 gain pages: sliders alone and linked, the output-current read-out (which
// the host never hears of), Default, and the host reading the chip again.
void GainSliderSession(TracedSession& page, SimulatedChip& chip) {
    page.Click(21016); // the link starts off: on, then off again
    page.Slider(21003, 30);
    page.Click(21016);
    page.Slider(21001, 20);
    page.Slider(21002, 63);
    page.Click(21017);
    page.Type(21008, L"500");
    page.Click(21018);
    page.Host("sets byte 3 to 0x0c", [&] { chip.regData[3] = 0x0C; });
    page.Reread();
    page.ShowAgain();
    page.Slider(21001, 15);
    page.Click(21017);
}

TEST(PageTraces, Fm6126GivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6126");
    TracedSession page(179, chip);
    GainSliderSession(page, chip);
    ExpectTrace("CRegvaneFM6126", page.Trace());
}

TEST(PageTraces, Fm6127GivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6127");
    TracedSession page(184, chip);
    GainSliderSession(page, chip);
    ExpectTrace("CRegvaneFM6127", page.Trace());
}

TEST(PageTraces, Fm6129GivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6129");
    chip.gainMin = 0x105;
    chip.gainMax = 0x23A;
    TracedSession page(259, chip);
    page.Click(21419); // the link starts off: on, then off again
    page.Slider(21402, 40);
    page.Click(21419);
    page.Slider(21401, 10);
    page.Type(21408, L"3");
    page.Click(21420);
    page.Type(21411, L"500");
    page.Host("sets byte 3 to 0x3f", [&] { chip.regData[3] = 0x3F; });
    page.Reread();
    page.Host("narrows its gain range", [&] { chip.gainMax = 0x130; });
    page.ShowAgain();
    page.Slider(21403, 63);
    page.Click(21420);
    ExpectTrace("CRegvane_FM6129", page.Trace());
}

TEST(PageTraces, Fm6126ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6126");
    TracedSession page(65536 + 15, chip);
    page.Click(21119); // the link starts off: on, then off again
    page.Click(21119);
    page.Slider(21101, 4);
    page.Slider(21102, 15);
    page.Select(21109, 1);
    page.Select(21111, 3);
    page.Type(21113, L"5");
    page.Type(21118, L"6");
    page.Type(21116, L"0");
    page.Click(21119);
    page.Slider(21103, 12);
    page.Click(21119);
    page.Host("sets byte 8 to 0x19", [&] { chip.regData[8] = 0x19; });
    page.Reread();
    page.ShowAgain();
    page.Slider(21101, 0);
    ExpectTrace("CRegvaneFM6126EX", page.Trace());
}

TEST(PageTraces, Fm6127ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6127");
    TracedSession page(65536 + 25, chip);
    const int values[] = {9, 1, 7, 13, 5, 6};
    for (int setting = 0; setting < 6; ++setting)
        for (int colour = 0; colour < 3; ++colour)
            page.Type(21201 + setting * 3 + colour,
                      std::to_wstring((values[setting] + colour) % 8 + setting));
    for (const int combo : {21220, 21221, 21222})
        page.Select(combo, 1);
    page.Host("clears bit 6 of byte 14", [&] { chip.regData[14] &= 0xBF; });
    page.Reread();
    page.Select(21220, 0);
    page.Host("changes its brightness step to 42", [&] { chip.sliderValue = 42; });
    page.Type(21201, L"2");
    page.ShowAgain();
    ExpectTrace("CRegvaneFM6127EX", page.Trace());
}

TEST(PageTraces, Fm6129ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6129");
    TracedSession page(65536 + 48, chip);
    for (int setting = 0; setting < 5; ++setting)
        for (int colour = 0; colour < 3; ++colour)
            page.Type(21501 + setting * 3 + colour, std::to_wstring((setting * 5 + colour * 3) % 16));
    page.Host("changes byte 3 of record A", [&] { chip.regDataEx[3] ^= 0xFF; });
    page.Type(21501, L"0");
    page.Reread();
    ExpectTrace("CRegvaneFM6129Ex", page.Trace());
}

// The FM6128 pages keep their settings in the large block, whose every byte differs here too.
SimulatedChip LargePatternChip(const char* model) {
    SimulatedChip chip = PatternChip(model);
    for (std::size_t i = 0; i < chip.regData2.size(); ++i)
        chip.regData2[i] = static_cast<std::uint8_t>(0x3C + i * 0x17);
    return chip;
}

TEST(PageTraces, Fm6128GivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = LargePatternChip("FM6128");
    TracedSession page(120, chip);
    page.Click(21307); // the link starts off: on, then off again
    page.Slider(21302, 100);
    page.Click(21307);
    page.Slider(21301, 5);
    page.Slider(21303, 127);
    page.Host("sets byte 85 to 0x15", [&] { chip.regData2[85] = 0x15; });
    page.Reread();
    page.ShowAgain();
    page.Slider(21301, 64);
    ExpectTrace("CRegvaneFM6128", page.Trace());
}

// The FM6128Ex page writes the chip whenever it fills: the gain copies made equal, the host's count.
TEST(PageTraces, Fm6128ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = LargePatternChip("FM6128");
    chip.count = 24;
    TracedSession page(65536 + 41, chip);
    page.Type(21311, L"9");
    page.Slider(21302, 33);
    page.Host("drives 40 scan lines", [&] { chip.count = 40; });
    page.Reread();
    page.Host("sets byte 91 to 0", [&] { chip.regData2[91] = 0; });
    page.ShowAgain();
    page.Type(21311, L"0");
    ExpectTrace("CRegvaneFM6128Ex", page.Trace());
}

} // namespace
