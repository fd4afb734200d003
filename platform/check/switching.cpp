#include "platform/check/check.h"
#include "platform/include/acl.h"
#include "platform/include/converters.h"
#include "platform/include/port_security.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/rstp.h"
#include "platform/include/vlan.h"

#include <algorithm>
#include <set>

namespace {

unsigned short bpdu_guard(uint8_t port, TstBpduGuardPortState* state) {
    const uint8_t before = state->ucPortId;
    state->ucPortId = port;
    const unsigned short result = U_FlshStpGetBpduGuardPortState(state);
    state->ucPortId = before; // as it was, for a call that fails
    return result;
}

int protection(uint8_t port, stp_rstp_t* flags) {
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    stp_rstp_getFromFlash(flags, port, &error);
    return error;
}

void check_rstp() {
    const Argument port = index_up_to(g_ucMaxPhyPort);
    GETTERS(U_StpGetEbl, U_StpGetForceVersion, U_StpGetPriority, U_FlshStpGetBpduGuardCfg);
    GETTER(U_FlshStpGetPortEdge, port);
    GETTER(U_FlshStpGetPortNonstp, port);
    check_getter("U_FlshStpGetBpduGuardPortState", bpdu_guard, {port});
    check_getter("stp_rstp_getFromFlash", protection, {port});
    add_settings(
        "rstp setting",
        {{"U_StpSetEbl", "enable state=0|1"},
         {"U_StpSetPriority", "priority=4096|61440"},
         {"U_StpSetBpduGuardCfg", "bpdu guard ebl=0|1"},
         {"U_FlshStpSetPortEdge", "port#_edge port=0|1", g_ucMaxPhyPort},
         {"U_StpSetPortNonstp", "port#_enable rstp=0|1", g_ucMaxPhyPort},
         {"U_StpSetPortBpduGuardEbl", "port#_bpdu guard=0|1", g_ucMaxPhyPort},
         {"stp_rstp_setToFlash", "port#_root guard=0|1;port#_bpdu filter=0|1", g_ucMaxPhyPort}});
}

// The settings of a rule.
std::string rule_keys(const std::string& rule) {
    char mac[64] = "";
    mac_to_str(mac, reinterpret_cast<const unsigned char*>("\2\0\x5e\x10\x20\xff"));
    return rule + "profile name=check|another;" + rule + "action=Permit|Deny;" + rule +
           "source mac=|" + mac + ";" + rule + "mask of source mac=|" + mac + ";" + rule +
           "source ip=|192.0.2.129;" + rule + "mask of source ip=|255.255.255.0";
}

// Only rules that exist are set: no operation deletes one.
void check_stored_rules() {
    const auto insert = [](uint32_t, TstFlshAcl* rule) {
        return rule->usIndex != 0 ? U_AclInsRule(rule->usIndex, rule) : uint16_t(0);
    };
    check_getter("U_FlshGetAcl", U_FlshGetAcl, {index_up_to(33)}, insert);
    for (uint32_t slot = 0; slot < 33; ++slot) {
        TstFlshAcl rules[2] = {};
        if (U_FlshGetAcl(slot, rules) == 0 && rules[0].usIndex != 0) {
            add_settings("acl setting",
                         {{"U_AclInsRule", rule_keys(formatted("acl_rule_%u ", slot))}});
        }
    }
    add_settings("acl setting", {{"U_AclInsRule", "acl_rule_"}});
}

bool has_vlan(unsigned id) {
    TstLPortMask masks[2] = {};
    uint16_t protocol = 0;
    return U_VlanGetSttcEntry(static_cast<uint16_t>(id), &masks[0], &masks[1], &protocol) == 0;
}

unsigned unused = 4001; // and so are the second and the fourth after it

// The buffers of restore are zero before.
void read_buffers(vlan_data_t* data, char* message, TstFlshVlanEntry* table, int32_t* removals) {
    get_vlan_data(data);
    std::memset(message, 0, 100);
    std::memset(table, 0, 512 * sizeof *table);
    std::memset(removals, 0, 512 * sizeof *removals);
    check_vlan_data(data, message, table, removals);
}

// The list of a port and what is to be added.
std::string list_with(const vlan_data_t& data, int port, const std::string& more) {
    const char* list = data.vlan_str[port - 1];
    return std::string(list, strnlen(list, sizeof data.vlan_str[0])) +
           more.substr(list[0] == '\0' ? 1 : 0);
}

void check_vlan_header() {
    static vlan_data_t data[2]; // with room for a getter that writes too much
    uint16_t ids[64] = {};
    get_vlan_data(data);
    U_VlanGetMgnVlanId(ids);
    const unsigned management = ids[0];
    unsigned other = 1;
    while (other < 4094 && (other == management || !has_vlan(other))) {
        ++other;
    }
    while (unused > 2 && (has_vlan(unused) || has_vlan(unused + 2) || has_vlan(unused + 4))) {
        --unused;
    }
    GETTERS(get_vlan_data, U_VlanGetMgnVlanId);
    GETTER(U_VlanGetSttcEntry, management, bytes(8), bytes(8), {});
    KEPT(U_FlshVlanGetPortBasedEntry, U_FlshVlanSetPortBasedEntry);
    check_getter("check_vlan_data", read_buffers,
                 {{}, {100, 'r'}, {512 * sizeof(TstFlshVlanEntry), 'r'}, {512 * 4, 'r'}});
    const int port = std::clamp<int>(g_ucMaxPhyPort, 1, 8);
    const std::string one = formatted("%u", unused), two = formatted("%u", unused + 2),
                      three = formatted("%u", unused + 4);
    const std::string all = list_with(data[0], port, "," + one + "," + two + "," + three);
    const std::string some = list_with(data[0], port, "," + one + "," + three);
    add_settings("vlan setting",
                 {{"set_vlan_data", "port#_role=Trunk;port#_vlan=" + all + "|" + some, 1, port},
                  {"U_FlshVlanSetMgnVlanId", formatted("management vlan id=%u|%u", management,
                                                       has_vlan(other) ? other : management)}});
    add_settings("static vlan table",
                 {{"set_vlan_data", one + "=1;" + two + "=1|-1;" + three + "=1"}});
    for (int source = 1; source <= port; ++source) {
        std::string others;
        for (int target = 1; target <= 8; ++target) {
            others += target == source ? "" : (others.empty() ? "" : ",") + std::to_string(target);
        }
        add_settings("vlan port isolation setting",
                     {{"U_FlshVlanSetPortBasedEntry",
                       formatted("port%d=%s|%d", source, others.c_str(), source % 8 + 1)}});
    }
}

void check_qos() {
    KEPT(U_QosGetScheduleMode, U_QosSetScheduleMode);
    KEPT(U_QosGetcosqueuemapping, U_QosSetcosqueuemapping);
    KEPT(U_QosGetdscpmapping, U_QosSetdscpmapping);
    add_settings("qos setting",
                 {{"U_QosSetScheduleMode",
                   "mode=Weighted Round-Robin|Weighted Round-Robin|Strict Priority;"
                   "classification type=802.1p CoS only|Both 802.1p CoS and DiffServ|"
                   "Both 802.1p CoS and DiffServ"},
                  {"U_QosSetScheduleMode", "q#=1 packets|8 packets|-1", 8, 0}});
    add_settings("cos queue mapping", {{"U_QosSetcosqueuemapping", "#=Q1|Q6", 8, 0}});
    std::string keys = "message=DSCP doesn't support 802.1p CoS only.|-1|-1";
    for (int code = 0; code < 64; ++code) {
        keys += formatted(";0x%02x(%d)=-1|1|6", code, code);
    }
    add_settings("dscp mapping", {{"U_QosSetdscpmapping", keys}});
}

} // namespace

void check_switching() {
    check_rstp();
    check_vlan_header();
    check_stored_rules();
    check_qos();
    GETTERS(U_FlshPortSecMacGet);
    add_settings("port security setting",
                 {{"U_FlshPortSecMacSet", "global_state=0|1|1"},
                  {"U_PortSecSwitchMac", "port#_port_state=0|1|1;port#_maximum_mac=1|2|3",
                   std::min<int>(g_ucMaxPhyPort, 32)}});
}

void add_static_vlans(Document& document) {
    for (const unsigned id : {unused, unused + 2, unused + 4}) {
        if (has_vlan(id)) {
            document["static vlan table:" + std::to_string(id)] = "1";
        }
    }
}

void add_rules(const Document& before) {
    std::set<std::string> used;
    for (const auto& [key, value] : before) {
        used.insert(key.find(" index_id") != key.npos ? value : "");
    }
    for (int slot = 0, index = 1; slot < 33; ++slot) {
        const std::string rule = formatted("acl_rule_%d ", slot);
        if (before.count("acl setting:" + rule + "index_id") == 0) {
            while (used.count(std::to_string(index)) > 0) {
                ++index;
            }
            const std::string own = rule + "index_id=" + std::to_string(index++);
            add_settings("acl setting", {{"U_AclInsRule", own + ";" + rule_keys(rule)}});
        }
    }
}

void check_vlan_lists() {
    const auto check = [](bool is_good, const char* keys) {
        check_verdict("check_vlan_data", is_good, "vlan setting", keys);
    };
    check(false, "port1_role=Neither");
    check(false, "port1_role=Access;port1_vlan=4093,4094");
    check(false, "port1_role=Trunk;port1_vlan=x");
    check(false, "port1_role=Trunk;port1_vlan=4095");
}
