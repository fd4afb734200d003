// The document of whole switches, byte for byte, and back again.

#include "tests/support/switch_test.h"

using simulator::reset;
using simulator::state;

class Golden : public SwitchTest {};

TEST_F(Golden, FactorySwitch) {
    expect_golden(backup(), "factory_switch.ini");
}

// Ten ports without fibre speeds, and nothing configured that can be absent.
TEST_F(Golden, OtherSwitch) {
    reset(device_from("other_switch.json"));
    expect_golden(backup(), "other_switch.ini");
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

// Every call that changes the device, in order. What is set only where it
// differs is not among them: no port and no fibre speed.
TEST_F(Golden, RestoreCalls) {
    const std::string document = backup();
    EXPECT_EQ(check(document), "");
    expect_golden(restore(document), "factory_restore.calls");
    EXPECT_EQ(backup(), document);
}
