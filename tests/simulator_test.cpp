// The simulated switch's own services: its stored configuration and its gate.

#include "platform/simulator/state_file.h"

#include "platform/include/accounts.h"
#include "platform/include/converters.h"
#include "platform/include/dot1x.h"
#include "platform/include/port_masks.h"
#include "platform/include/snmp.h"
#include "platform/include/system.h"
#include "platform/include/vlan.h"
#include "tests/support/switch_test.h"

using simulator::from_json_text;
using simulator::state;
using simulator::to_json_text;

class Simulator : public SwitchTest {};

TEST_F(Simulator, StateComesBackFromItsText) {
    simulator::State factory;
    factory.system.name = "caf\xe9 \"\\\n";
    for (const simulator::State& device : {factory, device_from("other_switch.json")}) {
        const std::string text = to_json_text(device);
        const simulator::State loaded = from_json_text(text);
        EXPECT_EQ(to_json_text(loaded), text);
        EXPECT_EQ(loaded.system.name, device.system.name);
    }
}

TEST_F(Simulator, TextsEndWithinTheirSize) {
    const std::string letters(40, 'x');
    account_t account = {};
    account_err_t error = 0;
    account_encryptUsername(&account, letters.c_str(), 32, &error);
    simulator::make_fail("account_encryptUsername");
    account_encryptUsername(&account, "", 32, &error); // leaves the record as it was
    U_FlshSysInfoSetName(reinterpret_cast<const unsigned char*>(letters.c_str()));
    U_Dot1xSetRdsKey(letters.c_str());
    for (const uint8_t size : std::vector<uint8_t>{1, 9, 30}) {
        char read[3][41];
        memset(read, 'y', sizeof read);
        U_FlshSysInfoGetName(reinterpret_cast<unsigned char*>(read[0]), size);
        U_FlshDot1xGetRdsKey(read[1], size);
        account_decryptUsername(&account, read[2], size, &error);
        for (const auto& text : read) {
            EXPECT_EQ(std::string(text, size), letters.substr(0, size - 1U) + '\0');
            EXPECT_EQ(text[size], 'y');
        }
    }
}

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

TEST_F(Simulator, AddressTexts) {
    for (const char* text : {"0.0.0.0", "10.1.2.3", "::1", "2001:db8::ff00:42:8329",
                             "2001:db8:1111:2222:3333:4444:5555:6666"}) {
        ip_addr_t address = {};
        char back[46] = {};
        EXPECT_EQ(str_to_ipaddr(&address, text), 0);
        ipaddr_to_str(back, &address);
        EXPECT_STREQ(back, text);
    }
    unsigned char mac[6] = {};
    char back[18] = {};
    EXPECT_EQ(str_to_mac(mac, "02-ab-CD:ef:01:99"), 0);
    mac_to_str(back, mac);
    EXPECT_STREQ(back, "02:AB:CD:EF:01:99");
    for (const char* text :
         {"", "-1", "02:ab:cd:ef:01", "02:ab:cd:ef:01:9g", "02:ab:cd:ef:01:999"}) {
        EXPECT_NE(str_to_mac(mac, text), 0) << text;
    }
    unsigned char bytes[2] = {};
    const unsigned char digits[] = "0aFFee";
    EXPECT_EQ(usrutil_hexStrToHexValue(digits, bytes, 2), 0);
    EXPECT_EQ(bytes[1], 0xff);
    const unsigned char no_digits[] = "0aFFeg";
    EXPECT_EQ(usrutil_hexStrToHexValue(no_digits, bytes, 2), -2);
}

TEST_F(Simulator, Masks) {
    TstPPortMask low;
    TstPPortMask high;
    TstPPortMask both;
    U_PPortMaskClrAll(&low);
    U_PPortMaskSetPort(&low, 0);
    U_PPortMaskSetPort(&low, 64); // in no set
    U_PPortMaskClrAll(&high);
    U_PPortMaskSetPort(&high, 63);
    U_PPortMaskOr(&both, &low, &high);
    EXPECT_EQ(simulator::written(both), "{0,63}");
    U_PPortMaskCopy(&low, &both);
    EXPECT_EQ(simulator::written(low), "{0,63}");
}

TEST_F(Simulator, CallsAreOneLineOfText) {
    const unsigned char name[] = "a\"\n";
    U_FlshSysInfoSetName(name);
    EXPECT_EQ(all_calls(), (Calls{R"(U_FlshSysInfoSetName("a\"\x0a"))"}));
}
