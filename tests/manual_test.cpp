// The manual page's tables of report codes against the enumeration and the
// codes that the sources name.

#include "frame/modes.h"
#include "tests/support/switch_test.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

namespace fs = std::filesystem;

namespace {

using Codes = std::map<int, std::string>; // the names by their numbers

// From expressions that match a name and a number.
Codes codes_in(const std::string& text, const std::regex& line, int number, int name) {
    Codes codes;
    int last = -1;
    for (std::sregex_iterator match(text.begin(), text.end(), line), end; match != end; ++match) {
        const int code = std::stoi((*match)[static_cast<std::size_t>(number)]);
        EXPECT_GT(code, last) << "not in ascending order";
        codes[code] = (*match)[static_cast<std::size_t>(name)];
        last = code;
    }
    return codes;
}

// An entry has its description on the next line.
Codes table_of(const std::string& page) {
    return codes_in(page, std::regex(R"(\n\.It Sy (\d+) Dv (\w+)\n(?:\.Bq .+\n)?(?=[A-Z]))"), 1, 2);
}

std::set<std::string> names_in_sources() {
    const std::regex name(R"(\bUSR_RET_\w+)");
    std::set<std::string> names;
    for (const char* folder : {"/../../frame", "/../../sections"}) {
        for (const auto& entry :
             fs::recursive_directory_iterator(std::string(TEST_DATA) + folder)) {
            const std::string text = entry.is_regular_file() ? read_file(entry.path()) : "";
            names.insert(std::sregex_token_iterator(text.begin(), text.end(), name), {});
        }
    }
    names.erase("USR_RET_OK"); // no fault
    return names;
}

} // namespace

class Manual : public testing::Test {
protected:
    const std::string page = read_file(TEST_DATA "/../../docs/switch-config.8");
    const Codes enumeration =
        codes_in(read_file(TEST_DATA "/../../platform/include/return_codes.h"),
                 std::regex(R"(\b(USR_RET_\w+) = (\d+))"), 2, 1);
    const std::set<std::string> written = names_in_sources();
    // The table of the validators' codes follows that of the tool's own.
    const std::size_t split = page.find("\n.Ss From the device's address validators\n");
    const Codes own = table_of(page.substr(0, split));
    const Codes validators = table_of(page.substr(std::min(split, page.size())));
};

TEST_F(Manual, HasTheCodesThatTheToolWritesAndNoOthers) {
    Codes expected;
    for (const auto& [code, name] : enumeration) {
        if (written.count(name) != 0) {
            expected[code] = name;
        }
    }
    EXPECT_EQ(expected.size(), written.size());
    EXPECT_EQ(own, expected);
}

TEST_F(Manual, HasCodesOfTheAddressValidators) {
    EXPECT_FALSE(validators.empty());
    for (const auto& [code, name] : validators) {
        const auto found = enumeration.find(code);
        EXPECT_TRUE(found != enumeration.end() && found->second == name) << code;
        EXPECT_EQ(written.count(name), 0U) << name << " is the tool's own";
    }
}

// What is not an entry of a table, such as a misspelt one, counts for nothing above.
TEST_F(Manual, NamesNoCodeOutsideItsTables) {
    const std::regex name(R"(USR_RET_\w+)");
    const auto named = std::distance(std::sregex_iterator(page.begin(), page.end(), name), {});
    EXPECT_EQ(static_cast<std::size_t>(named), own.size() + validators.size());
}

TEST_F(Manual, HasTheFiles) {
    for (const std::string path : {backup_path, restore_path, report_path}) {
        EXPECT_NE(page.find("\n.It Pa " + path + "\n"), std::string::npos) << path;
    }
}
