// The module whose resources (dialog templates, version) the framework loads: always the module the
// framework is linked into, never the host's executable.
#pragma once

#include <windows.h>

#include <string>

HINSTANCE ResourceInstance();
// Full path of the process's executable (the host's main module).
std::wstring HostExecutablePath();
// The host application's name (its executable's name without folder and extension), the caption of
// the module's message boxes.
std::wstring ApplicationName();
