// The module's own IRegvaneCallback: forwards each operation to an inner callback with exactly the
// arguments it was given, so the module can stand between the host and anything it hands the
// callback to.
#pragma once

#include "host/IRegvaneCallback.h"

class CRegvaneCallback : public IRegvaneCallback {
public:
    explicit CRegvaneCallback(IRegvaneCallback* inner) : m_inner(inner) {}

    std::int32_t REGVANE_CALL QueryHostState(std::intptr_t a, std::intptr_t b, std::intptr_t c) override {
        return m_inner->QueryHostState(a, b, c);
    }
    void REGVANE_CALL Reserved1() override { m_inner->Reserved1(); }
    void REGVANE_CALL PostHostCommand(std::uint16_t command, std::intptr_t param, std::uint8_t flag,
                                      std::uint8_t byte1, std::uint8_t byte2, std::uint16_t word1,
                                      std::uint16_t word2) override {
        m_inner->PostHostCommand(command, param, flag, byte1, byte2, word1, word2);
    }
    void REGVANE_CALL Reserved3() override { m_inner->Reserved3(); }
    void REGVANE_CALL Reserved4() override { m_inner->Reserved4(); }
    void REGVANE_CALL Reserved5() override { m_inner->Reserved5(); }
    void REGVANE_CALL Reserved6() override { m_inner->Reserved6(); }
    int REGVANE_CALL GetLanguage() override { return m_inner->GetLanguage(); }
    void REGVANE_CALL SetHostValue(int reserved, std::int32_t value, void* dialog) override {
        m_inner->SetHostValue(reserved, value, dialog);
    }
    std::uint8_t REGVANE_CALL IsHostOptionOn() override { return m_inner->IsHostOptionOn(); }

private:
    IRegvaneCallback* m_inner;
};
