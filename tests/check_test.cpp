// Every code that check can report, each from an edit of a good document.

#include "tests/support/switch_test.h"

using simulator::state;

class Check : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

struct Edit {
    const char* section;
    const char* key;
    const char* value; // null removes the key
    const char* report;
};

std::string edited(const std::string& document, const Edit& edit) {
    return edit.value == nullptr ? without(document, edit.section, edit.key)
                                 : with(document, edit.section, edit.key, edit.value);
}

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

template <std::size_t Count>
void expect_reports(const std::string& good, const Edit (&edits)[Count]) {
    for (const Edit& edit : edits) {
        EXPECT_EQ(check(edited(good, edit)), edit.report)
            << edit.section << ":" << edit.key << " = " << (edit.value ? edit.value : "(none)");
    }
}

} // namespace

TEST_F(Check, Identity) {
    expect_reports(good, identity_edits);
}

TEST_F(Check, Ports) {
    expect_reports(good, port_edits);
}

// Mending one fault after the other brings up the next of the total order.
TEST_F(Check, FirstFaultOnly) {
    const Edit faults[] = {
        {"system information", "model name", "\"x\"", "212\n"},
        {"system settings", "device name", "\"123456789012345678901234567890\"", "213\n"},
        {"network settings", "subnet mask", "\"x\"", bad_mask},
        {"network settings", "gateway", "\"x\"", "214\n"},
        {"network settings", "primary dns", "\"x\"", "215\n"},
        {"port settings", "port7", nullptr, "240\n"},
        {"port settings", "port8", "7", "241\n"},
        {"port settings", "Port7 speed", nullptr, "242\n"},
        {"port settings", "Port8 speed", "7", "243\n"},
    };
    std::string document = good;
    for (auto fault = std::rbegin(faults); fault != std::rend(faults); ++fault) {
        document = edited(document, *fault);
        EXPECT_EQ(check(document), fault->report) << fault->key;
    }
}

TEST_F(Check, OtherModelNeedsNoSpeedKeys) {
    state().eeprom.macsec_port_type = 0;
    EXPECT_EQ(check(good), "212\n");
    const std::string other = backup();
    EXPECT_EQ(other.find("speed"), std::string::npos);
    EXPECT_EQ(check(other), "");
}

// The library gives the port type in its low 8 bits, the identity compares it whole.
TEST_F(Check, PortTypeWidths) {
    state().eeprom.macsec_port_type = 257;
    const std::string document = backup();
    EXPECT_NE(document.find("\"MS-8P\""), std::string::npos);
    EXPECT_NE(document.find("Port8 speed"), std::string::npos);
}

TEST_F(Check, UnloadableDocumentIsOneFault) {
    EXPECT_EQ(check(good + "no key line\n"), "211\n");
    EXPECT_EQ(check(good), "") << "a stale code is left in the report";
}
