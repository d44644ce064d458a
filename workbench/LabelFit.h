// Whether translated texts fit the controls that show them: a label that wraps into a line its
// control has no room for, or runs past its edge, loses words the operator needs, and a letter no
// font has comes out as a box. Each text is drawn and measured with the control's own font (and the
// fonts linked to it for scripts it lacks, as on Windows) and compared with the room the control
// draws it in. The description checker and the tests of every page use it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Every text of a page that does not fit, one line each ("control 8123: ..."), hidden controls
// included: the host's register kind or the page itself shows them later, with the same text.
std::vector<std::string> PageMisfits(HWND page);

// The host's language indices that read language files of their own (the thirteenth reads the
// tenth's), so that each file is checked once.
std::vector<int> LanguagesWithTheirOwnFiles();
