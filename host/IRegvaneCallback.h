// The host's module-wide callback, handed to InitRegvane. Same binary rules as IRegvane: ten slots
// in this order, argument widths exactly as declared.
#pragma once

#include "RegvaneTypes.h"

class IRegvaneCallback {
public:
    /* 0 */ virtual std::int32_t REGVANE_CALL QueryHostState(std::intptr_t arg1, std::intptr_t arg2,
                                                             std::intptr_t arg3) = 0;
    /* 1 */ virtual void REGVANE_CALL Reserved1() = 0;
    /* 2 */ virtual void REGVANE_CALL PostHostCommand(std::uint16_t command, std::intptr_t param,
                                                      std::uint8_t flag, std::uint8_t byte1,
                                                      std::uint8_t byte2, std::uint16_t word1,
                                                      std::uint16_t word2) = 0;
    /* 3 */ virtual void REGVANE_CALL Reserved3() = 0;
    /* 4 */ virtual void REGVANE_CALL Reserved4() = 0;
    /* 5 */ virtual void REGVANE_CALL Reserved5() = 0;
    /* 6 */ virtual void REGVANE_CALL Reserved6() = 0;
    /* 7 */ virtual int REGVANE_CALL GetLanguage() = 0;
    /* 8 */ virtual void REGVANE_CALL SetHostValue(int reserved, std::int32_t value, void* dialog) = 0;
    /* 9 */ virtual std::uint8_t REGVANE_CALL IsHostOptionOn() = 0;
};
