#include "platform/check/check.h"
#include "platform/include/acl.h"
#include "platform/include/port_security.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/rstp.h"
#include "platform/include/vlan.h"

#include <cstdio>
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
    check_setting(OPERATION(U_FlshStpGetBpduGuardCfg),
                  {"U_StpSetBpduGuardCfg", call<set_bpdu_guard>},
                  "guard/8r flag@0/1=0-1 interval@4/4=30-300");
    SETTING(U_FlshStpGetPortEdge, U_FlshStpSetPortEdge, "port/1x flag/1=0-1", ports);
    SETTING(U_FlshStpGetPortNonstp, U_StpSetPortNonstp, "port/1x flag/1=0-1", ports);
    check_setting({"U_FlshStpGetBpduGuardPortState", call<bpdu_guard>},
                  {"U_StpSetPortBpduGuardEbl", call<set_port_bpdu_guard>},
                  "port/1x state/3r flag@1/1=0-1", ports);
    check_setting({"stp_rstp_getFromFlash", call<protection>},
                  {"stp_rstp_setToFlash", call<set_protection>},
                  "flags/102r bpdu-filter@0/1=0-1 root-guard@1/1=0-1 port/1x", ports);
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
    const Phrase parts("security/194r action@1/1*%d+6=0-1 maximum@4/2*%d+6=1-128 flag@192/1=0-1",
                       ports, ports);
    SETTING(U_FlshPortSecMacGet, U_FlshPortSecMacSet, parts.chars);
    check_setting(OPERATION(U_FlshPortSecMacGet), {"U_PortSecSwitchMac", call<switch_ports>},
                  parts.chars);
}

unsigned short insert_rule(uint32_t, TstFlshAcl* rule) {
    return U_AclInsRule(rule->usIndex, rule);
}

// A rule cannot be deleted, so none is added.
void check_rules() {
    for (uint32_t slot = 0; slot < 33; ++slot) {
        TstFlshAcl rule = {};
        if (U_FlshGetAcl(slot, &rule) == 0 && rule.usIndex != 0) {
            check_setting(
                OPERATION(U_FlshGetAcl), {"U_AclInsRule", call<insert_rule>},
                "slot/4x rule/72r name@2/32t conditions@36/4=1-65 mac@40/6b=2-254 "
                "mac-mask@46/6b=255-254 ip@52/4a ip-mask@56/4a=1 ports@60/4=1-3 policy@68/4=1-2",
                {slot});
        }
    }
}

// The roles and lists of the device, and the buffers of a check and the set after it.
struct Roles {
    vlan_data_t data;
    char message[100];
    TstFlshVlanEntry table[512];
    int32_t removals[512];
};

Roles& device_roles() {
    static Roles roles;
    std::memset(&roles, 0, sizeof roles);
    get_vlan_data(&roles.data);
    return roles;
}

int check(Roles& roles) {
    return check_vlan_data(&roles.data, roles.message, roles.table, roles.removals);
}

void check_verdict(const char* what, int expected, int role, const char* more) {
    Roles& roles = device_roles();
    char* list = roles.data.vlan_str[0];
    roles.data.portrole[0] = role;
    std::strncat(list, more + (list[0] == '\0' && more[0] == ',' ? 1 : 0),
                 1023 - strnlen(list, 1023));
    const int verdict = check(roles);
    expect(verdict == expected, "check_vlan_data", what, "expected %d, seen %d", expected, verdict);
}

bool has_vlan(unsigned id) {
    TstLPortMask masks[2] = {};
    uint16_t protocol = 0;
    return U_VlanGetSttcEntry(static_cast<uint16_t>(id), &masks[0], &masks[1], &protocol) == 0;
}

// Sets the list of the last port, a trunk, and reads it back. VLANs from first
// on, every other one, are then there as far as they are listed.
void try_list(const char* what, const char* list, unsigned first, unsigned missing, int role) {
    Roles& roles = device_roles();
    roles.data.portrole[7] = role;
    std::memset(roles.data.vlan_str[7], 0, sizeof roles.data.vlan_str[7]);
    std::memcpy(roles.data.vlan_str[7], list, strnlen(list, 1023));
    const int verdict = check(roles);
    set_vlan_data(&roles.data, roles.message, roles.table, roles.removals, 1);
    const vlan_data_t& seen = device_roles().data;
    expect(seen.portrole[7] == role && std::strncmp(seen.vlan_str[7], list, 1024) == 0,
           "set_vlan_data", what, "expected role %d, list %.80s, seen %d, %.80s, verdict %d", role,
           list, seen.portrole[7], seen.vlan_str[7], verdict);
    for (unsigned id = first; id < first + 6; id += 2) {
        expect(has_vlan(id) == (id != missing && missing != 0), "U_VlanGetSttcEntry", what,
               "expected VLAN %u to be %s, seen the opposite", id,
               id != missing ? "there" : "gone");
    }
}

void write_vlans() {
    static Roles before;
    before = device_roles();
    const char* own = before.data.vlan_str[7];
    unsigned first = 4094;
    while (first > 1 && !has_vlan(first)) {
        --first;
    }
    if (++first > 4088 || strnlen(own, 1000) > 900) {
        return report("set_vlan_data", "lists", {"SKIP there is no room for more VLANs"});
    }
    static char list[1100];
    char* end = list + std::sprintf(list, "%s%s", own, own[0] == '\0' ? "" : ",");
    std::sprintf(end, "%u,%u,%u", first, first + 2, first + 4);
    try_list("three VLANs more", list, first, 1, VLAN_ROLE_TRUNK);
    std::sprintf(end, "%u,%u", first, first + 4);
    try_list("one from the middle less", list, first, first + 2, VLAN_ROLE_TRUNK);
    const auto management = value_of(U_VlanGetMgnVlanId);
    for (const unsigned id : {first, unsigned{management}}) {
        U_FlshVlanSetMgnVlanId(static_cast<uint16_t>(id));
        expect(value_of(U_VlanGetMgnVlanId) == id, "U_FlshVlanSetMgnVlanId", "is read back",
               "expected %u, seen %u", id, value_of(U_VlanGetMgnVlanId));
    }
    for (unsigned id = first; id <= 4094 && end - list < 1018; id += 2) {
        end += std::sprintf(end, id == first ? "%u" : ",%u", id);
    }
    try_list("a list that fills its field", list, first, 1, VLAN_ROLE_TRUNK);
    try_list("the old list is put back", own, first, 0, before.data.portrole[7]);
}

void check_vlans() {
    GETTER(get_vlan_data, "data/8256r role@0/4*8 list@64/1024*8t");
    GETTER(U_VlanGetMgnVlanId, "id/2");
    const unsigned management = value_of(U_VlanGetMgnVlanId);
    GETTER(U_VlanGetSttcEntry, "id/2x members/8b tagged/8b protocol/2", {management, 1});
    check_verdict("accepts the device's own", 0, device_roles().data.portrole[0], "");
    check_verdict("finds a role that is neither", VLAN_DATA_ROLE, 2, "");
    check_verdict("finds an access port in two VLANs", VLAN_DATA_ACCESS_LIST, 0, ",4093,4094");
    check_verdict("finds what is not a number", VLAN_DATA_ID_VALUE, 1, ",x");
    check_verdict("finds a number out of range", VLAN_DATA_ID_RANGE, 1, ",4095");
    if (writing && stopped == 0) {
        write_vlans();
    }
    SETTING(U_FlshVlanGetPortBasedEntry, U_FlshVlanSetPortBasedEntry,
            "table/64r low@0/4*8+8=256-0 high@4/4*8+8=0-0");
}

} // namespace

void check_switching() {
    check_rstp();
    check_vlans();
    check_rules();
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode,
            "mode/40r sch@0/2=0-0 weight@4/4*8=1-8 classify@36/4=1-3");
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode, "mode/40r sch@0/2=0-7");
    SETTING(U_QosGetcosqueuemapping, U_QosSetcosqueuemapping, "queues/8b=1-6");
    SETTING(U_QosGetdscpmapping, U_QosSetdscpmapping, "values/64b=1-6");
    check_port_security();
}
