// How much a parameter file costs to write and read, against the floor of moving the same bytes
// through the same file system in the same run: the ratio is what the format and the safe
// replacement add, and it holds from machine to machine where absolute times do not.
#include "framework/TextEncoding.h"
#include "paramfiles/ParamChipTable.h"
#include "paramfiles/ParamFileFormat.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path& Folder() {
    static const fs::path folder = [] {
        fs::path path = fs::temp_directory_path() / "regvane_param_bench";
        fs::create_directories(path);
        return path;
    }();
    return folder;
}

std::wstring WidePath(const char* name) {
    return Utf8ToWide((Folder() / name).string());
}

ParamFileLayout Layout() {
    ParamFileLayout layout;
    layout.tagLine = L"CHIP_ICND3065_PARAMETER_FILE";
    layout.header = L"Addr,RReg,GReg,BReg";
    return layout;
}

std::vector<std::uint8_t> Block() {
    std::vector<std::uint8_t> block(kParamBlockBytes);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<std::uint8_t>(i * 37);
    return block;
}

// The bytes of a full 128-row file, as the export writes them.
const std::string& FileBytes() {
    static const std::string bytes = [] {
        const std::vector<std::uint8_t> block = Block();
        WriteParamFile(WidePath("reference.csv"), Layout(), block, kParamBlockRows);
        std::string content;
        if (std::FILE* file = std::fopen((Folder() / "reference.csv").c_str(), "rb")) {
            char buffer[4096];
            std::size_t got = 0;
            while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0)
                content.append(buffer, got);
            std::fclose(file);
        }
        return content;
    }();
    return bytes;
}

void FloorWriteBytes(benchmark::State& state) {
    const std::string& bytes = FileBytes();
    const std::string path = (Folder() / "floor.csv").string();
    for (auto _ : state) {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void ExportParamFile(benchmark::State& state) {
    const std::vector<std::uint8_t> block = Block();
    const std::wstring path = WidePath("export.csv");
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteParamFile(path, Layout(), block, kParamBlockRows));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * FileBytes().size()));
}

void FloorReadBytes(benchmark::State& state) {
    const std::string path = (Folder() / "reference.csv").string();
    FileBytes();
    char buffer[8192];
    for (auto _ : state) {
        std::FILE* file = std::fopen(path.c_str(), "rb");
        std::size_t total = 0, got = 0;
        while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            total += got;
        std::fclose(file);
        benchmark::DoNotOptimize(total);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * FileBytes().size()));
}

void ImportParamFile(benchmark::State& state) {
    FileBytes();
    const std::wstring path = WidePath("reference.csv");
    std::vector<std::uint8_t> block(kParamBlockBytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadParamFile(path, Layout(), block, kParamBlockRows).status);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * FileBytes().size()));
}

BENCHMARK(FloorWriteBytes);
BENCHMARK(ExportParamFile);
BENCHMARK(FloorReadBytes);
BENCHMARK(ImportParamFile);

// Prints the usual table, then each operation as a multiple of its floor.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            m_seconds[run.benchmark_name()] = run.GetAdjustedRealTime();
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        PrintRatio("ExportParamFile", "FloorWriteBytes");
        PrintRatio("ImportParamFile", "FloorReadBytes");
    }

private:
    void PrintRatio(const std::string& name, const std::string& floor) {
        const auto measured = m_seconds.find(name);
        const auto base = m_seconds.find(floor);
        if (measured == m_seconds.end() || base == m_seconds.end() || base->second <= 0)
            return;
        std::printf("%s: %.2f x %s (128-row file, %zu bytes)\n", name.c_str(),
                    measured->second / base->second, floor.c_str(), FileBytes().size());
    }
    std::map<std::string, double> m_seconds;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    std::error_code ignored;
    fs::remove_all(Folder(), ignored);
    return 0;
}
