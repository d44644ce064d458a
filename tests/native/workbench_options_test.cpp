// The workbench's command line and its PNG encoder.
#include "workbench/PngWriter.h"
#include "workbench/WorkbenchOptions.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

// The options every headless run gives (--type, --profile, --screenshot, --do, --reset), --all-pages
// with --types, and an unknown option are held by the Windows workbench tests.
TEST(WorkbenchOptions, ReadsAHeadlessRun) {
    const ParsedOptions parsed =
        ParseOptions({L"--headless", L"--type", L"65536+4", L"--subtype", L"212", L"--do", L"slider 8123 20",
                      L"--do", L"click 8025", L"--language", L"1"});
    ASSERT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.chipType, 65540);
    EXPECT_EQ(parsed.options.subType, 212);
    EXPECT_EQ(parsed.options.inlineActions, "slider 8123 20;click 8025");
    EXPECT_EQ(parsed.options.language, 1);
}

TEST(WorkbenchOptions, RefusesWhatItCannotDoWithAReason) {
    const struct {
        std::vector<std::wstring> args;
        const char* error;
    } bad[] = {
        {{L"--type", L"x47"}, "--type x47: not a chip type number"},
        {{L"--type"}, "--type needs a chip type number"},
        {{L"--language", L"14"}, "the host's languages are 1 to 13"},
        {{L"--subtype", L"70000"}, "--subtype 70000: not a number from 0 to 65535"},
        {{L"--headless"}, "--headless needs --type"},
        {{L"--all-pages", L"out", L"--type", L"47"}, "does not go with --type"},
        {{L"--types", L"47"}, "--types only limits --all-pages"},
        {{L"--all-pages", L"out", L"--types", L"47,,48"}, "--types: '' is not a chip type number"},
    };
    for (const auto& b : bad) {
        const ParsedOptions parsed = ParseOptions(b.args);
        EXPECT_NE(parsed.error.find(b.error), std::string::npos) << parsed.error;
    }
}

// A viewer checks every chunk's CRC, and gets the pixels back: each row filtered as the difference
// from the pixel to its left ("Sub", filter 1).
TEST(WorkbenchPng, WritesChunksWithTheirCrcAndThePixelsAndRefusesTooFewPixels) {
    const std::vector<std::uint8_t> rgb = {255, 0,  0,  0,  255, 0,  0,   0,   255,
                                           10,  20, 30, 10, 20,  30, 250, 251, 252};
    const std::vector<std::uint8_t> png = EncodePng(3, 2, rgb);
    ASSERT_EQ(std::string(png.begin(), png.begin() + 8), "\x89PNG\r\n\x1A\n");
    std::string types;
    std::vector<std::uint8_t> header, packed;
    for (std::size_t at = 8; at + 12 <= png.size();) {
        const std::uint32_t length = (png[at] << 24) | (png[at + 1] << 16) | (png[at + 2] << 8) | png[at + 3];
        ASSERT_LE(at + 12 + length, png.size());
        const std::string type(png.begin() + at + 4, png.begin() + at + 8);
        types += type;
        auto& into = type == "IHDR" ? header : packed;
        into.insert(into.end(), png.begin() + at + 8, png.begin() + at + 8 + length);
        const std::uint8_t* crc = png.data() + at + 8 + length;
        EXPECT_EQ((std::uint32_t(crc[0]) << 24) | (crc[1] << 16) | (crc[2] << 8) | crc[3],
                  crc32(0, png.data() + at + 4, length + 4));
        at += 12 + length;
    }
    EXPECT_EQ(types, "IHDRIDATIEND");
    EXPECT_EQ(header, (std::vector<std::uint8_t>{0, 0, 0, 3, 0, 0, 0, 2, 8, 2, 0, 0, 0}));
    std::vector<std::uint8_t> rows(2 * 10);
    uLongf size = static_cast<uLongf>(rows.size());
    ASSERT_EQ(uncompress(rows.data(), &size, packed.data(), static_cast<uLong>(packed.size())), Z_OK);
    std::vector<std::uint8_t> pixels;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (i % 10 != 0) // the filter byte
            pixels.push_back(
                static_cast<std::uint8_t>(rows[i] + (i % 10 > 3 ? pixels[pixels.size() - 3] : 0)));
    EXPECT_EQ(rows[0], 1);
    EXPECT_EQ(pixels, rgb);
    EXPECT_THROW(EncodePng(3, 3, rgb), std::invalid_argument);
}

} // namespace
