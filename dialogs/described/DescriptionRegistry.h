// Where a page class's description comes from. The descriptions we ship are resources of the module;
// the host suite may install a folder of them beside the language files ("Language\Hw\Regvane\Chips\",
// one "<class>.desc" per page class), whose files add pages or replace ours without a new module.
//
// Each file is parsed once for as long as it stays the same (its time and size): opening a page
// again costs one look at the folder, not a parse. A description that cannot be used is reported to
// the operator once; a page the module has a description of opens with that one, any other stays the
// raw register editor. Whether a description can be used does not depend on the host's language
// files: its string ids are checked against the module's own English.
#pragma once

#include "descriptions/ChipDescription.h"

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

struct DescriptionProblem {
    std::wstring file;
    chipdesc::ParseError error;
};

struct DescriptionLookup {
    // Null: none, or not usable. With a problem, the module's own description of the class, if any.
    std::shared_ptr<const chipdesc::Description> description;
    std::optional<DescriptionProblem> problem;
};

class DescriptionRegistry {
public:
    static DescriptionRegistry& Module();

    // The description a page class opens with: the folder's file, else the module's own.
    DescriptionLookup Find(std::string_view className);
    // A file given by path, for the workbench's designer: read again once it changed.
    DescriptionLookup Load(const std::wstring& path);

    // "...\Language\Hw\Regvane\Chips\", beside the language files of the host's executable.
    static std::wstring Folder();
    // What is wrong at a line, translated: "unknown key "colour"".
    static std::wstring ReasonText(const chipdesc::Problem& error);
    // The operator's message for a problem: which file and line, why, and what the page shows instead.
    static std::wstring ProblemText(const DescriptionProblem& problem, bool opensDescribed);
    // Shows the problem once per file version; later calls for the same version do nothing.
    void TellOnce(const DescriptionProblem& problem, HWND owner, bool opensDescribed);

    // How many times a description was parsed since the module loaded.
    int ParseCount() const { return m_parses; }

private:
    struct FileVersion {
        std::uint64_t time = 0;
        std::uint64_t size = 0;
        bool operator==(const FileVersion&) const = default;
    };
    struct CachedFile {
        FileVersion version;
        DescriptionLookup lookup;
    };

    static std::optional<FileVersion> VersionOf(const std::wstring& path);
    DescriptionLookup ParseText(std::string_view text, const std::wstring& file, std::string_view className);
    DescriptionLookup Builtin(std::string_view className);

    std::map<std::wstring, CachedFile, std::less<>> m_files;
    std::map<std::wstring, CachedFile, std::less<>> m_loaded; // the designer's files
    std::map<std::string, DescriptionLookup, std::less<>> m_builtin;
    std::set<std::wstring> m_told;
    int m_parses = 0;
};
