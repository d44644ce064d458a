// Resource numbers of RegvaneWorkbench.exe.
#pragma once

#define IDR_WORKBENCH_MENU 100

#define IDM_OPEN 1001
#define IDM_RESET 1002
#define IDM_SCREENSHOT 1003
#define IDM_EXIT 1004
#define IDM_OPEN_DESCRIPTION 1005
#define IDM_REREAD 1010
#define IDM_CLOSE_PAGE 1011
#define IDM_CLEAR_LOG 1012
#define IDM_FIND 1013
#define IDM_LANGUAGE_FIRST 1101 // 1101..1113: the host's language indices 1..13
#define IDM_LANGUAGE_LAST 1113

// Controls of the window.
#define IDC_SEARCH 2001
#define IDC_CHIP_LIST 2002
#define IDC_SUBTYPE 2003
#define IDC_OPEN 2004
#define IDC_REREAD 2005
#define IDC_IMAGES 2006
#define IDC_CALL_LOG 2007
#define IDC_STATUS 2008
