#include "platform/check/check.h"
#include "platform/include/acl.h"
#include "platform/include/port_security.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/rstp.h"
#include "platform/include/vlan.h"

#include <cstring>

namespace {

unsigned short set_bpdu_guard(const TstBpduGuardCfg* guard) {
    return U_StpSetBpduGuardCfg(static_cast<char>(guard->bEbl), guard->ulIntervalTime);
}

unsigned short bpdu_guard(uint8_t port, TstBpduGuardPortState* state) {
    const uint8_t before = state->ucPortId;
    state->ucPortId = port;
    const unsigned short result = U_FlshStpGetBpduGuardPortState(state);
    state->ucPortId = before; // as it was, for a call that fails
    return result;
}

unsigned short set_port_bpdu_guard(uint8_t port, const TstBpduGuardPortState* state) {
    return U_StpSetPortBpduGuardEbl(port, state->bBpduGuardEbl);
}

int protection(stp_rstp_t* flags, uint8_t port) {
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    stp_rstp_getFromFlash(flags, port, &error);
    return error;
}

// In the order of restore.
int set_protection(const stp_rstp_t* flags, uint8_t port) {
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    U_StpSetPortRootGuard(port, static_cast<char>(flags->root_guard));
    U_StpSetPortBpduFilter(port, static_cast<char>(flags->bpdu_filter));
    stp_rstp_setToFlash(flags, port, &error);
    return error;
}

void check_rstp() {
    const Range ports = {0, g_ucMaxPhyPort};
    SETTING(U_StpGetEbl, U_StpSetEbl, "flag/1=0-1");
    SETTING(U_StpGetForceVersion, U_StpSetForceVersion, "version/1=0-2");
    SETTING(U_StpGetPriority, U_StpSetPriority, "priority/2=4096-61440");
    check_setting({NAMED(U_FlshStpGetBpduGuardCfg)}, {"U_StpSetBpduGuardCfg", set_bpdu_guard},
                  "guard/8r flag@0/1=0-1 interval@4/4=30-300");
    SETTING(U_FlshStpGetPortEdge, U_FlshStpSetPortEdge, "port/1# flag/1=0-1", ports);
    SETTING(U_FlshStpGetPortNonstp, U_StpSetPortNonstp, "port/1# flag/1=0-1", ports);
    check_setting({"U_FlshStpGetBpduGuardPortState", bpdu_guard},
                  {"U_StpSetPortBpduGuardEbl", set_port_bpdu_guard},
                  "port/1# state/3r flag@1/1=0-1", ports);
    check_setting({"stp_rstp_getFromFlash", protection}, {"stp_rstp_setToFlash", set_protection},
                  "flags/102r bpdu-filter@0/1=0-1 root-guard@1/1=0-1 port/1#", ports);
}

unsigned short switch_ports(TstFlshPortSecMac* security) {
    unsigned short result = 0;
    for (uint8_t port = 0; port < g_ucMaxPhyPort && port < 32; ++port) {
        const port_mac_t& entry = security->port_max_mac[port];
        result |= U_PortSecSwitchMac(port, entry.Action, security->gblebl, entry.MaxMac);
    }
    return result;
}

void check_port_security() {
    const int ports = g_ucMaxPhyPort < 32 ? g_ucMaxPhyPort : 32;
    const Phrase parts("security/194r action@1/1*%d+6=0-1 limit@4/2*%d+6=1-128 flag@192/1=0-1",
                       ports, ports);
    SETTING(U_FlshPortSecMacGet, U_FlshPortSecMacSet, parts.chars);
    check_setting({NAMED(U_FlshPortSecMacGet)}, {"U_PortSecSwitchMac", switch_ports}, parts.chars);
}

unsigned short insert_rule(uint32_t, TstFlshAcl* rule) {
    return U_AclInsRule(rule->usIndex, rule);
}

// A rule cannot be deleted, so none is added.
void check_rules() {
    for (uint32_t slot = 0; slot < 33; ++slot) {
        Roomy<TstFlshAcl> rule;
        if (U_FlshGetAcl(slot, &rule.value) == 0 && rule.value.usIndex != 0) {
            check_setting(
                {NAMED(U_FlshGetAcl)}, {"U_AclInsRule", insert_rule},
                "slot/4# rule/72r name@2/32t conditions@36/4=1-65 mac@40/1*6=2-254 "
                "mac-mask@46/1*6=255-254 ip@52/4a ip-mask@56/4a=1 ports@60/4=1-3 policy@68/4=1-2",
                {slot});
        }
    }
}

bool has_vlan(unsigned id) {
    TstLPortMask masks[2] = {};
    uint16_t protocol = 0;
    return U_VlanGetSttcEntry(static_cast<uint16_t>(id), &masks[0], &masks[1], &protocol) == 0;
}

// Roles and lists, and which of the VLANs that a write adds are there.
void vlans(vlan_data_t* data, uint8_t* first, uint8_t* second, uint8_t* third) {
    get_vlan_data(data);
    *first = has_vlan(4001) ? 1 : 0;
    *second = has_vlan(4003) ? 1 : 0;
    *third = has_vlan(4005) ? 1 : 0;
}

// The buffers of a check, and of the set after it.
struct Work {
    char message[100];
    TstFlshVlanEntry table[512];
    int32_t removals[512];
} work;

int check_vlans(vlan_data_t* data) {
    std::memset(&work, 0, sizeof work);
    return check_vlan_data(data, work.message, work.table, work.removals);
}

// A getter of the buffers, for the guard bytes around them.
void check_buffers(vlan_data_t* data, char* message, TstFlshVlanEntry* table, int32_t* removals) {
    std::memset(message, 0, sizeof work.message);
    std::memset(table, 0, sizeof work.table);
    std::memset(removals, 0, sizeof work.removals);
    get_vlan_data(data);
    check_vlan_data(data, message, table, removals);
}

int set_vlans(vlan_data_t* data) {
    const int verdict = check_vlans(data);
    set_vlan_data(data, work.message, work.table, work.removals, 1);
    return verdict;
}

void check_verdict(const char* what, int expected, int role, const char* more) {
    static vlan_data_t data;
    std::memset(&data, 0, sizeof data);
    get_vlan_data(&data);
    char* list = data.vlan_str[0];
    data.portrole[0] = role < 0 ? data.portrole[0] : role;
    std::strncat(list, more + (list[0] == '\0' && more[0] == ',' ? 1 : 0),
                 1023 - strnlen(list, 1023));
    const int verdict = check_vlans(&data);
    expect(verdict == expected, "check_vlan_data", what,
           {"expected %d, seen %d", expected, verdict});
}

void check_vlan_header() {
    GETTER(get_vlan_data, "data/8256r role@0/4*8 list@64/1024*8t");
    const unsigned management = value_of(U_VlanGetMgnVlanId);
    unsigned other = 1;
    while (other < 4094 && (other == management || !has_vlan(other))) {
        ++other;
    }
    GETTER(U_VlanGetSttcEntry, "id/2# members/8 tagged/8 protocol/2", {management, 1});
    check_getter({"check_vlan_data", check_buffers},
                 "data/8256r message/100r table/28672r removals/2048r");
    check_verdict("accepts the device's own", 0, -1, "");
    check_verdict("finds a role that is neither", VLAN_DATA_ROLE, 2, "");
    check_verdict("finds an access port in two VLANs", VLAN_DATA_ACCESS_LIST, 0, ",4093,4094");
    check_verdict("finds what is not a number", VLAN_DATA_ID_VALUE, 1, ",x");
    check_verdict("finds a number out of range", VLAN_DATA_ID_RANGE, 1, ",4095");
    const int port = g_ucMaxPhyPort < 1 ? 0 : g_ucMaxPhyPort < 8 ? g_ucMaxPhyPort - 1 : 7;
    const Phrase parts(
        "data/8256r role@%d/4=1-1 list@%d/1024v first/1=1-1 second/1=1-0 third/1=1-1", 4 * port,
        64 + 1024 * port);
    check_setting({"get_vlan_data", vlans}, {"set_vlan_data", set_vlans}, parts.chars);
    SETTING(U_VlanGetMgnVlanId, U_FlshVlanSetMgnVlanId,
            Phrase("id/2=%u-%u", management, has_vlan(other) ? other : management).chars);
    SETTING(U_FlshVlanGetPortBasedEntry, U_FlshVlanSetPortBasedEntry,
            "table/64r low@0/4*8+8=256-0 high@4/4*8+8=0-0");
}

} // namespace

void check_switching() {
    check_rstp();
    check_vlan_header();
    check_rules();
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode,
            "mode/40r sch@0/2=0-0 weight@4/4*8=1-8 classify@36/4=1-3");
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode, "mode/40r sch@0/2=0-7");
    SETTING(U_QosGetcosqueuemapping, U_QosSetcosqueuemapping, "queues/8r queue@0/1*8=1-6");
    SETTING(U_QosGetdscpmapping, U_QosSetdscpmapping, "values/64r value@0/1*64=1-6");
    check_port_security();
}
