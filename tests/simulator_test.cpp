// The simulated switch's own services: its stored configuration and its gate.

#include "platform/simulator/state_file.h"

#include "platform/include/snmp.h"
#include "platform/include/system.h"
#include "platform/include/vlan.h"
#include "tests/support/switch_test.h"

using simulator::from_json_text;
using simulator::state;
using simulator::to_json_text;

class Simulator : public SwitchTest {};

TEST_F(Simulator, SnmpNamesHaveFifteenCharacters) {
    const std::string longer(16, 'n');
    EXPECT_NE(Usrsnmp_check_community_string(longer.c_str() + 1), 0);
    EXPECT_EQ(Usrsnmp_check_trap_community_string(longer.c_str()), 0);
    EXPECT_EQ(Usrflsh_check_snmpV3_userName(longer.c_str()), 0);
    EXPECT_EQ(U_SnmpInsUsm(longer.c_str(), 1, "password", 0, ""), 0);
    EXPECT_EQ(state().snmp.users[1].name.text(), longer.substr(1));
    EXPECT_NE(U_SnmpInsUsm("a third", 1, "password", 0, ""), 0);
}

TEST_F(Simulator, VlansAreSetOnlyAfterTheirCheck) {
    const auto changes = [](vlan_data_t data, const char* failing, int verdict) {
        static TstFlshVlanEntry table[512];
        memset(table, 0, sizeof table);
        char msg[100] = {};
        int32_t removal_list[512] = {};
        simulator::State device;
        device.vlan.verdict = verdict;
        simulator::reset(device);
        simulator::make_fail(failing);
        check_vlan_data(&data, msg, table, removal_list);
        set_vlan_data(&data, msg, table, removal_list, 1);
        return to_json_text(state()) != to_json_text(device);
    };
    EXPECT_FALSE(changes({{2}, {}, {}}, "", VLAN_DATA_VALID));
    EXPECT_FALSE(changes({}, "check_vlan_data", VLAN_DATA_VALID));
    EXPECT_FALSE(changes({}, "", VLAN_DATA_MANAGEMENT));
    EXPECT_TRUE(changes({}, "", VLAN_DATA_VALID));
}

TEST_F(Simulator, WhatItCannotHoldIsRefused) {
    const std::pair<const char*, const char*> broken[] = {
        {"{", "parse"},
        {"[]", "must be an object"},
        {R"({"system": 5})", "/system: must"},
        {R"({"system": {"dhpc": 1}})", "/system/dhpc"},
        {R"({"system": {"name": "123456789012345678901234567890"}})", "/system/name"},
        {R"({"snmp": {"users": [{"name": "sixteen letters."}]}})", "/snmp/users/0/name"},
        {R"({"system": {"address": "192.168.1"}})", "/system/address"},
        {R"({"system": {"mac": "02:00"}})", "/system/mac"},
        {R"({"eeprom": {"fiber_speed": [1, 2, 3]}})", "fiber_speed"},
        {R"({"ports": {"trunks": [[2, 1]]}})", "/ports/trunks"},
    };
    for (const auto& [text, named] : broken) {
        try {
            from_json_text(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const std::exception& fault) {
            EXPECT_NE(std::string(fault.what()).find(named), std::string::npos) << fault.what();
        }
    }
}

TEST_F(Simulator, CallsAreOneLineOfText) {
    const unsigned char name[] = "a\"\n";
    U_FlshSysInfoSetName(name);
    EXPECT_EQ(all_calls(), (Calls{R"(U_FlshSysInfoSetName("a\"\x0a"))"}));
}
