// "system information", "system settings", "network settings", "port settings".

#include "tests/support/switch_test.h"

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

TEST_F(System, Check) {
    const std::vector<Reported> edits = {
        {information, "model name", {nullptr, "\"ms-8p-2SFP\""}, "212\n"},
        {information, "model name", {"\"MS-8P\""}, "212\n"}, // lacks the suffix
        {information, "kernel version", {nullptr}, ""},
        {settings, "device name", {nullptr, "\"12345678901234567890123456789\""}, ""},
        {network, "dhcp", {"neither"}, ""},
        {network, "static ip address", {nullptr, "\"192.168.10.255\""}, bad_address},
        {network, "static ip address", {"\"192.168.10.20          \""}, bad_address},
        {network, "subnet mask", {"\"\"", "\"255.0.255.0\""}, bad_mask},
        {network, "gateway", {"\"300.1.1.1\""}, "214\n"},
        {network, "gateway", {"\"192.168.11.1\""}, "216\n"},
        {network, "gateway", {"\"\"", nullptr}, ""},
        {network, "primary dns", {"\"192.168.10.2.\""}, "215\n"},
        {network, "primary dns", {nullptr}, ""},
        {ports, "port1", {nullptr}, "240\n"},
        {ports, "port8", {"-1"}, "240\n"},
        {ports, "port2", {"255"}, "240\n"}, // -1 as a signed 8-bit number
        {ports, "port2", {"2"}, "241\n"},
        {ports, "port8", {"128"}, "241\n"},
        {ports, "port3", {"\"0x1\"", "257"}, ""}, // 1 in the low 8 bits
        {ports, "port3", {"\"\""}, ""},           // no digits: 0, not absent
        {ports, "Port8 speed", {"-1"}, "242\n"},
        {ports, "Port7 speed", {"3"}, "243\n"},
        {ports, "Port8 speed", {"257"}, "243\n"},
    };
    expect_reports(good, edits);
}

// A name that fills the field of the device, and one that goes on after it.
TEST_F(System, LongModelNames) {
    const std::string name(32, 'M');
    state().eeprom.model_name = name.c_str();
    const std::string document = backup();
    EXPECT_EQ(check(document), "");
    for (const char* end : {"-2SFQ\"", "-2SFP2\"", "\""}) {
        EXPECT_EQ(check(with(document, information, "model name", "\"" + name + end)), "212\n");
    }
}

TEST_F(System, OtherPortTypes) {
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(check(good), "212\n");
    const std::string other = backup();
    EXPECT_FALSE(contains(other, "speed"));
    EXPECT_EQ(check(other), "");
    // This model keeps its EEPROM entries.
    EXPECT_EQ(restore_calls(with(good, ports, "Port7 speed", "1"), "speed"), Calls{});

    // Speeds depend on the low 8 bits, the suffix of the name on the whole number.
    state().eeprom.macsec_port_type = 257;
    const std::string document = backup();
    EXPECT_TRUE(contains(document, "\"MS-8P\""));
    EXPECT_TRUE(contains(document, "Port8 speed"));
}

TEST_F(System, Restore) {
    const char name[] = "U_FlshSysInfoSetName(";
    expect_restored(good, settings,
                    {{"device name",
                      {"\"123456789012345678901234567890\""},
                      name,
                      "\"12345678901234567890123456789\")"}});
    const std::vector<Restored> edits = {
        {"dhcp", {"\"Yes\""}, "U_FlshSysSetDhcp(", "1)"},
        {"dhcp", {"2"}, "U_FlshSysSetDhcp(", "0)"},
        // One character is a text, though not an address.
        {"subnet mask", {"\"x\""}, "U_FlshSysSetIp(", "192.168.10.20, 0.0.0.0)"},
        {"static ip address", {"x"}, "U_FlshSysSetIp(", "0.0.0.0, 255.255.255.0)"},
        {"gateway", {"\"\""}, "U_FlshSysSetGateway(", "0.0.0.0)"},
        {"primary dns", {"\"192.168.100.2000\""}, "U_FlshSysSetDNSIp(", "1, 0.0.0.0)"},
        // Without an address or a mask everything stays, DHCP included.
        {"static ip address", {"\"\"", "\"192.168.100.2000\""}, "U_FlshSysSet", ""},
        {"subnet mask", {"\"\"", "\"192.168.100.2000\""}, "U_FlshSysSet", ""},
    };
    expect_restored(good, network, edits);
    const std::vector<Restored> speeds = {
        {"Port8 speed", {"1"}, "set_fiber_speed(", "7, 1)"},
        {"Port8 speed", {"1"}, "set_eeprom_fiber_speed(", "2, 1)"},
    };
    expect_restored(good, ports, speeds);
}

TEST_F(System, RestorePortsThatDiffer) {
    const std::string document = with(good, ports, {{"port1", "0"}, {"port8", "255"}});
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 0)", "U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // A stored 255 is not the document's -1.
    EXPECT_EQ(restore_calls(document, "U_PortSet"),
              (Calls{"U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // Without its key a port is enabled.
    EXPECT_EQ(restore_calls(without_section(document, ports), "U_PortSet"),
              (Calls{"U_PortSetEbl(0, 1)", "U_PortSetEbl(7, 1)", "U_PortSetSWreset()"}));
}
