// The one file operation the C runtime cannot do on Windows: _wrename refuses an existing target.
#include "framework/StdioFileEx.h"

#include <windows.h>

bool ReplaceFileWide(const std::wstring& from, const std::wstring& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}
