// "system information" and "port settings".

#include "platform/include/ports.h"
#include "tests/support/switch_test.h"

using simulator::state;

class System : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

constexpr char ports[] = "port settings";

} // namespace

// A name that fills the field of the device, and one that goes on after it.
TEST_F(System, LongModelNames) {
    const std::string name(32, 'M');
    state().eeprom.model_name = name.c_str();
    const std::string document = backup();
    EXPECT_EQ(check(document), "");
    for (const char* end : {"-2SFQ\"", "-2SFP2\"", "\""}) {
        EXPECT_EQ(check(with(document, "system information", "model name", "\"" + name + end)),
                  "212\n");
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
    state().ports.ports.at(0).mode = LAN_PORT_MODE_FIBER;
    EXPECT_TRUE(contains(backup(), "\nPort1 speed = "));
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
