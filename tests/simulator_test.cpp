// The simulated switch's own services: its stored configuration and its gate.

#include "platform/simulator/state_file.h"

#include "platform/include/converters.h"
#include "platform/include/port_masks.h"
#include "platform/include/system.h"
#include "tests/support/switch_test.h"

using simulator::from_json_text;
using simulator::state;
using simulator::to_json_text;

class Simulator : public SwitchTest {};

TEST_F(Simulator, StateComesBackFromItsText) {
    for (const simulator::State& device : {simulator::State(), device_from("other_switch.json")}) {
        const std::string text = to_json_text(device);
        EXPECT_EQ(to_json_text(from_json_text(text)), text);
    }
}

TEST_F(Simulator, TextsOfAnyBytesAreStored) {
    const unsigned char latin1[] = "K\xfc"
                                   "che \"\\\n";
    U_FlshSysInfoSetName(latin1);
    const simulator::State loaded = from_json_text(to_json_text(state()));
    EXPECT_EQ(loaded.system.name, state().system.name);
}

TEST_F(Simulator, WhatItCannotHoldIsRefused) {
    const std::pair<const char*, const char*> broken[] = {
        {"{", "parse"},
        {"[]", "type"},
        {R"({"sytem": {}})", "/sytem"},
        {R"({"system": {"dhpc": 1}})", "/system/dhpc"},
        {R"({"system": {"dhcp": 300}})", "/system/dhcp"},
        {R"({"ports": {"physical": -1}})", "/ports/physical"},
        {R"({"system": {"name": "123456789012345678901234567890-"}})", "/system/name"},
        {R"({"system": {"address": "192.168.1"}})", "IPv4"},
        {R"({"system": {"mac": "02:00"}})", "MAC"},
        {R"({"eeprom": {"fiber_speed": [1, 2, 3]}})", "fiber_speed"},
        {R"({"ports": {"trunks": [[64]]}})", "set of ports"},
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
