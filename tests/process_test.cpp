// The tool as its caller sees it: arguments, exit status, messages and files.

#include "frame/modes.h"
#include "tests/support/switch_test.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

class Process : public SwitchTest {
protected:
    Process() {
        fs::remove_all(directory);
        fs::create_directories(directory);
    }

    // Returns the exit status.
    int run(const std::string& arguments) {
        fs::remove(trace_path);
        const std::string command = "umask 022; env " + environment + " " SWITCH_CONFIG " " +
                                    arguments + " >" + directory + "/output 2>" + directory +
                                    "/error </dev/null";
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status));
        output = read_file(directory + "/output");
        error = read_file(directory + "/error");
        return WEXITSTATUS(status);
    }

    const std::string directory = testing::TempDir() + "switch_config_process_test";
    const std::string state_path = directory + "/switch.json";
    const std::string trace_path = directory + "/trace";
    std::string environment =
        "SWITCH_SIMULATOR_STATE=" + state_path + " SWITCH_SIMULATOR_TRACE=" + trace_path;
    std::string output; // of the last run
    std::string error;
    const std::string good = backup();
};

constexpr char start_up[] = "init_umdev(0)\ninitdef()\nport_init()\n";

TEST_F(Process, UnknownArguments) {
    write_file(report_path, "240\n");
    fs::remove(backup_path);
    for (const char* arguments : {"", "bakup", "\"\"", "backup 1 2", "check 1 2", "restore 3 4"}) {
        EXPECT_EQ(run(arguments), 255) << arguments;
        EXPECT_EQ(output + error, "") << arguments;
        EXPECT_EQ(read_file(trace_path), start_up) << "the libraries are initialised all the same";
    }
    EXPECT_EQ(read_file(report_path), "240\n");
    EXPECT_FALSE(fs::exists(backup_path));
}

TEST_F(Process, ModeWordsInAnyLetterCase) {
    write_file(restore_path, good);
    for (const char* arguments :
         {"backup", "Backup", "BACKUP ignored", "check", "cHeCk 7", "restore", "RESTORE 3"}) {
        EXPECT_EQ(run(arguments), 0) << arguments;
    }
    EXPECT_EQ(read_file(backup_path), good);
}

TEST_F(Process, BackupEmptiesTheReportAndKeepsTheDocumentPrivate) {
    write_file(report_path, "240\n");
    fs::remove(backup_path);
    EXPECT_EQ(run("backup"), 0);
    EXPECT_EQ(output + error, "");
    EXPECT_EQ(read_file(report_path), "");
    struct stat status;
    ASSERT_EQ(stat(backup_path, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    EXPECT_FALSE(fs::exists(state_path)) << "a run that changes nothing stores nothing";
}

TEST_F(Process, FilesThatCannotBeOpened) {
    fs::remove(backup_path);
    fs::create_directory(backup_path);
    EXPECT_EQ(run("backup"), 0);
    EXPECT_EQ(read_file(report_path), "210\n");
    fs::remove(backup_path);

    fs::remove(report_path);
    fs::create_directory(report_path);
    const std::string message = "cannot open /tmp/config_ini_error\n";
    EXPECT_EQ(run("backup"), 0);
    EXPECT_EQ(output, message);
    EXPECT_EQ(error, "");
    EXPECT_FALSE(fs::exists(backup_path));
    write_file(restore_path, good);
    EXPECT_EQ(run("check"), 255);
    EXPECT_EQ(output, "");
    EXPECT_EQ(error, message);
}

TEST_F(Process, SyntaxError) {
    write_file(restore_path, with(good, "port settings", "port1", "0") + "nonsense\n");
    EXPECT_EQ(run("check"), 255);
    EXPECT_EQ(read_file(report_path), "211\n");
    EXPECT_TRUE(contains(error, "iniparser: syntax error in /tmp/config_restore.ini")) << error;

    EXPECT_EQ(run("restore"), 255);
    EXPECT_EQ(output, "");
    EXPECT_TRUE(contains(error, "\ncannot parse file: /tmp/config_restore.ini\n")) << error;
    EXPECT_EQ(read_file(trace_path), start_up);
    EXPECT_EQ(read_file(report_path), "211\n") << "restore leaves the report alone";
}

TEST_F(Process, RestoreDumpsAndStores) {
    write_file(restore_path, with(good, "port settings", "port1", "0"));
    EXPECT_EQ(run("restore"), 0);
    EXPECT_EQ(output, "");
    EXPECT_TRUE(contains(error, "[port settings]=UNDEF\n"));
    EXPECT_TRUE(contains(error, "[port settings:port1]=[0]\n"));
    EXPECT_EQ(run("backup"), 0);
    EXPECT_TRUE(contains(read_file(backup_path), "\nport1 = 0 ;\n"));
}

TEST_F(Process, KeepMasks) {
    write_file(restore_path, good);
    // The argument, and what it keeps: 1 the accounts, 2 the network.
    const std::pair<const char*, int> masks[] = {{"", 0},     {"0", 0},  {"1", 1},   {"2", 2},
                                                 {"3", 3},    {"4", 0},  {"abc", 0}, {"2x", 2},
                                                 {"' 2'", 2}, {"-1", 3}, {"+3", 3}};
    for (const auto& [argument, kept] : masks) {
        EXPECT_EQ(run(std::string("restore ") + argument), 0);
        const std::string trace = read_file(trace_path);
        EXPECT_EQ(contains(trace, "account_addToFlash"), (kept & 1) == 0) << argument;
        EXPECT_EQ(contains(trace, "U_FlshSysSetIp"), (kept & 2) == 0) << argument;
    }
}

TEST_F(Process, BrokenStoredConfiguration) {
    const std::string broken = "{\"ports\": {\"physical\": 300}}";
    write_file(state_path, broken);
    EXPECT_EQ(run("backup"), 1);
    EXPECT_EQ(error, "simulated switch: cannot load " + state_path +
                         ": /ports/physical: 300 does not fit, it would become 44\n");
    EXPECT_EQ(read_file(state_path), broken);
}

TEST_F(Process, InjectedFailure) {
    environment += " SWITCH_SIMULATOR_FAIL=init_umdev,initdef,port_init";
    EXPECT_EQ(run("backup"), 0);
    EXPECT_EQ(run("check"), 255);
    EXPECT_EQ(run("restore"), 255); // there is no document
    const std::string written = read_file(backup_path);
    EXPECT_FALSE(contains(written, "\nport1 = "));
    EXPECT_TRUE(contains(written, "\n0x3F(63)"));
}

// The report holds the code and nothing else, and a restore is applied to its end,
// whatever has become of the standard streams.
TEST_F(Process, StandardStreamsThatAreGone) {
    write_file(restore_path, with(good, "port settings", "port1", "0") + "nonsense\n");
    const std::string tool = environment + " " SWITCH_CONFIG " ";
    // Without a trace, whose file would take the number of standard error.
    EXPECT_NE(std::system(SWITCH_CONFIG " check <&- >&- 2>&-"), 0);
    EXPECT_EQ(read_file(report_path), "211\n");

    write_file(restore_path, with(good, "port settings", "port1", "0"));
    fs::remove(trace_path);
    std::system(("(sleep 0.1; " + tool + "restore) 2>&1 | true").c_str());
    EXPECT_TRUE(contains(read_file(trace_path), "U_PortSetEbl(0, 0)"));
}

TEST_F(Process, BackupKeepsTheMaskOfNewFiles) {
    const mode_t mask = umask(S_IWGRP | S_IRWXO);
    backup();
    EXPECT_EQ(umask(mask), static_cast<mode_t>(S_IWGRP | S_IRWXO));
}
