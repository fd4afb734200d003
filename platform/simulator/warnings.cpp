#include "platform/include/warnings.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>

using namespace simulator;

namespace {

// Codes as a list, {3,0,2}.
Written written_codes(unsigned char* codes, int count) {
    std::string list;
    for (int i = 0; i < count; ++i) {
        list += (i == 0 ? "" : ",") + written(codes[i]);
    }
    return {"{" + list + "}"};
}

} // namespace

unsigned short U_FlshSysGetEmailPort(unsigned char* codes) {
    return reads("U_FlshSysGetEmailPort", [&] {
        for (size_t port = 0; port < EMAIL_PORTS; ++port) {
            codes[port] = state().warnings.ports.get(port);
        }
    });
}

unsigned short U_SysSetEmailPort(unsigned char* codes) {
    return changes(
        "U_SysSetEmailPort",
        [&] { state().warnings.ports.entries.assign(codes, codes + EMAIL_PORTS); },
        written_codes(codes, EMAIL_PORTS));
}

unsigned short U_FlshSysGetEmailPower(unsigned char* codes) {
    return reads("U_FlshSysGetEmailPower", [&] {
        const auto& powers = state().warnings.powers;
        std::copy(powers.begin(), powers.end(), codes);
    });
}

unsigned short U_SysSetEmailPower(unsigned char* codes) {
    auto& powers = state().warnings.powers;
    return changes(
        "U_SysSetEmailPower", [&] { std::copy(codes, codes + powers.size(), powers.begin()); },
        written_codes(codes, EMAIL_POWERS));
}

unsigned short U_SysGetEmailSyslog(unsigned char* level) {
    return reads("U_SysGetEmailSyslog", [&] { *level = state().warnings.syslog_level; });
}

unsigned short U_SysSetEmailSyslog(unsigned char* level) {
    return changes(
        "U_SysSetEmailSyslog", [&] { state().warnings.syslog_level = *level; }, +*level);
}
