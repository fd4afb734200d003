// The manual pages against the tool: their codes against the enumeration and the
// sources, the keys of the document against what backup writes, and what a missing
// key stands for against what restore does.
//
// What restore does differently without a key is in tests/data/missing.txt, which
// UPDATE_GOLDEN=1 writes anew. Keys that differ only in a number share a line when
// they behave alike. A key whose absence changes nothing is first given another
// value, which is shown.

#include "platform/simulator/state_file.h"
#include "tests/support/switch_test.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

namespace {

using Set = std::set<std::string>;
using Row = std::vector<std::string>; // a match and its groups

std::vector<Row> rows_in(const std::string& text, const std::string& expression) {
    const std::regex regex(expression);
    std::vector<Row> rows;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
        rows.emplace_back(match->begin(), match->end());
    }
    return rows;
}

std::string source(const std::string& path) {
    return read_file(TEST_DATA "/../../" + path);
}

Set codes_in_sources() {
    Set names;
    for (const char* folder : {"/../../frame", "/../../sections"}) {
        for (const auto& file :
             std::filesystem::recursive_directory_iterator(TEST_DATA + std::string(folder))) {
            const std::string text = file.is_regular_file() ? read_file(file.path()) : "";
            for (const Row& row : rows_in(text, R"(\bUSR_RET_\w+)")) {
                names.insert(row[0]);
            }
        }
    }
    names.erase("USR_RET_OK"); // no fault
    return names;
}

// Section and key without its numbers, and a quote when the value has quotes.
std::string family(const std::string& section, const std::string& key, const std::string& quote) {
    return section + ":" + std::regex_replace(key, std::regex("0x..|[0-9]+"), "N") + quote;
}

// An entry of switch-config-document(5).
struct Entry {
    std::string missing;
    Set codes; // with the section, as in the table of codes
};

std::map<std::string, Entry> page_entries() {
    std::map<std::string, Entry> entries;
    std::string section;
    Entry* entry = nullptr;
    for (const Row& row :
         rows_in(source("docs/switch-config-document.5"),
                 R"(\n\.Ss \[(.+)\]|\n\.It Cm (.+) Li =( Qq)? Ar)"
                 R"(|\n\.Em Missing : \w\w (.+) [.,]|\n\.Em Check : No (.+) [.,])")) {
        section = row[1].empty() ? section : row[1];
        if (!row[2].empty()) {
            entry = &entries[family(section, row[2], row[3].empty() ? "" : "\"")];
        } else if (!row[4].empty()) {
            entry->missing = std::regex_replace(row[4], std::regex(R"(\\\(dq|\\)"), "");
        }
        for (const Row& code : rows_in(row[5], R"(\d+)")) {
            entry->codes.insert(section + "\t" + code[0]);
        }
    }
    return entries;
}

std::string value_in(const std::string& document, const Key& key) {
    const std::size_t section = document.find("\n[" + key.section + "]\n");
    const auto rows = rows_in(document.substr(section), "\n" + key.key + " *= \"?(.*?)\"? ;");
    return rows.empty() ? "" : rows[0][1];
}

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

class Manual : public SwitchTest {
protected:
    Calls calls(const std::string& document) {
        simulator::reset(device);
        return restore(document);
    }

    std::string state_after(const std::string& document) {
        calls(document);
        return simulator::to_json_text(simulator::state());
    }

    // The document with the value that the missing key stands for.
    std::string spelled_out(const std::string& document, const Key& key, const std::string& name) {
        std::string value = entries.at(name).missing;
        if (value == "kept") {
            simulator::reset(device);
            value = value_in(backup(), key);
        }
        value = value == "left out" ? "-1" : value;
        return value == "not read" ? document
                                   : with(document, key.section, key.key, "\"" + value + "\"");
    }

    // Adds the line for a key.
    void record(const std::string& document, const Key& key, const Calls& missing) {
        std::string text = key.key + ": nothing";
        for (const std::string value : {"", "7", "1", "0"}) {
            const std::string whole =
                value.empty() ? document : with(document, key.section, key.key, value);
            const std::string changed = effect(calls(whole), missing);
            if (!changed.empty()) {
                text = key.key + (value.empty() ? "" : " = ") + value + ":" + changed;
                break;
            }
        }
        text = "[" + key.section + "] " + text;
        const std::regex number(R"(\([^()]* -> | = .:|0x..|[0-9][0-9,]*)");
        if (seen.insert(std::regex_replace(text, number, "#")).second) {
            lines.push_back(text);
        }
    }

    void leave_out_each_key(const simulator::State& onto, const std::string& document) {
        device = onto;
        const Set before = written;
        std::string section;
        for (const Row& row : rows_in(document, R"re(\n\[(.+)\]|\n(\w[^=\n]*?)\s*= ?("?))re")) {
            section = row[1].empty() ? section : row[1];
            const std::string name = family(section, row[2], row[3]);
            if (row[2].empty() || before.count(name) != 0) {
                continue;
            }
            ASSERT_EQ(entries.count(name), 1U) << name << " is not in the page";
            written.insert(name);
            const Key key{section, row[2]};
            const std::string missing = without(document, section, key.key);
            EXPECT_EQ(state_after(missing), state_after(spelled_out(document, key, name))) << name;
            record(document, key, calls(missing));
        }
    }

    const std::map<std::string, Entry> entries = page_entries();
    simulator::State device;
    Set written; // families of keys
    Set seen;
    Calls lines;
};

TEST_F(Manual, HasTheCodesThatTheToolWritesAndNoOthers) {
    std::map<std::string, std::string> enumeration;
    for (const Row& row : rows_in(source("platform/include/return_codes.h"), R"((\w+) = (\d+))")) {
        enumeration[row[1]] = row[2];
    }
    Set written_codes = codes_in_sources();
    Set of_sections;
    const auto table = rows_in(read_file(CODE_TABLE), "(\\d+)\t(\\w+)\t([^\t]+)\t([A-Z].+\\.)\n");
    for (const Row& row : table) {
        EXPECT_EQ(enumeration[row[2]], row[1]);
        EXPECT_TRUE(written_codes.erase(row[2]) == 1 || row[3] == "network settings") << row[2];
        if (row[3] != "-") {
            of_sections.insert(row[3] + "\t" + row[1]);
        }
    }
    EXPECT_EQ(written_codes, Set()) << "are not in the page";
    EXPECT_EQ(rows_in(source("docs/switch-config.8"), "USR_RET_").size(), table.size());
    Set of_entries;
    for (const auto& entry : entries) {
        of_entries.insert(entry.second.codes.begin(), entry.second.codes.end());
    }
    EXPECT_EQ(of_entries, of_sections);
}

TEST_F(Manual, HasEveryKeyAndWhatAMissingOneStandsFor) {
    simulator::State other = device_from("other_switch.json");
    other.ports.physical = 8;
    other.eeprom.macsec_port_type = 1;
    other.vlan.isolation.fill({8});
    const std::string factory =
        with(backup(), "auth server setting", "authentication server", "\"1\"");
    leave_out_each_key(other, with(factory, "port mirror setting", "enable state", "\"1\""));
    simulator::State entered;
    entered.sntp.manual = 1;
    leave_out_each_key(entered, read_file(TEST_DATA "/other_switch.ini"));
    entered.sntp.client_enabled = 0;
    simulator::reset(entered);
    leave_out_each_key({}, backup());
    EXPECT_EQ(written.size(), entries.size()) << "keys that backup never writes";
    expect_golden(lines, "missing.txt");
}
