// Every operation of the contract made to fail, at each of its calls, once and
// from then on, in each mode. Backup writes a complete document all the same,
// restore makes every other call, and check comes to an end. What changes when
// all calls of an operation fail is in tests/data/failures.txt.

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

// What these give decides which keys a document has.
const std::set<std::string> decide_keys = {
    // Which ports have speeds or alarms, and trunks a name.
    "get_eeprom_macsec_port_type",
    "U_PortGetMode",
    "U_TrkLId2LogicId",
    // Which slots and rows there are.
    "account_getFromFlash",
    "U_SnmpGetCommunitySize",
    "U_SnmpGetTrapSize",
    "U_SnmpGetUsmSize",
    "U_FlshGetAcl",
    // Which of several forms the section has.
    "U_SysGetMSNTP",
    "U_SysGetDaylight",
    "U_QosGetScheduleMode",
};

// What these give or do decides which calls follow in restore.
const std::set<std::string> decide_calls = {
    // Which models have speeds.
    "get_eeprom_macsec_port_type",
    // How many rows there are to remove; one that was not put in is not there.
    "U_SnmpGetCommunitySize",
    "U_SnmpGetTrapSize",
    "U_SnmpGetUsmSize",
    "U_SnmpInsTrapIpv6",
    "U_SnmpInsInformIpv6",
    // What differs from what is stored, is stored and read back.
    "U_FlshSnmpGetMode",
    "U_FlshSnmpSetMode",
    "U_SysGetModbusEnabled",
    "U_SysSetModbusEnabled",
    // What is no address is not applied.
    "str_to_ipaddr",
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

// The lines of a document without the clock.
Calls lines_of(const std::string& document) {
    std::istringstream stream(
        without(without(document, "sntp setting", "Date"), "sntp setting", "Time"));
    Calls lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// The lines that the other list has not, each behind the mark.
std::string lacking(char mark, const Calls& lines, Calls other) {
    std::string text;
    for (const std::string& line : lines) {
        const auto found = std::find(other.begin(), other.end(), line);
        if (found == other.end()) {
            text += mark + (" " + line) + "\n";
        } else {
            other.erase(found);
        }
    }
    return text;
}

std::ptrdiff_t sections(const std::string& document) {
    return std::count(document.begin(), document.end(), '[');
}

// Another switch than the factory's wherever only what differs is set, and one
// with so few ports that the list of a rule reaches a trunk.
simulator::State other_device() {
    simulator::State device;
    device.ports.physical = 7;
    device.ports.trunks = {{}, {4}};
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

// Documents that take the ways through restore that the factory's does not.
std::string first_document(const std::string& good) {
    const std::string document = with(good, "modbus tcp settings", "modbus", "1");
    return with(document, "auth server setting", "authentication server", "1");
}

std::string second_document(const std::string& good) {
    std::string document = with(good, "snmp settings", "snmp trap mode", "1");
    document = with(document, "modbus tcp settings", "modbus", "1");
    document = with(document, "sntp setting", {{"NTP Server", "1"}, {"IP/Domain", "0"}});
    document = without(document, "rstp setting", "BPDU Guard ebl");
    return without(document, "QoS Setting", "mode");
}

} // namespace

class Fault : public SwitchTest {
protected:
    // Runs a mode on a switch, then again with each of its calls made to fail.
    template <typename Mode>
    void sweep(const char* title, const simulator::State& device, Mode mode) {
        const int runs_before = runs;
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
        std::printf("%s: %zu operations, %d failures\n", title, calls.size(), runs - runs_before);
    }

    void sweep_restore(const simulator::State& device, const std::string& document) {
        Names applied;
        sweep("restore", device, [&](const std::string& failing) {
            const Names names = names_of(restore(document));
            if (failing.empty()) {
                applied = names;
            } else if (decide_calls.count(failing) == 0) {
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
    sweep("backup", {}, [&](const std::string& failing) {
        const std::string written = backup();
        EXPECT_EQ(sections(written), sections(good));
        EXPECT_TRUE(decide_keys.count(failing) != 0 || key_set(written) == keys)
            << "a key is left out";
    });
    sweep("check", {}, [&](const std::string& failing) {
        const std::string report = check(good);
        EXPECT_TRUE(report.empty() || !failing.empty()) << report;
    });

    sweep_restore(other_device(), first_document(good));
    sweep_restore({}, second_document(good));

    std::set<std::string> missed = contract();
    for (const std::string& name : reached) {
        EXPECT_EQ(missed.erase(name), 1U) << name << " is not part of the contract";
    }
    EXPECT_EQ(missed, start_up) << "operations that no mode calls";
    std::printf("%zu operations, %d failures in three modes\n", reached.size(), runs);
}

TEST_F(Fault, WhatEachFailureChanges) {
    const std::string good = backup();
    std::string text;
    const auto record = [&](const char* title, const simulator::State& device, auto mode) {
        reset(device);
        const Calls whole = mode();
        const Names called = names_of(all_calls());
        for (const std::string& name : std::set<std::string>(called.begin(), called.end())) {
            reset(device);
            make_fail(name);
            const Calls changed = mode();
            text += title + (": " + name) + "\n" + lacking('-', whole, changed) +
                    lacking('+', changed, whole);
        }
    };
    record("backup", {}, [] { return lines_of(backup()); });
    record("check", {}, [&] { return lines_of(check(good)); });
    record("restore", other_device(), [&] { return restore(first_document(good)); });
    record("restore of another document", {}, [&] { return restore(second_document(good)); });
    expect_golden(text, "failures.txt");
}
