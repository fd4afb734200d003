// "system information", "system settings", "network settings", "port settings".

#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::state;

class System : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

constexpr char information[] = "system information";
constexpr char settings[] = "system settings";
constexpr char network[] = "network settings";
constexpr char ports[] = "port settings";

// The simulated switch's own codes for an address and a mask.
constexpr char bad_address[] = "20\n";
constexpr char bad_mask[] = "21\n";

} // namespace

TEST_F(System, CheckIdentity) {
    const std::vector<Reported> edits = {
        {information, "model name", {nullptr, "\"ms-8p-2SFP\""}, "212\n"},
        {information, "model name", {"\"MS-8P\""}, "212\n"}, // lacks the suffix
        {information, "model name", {"\"MS-8P-2SFP, and more behind the field\""}, "212\n"},
        {information, "kernel version", {nullptr}, ""},
        {settings, "device name", {nullptr, "\"12345678901234567890123456789\""}, ""},
        {network, "dhcp", {"neither"}, ""},
        {network, "static ip address", {nullptr, "\"192.168.10.255\""}, bad_address},
        {network, "static ip address", {"\"192.168.10.20          \""}, bad_address},
        {network, "subnet mask", {"\"\"", "\"255.0.255.0\""}, bad_mask},
        {network, "gateway", {"\"300.1.1.1\""}, "214\n"},
        {network, "gateway", {"\"192.168.11.1\""}, "216\n"},
        {network, "gateway", {"\"\""}, ""},
        {network, "primary dns", {"\"192.168.10.2.\""}, "215\n"},
        {network, "primary dns", {nullptr}, ""},
    };
    expect_reports(good, edits);
}

TEST_F(System, CheckPorts) {
    const std::vector<Reported> edits = {
        {ports, "port1", {nullptr}, "240\n"},
        {ports, "port8", {"-1"}, "240\n"},
        // -1 as a signed 8-bit number.
        {ports, "port2", {"255"}, "240\n"},
        {ports, "port2", {"2"}, "241\n"},
        {ports, "port8", {"128"}, "241\n"},
        // 1 in the low 8 bits.
        {ports, "port3", {"\"0x1\"", "257"}, ""},
        // No digits: 0, not absent.
        {ports, "port3", {"\"\""}, ""},
        {ports, "Port8 speed", {"-1"}, "242\n"},
        {ports, "Port7 speed", {"3"}, "243\n"},
        {ports, "Port8 speed", {"257"}, "243\n"},
    };
    expect_reports(good, edits);
}

TEST_F(System, OtherModelNeedsNoSpeedKeys) {
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(check(good), "212\n");
    const std::string other = backup();
    EXPECT_FALSE(contains(other, "speed"));
    EXPECT_EQ(check(other), "");
}

// The library gives the port type in its low 8 bits, the identity compares it whole.
TEST_F(System, PortTypeWidths) {
    state().eeprom.macsec_port_type = 257;
    const std::string document = backup();
    EXPECT_TRUE(contains(document, "\"MS-8P\""));
    EXPECT_TRUE(contains(document, "Port8 speed"));
}

TEST_F(System, RestoreDeviceName) {
    const char name[] = "\"123456789012345678901234567890\"";
    EXPECT_EQ(restore_calls(without(good, settings, "device name"), "SysInfo"),
              (Calls{"U_FlshSysInfoSetName(\"\")"}));
    EXPECT_EQ(restore_calls(with(good, settings, "device name", name), "SysInfo"),
              (Calls{"U_FlshSysInfoSetName(\"12345678901234567890123456789\")"}));
}

TEST_F(System, RestoreNetwork) {
    const std::vector<Restored> edits = {
        {"dhcp", {"\"Yes\""}, "U_FlshSysSetDhcp(", "1)"},
        {"dhcp", {"2"}, "U_FlshSysSetDhcp(", "0)"},
        // One character is a text, though no address.
        {"subnet mask", {"\"x\""}, "U_FlshSysSetIp(", "192.168.10.20, 0.0.0.0)"},
        {"static ip address", {"x"}, "U_FlshSysSetIp(", "0.0.0.0, 255.255.255.0)"},
    };
    expect_restored(good, network, edits);
    // Without an address or a mask everything stays, DHCP included.
    const std::vector<Restored> nothing = {
        {"static ip address", {"\"\"", "\"192.168.100.2000\""}, "U_FlshSysSet", ""},
        {"subnet mask", {"\"\"", "\"192.168.100.2000\""}, "U_FlshSysSet", ""},
    };
    expect_restored(with(good, network, "dhcp", "1"), network, nothing);

    // What does not convert is 0.
    const std::string document = with(good, network,
                                      {{"static ip address", "\"no address\""},
                                       {"gateway", "\"\""},
                                       {"primary dns", "\"192.168.100.2000\""}});
    EXPECT_EQ(restore_calls(document, "U_FlshSysSet"),
              (Calls{"U_FlshSysSetDhcp(0)", "U_FlshSysSetIp(0.0.0.0, 255.255.255.0)",
                     "U_FlshSysSetGateway(0.0.0.0)", "U_FlshSysSetDNSIp(1, 0.0.0.0)"}));
}

TEST_F(System, RestorePortsThatDiffer) {
    const std::string document = with(good, ports, {{"port1", "0"}, {"port8", "255"}});
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 0)", "U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // A stored 255 is not the document's -1.
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // Without its keys every port is enabled.
    EXPECT_EQ(restore_calls(without_section(document, ports), "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 1)", "U_PortSetEbl(7, 1)", "U_PortSetSWreset()"}));
}

TEST_F(System, RestoreFibreSpeeds) {
    EXPECT_EQ(restore_calls(with(good, ports, "Port8 speed", "1"), "speed"),
              (Calls{"set_fiber_speed(7, 1)", "set_eeprom_fiber_speed(2, 1)"}));
    EXPECT_EQ(restore_calls(without_section(good, ports), "speed"),
              (Calls{"set_fiber_speed(6, 0)", "set_eeprom_fiber_speed(1, 0)",
                     "set_fiber_speed(7, 0)", "set_eeprom_fiber_speed(2, 0)"}));
    // A model without fibre speeds keeps its EEPROM entries.
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(restore_calls(with(good, ports, "Port7 speed", "1"), "speed"), Calls{});
}

TEST_F(System, PortThatCannotBeRead) {
    state().ports.ports.at(1).enabled = 0;
    make_fail("U_FlshPortGetEbl:3");
    EXPECT_TRUE(contains(backup(), "port2 = 0 ;\nport3 = 0 ;\nport4 = 1 ;"))
        << "it is written like the one before it";
}
