// The manual pages against the tool. tests/data/missing.txt has, for each kind of key, the
// calls that restore makes only with (-) or only without (+) a key, or another value of it.

#include "platform/simulator/state_file.h"
#include "tests/support/switch_test.h"

#include <filesystem>
#include <map>
#include <regex>
#include <set>

namespace {

using Row = std::vector<std::string>; // a match and its groups

std::vector<Row> rows_in(const std::string& text, const std::string& expression) {
    const std::regex regex(expression);
    std::vector<Row> rows;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
        rows.emplace_back(match->begin(), match->end());
    }
    return rows;
}

// Section and key without its numbers, and a quote if the value has quotes.
std::string kind_of(const std::string& section, const Row& row) {
    const std::string key = std::regex_replace(row[2], std::regex("0x..|[0-9]+(?![.0-9]*x)"), "N");
    return "[" + section + "] " + key + (row[3].empty() ? "" : "\"");
}

std::string only_in(const Calls& calls, const Calls& other, const std::string& mark) {
    std::string lines;
    for (const std::string& call : calls) {
        lines += calls_with(other, call).empty() ? mark + call : "";
    }
    return lines;
}

} // namespace

struct Manual : SwitchTest {
    Manual() { // reads switch-config-document(5)
        std::string section;
        std::string kind;
        for (const Row& row :
             rows_in(read_file(TEST_DATA "/../../docs/switch-config-document.5"),
                     R"(\n\.Ss \[(.+)\]|\n\.It Cm (.+) Li =( Qq)? Ar)"
                     R"(|\n\.Em Missing : \w\w (.+) [.,]|\n\.Em Check : No (.+) [.,])")) {
            section = row[1].empty() ? section : row[1];
            kind = row[2].empty() ? kind : kind_of(section, row);
            stands_for[kind] += std::regex_replace(row[4], std::regex(R"(\\\(dq|\\)"), "");
            for (const Row& code : rows_in(row[5], R"(\d+)")) {
                codes.insert(section + "\t" + code[0]);
            }
        }
        stands_for.erase(""); // the heading of the first section
    }

    Calls calls(const std::string& document) {
        simulator::reset(device);
        return restore(document);
    }

    // The document with the value that the missing key stands for.
    std::string spelled_out(const std::string& document, const Key& key, std::string value) {
        if (value == "kept") {
            simulator::reset(device);
            const auto rows = rows_in(backup(), "\\[" + key.section + "\\](?:\n.+)*?\n" + key.key +
                                                    " *= \"?(.*?)\"? ;");
            value = rows.empty() ? "" : rows[0][1];
        }
        const bool ignored = value == "left out" || value == "not read";
        return with(document, key.section, key.key, ignored ? "-1" : "\"" + value + "\"");
    }

    void leave_out(const Key& key, const std::string& document, const std::string& kind) {
        const Calls made = calls(without(document, key.section, key.key));
        const std::string state = simulator::to_json_text(simulator::state());
        calls(spelled_out(document, key, stands_for[kind]));
        EXPECT_EQ(simulator::to_json_text(simulator::state()), state) << kind;
        std::string whole = document;
        for (int value = 7; value >= -1 && effects[kind].empty(); --value) {
            const Calls all = calls(whole);
            effects[kind] = only_in(all, made, " -") + only_in(made, all, " +");
            whole = with(document, key.section, key.key, std::to_string(value));
        }
    }

    void leave_out_each_key(const std::string& document, const simulator::State& onto) {
        device = onto;
        const auto before = effects;
        std::string section;
        for (const Row& row : rows_in(document, R"re(\n\[(.+)\]|\n(\w[^=\n]*?)\s*= ?("?))re")) {
            section = row[1].empty() ? section : row[1];
            const std::string kind = kind_of(section, row);
            if (!row[2].empty() && before.count(kind) == 0) {
                ASSERT_EQ(stands_for.count(kind), 1U) << kind << " is not in the page";
                leave_out({section, row[2]}, document, kind);
            }
        }
    }

    std::map<std::string, std::string> stands_for;   // a missing key, by kind
    std::set<std::string> codes{"-\t210", "-\t211"}; // with the section, which these two lack
    simulator::State device;
    std::map<std::string, std::string> effects; // of leaving out a key, by kind
};

TEST_F(Manual, HasTheCodesThatTheToolWritesAndNoOthers) {
    const std::string enumeration = read_file(TEST_DATA "/../../platform/include/return_codes.h");
    std::set<std::string> written;
    for (const char* folder : {TEST_DATA "/../../frame", TEST_DATA "/../../sections"}) {
        for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
            for (const Row& row : rows_in(file.is_directory() ? "" : read_file(file.path()),
                                          R"(USR_RET_(ERR|INI)_\w+)")) {
                written.insert(row[0]);
            }
        }
    }
    std::set<std::string> of_sections;
    for (const Row& row : rows_in(read_file(CODE_TABLE), "(\\d+)\t(\\w+)\t(.+)\t[A-Z].+\\.\n")) {
        EXPECT_TRUE(contains(enumeration, " " + row[2] + " = " + row[1] + ","));
        EXPECT_TRUE(written.erase(row[2]) == 1 || row[3] == "network settings") << row[2];
        of_sections.insert(row[3] + "\t" + row[1]);
    }
    EXPECT_EQ(written, std::set<std::string>()) << "are not in the page";
    EXPECT_EQ(codes, of_sections);
}

TEST_F(Manual, HasEveryKeyAndWhatAMissingOneStandsFor) {
    simulator::State other = device_from("other_switch.json");
    other.ports.physical = 8;
    other.eeprom.macsec_port_type = 1;
    other.vlan.isolation.fill({8});
    const std::string both =
        with(backup(), "auth server setting", "authentication server", "\"1\"");
    leave_out_each_key(with(both, "port mirror setting", "enable state", "\"1\""), other);
    simulator::State entered;
    entered.sntp.manual = 1;
    leave_out_each_key(read_file(TEST_DATA "/other_switch.ini"), entered);
    entered.sntp.client_enabled = 0;
    simulator::reset(entered);
    leave_out_each_key(backup(), {});
    EXPECT_EQ(effects.size(), stands_for.size()) << "keys that backup never writes";
    std::string lines;
    for (const auto& [kind, effect] : effects) {
        lines += kind.substr(0, kind.find('"')) + ":" + effect + "\n";
    }
    expect_golden(lines, "missing.txt");
}
