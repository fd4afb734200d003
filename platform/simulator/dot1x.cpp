#include "platform/include/dot1x.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

Dot1x& dot1x() {
    return state().dot1x;
}

} // namespace

unsigned short U_Dot1xGetEbl(char* enabled) {
    return reads(call(__func__), [&] { *enabled = static_cast<char>(dot1x().enabled); });
}

unsigned short U_Dot1xSetEbl(char enabled) {
    return changes(call(__func__, enabled),
                   [&] { dot1x().enabled = static_cast<signed char>(enabled); });
}

unsigned short U_FlshDot1xGetRds(uint32_t* address, uint16_t* server_port,
                                 uint16_t* accounting_port) {
    return reads(call(__func__), [&] {
        *address = dot1x().server.value;
        *server_port = dot1x().server_port;
        *accounting_port = dot1x().accounting_port;
    });
}

unsigned short U_Dot1xSetRds(uint32_t address, uint16_t server_port, uint16_t accounting_port) {
    return changes(call(__func__, Ipv4{address}, server_port, accounting_port), [&] {
        dot1x().server = {address};
        dot1x().server_port = server_port;
        dot1x().accounting_port = accounting_port;
    });
}

unsigned short U_FlshDot1xGetRdsId(char* text, uint8_t size) {
    return reads(call(__func__, size), [&] { dot1x().nas_identifier.copy_to(text, size); });
}

unsigned short U_Dot1xSetRdsId(const char* text) {
    return changes(call(__func__, text), [&] { dot1x().nas_identifier.assign(text); });
}

unsigned short U_FlshDot1xGetRdsKey(char* text, uint8_t size) {
    return reads(call(__func__, size), [&] { dot1x().shared_key.copy_to(text, size); });
}

unsigned short U_Dot1xSetRdsKey(const char* text) {
    return changes(call(__func__, text), [&] { dot1x().shared_key.assign(text); });
}

unsigned short U_Dot1xGetTimeoutQuiet(uint16_t* seconds) {
    return reads(call(__func__), [&] { *seconds = dot1x().quiet_period; });
}

unsigned short U_Dot1xSetTimeoutQuiet(uint16_t seconds) {
    return changes(call(__func__, seconds), [&] { dot1x().quiet_period = seconds; });
}

unsigned short U_Dot1xGetTimeoutTx(uint16_t* seconds) {
    return reads(call(__func__), [&] { *seconds = dot1x().tx_period; });
}

unsigned short U_Dot1xSetTimeoutTx(uint16_t seconds) {
    return changes(call(__func__, seconds), [&] { dot1x().tx_period = seconds; });
}

unsigned short U_Dot1xGetTimeoutSupplicant(uint16_t* seconds) {
    return reads(call(__func__), [&] { *seconds = dot1x().supplicant_timeout; });
}

unsigned short U_Dot1xSetTimeoutSupplicant(uint16_t seconds) {
    return changes(call(__func__, seconds), [&] { dot1x().supplicant_timeout = seconds; });
}

unsigned short U_Dot1xGetTimeoutRds(uint16_t* seconds) {
    return reads(call(__func__), [&] { *seconds = dot1x().server_timeout; });
}

unsigned short U_Dot1xSetTimeoutRds(uint16_t seconds) {
    return changes(call(__func__, seconds), [&] { dot1x().server_timeout = seconds; });
}

unsigned short U_Dot1xGetTimeoutReauth(uint32_t* seconds) {
    return reads(call(__func__), [&] { *seconds = dot1x().reauth_period; });
}

unsigned short U_Dot1xSetTimeoutReauth(uint32_t seconds) {
    return changes(call(__func__, seconds), [&] { dot1x().reauth_period = seconds; });
}

unsigned short U_Dot1xGetMaxReq(uint8_t* requests) {
    return reads(call(__func__), [&] { *requests = dot1x().maximum_requests; });
}

unsigned short U_Dot1xSetMaxReq(uint8_t requests) {
    return changes(call(__func__, requests), [&] { dot1x().maximum_requests = requests; });
}

unsigned short U_Dot1xGetPortMode(uint8_t port, uint8_t* mode) {
    return reads(call(__func__, port), has_port(port),
                 [&] { *mode = dot1x().ports.get(port).mode; });
}

unsigned short U_Dot1xSetPortMode(uint8_t port, uint8_t mode) {
    return changes(call(__func__, port, mode), has_port(port),
                   [&] { dot1x().ports.at(port).mode = mode; });
}
