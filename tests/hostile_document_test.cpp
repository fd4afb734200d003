// Broken documents. Whatever they hold, every mode returns, and check leaves the
// device alone.

#include "frame/document.h"
#include "frame/modes.h"
#include "tests/support/switch_test.h"

#include <filesystem>
#include <sys/stat.h>

class HostileDocument : public SwitchTest {
protected:
    const std::string good = backup();

    void survive(const std::string& document) {
        simulator::journal().clear(); // it would grow over thousands of documents
        check(document);
        write_file(restore_path, document);
        testing::internal::CaptureStderr();
        parse_config_ini_file(restore_path);
        testing::internal::GetCapturedStderr();
        EXPECT_NE(backup(), "");
    }
};

const std::string odd_values[] = {"",
                                  "\"\"",
                                  "-1",
                                  "255",
                                  "-129",
                                  "70000",
                                  "99999999999",
                                  "\"%s%n\"",
                                  "\"\\\"",
                                  "\"" + std::string(40, 'A') + "\"",
                                  "\"" + std::string(900, '7') + "\"",
                                  "0x",
                                  "\xff\xfe"};

TEST_F(HostileDocument, EveryKeyWithOddValues) {
    for (const std::string& value : odd_values) {
        std::string every_key = good;
        for (const Key& key : keys_of(good)) {
            every_key = with(every_key, key.section, key.key, value);
        }
        survive(every_key);
    }
    // Check ends at the first fault, so it meets each key alone, with some values in turn.
    std::size_t turn = 0;
    for (const Key& key : keys_of(good)) {
        for (int i = 0; i < 3; ++i) {
            check(with(good, key.section, key.key, odd_values[turn++ % std::size(odd_values)]));
        }
    }
}

TEST_F(HostileDocument, EveryKeyMissingOrASection) {
    for (const Key& key : keys_of(good)) {
        const std::string lacking = without(good, key.section, key.key);
        const std::string as_section = lacking + "\n[" + key.section + ":" + key.key + "]\n";
        EXPECT_EQ(check(as_section), check(lacking)) << "a section is read as a value";
        const Calls lacking_applied = (simulator::reset(), restore(lacking));
        EXPECT_EQ((simulator::reset(), restore(as_section)), lacking_applied);
    }
}

TEST_F(HostileDocument, TwentyThousandKeys) {
    std::string document = good + "[junk]\n";
    for (int i = 0; i < 20000; ++i) {
        document += "k" + std::to_string(i) + "=1\n";
    }
    ASSERT_LT(document.size(), max_document_size);
    EXPECT_EQ(check(document), "");
}

TEST_F(HostileDocument, NotARegularFile) {
    const auto open_files = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    std::string reason = "iniparser: cannot open /tmp/config_restore.ini\n";
    const auto expect_refused = [&] {
        const auto before = open_files();
        EXPECT_EQ(check_config_ini_file(restore_path), -1);
        EXPECT_EQ(read_file(report_path), "211\n");
        testing::internal::CaptureStderr();
        EXPECT_EQ(parse_config_ini_file(restore_path), -1);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  reason + "cannot parse file: /tmp/config_restore.ini\n");
        EXPECT_EQ(open_files(), before);
        std::filesystem::remove_all(restore_path);
    };
    expect_refused(); // missing
    reason = "cannot load /tmp/config_restore.ini: not a readable regular file of at most 262144 "
             "bytes\n";
    std::filesystem::create_directory(restore_path);
    expect_refused();
    std::filesystem::create_symlink("/dev/zero", restore_path);
    expect_refused();
    std::filesystem::create_symlink("/proc/self/mem", restore_path); // reading fails
    expect_refused();
    ASSERT_EQ(mkfifo(restore_path, 0600), 0);
    expect_refused();
}

// An empty file is a document without keys: check misses the first.
TEST_F(HostileDocument, EmptyFile) {
    EXPECT_EQ(check(""), "212\n");
    EXPECT_EQ(restore("").front(), "U_FlshSysInfoSetName(\"\")");
}
