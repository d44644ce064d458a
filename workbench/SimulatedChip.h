// A simulated host: one chip's register images behind IRegvane, and the host's module-wide
// callback. Every call a page makes is logged in order, with the bytes it wrote, so the workbench
// can show it and tests can check it.
#pragma once

#include "host/IRegvane.h"
#include "host/IRegvaneCallback.h"
#include "host/RegvanePlaceholderSlots.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct HostCall {
    std::string name;
    std::vector<std::int64_t> args;
    std::vector<std::uint8_t> bytes; // what a Set... call handed over, what a Get... call returned

    // "SetRegData 00 01 ...", "UpdateHostState(1, 1)".
    std::string ToString() const;
};

class SimulatedChip : public IRegvane {
public:
    explicit SimulatedChip(std::uint16_t chipType = 47, std::uint16_t chipSubType = 0);
    SimulatedChip(const SimulatedChip&) = default;
    SimulatedChip& operator=(const SimulatedChip&) = default;
    ~SimulatedChip();

    // Host-side state, freely set by the workbench and tests.
    std::uint16_t chipType;
    std::uint16_t chipSubType;
    std::array<std::uint8_t, kRegDataBytes> regData{};
    std::array<std::uint8_t, kRegDataExBytes> regDataEx{};
    std::array<std::uint8_t, kRegData2Bytes> regData2{};
    std::array<std::uint8_t, kRegData3Bytes> regData3{};
    std::array<std::uint8_t, kRegData4Bytes> regData4{};
    int gainMin = 0;
    int gainMax = 63;
    int sliderValue = 0;
    std::uint16_t chipParam = 0;
    std::uint32_t count = 1;
    int registerKind = 4;
    int updateHostStateResult = 0;
    std::string modelName = "MBI5153";
    std::vector<std::array<std::uint8_t, kParamRowBytes>> icnd3065Rows;
    std::vector<std::array<std::uint8_t, kParamRowBytes>> icnd3069Rows;
    RegvaneFunctionTable functionTable{};
    RegvaneFunctionTable2 functionTable2{};
    RegvaneFunctionTable3 functionTable3{};
    // What every offered chip function returns: 0 is success, anything else a failure.
    int functionResult = 0;

    // Fills every entry of the three function tables, so pages find each chip function offered;
    // each call is logged as "FunctionTable(index, a, b, c)" (or FunctionTable2/3) and returns
    // functionResult. The entries are plain function pointers with no room for the chip, so the
    // calls go to the chip that offered its functions last.
    void OfferChipFunctions();
    // The one entry that fails whatever functionResult says: table (1, 2 or 3; 0 for none) and index.
    std::pair<int, std::size_t> failingFunction{0, 0};
    // What the designer's host offers, so a description's function buttons can be tried: every entry of
    // tables 1 and 2, none of table 3, and entry 0 of table 2 fails.
    void OfferDesignerFunctions();
    // The host side of one function-table entry; table is 1, 2 or 3.
    int CallChipFunction(int table, std::size_t index, std::intptr_t a, std::intptr_t b, std::intptr_t c);

    std::vector<HostCall> log;
    void ClearLog() { log.clear(); }
    // Names of the logged calls in order; without reads, only what changes the chip or the host.
    std::vector<std::string> CallNames(bool includeReads = true) const;
    // How many calls of one name the log holds.
    int CountCalls(const std::string& name) const;

    // IRegvane
    std::uint16_t REGVANE_CALL GetChipType() override;
    std::uint16_t REGVANE_CALL GetChipSubType() override;
    void REGVANE_CALL MarkModified() override;
    int REGVANE_CALL UpdateHostState(int scope, int flags) override;
    std::uint16_t REGVANE_CALL GetChipParam() override;
    std::uint32_t REGVANE_CALL GetCount() override;
    void REGVANE_CALL SetChipParam(int value) override;
    void REGVANE_CALL EnableChipParam(int enable) override;
    void REGVANE_CALL GetRegData(std::uint8_t* block) override;
    void REGVANE_CALL SetRegData(std::uint8_t* block) override;
    void REGVANE_CALL GetRegDataEx(std::uint8_t* record) override;
    void REGVANE_CALL SetRegDataEx(std::uint8_t* record) override;
    void REGVANE_CALL GetRegData2(std::uint8_t* block) override;
    void REGVANE_CALL SetRegData2(std::uint8_t* block) override;
    void REGVANE_CALL GetRegData3(std::uint8_t* record) override;
    void REGVANE_CALL SetRegData3(std::uint8_t* record) override;
    void REGVANE_CALL GetRegData4(std::uint8_t* record) override;
    void REGVANE_CALL SetRegData4(std::uint8_t* record, int value1, int value2, int value3) override;
    int REGVANE_CALL GetGainMax() override;
    int REGVANE_CALL GetGainMin() override;
    int REGVANE_CALL GetSliderValue() override;
    void REGVANE_CALL BeginChipAccess() override;
    RegvaneFunctionTable2* REGVANE_CALL GetFunctionTable2() override;
    void REGVANE_CALL EndChipAccess() override;
    void REGVANE_CALL NotifyHost(int code, int flag) override;
    void REGVANE_CALL SetModified(int flag) override;
    RegvaneFunctionTable3* REGVANE_CALL GetFunctionTable3() override;
    void REGVANE_CALL CommitChipAccess() override;
    RegvaneFunctionTable* REGVANE_CALL GetFunctionTable() override;
    void REGVANE_CALL ApplyChip() override;
    const char* REGVANE_CALL GetChipModelName() override;
    int REGVANE_CALL GetRegisterKind() override;
    void REGVANE_CALL GetICND3065ParamRows(RegvaneParamRowList* rows) override;
    void REGVANE_CALL SetICND3065ParamRows(RegvaneParamRowList* rows) override;
    void REGVANE_CALL GetICND3069ParamRows(RegvaneParamRowList* rows) override;
    void REGVANE_CALL SetICND3069ParamRows(RegvaneParamRowList* rows) override;

#define REGVANE_SIMULATED_PLACEHOLDER(n)                                                                     \
    void REGVANE_CALL Slot##n() override {                                                                   \
        Record("Slot" #n);                                                                                   \
    }
    REGVANE_PLACEHOLDER_SLOTS(REGVANE_SIMULATED_PLACEHOLDER)
#undef REGVANE_SIMULATED_PLACEHOLDER

private:
    void Record(std::string name, std::vector<std::int64_t> args = {}, const std::uint8_t* bytes = nullptr,
                std::size_t size = 0);
};

class SimulatedHostCallback : public IRegvaneCallback {
public:
    int language = 3;
    std::uint8_t hostOptionOn = 0;
    std::int32_t hostState = 0;
    std::vector<HostCall> log;

    std::int32_t REGVANE_CALL QueryHostState(std::intptr_t a, std::intptr_t b, std::intptr_t c) override;
    void REGVANE_CALL Reserved1() override;
    void REGVANE_CALL PostHostCommand(std::uint16_t command, std::intptr_t param, std::uint8_t flag,
                                      std::uint8_t byte1, std::uint8_t byte2, std::uint16_t word1,
                                      std::uint16_t word2) override;
    void REGVANE_CALL Reserved3() override;
    void REGVANE_CALL Reserved4() override;
    void REGVANE_CALL Reserved5() override;
    void REGVANE_CALL Reserved6() override;
    int REGVANE_CALL GetLanguage() override;
    void REGVANE_CALL SetHostValue(int reserved, std::int32_t value, void* dialog) override;
    std::uint8_t REGVANE_CALL IsHostOptionOn() override;
};
