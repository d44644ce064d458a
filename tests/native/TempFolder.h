// A folder of the running test's own under the system's temporary folder, removed again afterwards.
#pragma once

#include "framework/TextEncoding.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

class TempFolder {
public:
    TempFolder() {
        const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::temp_directory_path() /
                 (std::string("regvane_") + test->test_suite_name() + "_" + test->name() + "_" +
                  std::to_string(::getpid())); // two checkouts may run the same test at once
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder() { std::filesystem::remove_all(m_path); }
    // Names are UTF-8, as the file system takes them here.
    std::filesystem::path Path(const std::string& name) const { return m_path / name; }
    std::wstring File(const std::string& name) const { return Utf8ToWide(Path(name).string()); }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(Path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    std::filesystem::path m_path;
};
