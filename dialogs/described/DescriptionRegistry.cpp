#include "dialogs/described/DescriptionRegistry.h"

#include "framework/ModuleInstance.h"
#include "framework/TextEncoding.h"
#include "framework/UIEx.h"
#include "module/LanguageSelection.h"
#include "module/ModuleState.h"
#include "resources/BuiltinEnglish.h"

#include <array>

namespace {

constexpr wchar_t kResourceType[] = L"CHIPDESC";
constexpr wchar_t kExtension[] = L".desc";

// At most one byte more than a description may have, so that the parser can say it is too large.
bool ReadDescriptionFile(const std::wstring& path, std::string& text) {
    HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    text.resize(chipdesc::kMaxDescriptionBytes + 1);
    DWORD read = 0;
    const BOOL ok = ::ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
    ::CloseHandle(file);
    text.resize(ok ? read : 0);
    return ok != FALSE;
}

std::wstring FileName(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

} // namespace

DescriptionRegistry& DescriptionRegistry::Module() {
    static DescriptionRegistry registry;
    return registry;
}

std::wstring DescriptionRegistry::Folder() {
    return LanguageFilePath(HostExecutablePath(), L"Chips\\");
}

DescriptionLookup DescriptionRegistry::ParseText(std::string_view text, const std::wstring& file,
                                                 std::string_view className) {
    ++m_parses;
    // Checked against the module's own texts, not the host's files: whether a description can be
    // used never depends on the language the host has chosen, or on how old its files are.
    chipdesc::ParseResult result = chipdesc::Parse(text, IsModuleStringId);
    if (auto* error = std::get_if<chipdesc::ParseError>(&result))
        return {nullptr, DescriptionProblem{file, *error}};
    auto description =
        std::make_shared<const chipdesc::Description>(std::get<chipdesc::Description>(std::move(result)));
    // A file in the folder speaks for the class its name gives, and for no other.
    if (!className.empty() && description->page.className != className)
        return {nullptr, DescriptionProblem{
                             file, {{1, chipdesc::ErrorCode::BadValue, description->page.className}, {}}}};
    return {std::move(description), std::nullopt};
}

DescriptionLookup DescriptionRegistry::Builtin(std::string_view className) {
    if (const auto cached = m_builtin.find(className); cached != m_builtin.end())
        return cached->second;
    DescriptionLookup lookup;
    const std::wstring name = Utf8ToWide(className);
    HRSRC found = ::FindResourceW(ResourceInstance(), name.c_str(), kResourceType);
    HGLOBAL loaded = found ? ::LoadResource(ResourceInstance(), found) : nullptr;
    if (const void* bytes = loaded ? ::LockResource(loaded) : nullptr) {
        const std::string_view text(static_cast<const char*>(bytes),
                                    ::SizeofResource(ResourceInstance(), found));
        lookup = ParseText(text, name + kExtension, className);
    }
    m_builtin.emplace(std::string(className), lookup);
    return lookup;
}

std::optional<DescriptionRegistry::FileVersion> DescriptionRegistry::VersionOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA attributes{};
    if (!::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &attributes) ||
        (attributes.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return std::nullopt;
    return FileVersion{(std::uint64_t{attributes.ftLastWriteTime.dwHighDateTime} << 32) |
                           attributes.ftLastWriteTime.dwLowDateTime,
                       (std::uint64_t{attributes.nFileSizeHigh} << 32) | attributes.nFileSizeLow};
}

DescriptionLookup DescriptionRegistry::Find(std::string_view className) {
    const std::wstring path = Folder() + Utf8ToWide(className) + kExtension;
    const std::optional<FileVersion> version = VersionOf(path);
    if (!version) {
        m_files.erase(path);
        return Builtin(className);
    }
    auto cached = m_files.find(path);
    if (cached != m_files.end() && cached->second.version == *version)
        return cached->second.lookup;
    std::string text;
    DescriptionLookup lookup =
        ReadDescriptionFile(path, text) ? ParseText(text, path, className) : Builtin(className);
    if (!lookup.description) // a broken replacement of our own description leaves ours, and says why
        lookup.description = Builtin(className).description;
    m_files[path] = CachedFile{*version, lookup};
    return lookup;
}

DescriptionLookup DescriptionRegistry::Load(const std::wstring& path) {
    const std::optional<FileVersion> version = VersionOf(path);
    auto cached = m_loaded.find(path);
    if (version && cached != m_loaded.end() && cached->second.version == *version)
        return cached->second.lookup;
    std::string text;
    if (!version || !ReadDescriptionFile(path, text)) {
        m_loaded.erase(path);
        return {nullptr, DescriptionProblem{path, {{0, chipdesc::ErrorCode::NotText, ""}, {}}}};
    }
    DescriptionLookup lookup = ParseText(text, path, {});
    m_loaded[path] = CachedFile{*version, lookup};
    return lookup;
}

std::wstring DescriptionRegistry::ReasonText(const chipdesc::Problem& error) {
    return ReplaceAll(Tr(Utf8ToWide(chipdesc::ReasonStringId(error.code))), L"{detail}",
                      Utf8ToWide(error.detail));
}

std::wstring DescriptionRegistry::ProblemText(const DescriptionProblem& problem, bool opensDescribed) {
    const chipdesc::ParseError& error = problem.error;
    const std::wstring reason = ReasonText(error);
    std::wstring text = Tr(opensDescribed ? L"IDS_Description_ProblemShipped" : L"IDS_Description_Problem");
    text = ReplaceAll(std::move(text), L"{file}", FileName(problem.file));
    text = ReplaceAll(std::move(text), L"{line}", std::to_wstring(error.line));
    text = ReplaceAll(std::move(text), L"{reason}", reason);
    // One message, of the first problem: the designer lists them all.
    if (!error.more.empty())
        text += L" " + ReplaceAll(Tr(L"IDS_Description_MoreProblems"), L"{count}",
                                  std::to_wstring(error.more.size()));
    return text;
}

void DescriptionRegistry::TellOnce(const DescriptionProblem& problem, HWND owner, bool opensDescribed) {
    // The same fault in the same file is told once; a file changed into another fault is told again.
    std::wstring key = problem.file + L"|" + std::to_wstring(problem.error.line) + L"|" +
                       std::to_wstring(static_cast<int>(problem.error.code)) + L"|" +
                       Utf8ToWide(problem.error.detail);
    if (!m_told.insert(std::move(key)).second)
        return;
    MsgBox(owner, ProblemText(problem, opensDescribed), ApplicationName(), MB_OK | MB_ICONWARNING);
}
