// The module's own English: the English language file we ship, compiled into the module. The host
// suite's language folder may hold files of an older release, or of its own translators, that lack
// the texts this module added, or no files at all; a page then shows those texts in English instead
// of their string ids, and the string ids a description may name are the ones this file knows.
#pragma once

#include "framework/LanguageFile.h"

#include <string_view>

// The file's bytes as they stand in resources/lang/Multi_eng.ini.
std::string_view BuiltinEnglishFile();
// Parsed once, on first use.
const LanguageFile& BuiltinEnglish();
// A string id of the module's [String] catalogue.
bool IsModuleStringId(std::string_view id);
