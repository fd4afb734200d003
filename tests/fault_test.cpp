// Every operation of the contract fails in every mode: all of its calls, each
// call alone, and each call with those after it. tests/data/failures.txt holds
// what differs when all fail. When only some fail, no more may be lost.

#include "tests/support/switch_test.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

using simulator::make_fail;
using simulator::reset;

namespace {

using Names = std::multiset<std::string>;

struct Outcome {
    Calls lines; // a document, a report, or the changes of a restore
    Names parts; // its keys, or the names of its calls
};

std::string name_of(const std::string& call) {
    return call.substr(0, call.find('('));
}

Names lost(const Names& whole, const Names& rest) {
    Names lost;
    std::set_difference(whole.begin(), whole.end(), rest.begin(), rest.end(),
                        std::inserter(lost, lost.end()));
    return lost;
}

// Every function that the contract's headers declare, and their header.
std::map<std::string, std::string> contract() {
    const std::regex declaration(R"(\n\w[\w ]*[ *]+(\w+)\()");
    std::map<std::string, std::string> functions;
    for (const auto& header :
         std::filesystem::directory_iterator(TEST_DATA "/../../platform/include")) {
        const std::string text = read_file(header.path());
        for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end;
             ++match) {
            functions[(*match)[1]] = header.path().filename();
        }
    }
    return functions;
}

Outcome backed_up() {
    const std::string document = backup();
    Outcome outcome = {lines_of(document), {}};
    for (const Key& key : keys_of(document)) {
        outcome.parts.insert(key.section + ":" + key.key);
    }
    return outcome;
}

Outcome restored_from(const std::string& document) {
    Outcome outcome = {restore(document), {}};
    for (const std::string& call : outcome.lines) {
        outcome.parts.insert(name_of(call));
    }
    return outcome;
}

// What a key line or a call is about.
std::string head_of(const std::string& line) {
    return line.substr(0, line.find_last_not_of(' ', line.find_first_of("=(") - 1) + 1);
}

// The same for lines that differ only in the number of the key or of the argument.
std::string shape_of(const std::string& line) {
    const std::size_t end = line.find_first_of("=(");
    const bool is_call = end != std::string::npos && line[end] == '(';
    const std::size_t numbered = is_call ? line.size() : std::min(end, line.size());
    const std::regex number("0x[0-9A-F]+|[0-9{}, ]+");
    return std::regex_replace(line.substr(0, numbered), number, "") + line.substr(numbered);
}

// The new lines, and the heads of old ones that no new line replaces. Of lines
// of one shape, the first, and how many there are.
Calls difference(const Calls& whole, const Calls& changed) {
    const Names before(whole.begin(), whole.end());
    const Names after(changed.begin(), changed.end());
    Calls lines;
    std::set<std::string> heads;
    for (const std::string& line : lost(after, before)) {
        heads.insert(head_of(line));
        lines.push_back("+ " + line);
    }
    for (const std::string& line : lost(before, after)) {
        if (heads.count(head_of(line)) == 0) {
            lines.push_back("- " + head_of(line));
        }
    }
    Calls first;
    std::map<std::string, int> alike;
    for (const std::string& line : lines) {
        if (++alike[shape_of(line)] == 1) {
            first.push_back(line);
        }
    }
    for (std::string& line : first) {
        const int count = alike[shape_of(line)];
        line += count > 1 ? "  x" + std::to_string(count) : "";
    }
    return first;
}

// Not what a failing cipher makes of a secret, nor the codes of refusing validators,
// which are in checks.txt.
bool is_recorded(const std::string& header, const std::string& name) {
    return header != "aes.h" && name.rfind("account_encrypt", 0) != 0 && name.rfind("Usr", 0) != 0;
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
    document = with(document, "sntp setting",
                    {{"NTP Server", "1"}, {"IP/Domain", "0"}, {"NTP Public Server1", nullptr}});
    document = without(document, "rstp setting", "BPDU Guard ebl");
    return without(document, "QoS Setting", "mode");
}

} // namespace

class Fault : public SwitchTest {};

TEST_F(Fault, EveryCallOfEveryOperation) {
    const std::map<std::string, std::string> functions = contract();
    const std::string good = backup();
    std::set<std::string> reached;
    std::string record;
    const auto sweep = [&](const char* title, const simulator::State& device, auto mode) {
        reset(device);
        const Outcome whole = mode();
        std::map<std::string, int> calls;
        for (const std::string& call : all_calls()) {
            ++calls[name_of(call)];
        }
        for (const auto& [name, count] : calls) {
            reached.insert(name);
            const auto outcome_without = [&](const std::string& failing) {
                reset(device);
                make_fail(failing);
                return mode();
            };
            const Outcome failed = outcome_without(name);
            for (const std::string& line : difference(whole.lines, failed.lines)) {
                const std::string entry = title + (" " + name) + ": " + line + "\n";
                if (is_recorded(functions.at(name), name) && !contains(record, entry)) {
                    record += entry;
                }
            }
            const Names missing = lost(whole.parts, failed.parts);
            for (int number = 1; number <= count; ++number) {
                for (const char* extent : {"", "+"}) {
                    const std::string failing = name + ":" + std::to_string(number) + extent;
                    EXPECT_EQ(lost(lost(whole.parts, outcome_without(failing).parts), missing),
                              Names{})
                        << title << " without " << failing;
                }
            }
        }
    };
    sweep("backup", {}, backed_up);
    sweep("check", {}, [&] { return Outcome{lines_of(check(good)), {}}; });
    sweep("restore", other_device(), [&] { return restored_from(first_document(good)); });
    sweep("restore", {}, [&] { return restored_from(second_document(good)); });
    expect_golden(record, "failures.txt");

    // Only the start of a process calls these.
    reached.insert({"init_umdev", "initdef", "port_init"});
    for (const auto& [name, header] : functions) {
        EXPECT_EQ(reached.count(name), 1U) << "no mode calls " << name;
    }
    EXPECT_EQ(reached.size(), functions.size());
}

// A value that cannot be read is written like the one read before it. Another
// failing log setting leaves its own preset; a rule is left out.
TEST_F(Fault, OneReadOfSeveral) {
    reset();
    simulator::State& device = simulator::state();
    device.ports.ports.at(1).enabled = 0;
    device.dot1x.ports.at(4).mode = 2;
    const std::pair<const char*, const char*> documents[] = {
        {"U_FlshPortGetEbl:3", "\nport2 = 0 ;\nport3 = 0 ;\nport4 = 1 ;\n"},
        {"U_Dot1xGetPortMode:6", "\nport5_mode = \"Standard Authorization\" ;\n"
                                 "port6_mode = \"Standard Authorization\" ;\n"
                                 "port7_mode = \"Force Authorized\" ;\n"},
        {"Ui_SysLogFlashConfig:4",
         "\nsystem log server = 0 ;\nsystem log server ip = \"0.0.0.0\" ;\n"
         "system log server port = 514 ;\n"},
        {"U_FlshGetAcl:1", "\n[Acl setting]\nAcl_Rule_1 Index_Id = \"2\" ;\n"},
    };
    for (const auto& [failing, lines] : documents) {
        make_fail(failing);
        EXPECT_TRUE(contains(backup(), lines)) << failing;
    }
}
