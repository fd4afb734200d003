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
        environment =
            "SWITCH_SIMULATOR_STATE=" + state_path + " SWITCH_SIMULATOR_TRACE=" + trace_path;
    }

    struct Run {
        int status;
        std::string output;
        std::string error;
    };

    Run run(const std::string& arguments) {
        const std::string command = "umask 022; env " + environment + " " SWITCH_CONFIG " " +
                                    arguments + " >" + directory + "/output 2>" + directory +
                                    "/error </dev/null";
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status));
        return {WEXITSTATUS(status), read_file(directory + "/output"),
                read_file(directory + "/error")};
    }

    std::string trace() { return fs::exists(trace_path) ? read_file(trace_path) : ""; }

    const std::string directory = testing::TempDir() + "switch_config_process_test";
    const std::string state_path = directory + "/switch.json";
    const std::string trace_path = directory + "/trace";
    std::string environment;
    const std::string good = backup();
};

constexpr char start_up[] = "init_umdev(0)\ninitdef()\nport_init()\n";

TEST_F(Process, ArgumentsThatAreNoMode) {
    write_file(report_path, "240\n");
    fs::remove(backup_path);
    for (const char* arguments : {"", "bakup", "\"\"", "backup 1 2", "check 1 2", "restore 3 4"}) {
        fs::remove(trace_path);
        const Run result = run(arguments);
        EXPECT_EQ(result.status, 255) << arguments;
        EXPECT_EQ(result.output + result.error, "") << arguments;
        EXPECT_EQ(trace(), start_up) << "the libraries are initialised all the same";
    }
    EXPECT_EQ(read_file(report_path), "240\n");
    EXPECT_FALSE(fs::exists(backup_path));
}

TEST_F(Process, ModeWordsInAnyLetterCase) {
    write_file(restore_path, good);
    for (const char* arguments :
         {"backup", "Backup", "BACKUP ignored", "check", "cHeCk 7", "restore", "RESTORE 3"}) {
        EXPECT_EQ(run(arguments).status, 0) << arguments;
    }
    EXPECT_EQ(read_file(backup_path), good);
}

TEST_F(Process, BackupEmptiesTheReportAndKeepsTheDocumentPrivate) {
    write_file(report_path, "240\n");
    fs::remove(backup_path);
    const Run result = run("backup");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.error, "");
    EXPECT_EQ(read_file(report_path), "");
    struct stat status;
    ASSERT_EQ(stat(backup_path, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    EXPECT_FALSE(fs::exists(state_path)) << "a run that changes nothing stores nothing";
}

TEST_F(Process, FilesThatCannotBeOpened) {
    fs::remove(backup_path);
    fs::create_directory(backup_path);
    EXPECT_EQ(run("backup").status, 0);
    EXPECT_EQ(read_file(report_path), "210\n");
    fs::remove(backup_path);

    fs::remove(report_path);
    fs::create_directory(report_path);
    const std::string message = "cannot open /tmp/config_ini_error\n";
    Run result = run("backup");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, message);
    EXPECT_EQ(result.error, "");
    EXPECT_FALSE(fs::exists(backup_path));
    write_file(restore_path, good);
    result = run("check");
    EXPECT_EQ(result.status, 255);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, message);
}

TEST_F(Process, SyntaxError) {
    write_file(restore_path, with(good, "port settings", "port1", "0") + "nonsense\n");
    Run result = run("check");
    EXPECT_EQ(result.status, 255);
    EXPECT_EQ(read_file(report_path), "211\n");
    EXPECT_NE(result.error.find("iniparser: syntax error in /tmp/config_restore.ini"),
              std::string::npos);

    fs::remove(trace_path);
    result = run("restore");
    EXPECT_EQ(result.status, 255);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.error.find("\ncannot parse file: /tmp/config_restore.ini\n"),
              std::string::npos);
    EXPECT_EQ(trace(), start_up);
    EXPECT_EQ(read_file(report_path), "211\n") << "restore leaves the report alone";
}

TEST_F(Process, MissingDocument) {
    fs::remove(restore_path);
    const Run result = run("restore");
    EXPECT_EQ(result.status, 255);
    EXPECT_EQ(result.error, "iniparser: cannot open /tmp/config_restore.ini\n"
                            "cannot parse file: /tmp/config_restore.ini\n");
}

TEST_F(Process, CheckFault) {
    write_file(restore_path, with(good, "port settings", "port1", "2"));
    const Run result = run("check");
    EXPECT_EQ(result.status, 255);
    EXPECT_EQ(result.output + result.error, "");
    EXPECT_EQ(read_file(report_path), "241\n");
    write_file(restore_path, good);
    EXPECT_EQ(run("check").status, 0);
    EXPECT_EQ(read_file(report_path), "");
}

TEST_F(Process, RestoreDumpsAndStores) {
    write_file(restore_path, with(good, "port settings", "port1", "0"));
    const Run result = run("restore");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.error.find("[port settings]=UNDEF\n"), std::string::npos);
    EXPECT_NE(result.error.find("[port settings:port1]=[0]\n"), std::string::npos);
    EXPECT_EQ(run("backup").status, 0);
    EXPECT_NE(read_file(backup_path).find("\nport1 = 0 ;\n"), std::string::npos);
}

TEST_F(Process, KeepMasks) {
    write_file(restore_path, good);
    struct Mask {
        const char* argument;
        int keeps; // 1 the accounts, 2 the network
    };
    const Mask masks[] = {{"", 0},    {"0", 0},  {"1", 1},    {"2", 2},  {"3", 3}, {"4", 0},
                          {"abc", 0}, {"2x", 2}, {"' 2'", 2}, {"-1", 3}, {"+3", 3}};
    for (const Mask& mask : masks) {
        fs::remove(trace_path);
        EXPECT_EQ(run(std::string("restore ") + mask.argument).status, 0);
        const bool accounts = trace().find("account_addToFlash") != std::string::npos;
        const bool network = trace().find("U_FlshSysSetIp") != std::string::npos;
        EXPECT_EQ(accounts, (mask.keeps & 1) == 0) << mask.argument;
        EXPECT_EQ(network, (mask.keeps & 2) == 0) << mask.argument;
    }
}

TEST_F(Process, BrokenStoredConfiguration) {
    write_file(state_path, "{\"ports\": {\"physical\": 300}}");
    const Run result = run("backup");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "simulated switch: cannot load " + state_path +
                                ": /ports/physical: 300 would be held as 44\n");
    EXPECT_EQ(read_file(state_path), "{\"ports\": {\"physical\": 300}}");
}

TEST_F(Process, AnotherSwitchByItsStoredConfiguration) {
    fs::copy_file(TEST_DATA "/other_switch.json", state_path);
    EXPECT_EQ(run("backup").status, 0);
    EXPECT_EQ(read_file(backup_path), read_file(TEST_DATA "/other_switch.ini"));
}

TEST_F(Process, InjectedFailure) {
    environment += " SWITCH_SIMULATOR_FAIL=";
    const std::string start_up_fails = "init_umdev,initdef,port_init";
    for (const std::string& failing : {std::string("U_FlshSysGetIp"), start_up_fails}) {
        const std::string good_environment = environment;
        environment += failing;
        EXPECT_EQ(run("backup").status, 0);
        EXPECT_EQ(run("check").status, 255);
        EXPECT_EQ(run("restore").status, 255); // there is no document
        const bool has_ports = read_file(backup_path).find("\nport1 = ") != std::string::npos;
        EXPECT_EQ(has_ports, failing != start_up_fails);
        EXPECT_NE(read_file(backup_path).find("\n0x3F(63)"), std::string::npos);
        environment = good_environment;
    }
}
