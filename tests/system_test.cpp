// "system information", "system settings", "network settings", "port settings".

#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::state;

class System : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

// The simulated switch's own codes for an address and a mask.
constexpr char bad_address[] = "20\n";
constexpr char bad_mask[] = "21\n";

constexpr Edit identity_edits[] = {
    {"system information", "model name", nullptr, "212\n"},
    {"system information", "model name", "\"MS-8P\"", "212\n"}, // lacks the suffix
    {"system information", "model name", "\"ms-8p-2SFP\"", "212\n"},
    {"system information", "model name", "\"MS-8P-2SFP, and more behind the field\"", "212\n"},
    {"system information", "kernel version", nullptr, ""},
    {"system settings", "device name", nullptr, ""},
    {"system settings", "device name", "\"12345678901234567890123456789\"", ""},
    {"system settings", "device name", "\"123456789012345678901234567890\"", "213\n"},
    {"network settings", "dhcp", "neither", ""},
    {"network settings", "static ip address", nullptr, bad_address},
    {"network settings", "static ip address", "\"192.168.10.255\"", bad_address},
    {"network settings", "static ip address", "\"192.168.10.20          \"", bad_address},
    {"network settings", "subnet mask", "\"\"", bad_mask},
    {"network settings", "subnet mask", "\"255.0.255.0\"", bad_mask},
    {"network settings", "gateway", "\"300.1.1.1\"", "214\n"},
    {"network settings", "gateway", "\"192.168.11.1\"", "216\n"},
    {"network settings", "gateway", "\"\"", ""},
    {"network settings", "primary dns", "\"192.168.10.2.\"", "215\n"},
    {"network settings", "primary dns", nullptr, ""},
};

constexpr Edit port_edits[] = {
    {"port settings", "port1", nullptr, "240\n"},
    {"port settings", "port8", "-1", "240\n"},
    {"port settings", "port2", "255", "240\n"}, // -1 as a signed 8-bit number
    {"port settings", "port2", "2", "241\n"},
    {"port settings", "port8", "128", "241\n"},
    {"port settings", "port3", "\"0x1\"", ""},
    {"port settings", "port3", "257", ""},  // 1 in the low 8 bits
    {"port settings", "port3", "\"\"", ""}, // no digits: 0, not absent
    {"port settings", "Port7 speed", nullptr, "242\n"},
    {"port settings", "Port8 speed", "-1", "242\n"},
    {"port settings", "Port7 speed", "3", "243\n"},
    {"port settings", "Port8 speed", "257", "243\n"},
};

} // namespace

TEST_F(System, CheckIdentity) {
    expect_reports(good, identity_edits);
}

TEST_F(System, CheckPorts) {
    expect_reports(good, port_edits);
}

TEST_F(System, OtherModelNeedsNoSpeedKeys) {
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(check(good), "212\n");
    const std::string other = backup();
    EXPECT_EQ(other.find("speed"), std::string::npos);
    EXPECT_EQ(check(other), "");
}

// The library gives the port type in its low 8 bits, the identity compares it whole.
TEST_F(System, PortTypeWidths) {
    state().eeprom.macsec_port_type = 257;
    const std::string document = backup();
    EXPECT_NE(document.find("\"MS-8P\""), std::string::npos);
    EXPECT_NE(document.find("Port8 speed"), std::string::npos);
}

TEST_F(System, RestoreDeviceName) {
    EXPECT_EQ(restore_calls(without(good, "system settings", "device name"), "SysInfo"),
              (Calls{"U_FlshSysInfoSetName(\"\")"}));
    EXPECT_EQ(restore_calls(with(good, "system settings", "device name",
                                 "\"123456789012345678901234567890\""),
                            "SysInfo"),
              (Calls{"U_FlshSysInfoSetName(\"12345678901234567890123456789\")"}));
}

TEST_F(System, RestoreNetwork) {
    const char section[] = "network settings";
    EXPECT_EQ(restore_calls(with(good, section, "dhcp", "\"Yes\""), "U_FlshSysSet").front(),
              "U_FlshSysSetDhcp(1)");
    EXPECT_EQ(restore_calls(with(good, section, "dhcp", "2"), "U_FlshSysSet").front(),
              "U_FlshSysSetDhcp(0)");

    // Without an address or a mask everything stays, DHCP included.
    for (const char* key : {"static ip address", "subnet mask"}) {
        for (const char* value : {"\"\"", "\"192.168.100.2000\""}) {
            const std::string document =
                with(with(good, section, key, value), section, "dhcp", "1");
            EXPECT_EQ(restore_calls(document, "U_FlshSysSet"), Calls{}) << key << value;
        }
    }

    // One character is a text, though no address.
    EXPECT_EQ(restore_calls(with(good, section, "subnet mask", "\"x\""), "SetIp"),
              (Calls{"U_FlshSysSetIp(192.168.10.20, 0.0.0.0)"}));
    EXPECT_EQ(restore_calls(with(good, section, "static ip address", "x"), "SetIp"),
              (Calls{"U_FlshSysSetIp(0.0.0.0, 255.255.255.0)"}));

    // What does not convert is 0.
    std::string document = with(good, section, "static ip address", "\"no address\"");
    document = with(document, section, "gateway", "\"\"");
    document = with(document, section, "primary dns", "\"192.168.100.2000\"");
    EXPECT_EQ(restore_calls(document, "U_FlshSysSet"),
              (Calls{"U_FlshSysSetDhcp(0)", "U_FlshSysSetIp(0.0.0.0, 255.255.255.0)",
                     "U_FlshSysSetGateway(0.0.0.0)", "U_FlshSysSetDNSIp(1, 0.0.0.0)"}));
}

TEST_F(System, RestorePortsThatDiffer) {
    std::string document = with(good, "port settings", "port1", "0");
    document = with(document, "port settings", "port8", "255");
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 0)", "U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // A stored 255 is not the document's -1.
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // Without its keys every port is enabled.
    EXPECT_EQ(restore_calls(without_section(document, "port settings"), "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 1)", "U_PortSetEbl(7, 1)", "U_PortSetSWreset()"}));
}

TEST_F(System, RestoreFibreSpeeds) {
    EXPECT_EQ(restore_calls(with(good, "port settings", "Port8 speed", "1"), "speed"),
              (Calls{"set_fiber_speed(7, 1)", "set_eeprom_fiber_speed(2, 1)"}));
    EXPECT_EQ(restore_calls(without_section(good, "port settings"), "speed"),
              (Calls{"set_fiber_speed(6, 0)", "set_eeprom_fiber_speed(1, 0)",
                     "set_fiber_speed(7, 0)", "set_eeprom_fiber_speed(2, 0)"}));
    // A model without fibre speeds keeps its EEPROM entries.
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(restore_calls(with(good, "port settings", "Port7 speed", "1"), "speed"), Calls{});
}

TEST_F(System, FailedReadsLeaveTheStartValue) {
    state().ports.ports.at(1).enabled = 0;
    make_fail("U_FlshPortGetEbl:3,U_FlshSysGetIp");
    const std::string document = backup();
    EXPECT_NE(document.find("port2 = 0 ;\nport3 = 0 ;\nport4 = 1 ;"), std::string::npos)
        << "a port that cannot be read is written like the one before it";
    EXPECT_NE(document.find("static ip address = \"\" ;\nsubnet mask = \"\" ;\n"),
              std::string::npos);
}
