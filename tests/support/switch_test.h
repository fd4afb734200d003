// What the tests of the drivers and sections share: a fresh simulated switch
// for each test, the three modes run on it, and edits of documents.
#pragma once

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <gtest/gtest.h>

#include <cstdint>
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

simulator::State device_from(const std::string& json_file);

// The document that backup writes.
std::string backup();

// Check's report for the document: "" when it passes. Fails the test when the
// exit status does not go with the report or a call could change the device.
std::string check(const std::string& document);

// The calls of restore that may change the device.
Calls restore(const std::string& document, std::uint32_t keep = 0);

// The calls in the journal so far.
Calls changes();
Calls all_calls();

// A document with one key of a section given another value, written as it
// stands between "= " and " ;". A key that is not there is added.
std::string with(const std::string& document, const std::string& section, const std::string& key,
                 const std::string& value);
std::string without(const std::string& document, const std::string& section,
                    const std::string& key);
std::string without_section(const std::string& document, const std::string& section);

// A document with one edit, and what check reports of it: "240\n", or "".
struct Edit {
    const char* section;
    const char* key;
    const char* value; // null removes the key
    const char* report;
};
std::string edited(const std::string& document, const Edit& edit);

template <std::size_t Count>
void expect_reports(const std::string& good, const Edit (&edits)[Count]) {
    for (const Edit& edit : edits) {
        EXPECT_EQ(check(edited(good, edit)), edit.report)
            << edit.section << ":" << edit.key << " = " << (edit.value ? edit.value : "(none)");
    }
}

// The calls of restore that may change the device and have this in their text.
Calls restore_calls(const std::string& document, const std::string& part);

// Every key line of a document: its section and its key.
struct Key {
    std::string section;
    std::string key;
};
std::vector<Key> keys_of(const std::string& document);
