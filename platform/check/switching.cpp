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
    setting("U_StpSetEbl", "rstp setting:enable state=0|1");
    setting("U_StpSetPriority", "rstp setting:priority=4096|61440");
    setting("U_StpSetBpduGuardCfg", "rstp setting:bpdu guard ebl=0|1");
    setting("U_FlshStpSetPortEdge", "rstp setting:port#_edge port=0|1", g_ucMaxPhyPort);
    setting("U_StpSetPortNonstp", "rstp setting:port#_enable rstp=0|1", g_ucMaxPhyPort);
    setting("U_StpSetPortBpduGuardEbl", "rstp setting:port#_bpdu guard=0|1", g_ucMaxPhyPort);
    setting("stp_rstp_setToFlash", "rstp setting:port#_root guard=0|1;port#_bpdu filter=0|1",
            g_ucMaxPhyPort);
}

// No operation deletes a rule: without --fill only those that exist are set.
void check_rules() {
    const auto insert = [](uint32_t, TstFlshAcl* rule) {
        return rule->usIndex != 0 ? U_AclInsRule(rule->usIndex, rule) : uint16_t(0);
    };
    check_getter("U_FlshGetAcl", U_FlshGetAcl, {index_up_to(33)}, insert);
    std::set<int> slots, indexes;
    for (int slot = 0; slot < 33; ++slot) {
        TstFlshAcl rules[2] = {};
        if (U_FlshGetAcl(static_cast<uint32_t>(slot), rules) == 0 && rules[0].usIndex != 0) {
            slots.insert(slot);
            indexes.insert(rules[0].usIndex);
        }
    }
    char mac[64] = "";
    mac_to_str(mac, reinterpret_cast<const unsigned char*>("\2\0\x5e\x10\x20\xff"));
    const std::string keys =
        std::string("acl setting:acl_rule_# source mac=|") + mac +
        ";acl_rule_# mask of source mac=|" + mac +
        ";acl_rule_# source ip=|192.0.2.129;"
        "acl_rule_# mask of source ip=|255.255.255.0;"
        "acl_rule_# profile name=check-1|check-2;acl_rule_# action=Permit|Deny";
    for (int slot = 0, index = 1; slot < 33; ++slot) {
        if (slots.count(slot) > 0) {
            setting("U_AclInsRule", keys, 1, slot);
            continue;
        }
        while (indexes.count(index) > 0) {
            ++index;
        }
        lasting_setting("U_AclInsRule", keys + formatted(";acl_rule_# index_id=%d", index++), slot);
    }
    setting("U_AclInsRule", "acl setting:acl_rule_");
    lasting_setting("U_AclInsRule", "acl setting:acl_rule_", 0);
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
    check_getter(
        "check_vlan_data", read_buffers,
        {{}, bytes(100, 'r'), bytes(512 * sizeof(TstFlshVlanEntry), 'r'), bytes(2048, 'r')});
    const int port = std::clamp<int>(g_ucMaxPhyPort, 1, 8);
    const std::string first = std::to_string(unused), second = std::to_string(unused + 2),
                      third = std::to_string(unused + 4);
    const std::string all = list_with(data[0], port, "," + first + "," + second + "," + third);
    const std::string some = list_with(data[0], port, "," + first + "," + third);
    setting("set_vlan_data", "vlan setting:port#_role=Trunk;port#_vlan=" + all + "|" + some, 1,
            port);
    setting("set_vlan_data",
            "static vlan table:" + first + "=1;" + second + "=1|-1;" + third + "=1");
    setting("U_FlshVlanSetMgnVlanId", formatted("vlan setting:management vlan id=%u|%u", management,
                                                has_vlan(other) ? other : management));
    for (unsigned source = 1; source <= static_cast<unsigned>(port); ++source) {
        std::string others = "1,2,3,4,5,6,7,8,";
        others.erase(2 * source - 2, 2).pop_back();
        setting("U_FlshVlanSetPortBasedEntry", formatted("vlan port isolation setting:port%u=%s|%u",
                                                         source, others.c_str(), source % 8 + 1));
    }
}

void check_qos() {
    KEPT(U_QosGetScheduleMode, U_QosSetScheduleMode);
    KEPT(U_QosGetcosqueuemapping, U_QosSetcosqueuemapping);
    KEPT(U_QosGetdscpmapping, U_QosSetdscpmapping);
    setting("U_QosSetScheduleMode",
            "qos setting:mode=Weighted Round-Robin|Weighted Round-Robin|Strict Priority;"
            "classification type=802.1p CoS only|Both 802.1p CoS and DiffServ|"
            "Both 802.1p CoS and DiffServ");
    setting("U_QosSetScheduleMode", "qos setting:q#=1 packets|8 packets|-1", 8, 0);
    setting("U_QosSetcosqueuemapping", "cos queue mapping:#=Q1|Q6", 8, 0);
    setting("U_QosSetdscpmapping",
            "dscp mapping:message=DSCP doesn't support 802.1p CoS only.|-1|-1");
    for (int code = 0; code < 64; ++code) {
        setting("U_QosSetdscpmapping", formatted("dscp mapping:0x%02x(%d)=-1|1|6", code, code));
    }
}

} // namespace

void check_switching() {
    check_rstp();
    check_vlan_header();
    check_rules();
    check_qos();
    GETTERS(U_FlshPortSecMacGet);
    setting("U_FlshPortSecMacSet", "port security setting:global_state=0|1|1");
    setting("U_PortSecSwitchMac",
            "port security setting:port#_port_state=0|1|1;port#_maximum_mac=1|2|3",
            std::min<int>(g_ucMaxPhyPort, 32));
}

void add_static_vlans(Document& document) {
    for (const unsigned id : {unused, unused + 2, unused + 4}) {
        if (has_vlan(id)) {
            document["static vlan table:" + std::to_string(id)] = "1";
        }
    }
}

void check_vlan_lists() {
    const char* own = "vlan setting:";
    check_verdict("check_vlan_data", false, own, "port1_role=Neither");
    check_verdict("check_vlan_data", false, own, "port1_role=Access;port1_vlan=4093,4094");
    check_verdict("check_vlan_data", false, own, "port1_role=Trunk;port1_vlan=x");
    check_verdict("check_vlan_data", false, own, "port1_role=Trunk;port1_vlan=4095");
}
