// The workbench's command line and its PNG encoder.
#include "workbench/PngWriter.h"
#include "workbench/WorkbenchOptions.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

TEST(WorkbenchOptions, ReadsAHeadlessRun) {
    const ParsedOptions parsed = ParseOptions(
        {L"--headless", L"--type", L"65536+4", L"--subtype", L"212", L"--do", L"slider 8123 20", L"--do",
         L"click 8025", L"--screenshot", L"x.png", L"--profile", L"C:\\p", L"--language", L"1", L"--reset"});
    ASSERT_EQ(parsed.error, "");
    const WorkbenchOptions& o = parsed.options;
    EXPECT_TRUE(o.headless);
    EXPECT_EQ(o.chipType, 65540);
    EXPECT_EQ(o.subType, 212);
    EXPECT_EQ(o.inlineActions, "slider 8123 20;click 8025");
    EXPECT_EQ(o.screenshot, L"x.png");
    EXPECT_EQ(o.profile, L"C:\\p");
    EXPECT_EQ(o.language, 1);
    EXPECT_TRUE(o.reset);

    const ParsedOptions all = ParseOptions({L"--all-pages", L"out", L"--types", L"47,65536+4,81"});
    ASSERT_EQ(all.error, "");
    EXPECT_EQ(all.options.onlyTypes, (std::vector<int>{47, 65540, 81}));
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
        {{L"--frobnicate"}, "unknown option --frobnicate"},
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

std::uint32_t BigEndian(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    return (std::uint32_t(bytes[at]) << 24) | (bytes[at + 1] << 16) | (bytes[at + 2] << 8) | bytes[at + 3];
}

TEST(WorkbenchPng, WritesChunksAViewerAccepts) {
    const int width = 3, height = 2;
    const std::vector<std::uint8_t> rgb = {255, 0,  0,  0,  255, 0,  0,   0,   255,
                                           10,  20, 30, 10, 20,  30, 250, 251, 252};
    const std::vector<std::uint8_t> png = EncodePng(width, height, rgb);

    ASSERT_GT(png.size(), 8u);
    EXPECT_EQ(std::vector<std::uint8_t>(png.begin(), png.begin() + 8),
              (std::vector<std::uint8_t>{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}));
    std::vector<std::string> types;
    std::vector<std::uint8_t> idat;
    for (std::size_t at = 8; at < png.size();) {
        const std::uint32_t length = BigEndian(png, at);
        const std::string type(png.begin() + at + 4, png.begin() + at + 8);
        types.push_back(type);
        const std::uint32_t crc = BigEndian(png, at + 8 + length);
        EXPECT_EQ(crc, crc32(0, png.data() + at + 4, length + 4)) << type;
        if (type == "IHDR") {
            EXPECT_EQ(BigEndian(png, at + 8), 3u);
            EXPECT_EQ(BigEndian(png, at + 12), 2u);
            EXPECT_EQ(png[at + 16], 8);
            EXPECT_EQ(png[at + 17], 2);
        }
        if (type == "IDAT")
            idat.insert(idat.end(), png.begin() + at + 8, png.begin() + at + 8 + length);
        at += 12 + length;
    }
    EXPECT_EQ(types, (std::vector<std::string>{"IHDR", "IDAT", "IEND"}));
    // The pixels themselves are read back from real page pictures by the workbench's picture test.
    std::vector<std::uint8_t> raw(height * (1 + width * 3));
    uLongf rawSize = raw.size();
    ASSERT_EQ(uncompress(raw.data(), &rawSize, idat.data(), idat.size()), Z_OK);
    EXPECT_EQ(rawSize, raw.size());

    EXPECT_THROW(EncodePng(3, 3, rgb), std::invalid_argument);
}

} // namespace
