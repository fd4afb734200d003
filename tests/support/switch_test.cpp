#include "tests/support/switch_test.h"

#include "frame/keep_config.h"
#include "frame/modes.h"
#include "platform/simulator/state_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

constexpr const char* tool_files[] = {backup_path, restore_path, report_path};

// Refuses to overwrite the tool's files where they are not the tests' own, and
// leaves none behind.
class OwnFiles : public testing::Environment {
    void SetUp() override {
        for (const char* path : tool_files) {
            if (std::filesystem::exists(std::filesystem::symlink_status(path))) {
                fprintf(stderr, "%s is in the way: run the tests by ctest\n", path);
                exit(1);
            }
        }
        setenv("TZ", "UTC0", 1);
        if (getenv("TEST_TMPDIR") == nullptr && mkdtemp(directory) != nullptr) {
            setenv("TEST_TMPDIR", directory, 0);
        }
    }
    void TearDown() override {
        for (const char* path : tool_files) {
            std::filesystem::remove_all(path);
        }
        std::filesystem::remove_all(directory);
    }

    char directory[32] = "/tmp/switch_config_tests.XXXXXX";
};
const auto* const own_files = testing::AddGlobalTestEnvironment(new OwnFiles);

} // namespace

SwitchTest::SwitchTest() {
    simulator::reset();
    gKeepConfig = 0;
    for (const char* path : tool_files) {
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

void expect_golden(const std::string& content, const std::string& name) {
    const std::string path = std::string(TEST_DATA "/") + name;
    if (std::getenv("UPDATE_GOLDEN") != nullptr) {
        write_file(path, content);
    }
    EXPECT_EQ(content, read_file(path));
}

void expect_golden(const Calls& calls, const std::string& name) {
    std::string lines;
    for (auto call = calls.begin(); call != calls.end();) {
        const auto other =
            std::find_if(call, calls.end(), [&](auto& next) { return next != *call; });
        lines += *call + (other - call > 1 ? "  x" + std::to_string(other - call) : "") + "\n";
        call = other;
    }
    expect_golden(lines, name);
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

Calls all_calls(bool only_changes) {
    Calls calls;
    for (const simulator::Call& call : simulator::journal()) {
        if (!only_changes || call.access == simulator::Access::change) {
            calls.push_back(call.text);
        }
    }
    return calls;
}

Calls changes() {
    return all_calls(true);
}

namespace {

bool is_head(const std::string& line) {
    return !line.empty() && line[0] == '[';
}

// The key of a key line, or "".
std::string key_of(const std::string& line) {
    const std::size_t equals = line.find('=');
    if (line.empty() || line[0] == '#' || is_head(line) || equals == std::string::npos) {
        return "";
    }
    return line.substr(0, line.find_last_not_of(" \t", equals - 1) + 1);
}

// Without those lines of the section that are chosen.
template <typename Chosen>
std::string without_lines(const std::string& document, const std::string& section, Chosen chosen) {
    std::string kept;
    std::istringstream stream(document);
    bool inside = false;
    for (std::string line; std::getline(stream, line);) {
        if (is_head(line)) {
            inside = line == "[" + section + "]";
        }
        if (!inside || !chosen(line)) {
            kept += line + "\n";
        }
    }
    return kept;
}

} // namespace

std::string without(const std::string& document, const std::string& section,
                    const std::string& key) {
    return without_lines(document, section,
                         [&](const std::string& line) { return key_of(line) == key; });
}

std::string without_section(const std::string& document, const std::string& section) {
    return without_lines(document, section, [](const std::string&) { return true; });
}

std::string with(const std::string& document, const std::string& section, const std::string& key,
                 const std::string& value) {
    const std::string head = "[" + section + "]\n";
    std::string edited = without(document, section, key);
    const std::size_t at = edited.find(head);
    if (at == std::string::npos) {
        ADD_FAILURE() << "no section " << section;
        return edited;
    }
    return edited.insert(at + head.size(), key + " = " + value + " ;\n");
}

std::string with(const std::string& document, const std::string& section,
                 std::initializer_list<Setting> settings) {
    std::string edited = document;
    for (const auto& [key, value] : settings) {
        edited = value ? with(edited, section, key, value) : without(edited, section, key);
    }
    return edited;
}

Calls lines_of(const std::string& text) {
    std::istringstream stream(text);
    Calls lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

Calls calls_with(const Calls& calls, const std::string& part) {
    Calls chosen;
    for (const std::string& call : calls) {
        if (contains(call, part)) {
            chosen.push_back(call);
        }
    }
    return chosen;
}

Calls restore_calls(const std::string& document, const std::string& part) {
    return calls_with(restore(document), part);
}

std::string restored(const std::string& document, const std::string& begin) {
    std::string rests;
    for (const std::string& call : restore(document)) {
        if (call.rfind(begin, 0) == 0) {
            EXPECT_NE(call, begin) << "it would be taken for no call";
            rests += (rests.empty() ? "" : "; ") + call.substr(begin.size());
        }
    }
    return rests;
}

std::vector<Key> keys_of(const std::string& document) {
    std::vector<Key> keys;
    std::string section;
    std::istringstream stream(document);
    for (std::string line; std::getline(stream, line);) {
        if (is_head(line)) {
            section = line.substr(1, line.size() - 2);
        } else if (!key_of(line).empty()) {
            keys.push_back({section, key_of(line)});
        }
    }
    return keys;
}
