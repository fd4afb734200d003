// The document of whole switches, byte for byte, and back again.

#include "tests/support/switch_test.h"

using simulator::reset;
using simulator::state;

class Golden : public SwitchTest {};

TEST_F(Golden, FactorySwitch) {
    EXPECT_EQ(backup(), read_file(TEST_DATA "/factory_switch.ini"));
}

// Ten ports without fibre speeds, and nothing configured that can be absent.
TEST_F(Golden, OtherSwitch) {
    reset(device_from("other_switch.json"));
    EXPECT_EQ(backup(), read_file(TEST_DATA "/other_switch.ini"));
}

TEST_F(Golden, SwitchWithoutPorts) {
    state().ports.physical = 0;
    reset(state());
    const std::string document = backup();
    EXPECT_NE(document.find("\n[port settings]\n\n#"), std::string::npos);
    EXPECT_EQ(check(document), "242\n"); // the speed keys do not go by the port count
    restore(document);
    for (const std::string& call : all_calls()) {
        EXPECT_EQ(call.find("U_FlshPortGetEbl"), std::string::npos) << call;
    }
}

// Every call that may change the device, in order. What is set only where it
// differs is not among them: no port and no fibre speed.
TEST_F(Golden, RestoreOfTheOwnBackup) {
    const std::string document = backup();
    EXPECT_EQ(check(document), "");
    std::string calls;
    for (const std::string& call : restore(document)) {
        calls += call + "\n";
    }
    EXPECT_EQ(calls, read_file(TEST_DATA "/factory_switch.calls"));
    EXPECT_EQ(backup(), document);
}

TEST_F(Golden, RestoreOntoAnotherSwitchOfTheModel) {
    const std::string document = backup();
    state().system.name = "another";
    state().system.dhcp = 1;
    state().system.address = {0x0a000001};
    state().system.mask = {0xff000000};
    state().system.gateway = {0};
    state().system.dns = {0};
    state().eeprom.fiber_speed = {1, 1};
    for (std::size_t port = 0; port < 8; ++port) {
        state().ports.ports.at(port).enabled = 0;
    }
    const simulator::State other = device_from("other_switch.json");
    state().vlan = other.vlan;
    state().vlan.table = {{1, "", {}, {}}}; // check demands the management VLAN
    state().rstp = other.rstp;
    state().acl.rules = {};
    state().qos = other.qos;
    state().qos.dscp = {};
    state().port_security = other.port_security;
    EXPECT_NE(backup(), document);
    EXPECT_EQ(check(document), "");
    restore(document);
    EXPECT_EQ(backup(), document);
}
