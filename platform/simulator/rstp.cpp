// Choices of this switch: any value is stored. What is applied to the chip alone,
// the timers, root guard and BPDU filter, is not kept; the stored record of a port
// keeps the last two.

#include "platform/include/rstp.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

Indexed<RstpPort> simulator::factory_rstp_ports() {
    Indexed<RstpPort> ports;
    ports.entries.resize(5);
    for (const size_t edge_port : {0U, 1U}) {
        ports.entries[edge_port].edge = 1;
        ports.entries[edge_port].bpdu_guard = 1;
    }
    ports.entries[4].excluded = 1;
    ports.entries[4].bpdu_filter = 1;
    return ports;
}

namespace {

Rstp& rstp() {
    return state().rstp;
}

void report(stp_rstp_err_t* error, unsigned short result) {
    *error = result == 0 ? STP_RSTP_NO_ERROR : STP_RSTP_PORT_ID_WRONG;
}

} // namespace

unsigned short U_StpGetEbl(char* enabled) {
    return reads(call(__func__), [&] { *enabled = static_cast<char>(rstp().enabled); });
}

unsigned short U_StpSetEbl(char enabled) {
    return changes(call(__func__, enabled),
                   [&] { rstp().enabled = static_cast<signed char>(enabled); });
}

unsigned short U_StpGetForceVersion(uint8_t* version) {
    return reads(call(__func__), [&] { *version = rstp().version; });
}

unsigned short U_StpSetForceVersion(uint8_t version) {
    return changes(call(__func__, version), [&] { rstp().version = version; });
}

unsigned short U_StpGetPriority(uint16_t* priority) {
    return reads(call(__func__), [&] { *priority = rstp().priority; });
}

unsigned short U_StpSetPriority(uint16_t priority) {
    return changes(call(__func__, priority), [&] { rstp().priority = priority; });
}

unsigned short U_StpSetFwdAgeHello(uint8_t forward_delay, uint8_t maximum_age, uint8_t hello_time) {
    return changes(call(__func__, forward_delay, maximum_age, hello_time), [] {});
}

unsigned short U_FlshStpGetBpduGuardCfg(TstBpduGuardCfg* guard) {
    return reads(call(__func__), [&] { *guard = {rstp().bpdu_guard, rstp().bpdu_guard_interval}; });
}

unsigned short U_StpSetBpduGuardCfg(char enabled, uint32_t interval) {
    return changes(call(__func__, enabled, interval), [&] {
        rstp().bpdu_guard = static_cast<uint8_t>(enabled);
        rstp().bpdu_guard_interval = interval;
    });
}

unsigned short U_FlshStpGetPortEdge(uint8_t port, char* edge) {
    return reads(call(__func__, port), has_port(port),
                 [&] { *edge = static_cast<char>(rstp().ports.get(port).edge); });
}

unsigned short U_FlshStpSetPortEdge(uint8_t port, char edge) {
    return changes(call(__func__, port, edge), has_port(port),
                   [&] { rstp().ports.at(port).edge = static_cast<signed char>(edge); });
}

unsigned short U_FlshStpGetPortNonstp(uint8_t port, char* excluded) {
    return reads(call(__func__, port), has_port(port),
                 [&] { *excluded = static_cast<char>(rstp().ports.get(port).excluded); });
}

unsigned short U_StpSetPortNonstp(uint8_t port, char excluded) {
    return changes(call(__func__, port, excluded), has_port(port),
                   [&] { rstp().ports.at(port).excluded = static_cast<signed char>(excluded); });
}

unsigned short U_FlshStpGetBpduGuardPortState(TstBpduGuardPortState* guard) {
    const uint8_t port = guard->ucPortId;
    return reads(call(__func__, port), has_port(port), [&] {
        guard->bBpduGuardEbl = static_cast<char>(rstp().ports.get(port).bpdu_guard);
        guard->bStateIsDisabled = 0;
    });
}

unsigned short U_StpSetPortBpduGuardEbl(uint8_t port, char enabled) {
    return changes(call(__func__, port, enabled), has_port(port),
                   [&] { rstp().ports.at(port).bpdu_guard = static_cast<signed char>(enabled); });
}

unsigned short U_StpSetPortRootGuard(uint8_t port, char enabled) {
    return changes(call(__func__, port, enabled), has_port(port), [] {});
}

unsigned short U_StpSetPortBpduFilter(uint8_t port, char enabled) {
    return changes(call(__func__, port, enabled), has_port(port), [] {});
}

void stp_rstp_getFromFlash(stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error) {
    report(error, reads(call(__func__, port), has_port(port), [&] {
               *protection = {};
               protection->bpdu_filter = rstp().ports.get(port).bpdu_filter;
               protection->root_guard = rstp().ports.get(port).root_guard;
           }));
}

void stp_rstp_setToFlash(const stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error) {
    const Written record{"stp_rstp_t{bpdu_filter=" + written(protection->bpdu_filter) +
                         ", root_guard=" + written(protection->root_guard) + "}"};
    report(error, changes(call(__func__, port, record), has_port(port), [&] {
               rstp().ports.at(port).bpdu_filter = protection->bpdu_filter;
               rstp().ports.at(port).root_guard = protection->root_guard;
           }));
}
