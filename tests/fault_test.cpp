// Every operation of the contract made to fail, at each of its calls, once and
// from then on, in each mode. Backup writes a complete document all the same,
// restore makes every other call, and check comes to an end.

#include "tests/support/switch_test.h"

#include <filesystem>
#include <map>
#include <regex>
#include <set>

using simulator::make_fail;
using simulator::reset;

namespace {

using Names = std::vector<std::string>;

Names names_of(const Calls& calls) {
    Names names;
    for (const std::string& call : calls) {
        names.push_back(call.substr(0, call.find('(')));
    }
    return names;
}

// What these give, or do, decides which keys or calls there are to be.
const std::set<std::string> decisive = {
    "get_eeprom_macsec_port_type",
    "U_PortGetMode",
    "U_TrkLId2LogicId",
    "account_getFromFlash",
    "U_SnmpGetCommunitySize",
    "U_SnmpGetTrapSize",
    "U_SnmpGetUsmSize",
    "U_FlshSnmpGetMode",
    "U_FlshSnmpSetMode",
    "U_SnmpInsTrapIpv6",
    "U_SnmpInsInformIpv6",
    "str_to_ipaddr",
    "U_SysGetModbusEnabled",
    "U_SysSetModbusEnabled",
    "U_SysGetMSNTP",
    "U_SysGetDaylight",
    "U_FlshGetAcl",
    "U_QosGetScheduleMode",
};

// Only the start of a process calls these: the process tests make them fail.
const std::set<std::string> start_up = {"init_umdev", "initdef", "port_init"};

// Every function that a header of the contract declares.
std::set<std::string> contract() {
    const std::regex declaration(R"(\n[\w ]+[ *]+(\w+)\()");
    std::set<std::string> names;
    for (const auto& header :
         std::filesystem::directory_iterator(TEST_DATA "/../../platform/include")) {
        const std::string text = read_file(header.path());
        names.insert(std::sregex_token_iterator(text.begin(), text.end(), declaration, 1), {});
    }
    return names;
}

bool is_subsequence(const Names& part, const Names& whole) {
    auto next = part.begin();
    for (const std::string& name : whole) {
        if (next != part.end() && *next == name) {
            ++next;
        }
    }
    return next == part.end();
}

std::set<std::string> key_set(const std::string& document) {
    std::set<std::string> keys;
    for (const Key& key : keys_of(document)) {
        keys.insert(key.section + ":" + key.key);
    }
    return keys;
}

std::ptrdiff_t sections(const std::string& document) {
    return std::count(document.begin(), document.end(), '[');
}

// Another switch than the factory's wherever only what differs is set, and one
// with so few ports that the list of a rule reaches a trunk.
simulator::State other_device() {
    simulator::State device;
    device.ports.physical = 7;
    device.ports.trunks = {{0, 1}};
    for (std::size_t port = 0; port < 7; ++port) {
        device.ports.ports.at(port).enabled = 0;
    }
    device.eeprom.fiber_speed = {1, 1};
    device.eeprom.serial_port = 1;
    device.snmp.trap_mode = 1;
    device.modbus = {2, 0, 503};
    device.rstp.ports = {};
    return device;
}

} // namespace

class Fault : public SwitchTest {
protected:
    // Runs a mode on a switch, then again with each of its calls made to fail.
    template <typename Mode>
    void sweep(const simulator::State& device, Mode mode) {
        reset(device);
        mode("");
        std::map<std::string, int> calls;
        for (const std::string& name : names_of(all_calls())) {
            const int number = ++calls[name];
            reached.insert(name);
            for (const char* extent : {"", "+"}) {
                const std::string failing = name + ":" + std::to_string(number) + extent;
                SCOPED_TRACE(failing);
                reset(device);
                make_fail(failing);
                mode(name);
                ++runs;
            }
        }
    }

    void sweep_restore(const simulator::State& device, const std::string& document) {
        Names applied;
        sweep(device, [&](const std::string& failing) {
            const Names names = names_of(restore(document));
            if (failing.empty()) {
                applied = names;
            } else if (decisive.count(failing) == 0) {
                EXPECT_TRUE(is_subsequence(applied, names)) << "a call is left out";
            }
        });
    }

    std::set<std::string> reached;
    int runs = 0;
};

TEST_F(Fault, EveryCallOfEveryOperationInEveryMode) {
    const std::string good = backup();
    const std::set<std::string> keys = key_set(good);
    sweep({}, [&](const std::string& failing) {
        const std::string written = backup();
        EXPECT_EQ(sections(written), sections(good));
        EXPECT_TRUE(decisive.count(failing) != 0 || key_set(written) == keys)
            << "a key is left out";
    });
    sweep({}, [&](const std::string& failing) {
        const std::string report = check(good);
        EXPECT_TRUE(report.empty() || !failing.empty()) << report;
    });

    std::string document = with(good, "modbus tcp settings", "modbus", "1");
    document = with(document, "auth server setting", "authentication server", "1");
    sweep_restore(other_device(), document);
    document = with(document, "snmp settings", "snmp trap mode", "1");
    document = without(document, "rstp setting", "BPDU Guard ebl");
    document = without(document, "QoS Setting", "mode");
    sweep_restore({}, document);

    std::set<std::string> missed = contract();
    for (const std::string& name : reached) {
        EXPECT_EQ(missed.erase(name), 1U) << name << " is not part of the contract";
    }
    EXPECT_EQ(missed, start_up) << "operations that no mode calls";
    std::printf("%zu operations, %d failures in three modes\n", reached.size(), runs);
}
