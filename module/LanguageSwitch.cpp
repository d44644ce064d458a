#include "module/LanguageSwitch.h"

#include "framework/ModuleInstance.h"
#include "framework/UIEx.h"
#include "module/LanguageSelection.h"
#include "module/ModuleState.h"

void SwitchLanguage() {
    const int index = HostCallback()->GetLanguage();
    const LanguagePaths paths = LanguagePathsFor(HostExecutablePath(), index);
    Translator().SetLangPath(paths.primary, paths.fallback);
    UIEx_LanguageChanged(index);
}
