#include "workbench/SimulatedChip.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

namespace {

SimulatedChip* g_functionHost = nullptr;

template <int Table, std::size_t Index>
int REGVANE_CALL ChipFunction(std::intptr_t a, std::intptr_t b, std::intptr_t c) {
    return g_functionHost ? g_functionHost->CallChipFunction(Table, Index, a, b, c) : -1;
}

template <int Table, std::size_t... Index>
void FillFunctionTable(RegvaneChipFunction* entries, std::index_sequence<Index...>) {
    // A list rather than a fold expression: clang nests a fold of 257 terms too deep.
    const RegvaneChipFunction functions[] = {&ChipFunction<Table, Index>...};
    std::copy(std::begin(functions), std::end(functions), entries);
}

void RecordInto(std::vector<HostCall>& log, std::string name, std::vector<std::int64_t> args,
                const std::uint8_t* bytes, std::size_t size) {
    HostCall call{std::move(name), std::move(args), {}};
    if (bytes)
        call.bytes.assign(bytes, bytes + size);
    log.push_back(std::move(call));
}

template <std::size_t N> void CopyOut(const std::array<std::uint8_t, N>& image, std::uint8_t* out) {
    if (out)
        std::memcpy(out, image.data(), N);
}

template <std::size_t N> void CopyIn(std::array<std::uint8_t, N>& image, const std::uint8_t* in) {
    if (in)
        std::memcpy(image.data(), in, N);
}

void RowsOut(const std::vector<std::array<std::uint8_t, kParamRowBytes>>& rows, RegvaneParamRowList* list) {
    if (!list)
        return;
    list->rowCount = static_cast<std::uint32_t>(rows.size());
    const std::size_t copied = std::min(rows.size(), kParamRowListCapacity);
    for (std::size_t i = 0; i < copied; ++i)
        std::memcpy(list->rows[i], rows[i].data(), kParamRowBytes);
}

void RowsIn(std::vector<std::array<std::uint8_t, kParamRowBytes>>& rows, const RegvaneParamRowList* list) {
    if (!list)
        return;
    rows.resize(std::min<std::size_t>(list->rowCount, kParamRowListCapacity));
    for (std::size_t i = 0; i < rows.size(); ++i)
        std::memcpy(rows[i].data(), list->rows[i], kParamRowBytes);
}

} // namespace

std::string HostCall::ToString() const {
    std::string text = name;
    if (!args.empty()) {
        text += '(';
        for (std::size_t i = 0; i < args.size(); ++i) {
            if (i)
                text += ", ";
            text += std::to_string(args[i]);
        }
        text += ')';
    }
    char hex[4];
    for (const std::uint8_t b : bytes) {
        std::snprintf(hex, sizeof hex, " %02x", b);
        text += hex;
    }
    return text;
}

SimulatedChip::SimulatedChip(std::uint16_t type, std::uint16_t subType)
    : chipType(type), chipSubType(subType) {}

SimulatedChip::~SimulatedChip() {
    if (g_functionHost == this)
        g_functionHost = nullptr;
}

void SimulatedChip::OfferChipFunctions() {
    FillFunctionTable<1>(functionTable.entries, std::make_index_sequence<kFunctionTableEntries>());
    FillFunctionTable<2>(functionTable2.entries, std::make_index_sequence<kFunctionTable2Entries>());
    FillFunctionTable<3>(functionTable3.entries, std::make_index_sequence<kFunctionTable3Entries>());
    g_functionHost = this;
}

void SimulatedChip::OfferDesignerFunctions() {
    OfferChipFunctions();
    functionTable3 = {};
    failingFunction = {2, 0};
}

int SimulatedChip::CallChipFunction(int table, std::size_t index, std::intptr_t a, std::intptr_t b,
                                    std::intptr_t c) {
    static const char* const kNames[] = {"FunctionTable", "FunctionTable2", "FunctionTable3"};
    Record(kNames[std::clamp(table, 1, 3) - 1], {static_cast<std::int64_t>(index), a, b, c});
    return failingFunction == std::pair{table, index} ? 1 : functionResult;
}

void SimulatedChip::Record(std::string name, std::vector<std::int64_t> args, const std::uint8_t* bytes,
                           std::size_t size) {
    RecordInto(log, std::move(name), std::move(args), bytes, size);
}

std::vector<std::string> SimulatedChip::CallNames(bool includeReads) const {
    std::vector<std::string> names;
    for (const HostCall& call : log)
        if (includeReads || call.name.rfind("Get", 0) != 0)
            names.push_back(call.name);
    return names;
}

int SimulatedChip::CountCalls(const std::string& name) const {
    return static_cast<int>(
        std::count_if(log.begin(), log.end(), [&](const HostCall& c) { return c.name == name; }));
}

std::uint16_t SimulatedChip::GetChipType() {
    Record("GetChipType");
    return chipType;
}
std::uint16_t SimulatedChip::GetChipSubType() {
    Record("GetChipSubType");
    return chipSubType;
}
void SimulatedChip::MarkModified() {
    Record("MarkModified");
}
int SimulatedChip::UpdateHostState(int scope, int flags) {
    Record("UpdateHostState", {scope, flags});
    return updateHostStateResult;
}
std::uint16_t SimulatedChip::GetChipParam() {
    Record("GetChipParam");
    return chipParam;
}
std::uint32_t SimulatedChip::GetCount() {
    Record("GetCount");
    return count;
}
void SimulatedChip::SetChipParam(int value) {
    Record("SetChipParam", {value});
    chipParam = static_cast<std::uint16_t>(value);
}
void SimulatedChip::EnableChipParam(int enable) {
    Record("EnableChipParam", {enable});
}

void SimulatedChip::GetRegData(std::uint8_t* block) {
    CopyOut(regData, block);
    Record("GetRegData", {}, regData.data(), regData.size());
}
void SimulatedChip::SetRegData(std::uint8_t* block) {
    CopyIn(regData, block);
    Record("SetRegData", {}, regData.data(), regData.size());
}
void SimulatedChip::GetRegDataEx(std::uint8_t* record) {
    CopyOut(regDataEx, record);
    Record("GetRegDataEx", {}, regDataEx.data(), regDataEx.size());
}
void SimulatedChip::SetRegDataEx(std::uint8_t* record) {
    CopyIn(regDataEx, record);
    Record("SetRegDataEx", {}, regDataEx.data(), regDataEx.size());
}
void SimulatedChip::GetRegData2(std::uint8_t* block) {
    CopyOut(regData2, block);
    Record("GetRegData2", {}, regData2.data(), regData2.size());
}
void SimulatedChip::SetRegData2(std::uint8_t* block) {
    CopyIn(regData2, block);
    Record("SetRegData2", {}, regData2.data(), regData2.size());
}
void SimulatedChip::GetRegData3(std::uint8_t* record) {
    CopyOut(regData3, record);
    Record("GetRegData3", {}, regData3.data(), regData3.size());
}
void SimulatedChip::SetRegData3(std::uint8_t* record) {
    CopyIn(regData3, record);
    Record("SetRegData3", {}, regData3.data(), regData3.size());
}
void SimulatedChip::GetRegData4(std::uint8_t* record) {
    CopyOut(regData4, record);
    Record("GetRegData4", {}, regData4.data(), regData4.size());
}
void SimulatedChip::SetRegData4(std::uint8_t* record, int value1, int value2, int value3) {
    CopyIn(regData4, record);
    Record("SetRegData4", {value1, value2, value3}, regData4.data(), regData4.size());
}
int SimulatedChip::GetGainMax() {
    Record("GetGainMax");
    return gainMax;
}
int SimulatedChip::GetGainMin() {
    Record("GetGainMin");
    return gainMin;
}
int SimulatedChip::GetSliderValue() {
    Record("GetSliderValue");
    return sliderValue;
}
void SimulatedChip::BeginChipAccess() {
    Record("BeginChipAccess");
}
RegvaneFunctionTable2* SimulatedChip::GetFunctionTable2() {
    Record("GetFunctionTable2");
    return &functionTable2;
}
void SimulatedChip::EndChipAccess() {
    Record("EndChipAccess");
}
void SimulatedChip::NotifyHost(int code, int flag) {
    Record("NotifyHost", {code, flag});
}
void SimulatedChip::SetModified(int flag) {
    Record("SetModified", {flag});
}
RegvaneFunctionTable3* SimulatedChip::GetFunctionTable3() {
    Record("GetFunctionTable3");
    return &functionTable3;
}
void SimulatedChip::CommitChipAccess() {
    Record("CommitChipAccess");
}
RegvaneFunctionTable* SimulatedChip::GetFunctionTable() {
    Record("GetFunctionTable");
    return &functionTable;
}
void SimulatedChip::ApplyChip() {
    Record("ApplyChip");
}
const char* SimulatedChip::GetChipModelName() {
    Record("GetChipModelName");
    return modelName.c_str();
}
int SimulatedChip::GetRegisterKind() {
    Record("GetRegisterKind");
    return registerKind;
}
void SimulatedChip::GetICND3065ParamRows(RegvaneParamRowList* rows) {
    Record("GetICND3065ParamRows");
    RowsOut(icnd3065Rows, rows);
}
void SimulatedChip::SetICND3065ParamRows(RegvaneParamRowList* rows) {
    RowsIn(icnd3065Rows, rows);
    Record("SetICND3065ParamRows", {static_cast<std::int64_t>(icnd3065Rows.size())});
}
void SimulatedChip::GetICND3069ParamRows(RegvaneParamRowList* rows) {
    Record("GetICND3069ParamRows");
    RowsOut(icnd3069Rows, rows);
}
void SimulatedChip::SetICND3069ParamRows(RegvaneParamRowList* rows) {
    RowsIn(icnd3069Rows, rows);
    Record("SetICND3069ParamRows", {static_cast<std::int64_t>(icnd3069Rows.size())});
}

std::int32_t SimulatedHostCallback::QueryHostState(std::intptr_t a, std::intptr_t b, std::intptr_t c) {
    RecordInto(log, "QueryHostState", {a, b, c}, nullptr, 0);
    return hostState;
}
void SimulatedHostCallback::Reserved1() {
    RecordInto(log, "Reserved1", {}, nullptr, 0);
}
void SimulatedHostCallback::PostHostCommand(std::uint16_t command, std::intptr_t param, std::uint8_t flag,
                                            std::uint8_t byte1, std::uint8_t byte2, std::uint16_t word1,
                                            std::uint16_t word2) {
    RecordInto(log, "PostHostCommand", {command, param, flag, byte1, byte2, word1, word2}, nullptr, 0);
}
void SimulatedHostCallback::Reserved3() {
    RecordInto(log, "Reserved3", {}, nullptr, 0);
}
void SimulatedHostCallback::Reserved4() {
    RecordInto(log, "Reserved4", {}, nullptr, 0);
}
void SimulatedHostCallback::Reserved5() {
    RecordInto(log, "Reserved5", {}, nullptr, 0);
}
void SimulatedHostCallback::Reserved6() {
    RecordInto(log, "Reserved6", {}, nullptr, 0);
}
int SimulatedHostCallback::GetLanguage() {
    RecordInto(log, "GetLanguage", {}, nullptr, 0);
    return language;
}
void SimulatedHostCallback::SetHostValue(int reserved, std::int32_t value, void* dialog) {
    RecordInto(log, "SetHostValue", {reserved, value, reinterpret_cast<std::intptr_t>(dialog)}, nullptr, 0);
}
std::uint8_t SimulatedHostCallback::IsHostOptionOn() {
    RecordInto(log, "IsHostOptionOn", {}, nullptr, 0);
    return hostOptionOn;
}
