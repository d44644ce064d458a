#include "resources/BuiltinEnglish.h"

#include "framework/TextEncoding.h"
#include "framework/Translate.h"

const LanguageFile& BuiltinEnglish() {
    static const LanguageFile english = [] {
        LanguageFile file;
        file.Parse(DecodeText(BuiltinEnglishFile()));
        return file;
    }();
    return english;
}

bool IsModuleStringId(std::string_view id) {
    return BuiltinEnglish().Find(CTranslate::kStringSection, Utf8ToWide(id)) != nullptr;
}
