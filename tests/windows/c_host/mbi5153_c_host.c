// A host written in C, as a host built without a C++ compiler would be: it implements IRegvane and
// IRegvaneCallback with the tables of RegvaneC.h, links regvane.dll through its import library,
// opens the MBI5153 page and drags the green gain slider as an operator does. Exits with 0 when the
// page wrote the expected register bytes and called the host in the expected order.
#include "RegvaneOperations.h"
#include "host/RegvaneC.h"

#include <commctrl.h>
#include <stdio.h>
#include <string.h>
#include <windows.h>

enum { kMbi5153 = 47, kGreenSlider = 8124, kMaxCalls = 64 };

typedef struct Chip {
    IRegvane iface; // first, so the module's pointer is the chip's
    uint8_t regData[REGVANE_REG_DATA_BYTES];
    uint8_t regDataEx[REGVANE_REG_DATA_EX_BYTES];
    uint8_t regData2[REGVANE_REG_DATA2_BYTES];
    uint8_t regData3[REGVANE_REG_DATA3_BYTES];
    uint8_t regData4[REGVANE_REG_DATA4_BYTES];
    RegvaneFunctionTable functions;
    RegvaneFunctionTable2 functions2;
    RegvaneFunctionTable3 functions3;
    // Calls that change the chip or tell the host something, in order, each ended by "; ".
    char calls[kMaxCalls * 40];
} Chip;

static Chip* ChipOf(IRegvane* This) {
    return (Chip*)This;
}

static void Log(IRegvane* This, const char* call) {
    Chip* chip = ChipOf(This);
    const size_t used = strlen(chip->calls);
    snprintf(chip->calls + used, sizeof chip->calls - used, "%s; ", call);
}

// What this chip answers when asked.
#define C_HOST_ANSWER(type, name, answer)                                                                    \
    static type REGVANE_CALL name(IRegvane* This) {                                                          \
        return answer;                                                                                       \
    }
C_HOST_ANSWER(uint16_t, GetChipType, kMbi5153)
C_HOST_ANSWER(uint16_t, GetChipSubType, 0)
C_HOST_ANSWER(uint16_t, GetChipParam, 0)
C_HOST_ANSWER(uint32_t, GetCount, 1)
C_HOST_ANSWER(int, GetGainMax, 63)
C_HOST_ANSWER(int, GetGainMin, 0)
C_HOST_ANSWER(int, GetSliderValue, 0)
C_HOST_ANSWER(const char*, GetChipModelName, "MBI5153")
C_HOST_ANSWER(int, GetRegisterKind, 4)
C_HOST_ANSWER(RegvaneFunctionTable*, GetFunctionTable, &ChipOf(This)->functions)
C_HOST_ANSWER(RegvaneFunctionTable2*, GetFunctionTable2, &ChipOf(This)->functions2)
C_HOST_ANSWER(RegvaneFunctionTable3*, GetFunctionTable3, &ChipOf(This)->functions3)

// What changes the chip or tells the host something is only logged.
#define C_HOST_LOGGED(name, parameters)                                                                      \
    static void REGVANE_CALL name parameters {                                                               \
        Log(This, #name);                                                                                    \
    }
C_HOST_LOGGED(MarkModified, (IRegvane * This))
C_HOST_LOGGED(SetChipParam, (IRegvane * This, int value))
C_HOST_LOGGED(EnableChipParam, (IRegvane * This, int enable))
C_HOST_LOGGED(NotifyHost, (IRegvane * This, int code, int flag))
C_HOST_LOGGED(SetModified, (IRegvane * This, int flag))
C_HOST_LOGGED(BeginChipAccess, (IRegvane * This))
C_HOST_LOGGED(EndChipAccess, (IRegvane * This))
C_HOST_LOGGED(CommitChipAccess, (IRegvane * This))
C_HOST_LOGGED(ApplyChip, (IRegvane * This))
C_HOST_LOGGED(SetICND3065ParamRows, (IRegvane * This, RegvaneParamRowList* rows))
C_HOST_LOGGED(SetICND3069ParamRows, (IRegvane * This, RegvaneParamRowList* rows))
C_HOST_LOGGED(GetICND3065ParamRows, (IRegvane * This, RegvaneParamRowList* rows)) // not this page's
C_HOST_LOGGED(GetICND3069ParamRows, (IRegvane * This, RegvaneParamRowList* rows))

static int REGVANE_CALL UpdateHostState(IRegvane* This, int scope, int flags) {
    char call[40];
    snprintf(call, sizeof call, "UpdateHostState(%d, %d)", scope, flags);
    Log(This, call);
    return 0;
}

// The chip's records, read and written whole (SetRegData4 takes three values more).
#define C_HOST_RECORD(Get, Set, field, setParameters)                                                        \
    static void REGVANE_CALL Get(IRegvane* This, uint8_t* bytes) {                                           \
        memcpy(bytes, ChipOf(This)->field, sizeof ChipOf(This)->field);                                      \
    }                                                                                                        \
    static void REGVANE_CALL Set setParameters {                                                             \
        memcpy(ChipOf(This)->field, bytes, sizeof ChipOf(This)->field);                                      \
        Log(This, #Set);                                                                                     \
    }
C_HOST_RECORD(GetRegData, SetRegData, regData, (IRegvane * This, uint8_t* bytes))
C_HOST_RECORD(GetRegDataEx, SetRegDataEx, regDataEx, (IRegvane * This, uint8_t* bytes))
C_HOST_RECORD(GetRegData2, SetRegData2, regData2, (IRegvane * This, uint8_t* bytes))
C_HOST_RECORD(GetRegData3, SetRegData3, regData3, (IRegvane * This, uint8_t* bytes))
C_HOST_RECORD(GetRegData4, SetRegData4, regData4,
              (IRegvane * This, uint8_t* bytes, int value1, int value2, int value3))

// A slot the module never calls; the C++ test chips log any call to one.
static void REGVANE_CALL Placeholder(IRegvane* This) {}

static IRegvaneVtbl ChipTable(void) {
    IRegvaneVtbl vtbl;
    memset(&vtbl, 0, sizeof vtbl);
#define C_HOST_SET(name) vtbl.name = name;
    REGVANE_CHIP_OPERATIONS(C_HOST_SET)
#undef C_HOST_SET
#define C_HOST_PLACEHOLDER(n) vtbl.Slot##n = Placeholder;
    REGVANE_PLACEHOLDER_SLOTS(C_HOST_PLACEHOLDER)
#undef C_HOST_PLACEHOLDER
    return vtbl;
}

// The module-wide callback: English, no host option, nothing else asked for by this page.
static int32_t REGVANE_CALL QueryHostState(IRegvaneCallback* This, intptr_t a, intptr_t b, intptr_t c) {
    return 0;
}
static void REGVANE_CALL PostHostCommand(IRegvaneCallback* This, uint16_t command, intptr_t param,
                                         uint8_t flag, uint8_t byte1, uint8_t byte2, uint16_t word1,
                                         uint16_t word2) {}
static void REGVANE_CALL Reserved(IRegvaneCallback* This) {}
static int REGVANE_CALL GetLanguage(IRegvaneCallback* This) {
    return 3;
}
static void REGVANE_CALL SetHostValue(IRegvaneCallback* This, int reserved, int32_t value, void* dialog) {}
static uint8_t REGVANE_CALL IsHostOptionOn(IRegvaneCallback* This) {
    return 0;
}

static int g_failures;

static void Check(int ok, const char* what) {
    printf("%s: %s\n", ok ? "ok" : "FAILED", what);
    g_failures += !ok;
}

// The calls logged since the last check are exactly `expected`, in order.
static void CheckCalls(Chip* chip, const char* expected, const char* what) {
    if (strcmp(chip->calls, expected) != 0)
        printf("  host heard: %s\n", chip->calls);
    Check(strcmp(chip->calls, expected) == 0, what);
    chip->calls[0] = 0;
}

// A drag ends with the trackbar at its new place and the page told by WM_HSCROLL.
static void MoveSlider(HWND page, int id, int position) {
    HWND slider = GetDlgItem(page, id);
    SendMessageW(slider, TBM_SETPOS, TRUE, position);
    SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, position), (LPARAM)slider);
}

int main(void) {
    static const uint8_t typical[REGVANE_REG_DATA_BYTES] = {0x11, 0x22, 0x80, 0x20, 0x80, 0x7F, 0x80, 0x2B,
                                                            0x04, 0x06, 0x04, 0x06, 0x04, 0x06, 0x33, 0x44};
    const IRegvaneVtbl chipTable = ChipTable();
    static const IRegvaneCallbackVtbl callbackTable = {.QueryHostState = QueryHostState,
                                                       .Reserved1 = Reserved,
                                                       .PostHostCommand = PostHostCommand,
                                                       .Reserved3 = Reserved,
                                                       .Reserved4 = Reserved,
                                                       .Reserved5 = Reserved,
                                                       .Reserved6 = Reserved,
                                                       .GetLanguage = GetLanguage,
                                                       .SetHostValue = SetHostValue,
                                                       .IsHostOptionOn = IsHostOptionOn};
    IRegvaneCallback callback = {&callbackTable};
    static Chip chip;
    chip.iface.lpVtbl = &chipTable;
    memcpy(chip.regData, typical, sizeof typical);

    InitRegvane(&callback);
    RegvaneLanguageChanged();
    HWND frame = CreateWindowExW(0, L"STATIC", L"C host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700,
                                 NULL, NULL, GetModuleHandleW(NULL), NULL);
    HWND page = CreateRegvaneHwnd(kMbi5153, &chip.iface, L"", frame);
    Check(page != NULL, "CreateRegvaneHwnd opens chip type 47");
    if (!page)
        return 1;
    ShowWindow(page, SW_SHOW);
    const char* className = RegvaneDialogClassName(page);
    Check(className && strcmp(className, "CRegvaneMbi5153") == 0, "the page is the MBI5153 page");

    // Opening wrote nothing: the first calls the host hears are the slider's.
    MoveSlider(page, kGreenSlider, 40);
    uint8_t expected[REGVANE_REG_DATA_BYTES];
    memcpy(expected, typical, sizeof expected);
    expected[5] = 0x40 | 40; // green's gain bits; bit 6 of its byte stays
    Check(memcmp(chip.regData, expected, sizeof expected) == 0, "the green gain reaches byte 5 only");
    CheckCalls(&chip, "SetRegData; MarkModified; UpdateHostState(1, 1); ",
               "a change is written, marked and reported");

    MoveSlider(page, kGreenSlider, 63);
    Check(memcmp(chip.regData, typical, sizeof typical) == 0, "moving back restores the block");
    CheckCalls(&chip, "SetRegData; UpdateHostState(1, 1); ",
               "back at the snapshot the host hears only the state update");

    DestroyWindow(page);
    DestroyWindow(frame);
    printf("%s\n", g_failures ? "C host: FAILED" : "C host: passed");
    return g_failures ? 1 : 0;
}
