// What the tests share: a fresh simulated switch for each test, the three modes run
// on it, and edits of documents.
#pragma once

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

using Calls = std::vector<std::string>;

// Starts from the factory switch, an empty journal and no files of other tests.
class SwitchTest : public testing::Test {
protected:
    SwitchTest();
};

std::string read_file(const std::string& path);
void write_file(const std::string& path, const std::string& content);

// The file in tests/data has this content, or these lines, where "x3" is how often one
// is repeated. With UPDATE_GOLDEN=1
// in the environment it is written instead: look at what changes in it.
void expect_golden(const std::string& content, const std::string& name);
void expect_golden(const Calls& calls, const std::string& name);

simulator::State device_from(const std::string& json_file);

// The document that backup writes.
std::string backup();

// Check's report for the document: "" when it passes. Fails the test when the
// exit status does not go with the report or a call could change the device.
std::string check(const std::string& document);

// The calls of restore that may change the device.
Calls restore(const std::string& document, std::uint32_t keep = 0);

// The calls in the journal so far.
Calls all_calls(bool only_changes = false);
Calls changes();

// A document with one key of a section given another value, written as it
// stands between "= " and " ;". A key that is not there is added.
std::string with(const std::string& document, const std::string& section, const std::string& key,
                 const std::string& value);
std::string without(const std::string& document, const std::string& section,
                    const std::string& key);
std::string without_section(const std::string& document, const std::string& section);

// The same for several keys of a section; a null value removes the key.
struct Setting {
    const char* key;
    const char* value;
};
std::string with(const std::string& document, const std::string& section,
                 std::initializer_list<Setting> settings);

Calls lines_of(const std::string& text);

bool contains(const std::string& text, const std::string& part);

// Those of the calls that have this in their text.
Calls calls_with(const Calls& calls, const std::string& part);

// Those of the calls of restore that may change the device.
Calls restore_calls(const std::string& document, const std::string& part);

// The rest of the one call of restore that begins like this: of "U_PortSetEbl(6, "
// it may be "1)". It is "" when there is no such call; several are joined by "; ".
std::string restored(const std::string& document, const std::string& begin);

// Every key line of a document: its section and its key.
struct Key {
    std::string section;
    std::string key;
};
std::vector<Key> keys_of(const std::string& document);
