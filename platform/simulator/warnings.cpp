#include "platform/include/warnings.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>

using namespace simulator;

unsigned short U_FlshSysGetEmailPort(unsigned char* codes) {
    return reads(call(__func__), [&] {
        for (size_t port = 0; port < EMAIL_PORTS; ++port) {
            codes[port] = state().warnings.ports.get(port);
        }
    });
}

unsigned short U_SysSetEmailPort(unsigned char* codes) {
    const std::vector<uint8_t> ports(codes, codes + EMAIL_PORTS);
    return changes(call(__func__, written_list(ports)),
                   [&] { state().warnings.ports.entries = ports; });
}

unsigned short U_FlshSysGetEmailPower(unsigned char* codes) {
    return reads(call(__func__), [&] {
        const auto& powers = state().warnings.powers;
        std::copy(powers.begin(), powers.end(), codes);
    });
}

unsigned short U_SysSetEmailPower(unsigned char* codes) {
    std::array<uint8_t, EMAIL_POWERS> powers = {};
    std::copy(codes, codes + EMAIL_POWERS, powers.begin());
    return changes(call(__func__, written_list(powers)), [&] { state().warnings.powers = powers; });
}

unsigned short U_SysGetEmailSyslog(unsigned char* level) {
    return reads(call(__func__), [&] { *level = state().warnings.syslog_level; });
}

unsigned short U_SysSetEmailSyslog(unsigned char* level) {
    return changes(call(__func__, +*level), [&] { state().warnings.syslog_level = *level; });
}
