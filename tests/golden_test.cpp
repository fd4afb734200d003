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

// Every device call of the three modes, in order. What is set only where it
// differs is not among them: no port and no fibre speed.
TEST_F(Golden, DeviceCalls) {
    const std::string document = backup();
    expect_golden(all_calls(), "factory_backup.calls");
    EXPECT_EQ(check(document), "");
    expect_golden(all_calls(), "factory_check.calls");
    restore(document);
    expect_golden(all_calls(), "factory_restore.calls");
    EXPECT_EQ(backup(), document);
}

// A switch of which nothing can be read but how many entries there are: the
// document holds what each value starts from, and so does what restore compares.
TEST_F(Golden, UnreadableSwitch) {
    const std::string document = backup();
    std::string reads;
    for (const std::string& call : all_calls()) {
        const std::string name = call.substr(0, call.find('('));
        const bool tells_a_number = name.find("Size") != std::string::npos ||
                                    name == "account_getFromFlash" || name == "U_PortGetMode" ||
                                    name == "get_eeprom_macsec_port_type";
        if ((name.find("et") != std::string::npos || name == "Ui_SysLogFlashConfig") &&
            !tells_a_number) {
            reads += name + ",";
        }
    }
    simulator::make_fail(reads + "U_SysGetModbusEnabled,U_FlshSnmpGetTrapIpv6Entry");
    const std::string unreadable = backup();
    expect_golden(without(without(unreadable, "sntp setting", "Date"), "sntp setting", "Time"),
                  "unreadable_switch.ini");
    expect_golden(restore(document), "unreadable_restore.calls");
}
