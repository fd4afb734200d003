#include "platform/include/dot1x.h"

#include "platform/include/ports.h"
#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

Dot1x& dot1x() {
    return state().dot1x;
}

} // namespace

unsigned short U_Dot1xGetEbl(char* enabled) {
    return reads("U_Dot1xGetEbl", [&] { *enabled = static_cast<char>(dot1x().enabled); });
}

unsigned short U_Dot1xSetEbl(char enabled) {
    return changes(
        "U_Dot1xSetEbl", [&] { dot1x().enabled = static_cast<signed char>(enabled); }, enabled);
}

unsigned short U_FlshDot1xGetRds(uint32_t* address, uint16_t* server_port,
                                 uint16_t* accounting_port) {
    return reads("U_FlshDot1xGetRds", [&] {
        *address = dot1x().server.value;
        *server_port = dot1x().server_port;
        *accounting_port = dot1x().accounting_port;
    });
}

unsigned short U_Dot1xSetRds(uint32_t address, uint16_t server_port, uint16_t accounting_port) {
    return changes(
        "U_Dot1xSetRds",
        [&] {
            dot1x().server = {address};
            dot1x().server_port = server_port;
            dot1x().accounting_port = accounting_port;
        },
        Ipv4{address}, server_port, accounting_port);
}

unsigned short U_FlshDot1xGetRdsId(char* text, uint8_t size) {
    return reads(
        "U_FlshDot1xGetRdsId", [&] { dot1x().nas_identifier.copy_to(text, size); }, size);
}

unsigned short U_Dot1xSetRdsId(const char* text) {
    return changes(
        "U_Dot1xSetRdsId", [&] { dot1x().nas_identifier.assign(text); }, text);
}

unsigned short U_FlshDot1xGetRdsKey(char* text, uint8_t size) {
    return reads(
        "U_FlshDot1xGetRdsKey", [&] { dot1x().shared_key.copy_to(text, size); }, size);
}

unsigned short U_Dot1xSetRdsKey(const char* text) {
    return changes(
        "U_Dot1xSetRdsKey", [&] { dot1x().shared_key.assign(text); }, text);
}

unsigned short U_Dot1xGetTimeoutQuiet(uint16_t* seconds) {
    return reads("U_Dot1xGetTimeoutQuiet", [&] { *seconds = dot1x().quiet_period; });
}

unsigned short U_Dot1xSetTimeoutQuiet(uint16_t seconds) {
    return changes(
        "U_Dot1xSetTimeoutQuiet", [&] { dot1x().quiet_period = seconds; }, seconds);
}

unsigned short U_Dot1xGetTimeoutTx(uint16_t* seconds) {
    return reads("U_Dot1xGetTimeoutTx", [&] { *seconds = dot1x().tx_period; });
}

unsigned short U_Dot1xSetTimeoutTx(uint16_t seconds) {
    return changes(
        "U_Dot1xSetTimeoutTx", [&] { dot1x().tx_period = seconds; }, seconds);
}

unsigned short U_Dot1xGetTimeoutSupplicant(uint16_t* seconds) {
    return reads("U_Dot1xGetTimeoutSupplicant", [&] { *seconds = dot1x().supplicant_timeout; });
}

unsigned short U_Dot1xSetTimeoutSupplicant(uint16_t seconds) {
    return changes(
        "U_Dot1xSetTimeoutSupplicant", [&] { dot1x().supplicant_timeout = seconds; }, seconds);
}

unsigned short U_Dot1xGetTimeoutRds(uint16_t* seconds) {
    return reads("U_Dot1xGetTimeoutRds", [&] { *seconds = dot1x().server_timeout; });
}

unsigned short U_Dot1xSetTimeoutRds(uint16_t seconds) {
    return changes(
        "U_Dot1xSetTimeoutRds", [&] { dot1x().server_timeout = seconds; }, seconds);
}

unsigned short U_Dot1xGetTimeoutReauth(uint32_t* seconds) {
    return reads("U_Dot1xGetTimeoutReauth", [&] { *seconds = dot1x().reauth_period; });
}

unsigned short U_Dot1xSetTimeoutReauth(uint32_t seconds) {
    return changes(
        "U_Dot1xSetTimeoutReauth", [&] { dot1x().reauth_period = seconds; }, seconds);
}

unsigned short U_Dot1xGetMaxReq(uint8_t* requests) {
    return reads("U_Dot1xGetMaxReq", [&] { *requests = dot1x().maximum_requests; });
}

unsigned short U_Dot1xSetMaxReq(uint8_t requests) {
    return changes(
        "U_Dot1xSetMaxReq", [&] { dot1x().maximum_requests = requests; }, requests);
}

unsigned short U_Dot1xGetPortMode(uint8_t port, uint8_t* mode) {
    return reads(
        "U_Dot1xGetPortMode",
        [&] {
            if (port >= g_ucMaxPhyPort) {
                return false;
            }
            *mode = dot1x().ports.get(port).mode;
            return true;
        },
        port);
}

unsigned short U_Dot1xSetPortMode(uint8_t port, uint8_t mode) {
    return changes(
        "U_Dot1xSetPortMode",
        [&] {
            if (port >= g_ucMaxPhyPort) {
                return false;
            }
            dot1x().ports.at(port).mode = mode;
            return true;
        },
        port, mode);
}
