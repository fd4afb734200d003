// What restore does differently when a key is missing: tests/data/missing.txt.
// Keys that differ only in a number share a line when they behave alike. A key
// whose absence changes nothing is first given another value, which is shown.
//
// UPDATE_GOLDEN=1 in the environment writes the file anew.

#include "tests/support/switch_test.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>

namespace {

// Of each operation, the last call that the other restore did not make.
std::map<std::string, std::string> only_in(const Calls& calls, const Calls& other) {
    std::map<std::string, std::string> last;
    for (const std::string& call : calls) {
        if (std::find(other.begin(), other.end(), call) == other.end()) {
            last[call.substr(0, call.find('('))] = call;
        }
    }
    return last;
}

// "(1 -> 0)": the arguments, or fields, in which two calls of one operation differ.
std::string difference(const std::string& a, const std::string& b) {
    const auto at = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    const auto tail = std::mismatch(a.rbegin(), a.rend() - at, b.rbegin(), b.rend() - at).first;
    const std::size_t begin = a.find_last_of("({ ", static_cast<std::size_t>(at) - 1) + 1;
    const auto part = [&](const std::string& call) {
        const std::size_t end = call.size() - static_cast<std::size_t>(tail - a.rbegin());
        return call.substr(begin, call.find_first_of(",)} ", end) - begin);
    };
    return "(" + part(a) + " -> " + part(b) + ")";
}

std::string effect(const Calls& whole, const Calls& missing) {
    auto after = only_in(missing, whole);
    std::string text;
    for (const auto& [operation, call] : only_in(whole, missing)) {
        const bool changed = after.count(operation) != 0;
        text += changed ? " " + operation + difference(call, after[operation]) : " no " + operation;
        after.erase(operation);
    }
    for (const auto& added : after) {
        text += " " + added.second;
    }
    return text;
}

} // namespace

class MissingKey : public SwitchTest {
protected:
    void add_lines(const simulator::State& device, const std::string& document,
                   const std::vector<Key>& keys) {
        for (const Key& key : keys) {
            const std::string line = "[" + key.section + "] " + line_of(device, document, key);
            const std::regex differs("\\([^()]* -> | = .:|0x..|[0-9][0-9,]*");
            if (seen.insert(std::regex_replace(line, differs, "#")).second) {
                lines.push_back(line);
            }
        }
    }

    std::string line_of(const simulator::State& device, const std::string& document,
                        const Key& key) {
        const auto calls = [&](const std::string& text) {
            simulator::reset(device);
            return restore(text);
        };
        const Calls missing = calls(without(document, key.section, key.key));
        for (const char* value : {"", "7", "1", "0"}) {
            const Calls whole =
                calls(*value ? with(document, key.section, key.key, value) : document);
            const std::string text = effect(whole, missing);
            if (!text.empty()) {
                return key.key + (*value ? " = " : "") + value + ":" + text;
            }
        }
        return key.key + ": nothing";
    }

    Calls lines;
    std::set<std::string> seen;
};

TEST_F(MissingKey, ChangesWhatRestoreDoes) {
    simulator::State other = device_from("other_switch.json");
    other.ports.physical = 8;
    other.eeprom.macsec_port_type = 1;
    const std::string factory = read_file(TEST_DATA "/factory_switch.ini");
    std::string document = with(factory, "port mirror setting", "enable state", "1");
    document = with(document, "auth server setting", "authentication server", "1");
    add_lines(other, document, keys_of(factory));
    add_lines({}, read_file(TEST_DATA "/other_switch.ini"),
              {{"sntp setting", "IP/Domain"},
               {"sntp setting", "NTP Manual Server name"},
               {"DSCP Mapping", "Message"}});
    expect_golden(lines, "missing.txt");
}
