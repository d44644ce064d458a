// The chip pages that show a register parameter table with Export and Import: class, template
// number, which table they edit, and the chip named in the template's caption. Preprocessor only,
// so the resource script expands the same list into the templates.
#pragma once

#define REGVANE_PARAM_TABLE_PAGES(X)                                                                         \
    X(CRegvaneICN2055, 20000, Chip, "ICN2055")                                                               \
    X(CRegvaneICN2055EX, 20001, Chip, "ICN2055")                                                             \
    X(CRegvaneICND2165Ex, 20126, Chip, "ICND2165")                                                           \
    X(CRegvaneICND2168Ex, 20137, Chip, "ICND2168")                                                           \
    X(CRegvaneICND2169Ex, 20139, Chip, "ICND2169")                                                           \
    X(CRegvaneCNS7363Ex, 20141, Cns7363, "CNS7363")                                                          \
    X(CRegvaneICND1065SEx, 20180, Chip, "ICND1065S")                                                         \
    X(CRegvaneICND1068Ex, 20203, Chip, "ICND1068")                                                           \
    X(CRegvaneFM6373EX, 20204, Chip, "FM6373")                                                               \
    X(CRegvaneMBI5292EX, 20220, Mbi5292, "MBI5292")                                                          \
    X(CRegvaneFM6373CEX, 20221, Chip, "FM6373C")                                                             \
    X(CRegvaneICND2163SEx, 20236, Chip, "ICND2163S")                                                         \
    X(CRegvaneICND2153SEx, 20432, Chip, "ICND2153S")

// Controls of these pages.
#define RV_PARAM_TABLE_LIST 8700
#define RV_PARAM_EXPORT_BUTTON 8701
#define RV_PARAM_IMPORT_BUTTON 8702
#define RV_PARAM_OK_BUTTON 8570
#define RV_PARAM_CANCEL_BUTTON 8571
