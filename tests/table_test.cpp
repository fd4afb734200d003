// The tables of tests/data: checks.txt and restores.txt, which say how to read them.

#include "tests/support/switch_test.h"

#include <algorithm>
#include <functional>

using simulator::reset;

namespace {

Calls split(const std::string& text, const std::string& separator) {
    Calls parts;
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(separator, begin)) != std::string::npos;
         begin = end + separator.size()) {
        parts.push_back(text.substr(begin, end - begin));
    }
    parts.push_back(text.substr(begin));
    return parts;
}

// The document with "KEY = VALUE" and any more of them, joined by " & ".
std::string edited(std::string document, const std::string& section, const std::string& edits) {
    for (const std::string& edit : split(edits, " & ")) {
        const std::size_t equals = edit.find(" = ");
        const std::string key = edit.substr(0, equals);
        const std::string value = edit.substr(equals + 3);
        document = value == "(none)" ? without(document, section, key)
                                     : with(document, section, key, value);
    }
    return document;
}

struct Row {
    std::string section;
    std::string common; // the edits of the section's line, or ""
    Calls edits;        // one for each document
    std::string outcome;
};

std::vector<Row> rows_of(const std::string& name) {
    std::vector<Row> rows;
    std::string section;
    std::string common;
    for (const std::string& line : lines_of(read_file(TEST_DATA "/" + name))) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        if (line[0] == '[') {
            const std::size_t end = line.find(']');
            section = line.substr(1, end - 1);
            common = line.substr(std::min(end + 2, line.size()));
            continue;
        }
        const std::size_t colon = line.find(": ");
        Calls values = split(line.substr(0, colon), " | ");
        const std::string key = values[0].substr(0, values[0].rfind(" = ") + 3);
        std::for_each(values.begin() + 1, values.end(),
                      [&](std::string& value) { value.insert(0, key); });
        rows.push_back({section, common, values, line.substr(colon + 2)});
    }
    return rows;
}

// Whether the call is like the pattern, in which "..." is any text.
bool is_like(const std::string& call, const std::string& pattern) {
    const Calls parts = split(pattern, "...");
    std::size_t at = 0;
    for (const std::string& part : parts) {
        const std::size_t found = call.find(part, at);
        if (found == std::string::npos || (&part == &parts.front() && found != 0)) {
            return false;
        }
        at = found + part.size();
    }
    return at == call.size() || parts.back().empty();
}

void expect_calls(const Calls& calls, const std::string& outcome) {
    for (const std::string& expected : split(outcome, "; ")) {
        const bool is_absent = expected.rfind("no ", 0) == 0;
        const std::string pattern = is_absent ? expected.substr(3) + "..." : expected;
        const auto count = std::count_if(calls.begin(), calls.end(), [&](const std::string& call) {
            return is_like(call, pattern);
        });
        EXPECT_EQ(count, is_absent ? 0 : 1) << expected;
    }
}

} // namespace

class Table : public SwitchTest {
protected:
    const std::string good = read_file(TEST_DATA "/factory_switch.ini");

    void for_each_document(const std::string& name,
                           const std::function<void(const std::string&, const Row&)>& judge) {
        for (const Row& row : rows_of(name)) {
            const std::string base =
                row.common.empty() ? good : edited(good, row.section, row.common);
            for (const std::string& edit : row.edits) {
                SCOPED_TRACE("[" + row.section + "] " + edit);
                judge(edited(base, row.section, edit), row);
            }
        }
    }
};

TEST_F(Table, Checks) {
    for_each_document("checks.txt", [](const std::string& document, const Row& row) {
        EXPECT_EQ(check(document), row.outcome == "ok" ? "" : row.outcome + "\n");
    });
}

// With all faults in the document, mending one after the other brings up the next.
TEST_F(Table, FirstFaultOnly) {
    std::string document = good;
    const std::vector<Row> rows = rows_of("checks.txt");
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (row->common.empty() && row->outcome != "ok") {
            document = edited(document, row->section, row->edits[0]);
            EXPECT_EQ(check(document), row->outcome + "\n") << row->section << " " << row->edits[0];
        }
    }
}

TEST_F(Table, SectionsThatCheckDoesNotRead) {
    std::string document = good;
    for (const char* section : {"password", "port security setting", "Acl setting",
                                "Periodic Back-Up", "Warning/Alarm setting", "smtp setting",
                                "QoS Setting", "CoS Queue Mapping", "DSCP Mapping"}) {
        document = without_section(document, section);
    }
    EXPECT_EQ(check(document), "");
}

TEST_F(Table, Restores) {
    for_each_document("restores.txt", [](const std::string& document, const Row& row) {
        reset();
        expect_calls(restore(document), row.outcome);
    });
}
