// Text encodings of the files the module reads and writes: UTF-16LE with BOM, UTF-8 with or
// without BOM. Portable: wchar_t is UTF-16 on Windows and UTF-32 elsewhere, and both are handled.
#pragma once

#include <string>
#include <string_view>

enum class TextEncoding { Utf8, Utf8Bom, Utf16Le };

// Which encoding a file's first bytes announce; no BOM means UTF-8.
TextEncoding DetectEncoding(std::string_view firstBytes);
std::size_t BomLength(TextEncoding encoding);

// Malformed input never fails: each bad byte or unpaired surrogate becomes U+FFFD.
std::wstring Utf8ToWide(std::string_view utf8);
std::wstring Utf16LeToWide(std::string_view bytes);
std::string WideToUtf8(std::wstring_view text);

// Decodes a whole file image by its BOM (the BOM itself is dropped).
std::wstring DecodeText(std::string_view bytes);

// Every "{placeholder}" of a translated text replaced by its value (a value is never searched again).
std::wstring ReplaceAll(std::wstring text, std::wstring_view placeholder, std::wstring_view value);
