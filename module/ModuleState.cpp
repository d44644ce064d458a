#include "module/ModuleState.h"

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
    return translator;
}
