// Choices of this switch: any value is stored. Timers, root guard and BPDU
// filter as they are applied to the chip are not remembered; the two flags
// have a stored record for that.

#include "platform/include/rstp.h"

#include "platform/include/ports.h"
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

// An operation on a port, which gives a fault for one that does not exist.
template <typename Action, typename... Arguments>
unsigned short on_port(Access access, const char* name, uint8_t port, Action action,
                       const Arguments&... arguments) {
    return operation(
        access, name,
        [&] {
            if (port >= g_ucMaxPhyPort) {
                return false;
            }
            action();
            return true;
        },
        port, arguments...);
}

template <typename Action>
unsigned short reads_port(const char* name, uint8_t port, Action action) {
    return on_port(Access::read, name, port, [&] { action(rstp().ports.get(port)); });
}

template <typename Action>
unsigned short changes_port(const char* name, uint8_t port, char value, Action action) {
    return on_port(
        Access::change, name, port,
        [&] { action(rstp().ports.at(port), static_cast<signed char>(value)); }, value);
}

} // namespace

unsigned short U_StpGetEbl(char* enabled) {
    return reads("U_StpGetEbl", [&] { *enabled = static_cast<char>(rstp().enabled); });
}

unsigned short U_StpSetEbl(char enabled) {
    return changes(
        "U_StpSetEbl", [&] { rstp().enabled = static_cast<signed char>(enabled); }, enabled);
}

unsigned short U_StpGetForceVersion(uint8_t* version) {
    return reads("U_StpGetForceVersion", [&] { *version = rstp().version; });
}

unsigned short U_StpSetForceVersion(uint8_t version) {
    return changes(
        "U_StpSetForceVersion", [&] { rstp().version = version; }, version);
}

unsigned short U_StpGetPriority(uint16_t* priority) {
    return reads("U_StpGetPriority", [&] { *priority = rstp().priority; });
}

unsigned short U_StpSetPriority(uint16_t priority) {
    return changes(
        "U_StpSetPriority", [&] { rstp().priority = priority; }, priority);
}

unsigned short U_StpSetFwdAgeHello(uint8_t forward_delay, uint8_t maximum_age, uint8_t hello_time) {
    return changes(
        "U_StpSetFwdAgeHello", [] {}, forward_delay, maximum_age, hello_time);
}

unsigned short U_FlshStpGetBpduGuardCfg(TstBpduGuardCfg* guard) {
    return reads("U_FlshStpGetBpduGuardCfg", [&] {
        *guard = {rstp().bpdu_guard, rstp().bpdu_guard_interval};
    });
}

unsigned short U_StpSetBpduGuardCfg(char enabled, uint32_t interval) {
    return changes(
        "U_StpSetBpduGuardCfg",
        [&] {
            rstp().bpdu_guard = static_cast<uint8_t>(enabled);
            rstp().bpdu_guard_interval = interval;
        },
        enabled, interval);
}

unsigned short U_FlshStpGetPortEdge(uint8_t port, char* edge) {
    return reads_port("U_FlshStpGetPortEdge", port,
                      [&](const RstpPort& stored) { *edge = static_cast<char>(stored.edge); });
}

unsigned short U_FlshStpSetPortEdge(uint8_t port, char edge) {
    return changes_port("U_FlshStpSetPortEdge", port, edge,
                        [](RstpPort& stored, signed char value) { stored.edge = value; });
}

unsigned short U_FlshStpGetPortNonstp(uint8_t port, char* excluded) {
    return reads_port("U_FlshStpGetPortNonstp", port, [&](const RstpPort& stored) {
        *excluded = static_cast<char>(stored.excluded);
    });
}

unsigned short U_StpSetPortNonstp(uint8_t port, char excluded) {
    return changes_port("U_StpSetPortNonstp", port, excluded,
                        [](RstpPort& stored, signed char value) { stored.excluded = value; });
}

unsigned short U_FlshStpGetBpduGuardPortState(TstBpduGuardPortState* guard) {
    return reads_port("U_FlshStpGetBpduGuardPortState", guard->ucPortId,
                      [&](const RstpPort& stored) {
                          guard->bBpduGuardEbl = static_cast<char>(stored.bpdu_guard);
                          guard->bStateIsDisabled = 0;
                      });
}

unsigned short U_StpSetPortBpduGuardEbl(uint8_t port, char enabled) {
    return changes_port("U_StpSetPortBpduGuardEbl", port, enabled,
                        [](RstpPort& stored, signed char value) { stored.bpdu_guard = value; });
}

unsigned short U_StpSetPortRootGuard(uint8_t port, char enabled) {
    return changes_port("U_StpSetPortRootGuard", port, enabled, [](RstpPort&, signed char) {});
}

unsigned short U_StpSetPortBpduFilter(uint8_t port, char enabled) {
    return changes_port("U_StpSetPortBpduFilter", port, enabled, [](RstpPort&, signed char) {});
}

void stp_rstp_getFromFlash(stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error) {
    const auto result = reads_port("stp_rstp_getFromFlash", port, [&](const RstpPort& stored) {
        *protection = {};
        protection->bpdu_filter = stored.bpdu_filter;
        protection->root_guard = stored.root_guard;
    });
    *error = result == 0 ? STP_RSTP_NO_ERROR : STP_RSTP_PORT_ID_WRONG;
}

void stp_rstp_setToFlash(const stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error) {
    const auto store = [&] {
        rstp().ports.at(port).bpdu_filter = protection->bpdu_filter;
        rstp().ports.at(port).root_guard = protection->root_guard;
    };
    const Written record{"stp_rstp_t{bpdu_filter=" + written(protection->bpdu_filter) +
                         ", root_guard=" + written(protection->root_guard) + "}"};
    const auto result = on_port(Access::change, "stp_rstp_setToFlash", port, store, record);
    *error = result == 0 ? STP_RSTP_NO_ERROR : STP_RSTP_PORT_ID_WRONG;
}
