// Operator sessions on the FM612x pages with many fields, every host call that changes the chip or
// tells the host something written down with its bytes, held against the trace the page left when it
// was last accepted (tests/windows/traces/<class>.trace): what each field writes, and when the page
// writes or notifies by itself. The other FM612x pages' bytes are worked out by hand in fm612x_test.
//
// REGVANE_RECORD_TRACES=1 writes the traces instead of comparing; review the diff before keeping one.
#include "OperatorActions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

// An operator session on one page: each step noted, then the writes and notices it caused.
class TracedSession {
public:
    TracedSession(int type, SimulatedChip& chip) : m_chip(chip) {
        InstallHostCallback();
        m_chip.ClearLog();
        m_page = RegvaneLibrary::Get().CreateRegvaneHwnd(type, &chip, L"", m_host.View());
        Step("open");
    }
    ~TracedSession() { DestroyWindow(m_page); }

    void Slider(int id, int position) {
        MoveSlider(m_page, id, position);
        Step("slider " + std::to_string(id) + " " + std::to_string(position));
    }
    void Select(int id, int index) {
        ::Select(m_page, id, index);
        Step("select " + std::to_string(id) + " " + std::to_string(index));
    }
    void Type(int id, int value) {
        Enter(m_page, id, std::to_wstring(value).c_str());
        Step("type " + std::to_string(id) + " " + std::to_string(value));
    }
    void Reread() {
        SendMessageW(m_page, 0x0903, 0, 0);
        Step("host: read the chip again");
    }
    void ShowAgain() {
        ShowWindow(m_page, SW_HIDE);
        ShowWindow(m_page, SW_SHOW);
        Step("host: hide and show the page");
    }
    // A change the host makes behind the page, which hears of it only later.
    void Host(const std::string& what) { Step("host: " + what); }

    // Reads are left out: when and how often a page reads is its own business.
    void Step(const std::string& step) {
        m_trace << "> " << step << "\n";
        for (const HostCall& call : m_chip.log)
            if (call.name.rfind("Get", 0) != 0)
                m_trace << "  " << call.ToString() << "\n";
        m_chip.ClearLog();
    }
    std::string Trace() const { return m_trace.str(); }

private:
    SimulatedChip& m_chip;
    HostFrame m_host;
    HWND m_page = nullptr;
    std::ostringstream m_trace;
};

// A chip whose every byte differs, so that a field read from or written to the wrong place shows.
SimulatedChip PatternChip(const char* model) {
    SimulatedChip chip;
    chip.modelName = model;
    for (std::size_t i = 0; i < chip.regData.size(); ++i)
        chip.regData[i] = static_cast<std::uint8_t>(0x5A + i * 0x25);
    for (std::size_t i = 0; i < chip.regDataEx.size(); ++i)
        chip.regDataEx[i] = static_cast<std::uint8_t>(0xC3 ^ (i * 0x11));
    for (std::size_t i = 0; i < chip.regData2.size(); ++i)
        chip.regData2[i] = static_cast<std::uint8_t>(0x3C + i * 0x17);
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
    EXPECT_EQ(trace, expected.str()) << className;
}

// Every one of the eighteen edits and the three global combos; the host's value counts as the chip.
TEST(PageTraces, Fm6127ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6127");
    TracedSession page(65536 + 25, chip);
    const int values[] = {9, 1, 7, 13, 5, 6};
    for (int setting = 0; setting < 6; ++setting)
        for (int colour = 0; colour < 3; ++colour)
            page.Type(21201 + setting * 3 + colour, (values[setting] + colour) % 8 + setting);
    for (const int combo : {21220, 21221, 21222})
        page.Select(combo, 1);
    chip.regData[14] &= 0xBF;
    page.Host("clears bit 6 of byte 14");
    page.Reread();
    page.Select(21220, 0);
    chip.sliderValue = 42;
    page.Host("changes its brightness step to 42");
    page.Type(21201, 2);
    page.ShowAgain();
    ExpectTrace("CRegvaneFM6127EX", page.Trace());
}

// Every one of the fifteen edits; a change only in record A counts as a change.
TEST(PageTraces, Fm6129ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6129");
    TracedSession page(65536 + 48, chip);
    for (int setting = 0; setting < 5; ++setting)
        for (int colour = 0; colour < 3; ++colour)
            page.Type(21501 + setting * 3 + colour, (setting * 5 + colour * 3) % 16);
    chip.regDataEx[3] ^= 0xFF;
    page.Host("changes byte 3 of record A");
    page.Type(21501, 0);
    page.Reread();
    ExpectTrace("CRegvaneFM6129Ex", page.Trace());
}

// The FM6128Ex page writes the chip whenever it fills: the gain copies made equal, the host's count.
TEST(PageTraces, Fm6128ExGivesTheHostTheAcceptedCalls) {
    SimulatedChip chip = PatternChip("FM6128");
    chip.count = 24;
    TracedSession page(65536 + 41, chip);
    page.Type(21311, 9);
    page.Slider(21302, 33);
    chip.count = 40;
    page.Host("drives 40 scan lines");
    page.Reread();
    chip.regData2[91] = 0;
    page.Host("sets byte 91 to 0");
    page.ShowAgain();
    page.Type(21311, 0);
    ExpectTrace("CRegvaneFM6128Ex", page.Trace());
}

} // namespace
