// What holds over all sections: the orders of the modes, the first fault, the
// keep mask, and documents that cannot be loaded.

#include "frame/modes.h"
#include "tests/support/switch_test.h"

class Order : public SwitchTest {
protected:
    const std::string good = backup();
};

// Mending one fault after the other brings up the next of the total order.
TEST_F(Order, FirstFaultOnly) {
    const Edit faults[] = {
        {"system information", "model name", "\"x\"", "212\n"},
        {"system settings", "device name", "\"123456789012345678901234567890\"", "213\n"},
        {"network settings", "subnet mask", "\"x\"", "21\n"},
        {"network settings", "gateway", "\"x\"", "214\n"},
        {"network settings", "primary dns", "\"x\"", "215\n"},
        {"port settings", "port7", nullptr, "240\n"},
        {"port settings", "port8", "7", "241\n"},
        {"port settings", "Port7 speed", nullptr, "242\n"},
        {"port settings", "Port8 speed", "7", "243\n"},
        {"vlan setting", "port8_role", nullptr, "294\n"},
        {"vlan setting", "port1_vlan", nullptr, "297\n"},
        {"vlan setting", "port3_role", "\"Hybrid\"", "295\n"},
        {"vlan setting", "port2_vlan", "\"one\"", "298\n"},
        {"vlan setting", "management vlan id", nullptr, "301\n"},
        {"vlan port isolation setting", "port1", "\"9\"", "330\n"},
        {"vlan port isolation setting", "port2", nullptr, "329\n"},
        {"rstp setting", "enable state", nullptr, "303\n"},
        {"rstp setting", "mode", "\"0\"", "318\n"},
        {"rstp setting", "priority", nullptr, "319\n"},
    };
    std::string document = good;
    for (auto fault = std::rbegin(faults); fault != std::rend(faults); ++fault) {
        document = edited(document, *fault);
        EXPECT_EQ(check(document), fault->report) << fault->key;
    }
}

TEST_F(Order, UnloadableDocumentIsOneFault) {
    EXPECT_EQ(check(good + "no key line\n"), "211\n");
    EXPECT_EQ(check(good), "") << "a stale code is left in the report";
}

TEST_F(Order, KeepMask) {
    for (const std::uint32_t keep : {0U, 1U, 2U, 3U, 4U, 0xfffffffcU, 0xffffffffU}) {
        bool network_applied = false;
        for (const std::string& call : restore(good, keep)) {
            network_applied = network_applied || call == "U_FlshSysSetDhcp(0)";
        }
        EXPECT_EQ(network_applied, (keep & 2) == 0) << keep;
    }
}

TEST_F(Order, NothingOfAnUnloadableDocument) {
    write_file(restore_path, with(good, "port settings", "port1", "0") + "[no end\n");
    write_file(report_path, "240\n");
    simulator::journal().clear();
    EXPECT_EQ(parse_config_ini_file(restore_path), -1);
    EXPECT_EQ(all_calls(), Calls{});
    EXPECT_EQ(read_file(report_path), "240\n");
}
