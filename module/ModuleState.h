// Module-wide state: the host's callback and the one translator every dialog uses.
#pragma once

#include "framework/Translate.h"
#include "host/IRegvaneCallback.h"

IRegvaneCallback* HostCallback();
void SetHostCallback(IRegvaneCallback* callback);
CTranslate& Translator();

// Shorthand for the dialogs: the translation of a string id.
inline std::wstring Tr(std::wstring_view id) {
    return Translator().TranslateString(id);
}
