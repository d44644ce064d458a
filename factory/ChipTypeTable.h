// The chip-type table: which settings page the host gets for each chip-type number. Written once,
// as X-macro lists, and expanded three times: into the factory's dispatch (factory/ChipTypes.cpp,
// factory/DialogFactory.cpp), into the classes of the chips that have no page of their own yet
// (factory/GenericChipPages.h), and, through the resource compiler's preprocessor, into those
// classes' dialog templates (resources/dialogs/GenericChipPages.rc). Only comments and macro
// definitions belong here, so that windres can read it.
//
// REGVANE_CHIP_CLASSES(CLASS, SHARING): every page class, one row each:
//   (class, "chip" as the template caption names it, template number, constructor form, kind)
//   CLASS rows own their template; a SHARING row reuses the template of a CLASS row above it, so each
//   template is emitted exactly once.
//   Constructor forms, as the factory calls them:
//     CHIP                      Class(IRegvane* chip)                        the auxiliary pages
//     CHIP_PARENT               Class(chip, HWND parent)                     the raw register editors
//     CHIP_CAPTION_PARENT       Class(chip, const wchar_t* caption, parent)  the chips' pages
//     CHIP_MODE_CAPTION_PARENT  Class(chip, int mode, caption, parent)       the high-mode register grid,
//                                                                            created in mode 1
//   Kind: GENERIC rows are raw register pages made here from the table (a class of that exact name
//   deriving from CchipRegModify, and a raw-editor template under the row's number); a description
//   in the host's run-time folder may still turn such a page into a described one. DESCRIBED rows
//   are made the same way, and the module ships a description of the class
//   (descriptions/chips/<class>.desc), which lays the page out on that template's frame. TABLE rows
//   are the register parameter-table pages (dialogs/chips/ParamTablePageList.h) and CUSTOM rows the
//   other pages with behaviour of their own: for both, the class is declared in its own header,
//   included from dialogs/chips/AllChipDialogs.h, and its .rc file owns the template.
//
// REGVANE_CHIP_TYPES(TYPE): chip types whose page follows from the number alone:
//   (first number, last number, class). The host numbers a second block of chips from 65536 on.
//
// REGVANE_CHIP_SUBTYPE_TYPES(SUBTYPE_TYPE): (chip type, the type whose sub-type rules it follows).
// REGVANE_CHIP_SUBTYPE_RULES(RULE): (rules of type, class or NoPage, sub-types...). A chip type's rows
//   are tested in order, each asking the host for the sub-type once; a row without sub-types takes
//   any other value. NoPage means the host gets no page for that sub-type.
#pragma once

// clang-format off

#define REGVANE_CHIP_CLASSES(CLASS, SHARING) \
    CLASS(  CRegvaneRT5938,         "RT5938",            20150, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5124,       "MBI5124",            8282, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2018,       "SUM2018",            9090, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5042,       "MBI5042",            8052, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2017T,      "SUM2017T",          20028, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CchipRegModify,         "Chip registers",     8224, CHIP_PARENT,              CUSTOM) \
    CLASS(  CMY9868SetDlgEx,        "MY9868 settings",    9082, CHIP,                     GENERIC) \
    CLASS(  CRegvaneFM6182,         "FM6182",            20091, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16208,        "SM16208",           20455, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16227,        "SM16227",           20350, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9862,        "MY9862",            20026, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2019,       "SUM2019",            9094, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5050,       "MBI5050",            8148, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5053,       "MBI5053",            8146, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMy9262,         "MY9262",             8215, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9268,        "MY9268",             8083, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8060,       "SCL8060",            8093, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8032,       "SCL8032",           20200, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8060A7,     "SCL8060A7",          8090, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9266,        "MY9266",             8094, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8080,       "SCL8080",            8199, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2030,       "SUM2030",            8152, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5040,       "MBI5040",            8198, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY1812,        "MY1812",             8092, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5152,        "MBI5152",            8209, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSum2032,        "SUM2032",            8210, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5030,        "MBI5030",            8214, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane5041B,          "5041B",              8227, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5043,        "MBI5043",           20175, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5153,        "MBI5153",            8229, CHIP_CAPTION_PARENT,      CUSTOM) \
    CLASS(  CRegvane_SM16159,       "SM16159",            9300, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMY9221,         "MY9221",             8277, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMY9291,         "MY9291",             8276, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5151,        "MBI5151",            8279, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane8080A3,         "8080A3",            20400, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9366,        "MY9366",             8280, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSum2031,        "SUM2031",            9095, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9266B,       "MY9266B",            8613, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8080A2,     "SCL8080A2",          8268, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SCL8061A3,     "SCL8061A3",          8269, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9376,        "MY9376",            20027, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5051b,       "MBI5051b",           9608, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneWS2816A,        "WS2816A",           20454, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8864,         "HX8864",            20056, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_TLC5971,       "TLC5971",           20034, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2028,       "SUM2028",            9607, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI5049,       "MBI5049",           20033, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16369S,      "SM16369S",          20414, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3246,         "DP3246",            20059, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMY9235,         "MY9235",            20058, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTLC5929,        "TLC5929",           20061, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneGW6803,         "GW6803",            20063, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_H8106,         "H8106",             20169, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneC12020,         "C12020",            20064, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLS9929,         "LS9929",            11300, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneXM11202G,       "XM11202G",          20086, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3263,         "DP3263",            20084, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneD8027,          "D8027",             20083, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD555A,        "CFD555A",           20078, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6128,         "FM6128",            20080, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneGW6808,         "GW6808",            20082, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneGS8208,         "GS8208",            20087, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI6328,        "MBI6328",           20415, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTX1816ZC,       "TX1816ZC",          20088, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCS2033,         "CS2033",            20052, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSum2033,        "SUM2033",            9605, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2130,       "SUM2130",           20032, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5353,        "MBI5353",           20031, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSum2131,        "SUM2131",            9609, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2053,        "ICN2053",            8228, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS9812,        "UCS9812",            8800, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_TLC5946,       "TLC5946",           20035, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9373,        "MY9373",             9399, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_TM1916,        "TM1916",             9200, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS5603A,       "UCS5603A",          20036, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSC6660,         "SC6660",             9700, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSC6618,         "SC6618",             9800, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSC6618Multi,    "SC6618Multi",       10000, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLS9960,         "LS9960",            11100, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLS9918,         "LS9918",            11200, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2038S,       "ICN2038S",           8900, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2117,       "SUM2117",           20100, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5125,        "MBI5125",           20111, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16237,        "SM16237",           20300, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9866,        "MY9866",            20401, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2017TD,     "SUM2017TD",         20402, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6126,         "FM6126",            20404, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneSM16188,        "SM16188",           20010, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvan_FM6648,         "FM6648",            20013, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16218N,      "SM16218N",          20024, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6127,         "FM6127",            20039, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvane_SM16389,       "SM16389",           20065, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_D2618,         "D2618",             20066, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9758,        "MY9758",            20068, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2100,       "ICND2100",          20112, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2055Basic,   "ICN2055Basic",      20421, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16259,       "SM16259",           20406, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMbi5359,        "MBI5359",           20407, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5253,        "MBI5253",           20410, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2200,        "ICN2200",           20017, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLYD231111,      "LYD231111",         20018, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMy9748,         "MY9748",            20409, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2112,       "ICND2112",          20008, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5850,        "MBI5850",           20054, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS7153,        "CNS7153",           20412, CHIP_CAPTION_PARENT,      GENERIC) \
    SHARING(CRegvaneHBS1920,        "HBS1920",            8800, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5759,        "MBI5759",           20011, CHIP_CAPTION_PARENT,      GENERIC) \
    SHARING(CRegvaneSM16813P,       "SM16813P",           8800, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvan_ICN2076,        "ICN2076",           20014, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSCL8081Basic,   "SCL8081Basic",      20127, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5254,        "MBI5254",           20015, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16359,       "SM16359",           20019, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16169S,      "SM16169S",          20023, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5354,        "MBI5354",           20037, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5754,        "MBI5754",           20042, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS7253,        "CNS7253",           20044, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLYD231111ES3,   "LYD231111ES3",      20046, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5264,        "MBI5264",           20048, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP5525,         "DP5525",            20050, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_RT7920,        "RT7920",            20074, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_TLC6983,       "TLC6983",           20070, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_HX5031,        "HX5031",            20076, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_CS2017,        "CS2017",            20072, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvan_APE5054,        "APE5054",           20041, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_ICND2210,      "ICND2210",          20067, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16380,       "SM16380",           20077, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5965,         "RT5965",            20089, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5967,         "RT5967",            20420, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_FM6129,        "FM6129",            20418, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneCFD455A,        "CFD455A",           20092, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneAXS6018,        "AXS6018",           20095, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16803,        "SM16803",           20094, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneWDL3600A,       "WDL3600A",          20099, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTM2908,         "TM2908",            20102, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneXM10480G,       "XM10480G",          20103, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16509,       "SM16509",           20105, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5850B,       "MBI5850B",          20104, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_HBS2918,       "HBS2918",           20134, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MBI6033,       "MBI6033",           20133, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD135A,        "CFD135A",           20107, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16219,        "SM16219",           20113, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2263,       "ICND2263",          20115, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3100,       "ICND3100",          20117, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16609,        "SM16609",           20118, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHKA5831,        "HKA5831",           20120, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMT1836A,        "MT1836A",           20121, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSK9814,         "SK9814",            20122, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS8603,        "UCS8603",           20123, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHB200B,         "HB200B",            20124, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8865,         "HX8865",            20128, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5265,        "MBI5265",           20130, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2168,       "ICND2168",          20136, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2260,        "ICN2260",           20132, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2169,       "ICND2169",          20138, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS7363,        "CNS7363",           20140, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2152,       "ICND2152",          20142, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5762,        "MBI5762",           20144, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1065,       "ICND1065",          20148, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3065,       "ICND3065",          20146, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneXM10486G,       "XM10486G",          20152, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTA8028,         "TA8028",            20153, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16318,        "SM16318",           20154, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLS9937,         "LS9937",            20176, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16389SH,      "SM16389SH",         20156, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16212NH,      "SM16212NH",         20159, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneNT27052,        "NT27052",           20160, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD325A,        "CFD325A",           20162, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD455C,        "CFD455C",           20166, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMY9263,         "MY9263",            20164, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_AP6111,        "AP6111",            20168, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8128,         "HX8128",            20170, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16169SH,      "SM16169SH",         20172, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_AIT3377,       "AIT3377",           20178, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2270,        "ICN2270",           20186, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_ICND2049,      "ICND2049",          20183, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_AU1868,        "AU1868",            20422, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3153,         "DP3153",            20194, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3254,         "DP3254",            20188, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneAQS2248,        "AQS2248",           20190, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_NormalZero,    "Normal zero",       20424, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTX1826,         "TX1826",            20191, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8964,         "HX8964",            20426, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8932,         "HX8932",            20427, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD535A,        "CFD535A",           20192, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneC8325,          "C8325",             20429, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS7604,        "UCS7604",           20195, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_C8135,         "C8135",             20433, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneAXP020B,        "AXP020B",           20436, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD655,         "CFD655",            20437, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneQS2633,         "QS2633",            20196, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3365S,        "DP3365S",           20198, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_VM0622,        "VM0622",            20199, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD855A,        "CFD855A",           20201, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLYD23221,       "LYD23221",          20205, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneAX2400,         "AX2400",            20206, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7264,        "MBS7264",           20207, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneQS26A5,         "QS26A5",            20209, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3069,       "ICND3069",          20440, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS8904B,       "UCS8904B",          20210, CHIP_CAPTION_PARENT,      GENERIC) \
    SHARING(CRegvane_VM0622F,       "VM0622F",           20199, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7752,        "MBS7752",           20212, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5756,        "MBI5756",           20213, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND8392,       "ICND8392",          20452, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS6502,        "CNS6502",           20456, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5034B,       "MBI5034B",          20457, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSXT2000,        "SXT2000",           20458, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneXM11203G,       "XM11203G",          20216, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS512C1,       "UCS512C1",          20459, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTBS5267A,       "TBS5267A",          20217, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTX1812RGBW,     "TX1812RGBW",        20475, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3289,       "ICND3289",          20503, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneUCS7612,        "UCS7612",           20500, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_AMBIC1212,     "AMBIC1212",         20501, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5292,        "MBI5292",           20219, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7252,        "MBS7252",           20222, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5632,         "RT5632",            20504, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3370S,        "DP3370S",           20224, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD325E,        "CFD325E",           20226, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneC8485,          "C8485",             20228, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLD1514,         "LD1514",            20230, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneD7732,          "D7732",             20506, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMW16330,        "MW16330",           20231, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneZY1515,         "ZY1515",            20507, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7253,        "MBS7253",           20233, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2163S,      "ICND2163S",         20235, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CChip5153Extension,     "5153 extension",     8614, CHIP,                     GENERIC) \
    CLASS(  CRegvane_SUM2028Ex,     "SUM2028Ex",          9604, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2033Ex,     "SUM2033Ex",          9606, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2017TEx,    "SUM2017TEx",        20029, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CChip5353Extension,     "5353 extension",    20030, CHIP,                     GENERIC) \
    CLASS(  CRegvane_SUM2131Ex,     "SUM2131Ex",          9610, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2053EX,      "ICN2053EX",          8231, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CChipRegModifyICN2053,  "ICN2053 registers",  8225, CHIP_PARENT,              GENERIC) \
    CLASS(  CRegvaneICN2038SEX,     "ICN2038SEX",         8901, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SUM2117Ex,     "SUM2117Ex",         20110, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICN2055,        "ICN2055",           20000, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneICN2055EX,      "ICN2055EX",         20001, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvane_SUM2017TDEx,   "SUM2017TDEx",       20403, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6126EX,       "FM6126EX",          20405, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneLS9929EX,       "LS9929EX",          20002, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHighMode,       "High mode",         20408, CHIP_MODE_CAPTION_PARENT, GENERIC) \
    CLASS(  CRegvaneMy9748Ex,       "MY9748Ex",          20004, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5253Ex,      "MBI5253Ex",         20411, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS7153EX,      "CNS7153EX",         20413, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5759EX,      "MBI5759EX",         20012, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5254Ex,      "MBI5254Ex",         20016, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5354Ex,      "MBI5354Ex",         20038, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6127EX,       "FM6127EX",          20040, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneMBI5754Ex,      "MBI5754Ex",         20043, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCNS7253EX,      "CNS7253EX",         20045, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLYD231111ES3EX, "LYD231111ES3EX",    20047, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5264Ex,      "MBI5264Ex",         20049, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP5525EX,       "DP5525EX",          20051, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCS2033Ex,       "CS2033Ex",          20053, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5850EX,      "MBI5850EX",         20055, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8864EX,       "HX8864EX",          20057, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3246Ex,       "DP3246Ex",          20060, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_MY9758Ex,      "MY9758Ex",          20069, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_TLC6983Ex,     "TLC6983Ex",         20071, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_CS2017Ex,      "CS2017Ex",          20073, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_C8135EX,       "C8135EX",           20434, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6356BEX,      "FM6356BEX",         20075, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD555AEx,      "CFD555AEx",         20079, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6128Ex,       "FM6128Ex",          20081, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneDP3263EX,       "DP3263EX",          20085, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5965Ex,       "RT5965Ex",          20090, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneAXS6018Ex,      "AXS6018Ex",         20096, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD455AEx,      "CFD455AEx",         20093, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI6328EX,      "MBI6328EX",         20416, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5967Ex,       "RT5967Ex",          20419, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6129Ex,       "FM6129Ex",          20417, CHIP_CAPTION_PARENT,      DESCRIBED) \
    CLASS(  CRegvaneWDL3600AEx,     "WDL3600AEx",        20101, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_SM16509Ex,     "SM16509Ex",         20106, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5850BEX,     "MBI5850BEX",        20109, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD135AEx,      "CFD135AEx",         20108, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16219Ex,      "SM16219Ex",         20114, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2263Ex,     "ICND2263Ex",        20116, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16609Ex,      "SM16609Ex",         20119, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHB200BEx,       "HB200BEx",          20125, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2165Ex,     "ICND2165Ex",        20126, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvane8081,           "8081",              20025, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8865EX,       "HX8865EX",          20129, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5265Ex,      "MBI5265Ex",         20131, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2260Ex,     "ICND2260Ex",        20135, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3289Ex,     "ICND3289Ex",        20502, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2168Ex,     "ICND2168Ex",        20137, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneICND2169Ex,     "ICND2169Ex",        20139, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneCNS7363Ex,      "CNS7363Ex",         20141, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneICND2152Ex,     "ICND2152Ex",        20143, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5762Ex,      "MBI5762Ex",         20145, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3065Ex,     "ICND3065Ex",        20147, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND3069Ex,     "ICND3069Ex",        20450, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1065Ex,     "ICND1065Ex",        20149, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneRT5938Ex,       "RT5938Ex",          20151, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16318Ex,      "SM16318Ex",         20155, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16389SHEx,    "SM16389SHEx",       20157, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1069Ex,     "ICND1069Ex",        20158, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneNT27052Ex,      "NT27052Ex",         20161, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD325AEx,      "CFD325AEx",         20163, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMY9263Ex,       "MY9263Ex",          20165, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD455CEx,      "CFD455CEx",         20167, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8128EX,       "HX8128EX",          20171, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16169SHEx,    "SM16169SHEx",       20173, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16269Ex,      "SM16269Ex",         20174, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneLS9937Ex,       "LS9937Ex",          20177, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneFM6864Ex,       "FM6864Ex",          20179, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1065SEx,    "ICND1065SEx",       20180, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneSM16510Ex,      "SM16510Ex",         20181, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2270Ex,     "ICND2270Ex",        20187, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_AU1868Ex,      "AU1868Ex",          20423, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3254EX,       "DP3254EX",          20189, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3365SEX,      "DP3365SEX",         20197, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2153SEx,    "ICND2153SEx",       20432, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneCFD535AEx,      "CFD535AEx",         20193, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvane_C8325EX,       "C8325EX",           20430, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8964EX,       "HX8964EX",          20425, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneHX8932EX,       "HX8932EX",          20428, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3368SEX,      "DP3368SEX",         20435, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD655Ex,       "CFD655Ex",          20438, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD855AEx,      "CFD855AEx",         20202, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1068Ex,     "ICND1068Ex",        20203, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneFM6373EX,       "FM6373EX",          20204, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneMBS7264EX,      "MBS7264EX",         20208, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7752EX,      "MBS7752EX",         20211, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5756EX,      "MBI5756EX",         20214, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND8392Ex,     "ICND8392Ex",        20451, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND1065LEx,    "ICND1065LEx",       20453, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneSM16399Ex,      "SM16399Ex",         20215, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneTBS5267AEX,     "TBS5267AEX",        20218, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBI5292EX,      "MBI5292EX",         20220, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneFM6373CEX,      "FM6373CEX",         20221, CHIP_CAPTION_PARENT,      TABLE) \
    CLASS(  CRegvaneRT5632Ex,       "RT5632Ex",          20505, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7252EX,      "MBS7252EX",         20223, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneDP3370SEx,      "DP3370SEx",         20225, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneCFD325EEx,      "CFD325EEx",         20227, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneC8485EX,        "C8485EX",           20229, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMW16330Ex,      "MW16330Ex",         20232, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneMBS7253EX,      "MBS7253EX",         20234, CHIP_CAPTION_PARENT,      GENERIC) \
    CLASS(  CRegvaneICND2163SEx,    "ICND2163SEx",       20236, CHIP_CAPTION_PARENT,      TABLE)

#define REGVANE_CHIP_TYPES(TYPE) \
    TYPE(7,           7,           CRegvane_SUM2018) \
    TYPE(8,           8,           CRegvane_MBI5042) \
    TYPE(10,          10,          CMY9868SetDlgEx) \
    TYPE(12,          12,          CRegvane_SUM2019) \
    TYPE(16,          16,          CRegvane_MBI5042) \
    TYPE(17,          17,          CRegvane_MBI5050) \
    TYPE(18,          18,          CRegvane_MBI5053) \
    TYPE(19,          19,          CRegvaneMy9262) \
    TYPE(20,          20,          CRegvane_MY9268) \
    TYPE(21,          21,          CRegvane_SCL8060) \
    TYPE(22,          22,          CRegvane_SCL8032) \
    TYPE(23,          23,          CRegvane_SCL8060A7) \
    TYPE(24,          25,          CRegvane_MY9266) \
    TYPE(26,          26,          CRegvane_SCL8080) \
    TYPE(27,          28,          CRegvane_MBI5053) \
    TYPE(30,          30,          CRegvane_SUM2030) \
    TYPE(31,          31,          CRegvane_MBI5040) \
    TYPE(33,          33,          CRegvane_MY1812) \
    TYPE(42,          42,          CRegvaneMbi5152) \
    TYPE(43,          43,          CRegvaneSum2032) \
    TYPE(44,          44,          CRegvaneMbi5030) \
    TYPE(45,          45,          CRegvaneSum2032) \
    TYPE(48,          48,          CRegvaneMY9221) \
    TYPE(49,          49,          CRegvaneMY9291) \
    TYPE(52,          52,          CRegvaneMbi5151) \
    TYPE(53,          53,          CRegvane8080A3) \
    TYPE(54,          54,          CRegvane_MY9366) \
    TYPE(55,          55,          CRegvaneSum2031) \
    TYPE(57,          57,          CRegvane_MY9266B) \
    TYPE(58,          58,          CRegvane_SCL8080A2) \
    TYPE(59,          59,          CRegvane_SCL8061A3) \
    TYPE(64,          64,          CRegvane_MY9376) \
    TYPE(65,          65,          CRegvaneMbi5051b) \
    TYPE(68,          68,          CRegvane_MY1812) \
    TYPE(71,          71,          CRegvaneHX8864) \
    TYPE(79,          79,          CRegvane_TLC5971) \
    TYPE(80,          80,          CRegvane_SUM2028) \
    TYPE(81,          81,          CchipRegModify) \
    TYPE(83,          83,          CRegvane_MBI5049) \
    TYPE(86,          86,          CRegvane_SM16369S) \
    TYPE(87,          87,          CRegvaneDP3246) \
    TYPE(89,          89,          CRegvaneMY9235) \
    TYPE(90,          90,          CRegvaneTLC5929) \
    TYPE(92,          92,          CRegvaneC12020) \
    TYPE(96,          102,         CRegvaneLS9929) \
    TYPE(114,         114,         CRegvaneXM11202G) \
    TYPE(116,         116,         CRegvaneDP3263) \
    TYPE(117,         117,         CRegvaneD8027) \
    TYPE(119,         119,         CRegvaneCFD555A) \
    TYPE(120,         120,         CRegvaneFM6128) \
    TYPE(122,         122,         CRegvaneGW6808) \
    TYPE(123,         123,         CRegvaneGS8208) \
    TYPE(124,         124,         CRegvaneMBI6328) \
    TYPE(125,         125,         CRegvaneTX1816ZC) \
    TYPE(130,         130,         CRegvane_SUM2130) \
    TYPE(131,         131,         CRegvaneMbi5353) \
    TYPE(132,         132,         CRegvaneSum2131) \
    TYPE(133,         133,         CRegvaneICN2053) \
    TYPE(134,         134,         CRegvaneUCS9812) \
    TYPE(137,         137,         CRegvane_TLC5946) \
    TYPE(139,         139,         CRegvane_MY9373) \
    TYPE(142,         142,         CRegvane_TM1916) \
    TYPE(143,         143,         CRegvaneUCS5603A) \
    TYPE(144,         144,         CRegvaneSC6660) \
    TYPE(145,         146,         CRegvaneSC6618) \
    TYPE(147,         147,         CRegvaneSC6618Multi) \
    TYPE(148,         148,         CRegvaneLS9960) \
    TYPE(149,         149,         CRegvaneLS9918) \
    TYPE(150,         159,         CRegvaneLS9929) \
    TYPE(162,         162,         CRegvaneICN2038S) \
    TYPE(163,         163,         CRegvane_SUM2117) \
    TYPE(164,         165,         CRegvaneMbi5125) \
    TYPE(168,         168,         CRegvaneICN2038S) \
    TYPE(171,         172,         CRegvaneSM16237) \
    TYPE(176,         176,         CRegvane_MY9866) \
    TYPE(177,         177,         CRegvane_SUM2017TD) \
    TYPE(178,         178,         CRegvaneSM16237) \
    TYPE(179,         179,         CRegvaneFM6126) \
    TYPE(180,         180,         CRegvaneSM16188) \
    TYPE(182,         182,         CRegvan_FM6648) \
    TYPE(183,         183,         CRegvane_SM16218N) \
    TYPE(184,         184,         CRegvaneFM6127) \
    TYPE(187,         187,         CRegvane_SM16389) \
    TYPE(188,         188,         CRegvane_D2618) \
    TYPE(190,         190,         CRegvaneLS9929) \
    TYPE(191,         191,         CRegvane_MY9758) \
    TYPE(192,         192,         CRegvaneICND2100) \
    TYPE(193,         194,         CRegvaneICN2055Basic) \
    TYPE(196,         196,         CRegvaneMbi5153) \
    TYPE(197,         197,         CRegvaneMbi5353) \
    TYPE(198,         198,         CRegvane_SM16259) \
    TYPE(199,         199,         CRegvaneMbi5359) \
    TYPE(200,         200,         CRegvaneMBI5253) \
    TYPE(201,         201,         CRegvaneICN2200) \
    TYPE(202,         202,         CRegvaneLYD231111) \
    TYPE(203,         203,         CRegvaneMy9748) \
    TYPE(204,         204,         CRegvaneICND2112) \
    TYPE(205,         205,         CRegvaneMBI5850) \
    TYPE(206,         206,         CRegvaneCNS7153) \
    TYPE(207,         207,         CRegvaneICN2053) \
    TYPE(209,         209,         CRegvaneHBS1920) \
    TYPE(210,         210,         CRegvaneMBI5759) \
    TYPE(211,         211,         CRegvaneSM16813P) \
    TYPE(213,         213,         CRegvaneHBS1920) \
    TYPE(214,         214,         CRegvan_ICN2076) \
    TYPE(215,         215,         CRegvaneSCL8081Basic) \
    TYPE(218,         218,         CRegvaneMBI5254) \
    TYPE(221,         221,         CRegvane_SM16359) \
    TYPE(222,         222,         CRegvane_SM16169S) \
    TYPE(223,         223,         CRegvaneMBI5354) \
    TYPE(224,         224,         CRegvaneMBI5754) \
    TYPE(226,         226,         CRegvaneCNS7253) \
    TYPE(227,         227,         CRegvaneLYD231111ES3) \
    TYPE(228,         228,         CRegvaneMBI5264) \
    TYPE(229,         229,         CRegvaneDP5525) \
    TYPE(231,         231,         CRegvane_RT7920) \
    TYPE(232,         232,         CRegvane_TLC6983) \
    TYPE(237,         237,         CRegvane_HX5031) \
    TYPE(238,         239,         CRegvane_CS2017) \
    TYPE(242,         242,         CRegvaneSum2032) \
    TYPE(245,         245,         CRegvan_APE5054) \
    TYPE(249,         249,         CRegvane_ICND2210) \
    TYPE(253,         253,         CRegvane_SM16380) \
    TYPE(256,         256,         CRegvaneRT5965) \
    TYPE(257,         257,         CRegvaneRT5967) \
    TYPE(259,         259,         CRegvane_FM6129) \
    TYPE(260,         260,         CRegvaneSCL8081Basic) \
    TYPE(261,         261,         CRegvaneCFD455A) \
    TYPE(263,         263,         CRegvaneAXS6018) \
    TYPE(264,         264,         CRegvaneSM16803) \
    TYPE(267,         267,         CRegvaneWDL3600A) \
    TYPE(268,         268,         CRegvaneTM2908) \
    TYPE(269,         269,         CRegvaneXM10480G) \
    TYPE(272,         272,         CRegvane_SM16509) \
    TYPE(273,         273,         CRegvaneMBI5850B) \
    TYPE(274,         274,         CRegvane_HBS2918) \
    TYPE(275,         275,         CRegvane_MBI6033) \
    TYPE(276,         276,         CRegvaneCFD135A) \
    TYPE(277,         277,         CRegvaneSM16219) \
    TYPE(280,         280,         CRegvaneICND2263) \
    TYPE(281,         281,         CRegvaneICND3100) \
    TYPE(282,         282,         CRegvaneSM16609) \
    TYPE(283,         283,         CRegvaneHKA5831) \
    TYPE(284,         284,         CRegvaneLS9929) \
    TYPE(288,         288,         CRegvaneMT1836A) \
    TYPE(289,         289,         CRegvaneSK9814) \
    TYPE(290,         290,         CRegvaneUCS8603) \
    TYPE(291,         291,         CRegvaneHB200B) \
    TYPE(293,         293,         CRegvaneHX8865) \
    TYPE(295,         295,         CRegvaneMBI5265) \
    TYPE(298,         298,         CRegvaneICND2168) \
    TYPE(299,         299,         CRegvaneICN2260) \
    TYPE(300,         300,         CRegvaneICND2169) \
    TYPE(302,         302,         CRegvaneCNS7363) \
    TYPE(303,         303,         CRegvaneICND2152) \
    TYPE(304,         304,         CRegvaneMBI5762) \
    TYPE(306,         306,         CRegvaneICND1065) \
    TYPE(309,         309,         CRegvaneICND3065) \
    TYPE(311,         311,         CRegvaneXM10486G) \
    TYPE(313,         313,         CRegvaneTA8028) \
    TYPE(314,         314,         CRegvaneSM16318) \
    TYPE(315,         315,         CRegvaneLS9937) \
    TYPE(316,         316,         CRegvaneSM16389SH) \
    TYPE(318,         318,         CRegvaneSM16212NH) \
    TYPE(319,         319,         CRegvaneNT27052) \
    TYPE(321,         321,         CRegvaneCFD325A) \
    TYPE(323,         323,         CRegvaneCFD455C) \
    TYPE(325,         325,         CRegvaneMY9263) \
    TYPE(328,         328,         CRegvane_AP6111) \
    TYPE(330,         330,         CRegvaneHX8128) \
    TYPE(331,         331,         CRegvaneLS9937) \
    TYPE(332,         332,         CRegvaneSM16169SH) \
    TYPE(340,         340,         CRegvane_AIT3377) \
    TYPE(343,         343,         CRegvaneICN2270) \
    TYPE(347,         347,         CRegvane_ICND2049) \
    TYPE(348,         348,         CRegvane_AU1868) \
    TYPE(350,         350,         CRegvaneAQS2248) \
    TYPE(351,         351,         CRegvane_NormalZero) \
    TYPE(352,         352,         CRegvaneTX1826) \
    TYPE(354,         354,         CRegvaneHX8964) \
    TYPE(355,         355,         CRegvaneHX8932) \
    TYPE(356,         356,         CRegvaneCFD535A) \
    TYPE(357,         357,         CRegvaneC8325) \
    TYPE(362,         362,         CRegvaneUCS7604) \
    TYPE(363,         363,         CRegvane_C8135) \
    TYPE(364,         364,         CRegvaneDP3254) \
    TYPE(365,         365,         CRegvaneAXP020B) \
    TYPE(371,         371,         CRegvaneCFD655) \
    TYPE(373,         373,         CRegvaneQS2633) \
    TYPE(375,         375,         CRegvaneDP3365S) \
    TYPE(376,         376,         CRegvane_VM0622) \
    TYPE(377,         377,         CRegvaneCFD855A) \
    TYPE(382,         382,         CRegvaneLYD23221) \
    TYPE(383,         383,         CRegvaneLS9937) \
    TYPE(384,         384,         CRegvaneAX2400) \
    TYPE(385,         385,         CRegvaneMBS7264) \
    TYPE(386,         386,         CRegvaneQS26A5) \
    TYPE(392,         392,         CRegvaneICND3069) \
    TYPE(393,         394,         CRegvaneDP3365S) \
    TYPE(395,         395,         CRegvaneUCS8904B) \
    TYPE(396,         396,         CRegvane_VM0622F) \
    TYPE(397,         397,         CRegvaneMBS7752) \
    TYPE(399,         399,         CRegvaneMBI5756) \
    TYPE(400,         400,         CRegvaneICND8392) \
    TYPE(404,         404,         CRegvane_SM16509) \
    TYPE(405,         405,         CRegvaneCNS6502) \
    TYPE(406,         406,         CRegvaneMBI5034B) \
    TYPE(410,         410,         CRegvaneLS9937) \
    TYPE(411,         411,         CRegvaneSXT2000) \
    TYPE(412,         412,         CRegvaneXM11203G) \
    TYPE(415,         415,         CRegvaneUCS512C1) \
    TYPE(512,         512,         CRegvaneTBS5267A) \
    TYPE(514,         514,         CRegvaneTX1812RGBW) \
    TYPE(516,         516,         CRegvaneICND3289) \
    TYPE(517,         517,         CRegvaneLS9937) \
    TYPE(518,         518,         CRegvaneUCS7612) \
    TYPE(519,         519,         CRegvane_AMBIC1212) \
    TYPE(520,         520,         CRegvaneLS9937) \
    TYPE(521,         521,         CRegvaneMBI5292) \
    TYPE(525,         525,         CRegvaneMBS7252) \
    TYPE(526,         526,         CRegvaneRT5632) \
    TYPE(527,         527,         CRegvaneDP3370S) \
    TYPE(528,         530,         CRegvaneCFD655) \
    TYPE(531,         531,         CRegvaneCFD325E) \
    TYPE(537,         537,         CRegvaneC8485) \
    TYPE(538,         538,         CRegvaneLS9929) \
    TYPE(539,         539,         CRegvaneLS9937) \
    TYPE(540,         540,         CRegvaneLD1514) \
    TYPE(541,         541,         CRegvaneD7732) \
    TYPE(542,         542,         CRegvaneMW16330) \
    TYPE(544,         544,         CRegvaneZY1515) \
    TYPE(545,         545,         CRegvaneMBS7253) \
    TYPE(547,         547,         CRegvaneCFD655) \
    TYPE(548,         548,         CRegvaneICND2163S) \
    TYPE(65536 + 0,   65536 + 0,   CchipRegModify) \
    TYPE(65536 + 1,   65536 + 1,   CChip5153Extension) \
    TYPE(65536 + 2,   65536 + 2,   CRegvane_SUM2028Ex) \
    TYPE(65536 + 3,   65536 + 3,   CRegvane_SUM2033Ex) \
    TYPE(65536 + 4,   65536 + 4,   CRegvane_SUM2017TEx) \
    TYPE(65536 + 5,   65536 + 5,   CChip5353Extension) \
    TYPE(65536 + 6,   65536 + 6,   CRegvane_SUM2131Ex) \
    TYPE(65536 + 7,   65536 + 7,   CRegvaneICN2053EX) \
    TYPE(65536 + 8,   65536 + 8,   CChipRegModifyICN2053) \
    TYPE(65536 + 9,   65536 + 9,   CRegvaneICN2038SEX) \
    TYPE(65536 + 11,  65536 + 11,  CRegvane_SUM2117Ex) \
    TYPE(65536 + 12,  65536 + 12,  CRegvaneICN2055) \
    TYPE(65536 + 13,  65536 + 13,  CRegvaneICN2055EX) \
    TYPE(65536 + 14,  65536 + 14,  CRegvane_SUM2017TDEx) \
    TYPE(65536 + 15,  65536 + 15,  CRegvaneFM6126EX) \
    TYPE(65536 + 16,  65536 + 16,  CRegvaneLS9929EX) \
    TYPE(65536 + 17,  65536 + 17,  CRegvaneHighMode) \
    TYPE(65536 + 18,  65536 + 18,  CRegvaneMy9748Ex) \
    TYPE(65536 + 19,  65536 + 19,  CRegvaneMBI5253Ex) \
    TYPE(65536 + 20,  65536 + 20,  CRegvaneCNS7153EX) \
    TYPE(65536 + 21,  65536 + 21,  CRegvaneMBI5759EX) \
    TYPE(65536 + 22,  65536 + 22,  CRegvaneMBI5254Ex) \
    TYPE(65536 + 24,  65536 + 24,  CRegvaneMBI5354Ex) \
    TYPE(65536 + 25,  65536 + 25,  CRegvaneFM6127EX) \
    TYPE(65536 + 26,  65536 + 26,  CRegvaneMBI5754Ex) \
    TYPE(65536 + 27,  65536 + 27,  CRegvaneCNS7253EX) \
    TYPE(65536 + 28,  65536 + 28,  CRegvaneLYD231111ES3EX) \
    TYPE(65536 + 29,  65536 + 29,  CRegvaneMBI5264Ex) \
    TYPE(65536 + 30,  65536 + 30,  CRegvaneDP5525EX) \
    TYPE(65536 + 31,  65536 + 31,  CRegvaneCS2033Ex) \
    TYPE(65536 + 32,  65536 + 32,  CRegvaneMBI5850EX) \
    TYPE(65536 + 33,  65536 + 33,  CRegvaneHX8864EX) \
    TYPE(65536 + 34,  65536 + 34,  CRegvaneDP3246Ex) \
    TYPE(65536 + 35,  65536 + 35,  CRegvane_MY9758Ex) \
    TYPE(65536 + 36,  65536 + 36,  CRegvane_TLC6983Ex) \
    TYPE(65536 + 37,  65536 + 37,  CRegvane_CS2017Ex) \
    TYPE(65536 + 38,  65536 + 38,  CRegvane_C8135EX) \
    TYPE(65536 + 39,  65536 + 39,  CRegvaneFM6356BEX) \
    TYPE(65536 + 40,  65536 + 40,  CRegvaneCFD555AEx) \
    TYPE(65536 + 41,  65536 + 41,  CRegvaneFM6128Ex) \
    TYPE(65536 + 42,  65536 + 42,  CRegvaneDP3263EX) \
    TYPE(65536 + 43,  65536 + 43,  CRegvaneRT5965Ex) \
    TYPE(65536 + 44,  65536 + 44,  CRegvaneAXS6018Ex) \
    TYPE(65536 + 45,  65536 + 45,  CRegvaneCFD455AEx) \
    TYPE(65536 + 46,  65536 + 46,  CRegvaneMBI6328EX) \
    TYPE(65536 + 47,  65536 + 47,  CRegvaneRT5967Ex) \
    TYPE(65536 + 48,  65536 + 48,  CRegvaneFM6129Ex) \
    TYPE(65536 + 49,  65536 + 49,  CRegvaneWDL3600AEx) \
    TYPE(65536 + 50,  65536 + 50,  CRegvane_SM16509Ex) \
    TYPE(65536 + 51,  65536 + 51,  CRegvaneMBI5850BEX) \
    TYPE(65536 + 52,  65536 + 52,  CRegvaneCFD135AEx) \
    TYPE(65536 + 53,  65536 + 53,  CRegvaneSM16219Ex) \
    TYPE(65536 + 54,  65536 + 54,  CRegvaneICND2263Ex) \
    TYPE(65536 + 55,  65536 + 55,  CRegvaneSM16609Ex) \
    TYPE(65536 + 56,  65536 + 56,  CRegvaneHB200BEx) \
    TYPE(65536 + 57,  65536 + 57,  CRegvaneICND2165Ex) \
    TYPE(65536 + 58,  65536 + 58,  CRegvane8081) \
    TYPE(65536 + 59,  65536 + 59,  CRegvaneHX8865EX) \
    TYPE(65536 + 60,  65536 + 60,  CRegvaneMBI5265Ex) \
    TYPE(65536 + 61,  65536 + 61,  CRegvaneICND2260Ex) \
    TYPE(65536 + 62,  65536 + 62,  CRegvaneICND3289Ex) \
    TYPE(65536 + 63,  65536 + 63,  CRegvaneICND2168Ex) \
    TYPE(65536 + 64,  65536 + 64,  CRegvaneICND2169Ex) \
    TYPE(65536 + 65,  65536 + 65,  CRegvaneCNS7363Ex) \
    TYPE(65536 + 66,  65536 + 66,  CRegvaneICND2152Ex) \
    TYPE(65536 + 67,  65536 + 67,  CRegvaneMBI5762Ex) \
    TYPE(65536 + 68,  65536 + 68,  CRegvaneICND3065Ex) \
    TYPE(65536 + 69,  65536 + 69,  CRegvaneICND3069Ex) \
    TYPE(65536 + 70,  65536 + 70,  CRegvaneICND1065Ex) \
    TYPE(65536 + 71,  65536 + 71,  CRegvaneRT5938Ex) \
    TYPE(65536 + 72,  65536 + 72,  CRegvaneSM16318Ex) \
    TYPE(65536 + 73,  65536 + 73,  CRegvaneSM16389SHEx) \
    TYPE(65536 + 74,  65536 + 74,  CRegvaneICND1069Ex) \
    TYPE(65536 + 75,  65536 + 75,  CRegvaneNT27052Ex) \
    TYPE(65536 + 76,  65536 + 76,  CRegvaneCFD325AEx) \
    TYPE(65536 + 77,  65536 + 77,  CRegvaneMY9263Ex) \
    TYPE(65536 + 78,  65536 + 78,  CRegvaneCFD455CEx) \
    TYPE(65536 + 79,  65536 + 79,  CRegvaneHX8128EX) \
    TYPE(65536 + 80,  65536 + 80,  CRegvaneSM16169SHEx) \
    TYPE(65536 + 81,  65536 + 81,  CRegvaneSM16269Ex) \
    TYPE(65536 + 82,  65536 + 82,  CRegvaneLS9937Ex) \
    TYPE(65536 + 83,  65536 + 83,  CRegvaneFM6864Ex) \
    TYPE(65536 + 84,  65536 + 84,  CRegvaneICND1065SEx) \
    TYPE(65536 + 85,  65536 + 85,  CRegvaneSM16510Ex) \
    TYPE(65536 + 86,  65536 + 86,  CRegvaneICND2270Ex) \
    TYPE(65536 + 87,  65536 + 87,  CRegvane_AU1868Ex) \
    TYPE(65536 + 88,  65536 + 88,  CRegvaneDP3254EX) \
    TYPE(65536 + 89,  65536 + 89,  CRegvaneDP3365SEX) \
    TYPE(65536 + 90,  65536 + 90,  CRegvaneICND2153SEx) \
    TYPE(65536 + 91,  65536 + 91,  CRegvaneCFD535AEx) \
    TYPE(65536 + 92,  65536 + 92,  CRegvane_C8325EX) \
    TYPE(65536 + 93,  65536 + 93,  CRegvaneHX8964EX) \
    TYPE(65536 + 94,  65536 + 94,  CRegvaneHX8932EX) \
    TYPE(65536 + 95,  65536 + 95,  CRegvaneDP3368SEX) \
    TYPE(65536 + 96,  65536 + 96,  CRegvaneCFD655Ex) \
    TYPE(65536 + 97,  65536 + 97,  CRegvaneCFD855AEx) \
    TYPE(65536 + 98,  65536 + 98,  CRegvaneICND1068Ex) \
    TYPE(65536 + 99,  65536 + 99,  CRegvaneFM6373EX) \
    TYPE(65536 + 100, 65536 + 100, CRegvaneMBS7264EX) \
    TYPE(65536 + 101, 65536 + 101, CRegvaneMBS7752EX) \
    TYPE(65536 + 102, 65536 + 102, CRegvaneMBI5756EX) \
    TYPE(65536 + 103, 65536 + 103, CRegvaneICND8392Ex) \
    TYPE(65536 + 104, 65536 + 104, CRegvaneICND1065LEx) \
    TYPE(65536 + 105, 65536 + 105, CRegvaneSM16399Ex) \
    TYPE(65536 + 106, 65536 + 106, CRegvaneTBS5267AEX) \
    TYPE(65536 + 107, 65536 + 107, CRegvaneMBI5292EX) \
    TYPE(65536 + 108, 65536 + 108, CRegvaneFM6373CEX) \
    TYPE(65536 + 109, 65536 + 109, CRegvaneRT5632Ex) \
    TYPE(65536 + 110, 65536 + 110, CRegvaneMBS7252EX) \
    TYPE(65536 + 111, 65536 + 111, CRegvaneDP3370SEx) \
    TYPE(65536 + 112, 65536 + 112, CRegvaneCFD325EEx) \
    TYPE(65536 + 113, 65536 + 113, CRegvaneC8485EX) \
    TYPE(65536 + 114, 65536 + 114, CRegvaneMW16330Ex) \
    TYPE(65536 + 115, 65536 + 115, CRegvaneMBS7253EX) \
    TYPE(65536 + 116, 65536 + 116, CRegvaneICND2163SEx)

#define REGVANE_CHIP_SUBTYPE_TYPES(SUBTYPE_TYPE) \
    SUBTYPE_TYPE(4, 4) \
    SUBTYPE_TYPE(5, 4) \
    SUBTYPE_TYPE(6, 4) \
    SUBTYPE_TYPE(9, 9) \
    SUBTYPE_TYPE(11, 11) \
    SUBTYPE_TYPE(13, 4) \
    SUBTYPE_TYPE(46, 46) \
    SUBTYPE_TYPE(47, 47) \
    SUBTYPE_TYPE(67, 67) \
    SUBTYPE_TYPE(91, 91) \
    SUBTYPE_TYPE(129, 129) \
    SUBTYPE_TYPE(349, 349)

#define REGVANE_CHIP_SUBTYPE_RULES(RULE) \
    RULE(4,   NoPage, 160, 169, 170) \
    RULE(4,   CRegvaneRT5938, 312) \
    RULE(4,   CRegvane_MBI5124) \
    RULE(9,   CRegvane_SUM2017T, 85) \
    RULE(9,   CchipRegModify) \
    RULE(11,  CRegvaneSM16227, 173) \
    RULE(11,  CRegvaneFM6182, 63) \
    RULE(11,  CRegvaneSM16208, 387) \
    RULE(11,  NoPage, 161, 167) \
    RULE(11,  CRegvane_MY9862) \
    RULE(46,  CRegvaneMBI5043, 82) \
    RULE(46,  CRegvane5041B) \
    RULE(47,  CRegvane_SM16159, 138) \
    RULE(47,  CRegvaneMbi5153) \
    RULE(67,  CRegvaneWS2816A, 403) \
    RULE(67,  NoPage) \
    RULE(91,  CRegvane_H8106, 329) \
    RULE(91,  CRegvaneGW6803) \
    RULE(129, CRegvaneCS2033, 230, 265) \
    RULE(129, CRegvaneSum2033) \
    RULE(349, CRegvaneDP3153, 360) \
    RULE(349, CRegvaneDP3254)

// clang-format on
