// What restore applies: the exact calls that an edited document leads to.

#include "frame/modes.h"
#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::state;

class Restore : public SwitchTest {
protected:
    const std::string good = backup();

    // The calls that the edited document adds to those of the good one.
    Calls calls_about(const std::string& document, const std::string& name) {
        Calls calls;
        for (const std::string& call : restore(document)) {
            if (call.find(name) != std::string::npos) {
                calls.push_back(call);
            }
        }
        return calls;
    }
};

TEST_F(Restore, DeviceName) {
    EXPECT_EQ(calls_about(without(good, "system settings", "device name"), "Name"),
              (Calls{"U_FlshSysInfoSetName(\"\")"}));
    EXPECT_EQ(calls_about(with(good, "system settings", "device name",
                               "\"123456789012345678901234567890\""),
                          "Name"),
              (Calls{"U_FlshSysInfoSetName(\"12345678901234567890123456789\")"}));
}

TEST_F(Restore, Network) {
    const char section[] = "network settings";
    EXPECT_EQ(calls_about(with(good, section, "dhcp", "\"Yes\""), "U_FlshSysSet").front(),
              "U_FlshSysSetDhcp(1)");
    EXPECT_EQ(calls_about(with(good, section, "dhcp", "2"), "U_FlshSysSet").front(),
              "U_FlshSysSetDhcp(0)");

    // Without an address or a mask everything stays, DHCP included.
    for (const char* key : {"static ip address", "subnet mask"}) {
        for (const char* value : {"\"\"", "\"192.168.100.2000\""}) {
            const std::string document =
                with(with(good, section, key, value), section, "dhcp", "1");
            EXPECT_EQ(calls_about(document, "U_FlshSysSet"), Calls{}) << key << value;
        }
    }

    // What does not convert is 0.
    std::string document = with(good, section, "static ip address", "\"no address\"");
    document = with(document, section, "gateway", "\"\"");
    document = with(document, section, "primary dns", "\"192.168.100.2000\"");
    EXPECT_EQ(calls_about(document, "U_FlshSysSet"),
              (Calls{"U_FlshSysSetDhcp(0)", "U_FlshSysSetIp(0.0.0.0, 255.255.255.0)",
                     "U_FlshSysSetGateway(0.0.0.0)", "U_FlshSysSetDNSIp(1, 0.0.0.0)"}));
}

TEST_F(Restore, KeepMask) {
    for (const std::uint32_t keep : {0U, 1U, 2U, 3U, 4U, 0xfffffffcU, 0xffffffffU}) {
        bool network_applied = false;
        for (const std::string& call : restore(good, keep)) {
            network_applied = network_applied || call == "U_FlshSysSetDhcp(0)";
        }
        EXPECT_EQ(network_applied, (keep & 2) == 0) << keep;
    }
}

TEST_F(Restore, PortsThatDiffer) {
    std::string document = with(good, "port settings", "port1", "0");
    document = with(document, "port settings", "port8", "255");
    EXPECT_EQ(calls_about(document, "U_Port"),
              (Calls{"U_PortSetEbl(0, 0)", "U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // A stored 255 is not the document's -1.
    EXPECT_EQ(calls_about(document, "U_Port"),
              (Calls{"U_PortSetEbl(7, -1)", "U_PortSetSWreset()"}));
    // Without its keys every port is enabled.
    EXPECT_EQ(calls_about(without_section(document, "port settings"), "U_Port"),
              (Calls{"U_PortSetEbl(0, 1)", "U_PortSetEbl(7, 1)", "U_PortSetSWreset()"}));
}

TEST_F(Restore, FibreSpeeds) {
    EXPECT_EQ(calls_about(with(good, "port settings", "Port8 speed", "1"), "speed"),
              (Calls{"set_fiber_speed(7, 1)", "set_eeprom_fiber_speed(2, 1)"}));
    EXPECT_EQ(calls_about(without_section(good, "port settings"), "speed"),
              (Calls{"set_fiber_speed(6, 0)", "set_eeprom_fiber_speed(1, 0)",
                     "set_fiber_speed(7, 0)", "set_eeprom_fiber_speed(2, 0)"}));
    // A model without fibre speeds keeps its EEPROM entries.
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(calls_about(with(good, "port settings", "Port7 speed", "1"), "speed"), Calls{});
}

TEST_F(Restore, FailedReadsLeaveTheStartValue) {
    state().ports.ports.at(1).enabled = 0;
    make_fail("U_FlshPortGetEbl:3,U_FlshSysGetIp");
    const std::string document = backup();
    EXPECT_NE(document.find("port2 = 0 ;\nport3 = 0 ;\nport4 = 1 ;"), std::string::npos)
        << "a port that cannot be read is written like the one before it";
    EXPECT_NE(document.find("static ip address = \"\" ;\nsubnet mask = \"\" ;\n"),
              std::string::npos);
}

TEST_F(Restore, NothingOfAnUnloadableDocument) {
    write_file(restore_path, with(good, "port settings", "port1", "0") + "[no end\n");
    write_file(report_path, "240\n");
    simulator::journal().clear();
    EXPECT_EQ(parse_config_ini_file(restore_path), -1);
    EXPECT_EQ(all_calls(), Calls{});
    EXPECT_EQ(read_file(report_path), "240\n");
}
