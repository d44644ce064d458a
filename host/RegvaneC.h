// regvane's host interface for C hosts: IRegvane and IRegvaneCallback as tables of function
// pointers behind lpVtbl, as COM headers give interfaces to C, and the functions regvane.dll exports.
//
// A host written in C implements IRegvane by filling an IRegvaneVtbl: every operation gets a
// function that takes the object as its first argument ("This"), placeholders included, e.g.
//
//     static void REGVANE_CALL Unused(IRegvane* This) {}
//     #define REGVANE_FILL_PLACEHOLDER(n) vtbl.Slot##n = Unused;
//     REGVANE_PLACEHOLDER_SLOTS(REGVANE_FILL_PLACEHOLDER)
//
// and hands the module a pointer to a struct whose first member points at that table. The module
// never frees it. C++ hosts use IRegvane.h, IRegvaneCallback.h and RegvaneExports.h instead; the two
// views lay out the same tables slot for slot. In C++ this header adds only the tables beside the
// classes. Never insert, remove or reorder a line of either table.
#ifndef REGVANE_C_H
#define REGVANE_C_H

#include "RegvanePlaceholderSlots.h"
#include "RegvaneTypes.h"

#ifdef __cplusplus
#include "IRegvane.h"
#include "IRegvaneCallback.h"
#include "RegvaneExports.h"
#else
#include <wchar.h>
#if defined(_WIN32)
#include <windows.h>
#else
typedef struct HWND__* HWND;
#endif

typedef struct IRegvane {
    const struct IRegvaneVtbl* lpVtbl;
} IRegvane;

typedef struct IRegvaneCallback {
    const struct IRegvaneCallbackVtbl* lpVtbl;
} IRegvaneCallback;
#endif

// IRegvane: the host's chip interface, 255 slots.
typedef struct IRegvaneVtbl {
    /*   0 */ uint16_t(REGVANE_CALL* GetChipType)(IRegvane* This);
    /*   1 */ uint16_t(REGVANE_CALL* GetChipSubType)(IRegvane* This);
    /*   2 */ void(REGVANE_CALL* MarkModified)(IRegvane* This);
    /*   3 */ int(REGVANE_CALL* UpdateHostState)(IRegvane* This, int scope, int flags);
    /*   4 */ void(REGVANE_CALL* Slot004)(IRegvane* This);
    /*   5 */ void(REGVANE_CALL* Slot005)(IRegvane* This);
    /*   6 */ void(REGVANE_CALL* Slot006)(IRegvane* This);
    /*   7 */ uint16_t(REGVANE_CALL* GetChipParam)(IRegvane* This);
    /*   8 */ void(REGVANE_CALL* Slot008)(IRegvane* This);
    /*   9 */ void(REGVANE_CALL* Slot009)(IRegvane* This);
    /*  10 */ uint32_t(REGVANE_CALL* GetCount)(IRegvane* This);
    /*  11 */ void(REGVANE_CALL* SetChipParam)(IRegvane* This, int value);
    /*  12 */ void(REGVANE_CALL* EnableChipParam)(IRegvane* This, int enable);
    /*  13 */ void(REGVANE_CALL* Slot013)(IRegvane* This);
    /*  14 */ void(REGVANE_CALL* Slot014)(IRegvane* This);
    /*  15 */ void(REGVANE_CALL* Slot015)(IRegvane* This);
    /*  16 */ void(REGVANE_CALL* Slot016)(IRegvane* This);
    /*  17 */ void(REGVANE_CALL* Slot017)(IRegvane* This);
    /*  18 */ void(REGVANE_CALL* GetRegData)(IRegvane* This, uint8_t* block);
    /*  19 */ void(REGVANE_CALL* SetRegData)(IRegvane* This, uint8_t* block);
    /*  20 */ void(REGVANE_CALL* GetRegDataEx)(IRegvane* This, uint8_t* record);
    /*  21 */ void(REGVANE_CALL* SetRegDataEx)(IRegvane* This, uint8_t* record);
    /*  22 */ void(REGVANE_CALL* GetRegData2)(IRegvane* This, uint8_t* block);
    /*  23 */ void(REGVANE_CALL* SetRegData2)(IRegvane* This, uint8_t* block);
    /*  24 */ void(REGVANE_CALL* GetRegData3)(IRegvane* This, uint8_t* record);
    /*  25 */ void(REGVANE_CALL* SetRegData3)(IRegvane* This, uint8_t* record);
    /*  26 */ void(REGVANE_CALL* Slot026)(IRegvane* This);
    /*  27 */ void(REGVANE_CALL* Slot027)(IRegvane* This);
    /*  28 */ void(REGVANE_CALL* GetRegData4)(IRegvane* This, uint8_t* record);
    /*  29 */ void(REGVANE_CALL* SetRegData4)(IRegvane* This, uint8_t* record, int value1, int value2,
                                              int value3);
    /*  30 */ void(REGVANE_CALL* Slot030)(IRegvane* This);
    /*  31 */ int(REGVANE_CALL* GetGainMax)(IRegvane* This);
    /*  32 */ int(REGVANE_CALL* GetGainMin)(IRegvane* This);
    /*  33 */ void(REGVANE_CALL* Slot033)(IRegvane* This);
    /*  34 */ void(REGVANE_CALL* Slot034)(IRegvane* This);
    /*  35 */ void(REGVANE_CALL* Slot035)(IRegvane* This);
    /*  36 */ void(REGVANE_CALL* Slot036)(IRegvane* This);
    /*  37 */ void(REGVANE_CALL* Slot037)(IRegvane* This);
    /*  38 */ void(REGVANE_CALL* Slot038)(IRegvane* This);
    /*  39 */ void(REGVANE_CALL* Slot039)(IRegvane* This);
    /*  40 */ void(REGVANE_CALL* Slot040)(IRegvane* This);
    /*  41 */ void(REGVANE_CALL* Slot041)(IRegvane* This);
    /*  42 */ void(REGVANE_CALL* Slot042)(IRegvane* This);
    /*  43 */ void(REGVANE_CALL* Slot043)(IRegvane* This);
    /*  44 */ void(REGVANE_CALL* Slot044)(IRegvane* This);
    /*  45 */ void(REGVANE_CALL* Slot045)(IRegvane* This);
    /*  46 */ void(REGVANE_CALL* Slot046)(IRegvane* This);
    /*  47 */ void(REGVANE_CALL* Slot047)(IRegvane* This);
    /*  48 */ void(REGVANE_CALL* Slot048)(IRegvane* This);
    /*  49 */ int(REGVANE_CALL* GetSliderValue)(IRegvane* This);
    /*  50 */ void(REGVANE_CALL* Slot050)(IRegvane* This);
    /*  51 */ void(REGVANE_CALL* Slot051)(IRegvane* This);
    /*  52 */ void(REGVANE_CALL* Slot052)(IRegvane* This);
    /*  53 */ void(REGVANE_CALL* Slot053)(IRegvane* This);
    /*  54 */ void(REGVANE_CALL* Slot054)(IRegvane* This);
    /*  55 */ void(REGVANE_CALL* BeginChipAccess)(IRegvane* This);
    /*  56 */ void(REGVANE_CALL* Slot056)(IRegvane* This);
    /*  57 */ RegvaneFunctionTable2*(REGVANE_CALL* GetFunctionTable2)(IRegvane* This);
    /*  58 */ void(REGVANE_CALL* EndChipAccess)(IRegvane* This);
    /*  59 */ void(REGVANE_CALL* NotifyHost)(IRegvane* This, int code, int flag);
    /*  60 */ void(REGVANE_CALL* SetModified)(IRegvane* This, int flag);
    /*  61 */ void(REGVANE_CALL* Slot061)(IRegvane* This);
    /*  62 */ RegvaneFunctionTable3*(REGVANE_CALL* GetFunctionTable3)(IRegvane* This);
    /*  63 */ void(REGVANE_CALL* CommitChipAccess)(IRegvane* This);
    /*  64 */ RegvaneFunctionTable*(REGVANE_CALL* GetFunctionTable)(IRegvane* This);
    /*  65 */ void(REGVANE_CALL* ApplyChip)(IRegvane* This);
    /*  66 */ void(REGVANE_CALL* Slot066)(IRegvane* This);
    /*  67 */ void(REGVANE_CALL* Slot067)(IRegvane* This);
    /*  68 */ void(REGVANE_CALL* Slot068)(IRegvane* This);
    /*  69 */ void(REGVANE_CALL* Slot069)(IRegvane* This);
    /*  70 */ void(REGVANE_CALL* Slot070)(IRegvane* This);
    /*  71 */ void(REGVANE_CALL* Slot071)(IRegvane* This);
    /*  72 */ void(REGVANE_CALL* Slot072)(IRegvane* This);
    /*  73 */ void(REGVANE_CALL* Slot073)(IRegvane* This);
    /*  74 */ void(REGVANE_CALL* Slot074)(IRegvane* This);
    /*  75 */ void(REGVANE_CALL* Slot075)(IRegvane* This);
    /*  76 */ void(REGVANE_CALL* Slot076)(IRegvane* This);
    /*  77 */ void(REGVANE_CALL* Slot077)(IRegvane* This);
    /*  78 */ void(REGVANE_CALL* Slot078)(IRegvane* This);
    /*  79 */ void(REGVANE_CALL* Slot079)(IRegvane* This);
    /*  80 */ void(REGVANE_CALL* Slot080)(IRegvane* This);
    /*  81 */ void(REGVANE_CALL* Slot081)(IRegvane* This);
    /*  82 */ void(REGVANE_CALL* Slot082)(IRegvane* This);
    /*  83 */ void(REGVANE_CALL* Slot083)(IRegvane* This);
    /*  84 */ void(REGVANE_CALL* Slot084)(IRegvane* This);
    /*  85 */ void(REGVANE_CALL* Slot085)(IRegvane* This);
    /*  86 */ void(REGVANE_CALL* Slot086)(IRegvane* This);
    /*  87 */ void(REGVANE_CALL* Slot087)(IRegvane* This);
    /*  88 */ void(REGVANE_CALL* Slot088)(IRegvane* This);
    /*  89 */ const char*(REGVANE_CALL* GetChipModelName)(IRegvane* This);
    /*  90 */ void(REGVANE_CALL* Slot090)(IRegvane* This);
    /*  91 */ void(REGVANE_CALL* Slot091)(IRegvane* This);
    /*  92 */ void(REGVANE_CALL* Slot092)(IRegvane* This);
    /*  93 */ void(REGVANE_CALL* Slot093)(IRegvane* This);
    /*  94 */ void(REGVANE_CALL* Slot094)(IRegvane* This);
    /*  95 */ void(REGVANE_CALL* Slot095)(IRegvane* This);
    /*  96 */ void(REGVANE_CALL* Slot096)(IRegvane* This);
    /*  97 */ void(REGVANE_CALL* Slot097)(IRegvane* This);
    /*  98 */ void(REGVANE_CALL* Slot098)(IRegvane* This);
    /*  99 */ void(REGVANE_CALL* Slot099)(IRegvane* This);
    /* 100 */ void(REGVANE_CALL* Slot100)(IRegvane* This);
    /* 101 */ void(REGVANE_CALL* Slot101)(IRegvane* This);
    /* 102 */ int(REGVANE_CALL* GetRegisterKind)(IRegvane* This);
    /* 103 */ void(REGVANE_CALL* Slot103)(IRegvane* This);
    /* 104 */ void(REGVANE_CALL* Slot104)(IRegvane* This);
    /* 105 */ void(REGVANE_CALL* Slot105)(IRegvane* This);
    /* 106 */ void(REGVANE_CALL* Slot106)(IRegvane* This);
    /* 107 */ void(REGVANE_CALL* Slot107)(IRegvane* This);
    /* 108 */ void(REGVANE_CALL* Slot108)(IRegvane* This);
    /* 109 */ void(REGVANE_CALL* Slot109)(IRegvane* This);
    /* 110 */ void(REGVANE_CALL* Slot110)(IRegvane* This);
    /* 111 */ void(REGVANE_CALL* Slot111)(IRegvane* This);
    /* 112 */ void(REGVANE_CALL* Slot112)(IRegvane* This);
    /* 113 */ void(REGVANE_CALL* Slot113)(IRegvane* This);
    /* 114 */ void(REGVANE_CALL* Slot114)(IRegvane* This);
    /* 115 */ void(REGVANE_CALL* Slot115)(IRegvane* This);
    /* 116 */ void(REGVANE_CALL* Slot116)(IRegvane* This);
    /* 117 */ void(REGVANE_CALL* Slot117)(IRegvane* This);
    /* 118 */ void(REGVANE_CALL* Slot118)(IRegvane* This);
    /* 119 */ void(REGVANE_CALL* Slot119)(IRegvane* This);
    /* 120 */ void(REGVANE_CALL* Slot120)(IRegvane* This);
    /* 121 */ void(REGVANE_CALL* Slot121)(IRegvane* This);
    /* 122 */ void(REGVANE_CALL* Slot122)(IRegvane* This);
    /* 123 */ void(REGVANE_CALL* Slot123)(IRegvane* This);
    /* 124 */ void(REGVANE_CALL* Slot124)(IRegvane* This);
    /* 125 */ void(REGVANE_CALL* Slot125)(IRegvane* This);
    /* 126 */ void(REGVANE_CALL* Slot126)(IRegvane* This);
    /* 127 */ void(REGVANE_CALL* Slot127)(IRegvane* This);
    /* 128 */ void(REGVANE_CALL* Slot128)(IRegvane* This);
    /* 129 */ void(REGVANE_CALL* Slot129)(IRegvane* This);
    /* 130 */ void(REGVANE_CALL* Slot130)(IRegvane* This);
    /* 131 */ void(REGVANE_CALL* Slot131)(IRegvane* This);
    /* 132 */ void(REGVANE_CALL* Slot132)(IRegvane* This);
    /* 133 */ void(REGVANE_CALL* Slot133)(IRegvane* This);
    /* 134 */ void(REGVANE_CALL* Slot134)(IRegvane* This);
    /* 135 */ void(REGVANE_CALL* Slot135)(IRegvane* This);
    /* 136 */ void(REGVANE_CALL* Slot136)(IRegvane* This);
    /* 137 */ void(REGVANE_CALL* Slot137)(IRegvane* This);
    /* 138 */ void(REGVANE_CALL* Slot138)(IRegvane* This);
    /* 139 */ void(REGVANE_CALL* Slot139)(IRegvane* This);
    /* 140 */ void(REGVANE_CALL* Slot140)(IRegvane* This);
    /* 141 */ void(REGVANE_CALL* Slot141)(IRegvane* This);
    /* 142 */ void(REGVANE_CALL* Slot142)(IRegvane* This);
    /* 143 */ void(REGVANE_CALL* GetICND3065ParamRows)(IRegvane* This, RegvaneParamRowList* rows);
    /* 144 */ void(REGVANE_CALL* SetICND3065ParamRows)(IRegvane* This, RegvaneParamRowList* rows);
    /* 145 */ void(REGVANE_CALL* GetICND3069ParamRows)(IRegvane* This, RegvaneParamRowList* rows);
    /* 146 */ void(REGVANE_CALL* SetICND3069ParamRows)(IRegvane* This, RegvaneParamRowList* rows);
    /* 147 */ void(REGVANE_CALL* Slot147)(IRegvane* This);
    /* 148 */ void(REGVANE_CALL* Slot148)(IRegvane* This);
    /* 149 */ void(REGVANE_CALL* Slot149)(IRegvane* This);
    /* 150 */ void(REGVANE_CALL* Slot150)(IRegvane* This);
    /* 151 */ void(REGVANE_CALL* Slot151)(IRegvane* This);
    /* 152 */ void(REGVANE_CALL* Slot152)(IRegvane* This);
    /* 153 */ void(REGVANE_CALL* Slot153)(IRegvane* This);
    /* 154 */ void(REGVANE_CALL* Slot154)(IRegvane* This);
    /* 155 */ void(REGVANE_CALL* Slot155)(IRegvane* This);
    /* 156 */ void(REGVANE_CALL* Slot156)(IRegvane* This);
    /* 157 */ void(REGVANE_CALL* Slot157)(IRegvane* This);
    /* 158 */ void(REGVANE_CALL* Slot158)(IRegvane* This);
    /* 159 */ void(REGVANE_CALL* Slot159)(IRegvane* This);
    /* 160 */ void(REGVANE_CALL* Slot160)(IRegvane* This);
    /* 161 */ void(REGVANE_CALL* Slot161)(IRegvane* This);
    /* 162 */ void(REGVANE_CALL* Slot162)(IRegvane* This);
    /* 163 */ void(REGVANE_CALL* Slot163)(IRegvane* This);
    /* 164 */ void(REGVANE_CALL* Slot164)(IRegvane* This);
    /* 165 */ void(REGVANE_CALL* Slot165)(IRegvane* This);
    /* 166 */ void(REGVANE_CALL* Slot166)(IRegvane* This);
    /* 167 */ void(REGVANE_CALL* Slot167)(IRegvane* This);
    /* 168 */ void(REGVANE_CALL* Slot168)(IRegvane* This);
    /* 169 */ void(REGVANE_CALL* Slot169)(IRegvane* This);
    /* 170 */ void(REGVANE_CALL* Slot170)(IRegvane* This);
    /* 171 */ void(REGVANE_CALL* Slot171)(IRegvane* This);
    /* 172 */ void(REGVANE_CALL* Slot172)(IRegvane* This);
    /* 173 */ void(REGVANE_CALL* Slot173)(IRegvane* This);
    /* 174 */ void(REGVANE_CALL* Slot174)(IRegvane* This);
    /* 175 */ void(REGVANE_CALL* Slot175)(IRegvane* This);
    /* 176 */ void(REGVANE_CALL* Slot176)(IRegvane* This);
    /* 177 */ void(REGVANE_CALL* Slot177)(IRegvane* This);
    /* 178 */ void(REGVANE_CALL* Slot178)(IRegvane* This);
    /* 179 */ void(REGVANE_CALL* Slot179)(IRegvane* This);
    /* 180 */ void(REGVANE_CALL* Slot180)(IRegvane* This);
    /* 181 */ void(REGVANE_CALL* Slot181)(IRegvane* This);
    /* 182 */ void(REGVANE_CALL* Slot182)(IRegvane* This);
    /* 183 */ void(REGVANE_CALL* Slot183)(IRegvane* This);
    /* 184 */ void(REGVANE_CALL* Slot184)(IRegvane* This);
    /* 185 */ void(REGVANE_CALL* Slot185)(IRegvane* This);
    /* 186 */ void(REGVANE_CALL* Slot186)(IRegvane* This);
    /* 187 */ void(REGVANE_CALL* Slot187)(IRegvane* This);
    /* 188 */ void(REGVANE_CALL* Slot188)(IRegvane* This);
    /* 189 */ void(REGVANE_CALL* Slot189)(IRegvane* This);
    /* 190 */ void(REGVANE_CALL* Slot190)(IRegvane* This);
    /* 191 */ void(REGVANE_CALL* Slot191)(IRegvane* This);
    /* 192 */ void(REGVANE_CALL* Slot192)(IRegvane* This);
    /* 193 */ void(REGVANE_CALL* Slot193)(IRegvane* This);
    /* 194 */ void(REGVANE_CALL* Slot194)(IRegvane* This);
    /* 195 */ void(REGVANE_CALL* Slot195)(IRegvane* This);
    /* 196 */ void(REGVANE_CALL* Slot196)(IRegvane* This);
    /* 197 */ void(REGVANE_CALL* Slot197)(IRegvane* This);
    /* 198 */ void(REGVANE_CALL* Slot198)(IRegvane* This);
    /* 199 */ void(REGVANE_CALL* Slot199)(IRegvane* This);
    /* 200 */ void(REGVANE_CALL* Slot200)(IRegvane* This);
    /* 201 */ void(REGVANE_CALL* Slot201)(IRegvane* This);
    /* 202 */ void(REGVANE_CALL* Slot202)(IRegvane* This);
    /* 203 */ void(REGVANE_CALL* Slot203)(IRegvane* This);
    /* 204 */ void(REGVANE_CALL* Slot204)(IRegvane* This);
    /* 205 */ void(REGVANE_CALL* Slot205)(IRegvane* This);
    /* 206 */ void(REGVANE_CALL* Slot206)(IRegvane* This);
    /* 207 */ void(REGVANE_CALL* Slot207)(IRegvane* This);
    /* 208 */ void(REGVANE_CALL* Slot208)(IRegvane* This);
    /* 209 */ void(REGVANE_CALL* Slot209)(IRegvane* This);
    /* 210 */ void(REGVANE_CALL* Slot210)(IRegvane* This);
    /* 211 */ void(REGVANE_CALL* Slot211)(IRegvane* This);
    /* 212 */ void(REGVANE_CALL* Slot212)(IRegvane* This);
    /* 213 */ void(REGVANE_CALL* Slot213)(IRegvane* This);
    /* 214 */ void(REGVANE_CALL* Slot214)(IRegvane* This);
    /* 215 */ void(REGVANE_CALL* Slot215)(IRegvane* This);
    /* 216 */ void(REGVANE_CALL* Slot216)(IRegvane* This);
    /* 217 */ void(REGVANE_CALL* Slot217)(IRegvane* This);
    /* 218 */ void(REGVANE_CALL* Slot218)(IRegvane* This);
    /* 219 */ void(REGVANE_CALL* Slot219)(IRegvane* This);
    /* 220 */ void(REGVANE_CALL* Slot220)(IRegvane* This);
    /* 221 */ void(REGVANE_CALL* Slot221)(IRegvane* This);
    /* 222 */ void(REGVANE_CALL* Slot222)(IRegvane* This);
    /* 223 */ void(REGVANE_CALL* Slot223)(IRegvane* This);
    /* 224 */ void(REGVANE_CALL* Slot224)(IRegvane* This);
    /* 225 */ void(REGVANE_CALL* Slot225)(IRegvane* This);
    /* 226 */ void(REGVANE_CALL* Slot226)(IRegvane* This);
    /* 227 */ void(REGVANE_CALL* Slot227)(IRegvane* This);
    /* 228 */ void(REGVANE_CALL* Slot228)(IRegvane* This);
    /* 229 */ void(REGVANE_CALL* Slot229)(IRegvane* This);
    /* 230 */ void(REGVANE_CALL* Slot230)(IRegvane* This);
    /* 231 */ void(REGVANE_CALL* Slot231)(IRegvane* This);
    /* 232 */ void(REGVANE_CALL* Slot232)(IRegvane* This);
    /* 233 */ void(REGVANE_CALL* Slot233)(IRegvane* This);
    /* 234 */ void(REGVANE_CALL* Slot234)(IRegvane* This);
    /* 235 */ void(REGVANE_CALL* Slot235)(IRegvane* This);
    /* 236 */ void(REGVANE_CALL* Slot236)(IRegvane* This);
    /* 237 */ void(REGVANE_CALL* Slot237)(IRegvane* This);
    /* 238 */ void(REGVANE_CALL* Slot238)(IRegvane* This);
    /* 239 */ void(REGVANE_CALL* Slot239)(IRegvane* This);
    /* 240 */ void(REGVANE_CALL* Slot240)(IRegvane* This);
    /* 241 */ void(REGVANE_CALL* Slot241)(IRegvane* This);
    /* 242 */ void(REGVANE_CALL* Slot242)(IRegvane* This);
    /* 243 */ void(REGVANE_CALL* Slot243)(IRegvane* This);
    /* 244 */ void(REGVANE_CALL* Slot244)(IRegvane* This);
    /* 245 */ void(REGVANE_CALL* Slot245)(IRegvane* This);
    /* 246 */ void(REGVANE_CALL* Slot246)(IRegvane* This);
    /* 247 */ void(REGVANE_CALL* Slot247)(IRegvane* This);
    /* 248 */ void(REGVANE_CALL* Slot248)(IRegvane* This);
    /* 249 */ void(REGVANE_CALL* Slot249)(IRegvane* This);
    /* 250 */ void(REGVANE_CALL* Slot250)(IRegvane* This);
    /* 251 */ void(REGVANE_CALL* Slot251)(IRegvane* This);
    /* 252 */ void(REGVANE_CALL* Slot252)(IRegvane* This);
    /* 253 */ void(REGVANE_CALL* Slot253)(IRegvane* This);
    /* 254 */ void(REGVANE_CALL* Slot254)(IRegvane* This);
} IRegvaneVtbl;

// IRegvaneCallback: the host's module-wide callback, ten slots. PostHostCommand takes a 16-bit
// value, a pointer-sized value, three bytes and two 16-bit values, exactly so wide.
typedef struct IRegvaneCallbackVtbl {
    /* 0 */ int32_t(REGVANE_CALL* QueryHostState)(IRegvaneCallback* This, intptr_t arg1, intptr_t arg2,
                                                  intptr_t arg3);
    /* 1 */ void(REGVANE_CALL* Reserved1)(IRegvaneCallback* This);
    /* 2 */ void(REGVANE_CALL* PostHostCommand)(IRegvaneCallback* This, uint16_t command, intptr_t param,
                                                uint8_t flag, uint8_t byte1, uint8_t byte2, uint16_t word1,
                                                uint16_t word2);
    /* 3 */ void(REGVANE_CALL* Reserved3)(IRegvaneCallback* This);
    /* 4 */ void(REGVANE_CALL* Reserved4)(IRegvaneCallback* This);
    /* 5 */ void(REGVANE_CALL* Reserved5)(IRegvaneCallback* This);
    /* 6 */ void(REGVANE_CALL* Reserved6)(IRegvaneCallback* This);
    /* 7 */ int(REGVANE_CALL* GetLanguage)(IRegvaneCallback* This);
    /* 8 */ void(REGVANE_CALL* SetHostValue)(IRegvaneCallback* This, int reserved, int32_t value,
                                             void* dialog);
    /* 9 */ uint8_t(REGVANE_CALL* IsHostOptionOn)(IRegvaneCallback* This);
} IRegvaneCallbackVtbl;

#ifndef __cplusplus
// The module's dialog object; only hosts built with its framework use it (CreateRegvaneWnd).
typedef struct CDialog CDialog;
typedef struct CWnd CWnd;

// The exports of regvane.dll, by plain name (import library or GetProcAddress).
// Every function runs on the host's user-interface thread, the one that calls InitRegvane: a call
// from another thread does nothing and returns null (a debug build of the module stops on it). No
// exception leaves a function; a failure inside gives null or does nothing.
//
// Hands the module the host's callback; the module keeps it and never releases it.
void InitRegvane(IRegvaneCallback* callback);
// Re-reads the host's language and loads the matching language files.
void RegvaneLanguageChanged(void);
// The settings page of one chip type as a modeless child of parent; null for unknown types and
// for a parent that is not a window.
CDialog* CreateRegvaneWnd(int chipType, IRegvane* chip, const wchar_t* caption, CWnd* parent);
// The same page as a plain window handle: the page frees itself when its window is destroyed.
HWND CreateRegvaneHwnd(int chipType, IRegvane* chip, const wchar_t* caption, HWND parent);
// The class name of a chip page of this module ("CRegvaneMbi5153"), null for any other window.
const char* RegvaneDialogClassName(HWND dialog);

typedef void (*InitRegvaneFn)(IRegvaneCallback*);
typedef void (*RegvaneLanguageChangedFn)(void);
typedef CDialog* (*CreateRegvaneWndFn)(int, IRegvane*, const wchar_t*, CWnd*);
typedef HWND (*CreateRegvaneHwndFn)(int, IRegvane*, const wchar_t*, HWND);
typedef const char* (*RegvaneDialogClassNameFn)(HWND);
#endif

#endif
