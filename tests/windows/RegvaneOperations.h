/* The named operations of IRegvane and IRegvaneCallback (placeholders aside: see
 * RegvanePlaceholderSlots.h), for tests in C and C++ that go through every one of them. */
#ifndef REGVANE_OPERATIONS_H
#define REGVANE_OPERATIONS_H

// clang-format off
#define REGVANE_CHIP_OPERATIONS(X) \
    X(GetChipType) X(GetChipSubType) X(MarkModified) X(UpdateHostState) X(GetChipParam) X(GetCount) \
    X(SetChipParam) X(EnableChipParam) X(GetRegData) X(SetRegData) X(GetRegDataEx) X(SetRegDataEx) \
    X(GetRegData2) X(SetRegData2) X(GetRegData3) X(SetRegData3) X(GetRegData4) X(SetRegData4) \
    X(GetGainMax) X(GetGainMin) X(GetSliderValue) X(BeginChipAccess) X(GetFunctionTable2) \
    X(EndChipAccess) X(NotifyHost) X(SetModified) X(GetFunctionTable3) X(CommitChipAccess) \
    X(GetFunctionTable) X(ApplyChip) X(GetChipModelName) X(GetRegisterKind) X(GetICND3065ParamRows) \
    X(SetICND3065ParamRows) X(GetICND3069ParamRows) X(SetICND3069ParamRows)
#define REGVANE_CALLBACK_OPERATIONS(X) \
    X(QueryHostState) X(Reserved1) X(PostHostCommand) X(Reserved3) X(Reserved4) X(Reserved5) \
    X(Reserved6) X(GetLanguage) X(SetHostValue) X(IsHostOptionOn)
// clang-format on

#endif
