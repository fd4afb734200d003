#include "tests/support/switch_test.h"

#include "frame/modes.h"
#include "platform/simulator/state_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

SwitchTest::SwitchTest() {
    simulator::reset();
    gKeepConfig = 0;
    for (const char* path : {backup_path, restore_path, report_path}) {
        std::filesystem::remove_all(path);
    }
}

std::string read_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

simulator::State device_from(const std::string& json_file) {
    return simulator::from_json_text(read_file(std::string(TEST_DATA "/") + json_file));
}

std::string backup() {
    create_config_ini_file();
    EXPECT_EQ(read_file(report_path), "");
    return read_file(backup_path);
}

std::string check(const std::string& document) {
    write_file(restore_path, document);
    simulator::journal().clear();
    const int status = check_config_ini_file(restore_path);
    std::string report = read_file(report_path);
    EXPECT_EQ(status, report.empty() ? 0 : -1);
    EXPECT_EQ(changes(), Calls{}) << "check changes the device";
    return report;
}

Calls restore(const std::string& document, std::uint32_t keep) {
    write_file(restore_path, document);
    simulator::journal().clear();
    gKeepConfig = keep;
    testing::internal::CaptureStderr();
    EXPECT_EQ(parse_config_ini_file(restore_path), 0);
    testing::internal::GetCapturedStderr();
    return changes();
}

Calls restore_calls(const std::string& document, const std::string& part) {
    Calls calls;
    for (const std::string& call : restore(document)) {
        if (call.find(part) != std::string::npos) {
            calls.push_back(call);
        }
    }
    return calls;
}

Calls changes() {
    Calls calls;
    for (const simulator::Call& call : simulator::journal()) {
        if (call.access == simulator::Access::change) {
            calls.push_back(call.text);
        }
    }
    return calls;
}

Calls all_calls() {
    Calls calls;
    for (const simulator::Call& call : simulator::journal()) {
        calls.push_back(call.text);
    }
    return calls;
}

namespace {

using Lines = std::vector<std::string>;

Lines lines_of(const std::string& document) {
    Lines lines;
    std::istringstream stream(document);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string joined(const Lines& lines) {
    std::string document;
    for (const std::string& line : lines) {
        document += line + "\n";
    }
    return document;
}

// The key of a key line, or "".
std::string key_of(const std::string& line) {
    const std::size_t equals = line.find('=');
    if (line.empty() || line[0] == '#' || line[0] == '[' || equals == std::string::npos) {
        return "";
    }
    return line.substr(0, line.find_last_not_of(" \t", equals - 1) + 1);
}

// Copies the lines; those of the section go through edit, which may add any
// number of lines in their place.
template <typename Edit>
Lines edit_section(const std::string& document, const std::string& section, Edit edit) {
    Lines edited;
    bool inside = false;
    for (const std::string& line : lines_of(document)) {
        if (!line.empty() && line[0] == '[') {
            inside = line == "[" + section + "]";
        }
        if (inside) {
            edit(edited, line);
        } else {
            edited.push_back(line);
        }
    }
    return edited;
}

} // namespace

std::string with(const std::string& document, const std::string& section, const std::string& key,
                 const std::string& value) {
    const std::string head = "[" + section + "]";
    const std::string added = key + " = " + value + " ;";
    bool found = false;
    return joined(edit_section(without(document, section, key), section,
                               [&](Lines& edited, const std::string& line) {
                                   edited.push_back(line);
                                   if (line == head && !found) {
                                       edited.push_back(added);
                                       found = true;
                                   }
                               }));
}

std::string without(const std::string& document, const std::string& section,
                    const std::string& key) {
    return joined(edit_section(document, section, [&](Lines& edited, const std::string& line) {
        if (key_of(line) != key) {
            edited.push_back(line);
        }
    }));
}

std::string without_section(const std::string& document, const std::string& section) {
    return joined(edit_section(document, section, [](Lines&, const std::string&) {}));
}

std::string edited(const std::string& document, const Edit& edit) {
    return edit.value == nullptr ? without(document, edit.section, edit.key)
                                 : with(document, edit.section, edit.key, edit.value);
}

std::vector<Key> keys_of(const std::string& document) {
    std::vector<Key> keys;
    std::string section;
    for (const std::string& line : lines_of(document)) {
        if (!line.empty() && line[0] == '[') {
            section = line.substr(1, line.size() - 2);
        } else if (!key_of(line).empty()) {
            keys.push_back({section, key_of(line)});
        }
    }
    return keys;
}
