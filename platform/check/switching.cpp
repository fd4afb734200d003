#include "platform/check/check.h"
#include "platform/include/acl.h"
#include "platform/include/converters.h"
#include "platform/include/port_security.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/rstp.h"
#include "platform/include/vlan.h"

#include <algorithm>

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

int protection(uint8_t port, stp_rstp_t* flags) {
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    stp_rstp_getFromFlash(flags, port, &error);
    return error;
}

// In the order of restore.
int set_protection(uint8_t port, const stp_rstp_t* flags) {
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    U_StpSetPortRootGuard(port, static_cast<char>(flags->root_guard));
    U_StpSetPortBpduFilter(port, static_cast<char>(flags->bpdu_filter));
    stp_rstp_setToFlash(flags, port, &error);
    return error;
}

void check_rstp() {
    static const TstBpduGuardCfg guard = {1, ~0U};
    static const TstBpduGuardPortState port_guard = {0, 1, 0};
    const Argument port = index_up_to(g_ucMaxPhyPort);
    const uint32_t interval = value_of(U_FlshStpGetBpduGuardCfg).ulIntervalTime;
    SETTING(U_StpGetEbl, U_StpSetEbl, {0, 1});
    SETTING(U_StpGetForceVersion, U_StpSetForceVersion, {2, 2});
    SETTING(U_StpGetPriority, U_StpSetPriority, {4096, 61440});
    check_setting({NAMED(U_FlshStpGetBpduGuardCfg)}, {"U_StpSetBpduGuardCfg", set_bpdu_guard},
                  {record(guard, {0, interval}, {1, interval})});
    SETTING(U_FlshStpGetPortEdge, U_FlshStpSetPortEdge, port, {0, 1});
    SETTING(U_FlshStpGetPortNonstp, U_StpSetPortNonstp, port, {0, 1});
    check_setting({"U_FlshStpGetBpduGuardPortState", bpdu_guard},
                  {"U_StpSetPortBpduGuardEbl", set_port_bpdu_guard},
                  {port, record(port_guard, {0, 0, 0}, {0, 1, 0})});
    check_setting({"stp_rstp_getFromFlash", protection}, {"stp_rstp_setToFlash", set_protection},
                  {port, bytes(sizeof(stp_rstp_t), 2, 0, 1)});
}

// In the order of restore.
unsigned short set_port_security(TstFlshPortSecMac* security) {
    TstFlshPortSecMac cleared = {};
    cleared.gblebl = security->gblebl;
    const auto result = static_cast<unsigned short>(U_FlshPortSecMacSet(&cleared));
    for (uint8_t port = 0; port < g_ucMaxPhyPort && port < 32; ++port) {
        const port_mac_t& entry = security->port_max_mac[port];
        U_PortSecSwitchMac(port, entry.Action, security->gblebl, entry.MaxMac);
    }
    return result;
}

void check_port_security() {
    static TstFlshPortSecMac counts = {}, off = {}, on = {};
    for (uint8_t port = 0; port < g_ucMaxPhyPort && port < 32; ++port) {
        counts.port_max_mac[port] = {0, 1, 0, 0xffff};
        off.port_max_mac[port] = {0, 0, 0, 1};
        on.port_max_mac[port] = {0, 1, 0, 2};
    }
    counts.gblebl = on.gblebl = 1;
    check_setting({NAMED(U_FlshPortSecMacGet)}, {"U_FlshPortSecMacSet", set_port_security},
                  {record(counts, off, on)});
}

TstFlshAcl made_rule(unsigned index, const std::string& name, uint8_t policy) {
    TstFlshAcl rule = {};
    rule.usIndex = static_cast<uint16_t>(index);
    name.copy(rule.acAclName, sizeof rule.acAclName - 1);
    rule.stClassifier = {ACL_CLASSIFIER_SA | ACL_CLASSIFIER_SRC_IP,
                         {2, 0, 0, 0, 0, policy},
                         {255, 255, 255, 255, 255, 255},
                         static_cast<uint32_t>(hosts().numbers[policy - 1]),
                         static_cast<uint32_t>(ip("255.255.255.0")),
                         {{policy, 0}}};
    rule.stPolicy.ulBitMap = policy;
    return rule;
}

unsigned short insert_rule(uint32_t, TstFlshAcl* rule) {
    return U_AclInsRule(rule->usIndex, rule);
}

// Sets the rules that exist, and with --fill adds others: no operation deletes one.
void check_rules() {
    static const TstFlshAcl counts = {
        0,
        "ttttttttttttttttttttttttttttttt",
        {~0U, {1, 1, 1, 1, 1, 1}, {1, 1, 1, 1, 1, 1}, ~0U, ~0U, {{~0U, ~0U}}},
        {~0U}};
    std::vector<unsigned> unused = numbers_of(33, 1);
    GETTER(U_FlshGetAcl, index_up_to(33), bytes(sizeof(TstFlshAcl), 0));
    for (uint32_t slot = 0; slot < 33; ++slot) {
        TstFlshAcl rules[2] = {};
        if (U_FlshGetAcl(slot, rules) == 0 && rules[0].usIndex != 0) {
            const unsigned index = rules[0].usIndex;
            unused.erase(std::remove(unused.begin(), unused.end(), index), unused.end());
            check_setting({NAMED(U_FlshGetAcl)}, {"U_AclInsRule", insert_rule},
                          {index_up_to(slot + 1, slot), record(counts, made_rule(index, "check", 1),
                                                               made_rule(index, "another", 2))});
        }
    }
    const auto insert = [](unsigned n) {
        TstFlshAcl rule = made_rule(n, "check-" + std::to_string(n), 2);
        rule.stClassifier.ulBitMap = ACL_CLASSIFIER_SRC_IP;
        U_AclInsRule(rule.usIndex, &rule);
    };
    const Lines lines = {"Index_Id = \"#\" ;",
                         "Profile Name       = \"check-#\" ;",
                         "Action             = \"Deny\" ;",
                         "Source MAC         = \"\" ;",
                         "Mask of Source MAC = \"\" ;",
                         "Source IP          = \"192.0.2.129\" ;",
                         "Mask of Source IP  = \"255.255.255.0\" ;",
                         "Source_Interface   = \"2\" ;"};
    check_lasting_table({"U_AclInsRule", insert}, {unused, "[Acl setting] Acl_Rule_ ", lines});
}

constexpr int unchanged = -1;

bool has_vlan(unsigned id) {
    TstLPortMask masks[2] = {};
    uint16_t protocol = 0;
    return U_VlanGetSttcEntry(static_cast<uint16_t>(id), &masks[0], &masks[1], &protocol) == 0;
}

unsigned unused = 4001; // and so are the second and the fourth after it

// Roles and lists, and which of the VLANs that a write adds are there.
void vlans(vlan_data_t* data, uint8_t* added) {
    get_vlan_data(data);
    *added = static_cast<uint8_t>(has_vlan(unused) << 2 | has_vlan(unused + 2) << 1 |
                                  has_vlan(unused + 4));
}

// The buffers of a check and of the set after it.
struct {
    char message[100];
    TstFlshVlanEntry entries[512];
    int32_t removals[512];
} work;

int check_vlans(vlan_data_t* data, char* message, TstFlshVlanEntry* entries, int32_t* removals) {
    std::memset(message, 0, sizeof work.message);
    std::memset(entries, 0, sizeof work.entries);
    std::memset(removals, 0, sizeof work.removals);
    return check_vlan_data(data, message, entries, removals);
}

// A getter of the buffers, for the guard bytes around them.
void read_buffers(vlan_data_t* data, char* message, TstFlshVlanEntry* entries, int32_t* removals) {
    get_vlan_data(data);
    check_vlans(data, message, entries, removals);
}

int set_vlans(vlan_data_t* data) {
    const int verdict = check_vlans(data, work.message, work.entries, work.removals);
    set_vlan_data(data, work.message, work.entries, work.removals, 1);
    return verdict;
}

// What the device has, but for the role of a port and more in its list.
vlan_data_t vlans_with(unsigned port, int role, const char* more) {
    static vlan_data_t data[2];
    std::memset(data, 0, sizeof data);
    get_vlan_data(data);
    char(&list)[1024] = data->vlan_str[port];
    data->portrole[port] = role == unchanged ? data->portrole[port] : role;
    std::strncat(list, more + (list[0] == '\0' && more[0] == ',' ? 1 : 0),
                 sizeof list - 1 - strnlen(list, sizeof list - 1));
    return data[0];
}

void check_verdict(const char* what, int expected, int role, const char* more) {
    vlan_data_t data = vlans_with(0, role, more);
    expect("check_vlan_data", what, expected,
           check_vlans(&data, work.message, work.entries, work.removals));
}

void check_vlan_header() {
    const unsigned management = value_of(U_VlanGetMgnVlanId);
    unsigned other = 1;
    while (other < 4094 && (other == management || !has_vlan(other))) {
        ++other;
    }
    static TstFlshVlanPortBasedEntry every, others, next; // as in restore, always with port 8
    const unsigned ports = std::clamp<unsigned>(g_ucMaxPhyPort, 1, 8);
    for (unsigned i = 0; i < 8; ++i) {
        every.stPortMask[i] = {{~0U, ~0U}};
        others.stPortMask[i] = {{0x100U | (((1U << ports) - 1) & ~(1U << i)), 0}};
        next.stPortMask[i] = {{0x100U | 1U << (i + 1) % ports, 0}};
    }
    static vlan_data_t counts;
    std::memset(counts.portrole, 1, sizeof counts.portrole);
    for (char* list : counts.vlan_str) {
        std::memset(list, 't', 1023);
    }
    while (unused > 2 && (has_vlan(unused) || has_vlan(unused + 2) || has_vlan(unused + 4))) {
        --unused;
    }
    GETTER(get_vlan_data, record(counts));
    GETTER(U_VlanGetSttcEntry, management, bytes(8, 8), bytes(8, 8), {});
    check_getter({"check_vlan_data", read_buffers},
                 {bytes(sizeof(vlan_data_t), 0), bytes(sizeof work.message, 0),
                  bytes(sizeof work.entries, 0), bytes(sizeof work.removals, 0)});
    check_verdict("accepts the device's own", VLAN_DATA_VALID, unchanged, "");
    check_verdict("finds a role that is neither", VLAN_DATA_ROLE, 2, "");
    check_verdict("finds an access port in two VLANs", VLAN_DATA_ACCESS_LIST, 0, ",4093,4094");
    check_verdict("finds what is not a number", VLAN_DATA_ID_VALUE, 1, ",x");
    check_verdict("finds a number out of range", VLAN_DATA_ID_RANGE, 1, ",4095");
    check_setting(
        {"get_vlan_data", vlans}, {"set_vlan_data", set_vlans},
        {record(counts,
                vlans_with(ports - 1, 1,
                           formatted(",%u,%u,%u", unused, unused + 2, unused + 4).c_str()),
                vlans_with(0, 1, formatted(",%u,%u", unused, unused + 4).c_str())),
         {7, 5}});
    SETTING(U_VlanGetMgnVlanId, U_FlshVlanSetMgnVlanId,
            {management, has_vlan(other) ? other : management});
    SETTING(U_FlshVlanGetPortBasedEntry, U_FlshVlanSetPortBasedEntry, record(every, others, next));
}

} // namespace

void check_switching() {
    static const TstFlshSchedulemode counts = {
        0xffff, {~0U, ~0U, ~0U, ~0U, ~0U, ~0U, ~0U, ~0U}, -1};
    check_rstp();
    check_vlan_header();
    check_rules();
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode,
            record(counts, {0, {1, 2, 3, 4, 5, 6, 7, 8}, 1}, {0, {8, 7, 6, 5, 4, 3, 2, 1}, 3}));
    SETTING(U_QosGetScheduleMode, U_QosSetScheduleMode,
            record(counts, {0, {1, 1, 1, 1, 1, 1, 1, 1}, 1}, {7, {1, 1, 1, 1, 1, 1, 1, 1}, 1}));
    SETTING(U_QosGetcosqueuemapping, U_QosSetcosqueuemapping, bytes(8, 8, 1, 6));
    SETTING(U_QosGetdscpmapping, U_QosSetdscpmapping, bytes(64, 64, 1, 6));
    check_port_security();
}
