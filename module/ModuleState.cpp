#include "module/ModuleState.h"

#include "resources/BuiltinEnglish.h"

namespace {
IRegvaneCallback* g_hostCallback = nullptr;
}

IRegvaneCallback* HostCallback() {
    return g_hostCallback;
}

void SetHostCallback(IRegvaneCallback* callback) {
    g_hostCallback = callback;
}

CTranslate& Translator() {
    static CTranslate translator;
    static const bool builtinSet = (translator.SetBuiltin(&BuiltinEnglish()), true);
    (void)builtinSet;
    return translator;
}
