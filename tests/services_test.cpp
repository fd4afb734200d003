// "modbus tcp settings", "system log settings", "lldp setting", "port mirror
// setting", "sntp setting", "https setting", "auto default setting", "Periodic
// Back-Up", "Warning/Alarm setting" and "smtp setting".

#include "tests/support/switch_test.h"

#include <cstdlib>
#include <ctime>

using simulator::state;

namespace {

std::time_t fixed_time = 0; // none

} // namespace

// In place of the C library's.
extern "C" std::time_t time(std::time_t* result) noexcept {
    timespec now = {fixed_time, 0};
    if (fixed_time == 0) {
        clock_gettime(CLOCK_REALTIME, &now);
    }
    if (result != nullptr) {
        *result = now.tv_sec;
    }
    return now.tv_sec;
}

class Services : public SwitchTest {
protected:
    ~Services() override { fixed_time = 0; }

    const std::string good = backup();
};

namespace {

constexpr char modbus[] = "modbus tcp settings";
constexpr char system_log[] = "system log settings";
constexpr char lldp[] = "lldp setting";
constexpr char mirror[] = "port mirror setting";
constexpr char sntp[] = "sntp setting";
constexpr char mode[] = "Time and Date Setting :mode";
constexpr char daylight_state[] = "Daylight saving :enable state";
constexpr char period[] = "Time Server Query Period (Sec)";
constexpr char https[] = "https setting";
constexpr char auto_default[] = "auto default setting";
constexpr char periodic[] = "Periodic Back-Up";
constexpr char warning[] = "Warning/Alarm setting";
constexpr char smtp[] = "smtp setting";

} // namespace

TEST_F(Services, Check) {
    const std::vector<Reported> edits = {
        {modbus, "modbus address", {"248"}, "271\n"},
        {modbus, "modbus address", {"-1"}, "270\n"},
        {modbus, "modbus", {"257"}, "273\n"}, // whole, not its low 8 bits
        {modbus, "modbus", {"\"\""}, ""},     // no digits: 0
        {modbus, "modbus port", {"65536"}, "275\n"},
        {system_log, "system log event to flash", {"-2"}, "277\n"},
        {system_log, "system log level", {"300"}, "279\n"},
        {system_log, "system log server", {"0x1"}, ""},
        {system_log, "system log server ip", {"\"-1\""}, "282\n"},
        {system_log, "system log server ip", {"\"\"", "\"192.168.10.70 and more\""}, "283\n"},
        {system_log, "system log server ip", {"\"0.0.0.0\""}, ""},
        {system_log, "read list number", {"-5"}, ""},
        {lldp, "enable state", {"\"-1\""}, "304\n"},
        {lldp, "enable state", {"2"}, ""},
        {mirror, "enable state", {"\"any\""}, ""},
        {mirror, "Source Port", {nullptr}, ""},
        {sntp, mode, {"-1"}, "312\n"},
        {sntp, mode, {"\"true\""}, ""}, // 0
        {sntp, "NTP Public Server1", {"\"-1\""}, "315\n"},
        {sntp, "NTP Public Server1", {"\"\""}, ""},
        {sntp, "NTP Public Server2", {nullptr}, ""},
        {sntp, "Time Zone", {"-1"}, "309\n"},
        {sntp, "Time Zone", {"62", nullptr}, ""},
        {sntp, "Time Zone", {"256"}, ""},      // 0 for the device
        {sntp, "Time Zone", {"\"0x3f\""}, ""}, // decimal: 0
        {sntp, period, {"-1", nullptr}, "310\n"},
        {sntp, period, {"60"}, ""},
        {sntp, period, {"256"}, ""}, // whole, not its low 8 bits
        {sntp, daylight_state, {"2"}, ""},
        {sntp, "Offset", {nullptr}, ""},
        {https, "enable state", {"7"}, ""},
        {periodic, "Period Hour", {"99"}, ""},
        {warning, "syslog_level_alarm", {nullptr}, ""},
        {smtp, "authentication", {"\"any\""}, ""},
    };
    expect_reports(good, edits);
}

TEST_F(Services, CheckOfOtherTimeSources) {
    // By its own clock: nothing of the servers is looked at.
    std::string document = with(without_section(good, sntp) + "[sntp setting]\n", sntp, mode, "0");
    EXPECT_EQ(check(document), "311\n");
    document = with(document, sntp, daylight_state, "0");
    EXPECT_EQ(check(document), "");
    // 01 is a number other than 0.
    EXPECT_EQ(check(with(document, sntp, mode, "\"01\"")), "313\n");
    // A server given by hand.
    document = with(good, sntp, {{"NTP Server", "2"}, {"NTP Public Server1", nullptr}});
    EXPECT_EQ(check(document), "314\n");
    EXPECT_EQ(check(with(document, sntp, "IP/Domain", "0")), "");
}

TEST_F(Services, CheckOfMissingSections) {
    const std::pair<const char*, const char*> reports[] = {
        {modbus, "270\n"},       {system_log, "276\n"},
        {lldp, "304\n"},         {mirror, "308\n"},
        {sntp, "312\n"},         {https, "305\n"},
        {auto_default, "306\n"}, {periodic, ""},
        {warning, ""},           {smtp, ""}};
    for (const auto& [section, report] : reports) {
        EXPECT_EQ(check(without_section(good, section)), report) << section;
    }
}

TEST_F(Services, RestoreModbus) {
    const auto calls = [&](const char* status, const char* port) {
        return restore_calls(with(good, modbus, {{"modbus", status}, {"modbus port", port}}),
                             "Modbus");
    };
    const std::string off = "U_SysSetModbusEnabled(0)";
    const std::string on = "U_SysSetModbusEnabled(1)";
    EXPECT_EQ(calls("0", "502"), Calls{}); // as they are
    EXPECT_EQ(calls("1", "503"),
              (Calls{on, "U_SysExecuteModbus(1)", off, "U_SysSetModbusPort(503)", on}));
    EXPECT_EQ(calls("1", "503"), Calls{});
    EXPECT_EQ(calls("1", "504"), (Calls{off, "U_SysSetModbusPort(504)", on}));
    EXPECT_EQ(calls("0", "505"), (Calls{off, "U_SysSetModbusPort(505)"}));
    EXPECT_EQ(calls("0", "506"), (Calls{"U_SysSetModbusPort(506)"}));
    // A flag is a signed number on every machine, and only 1 starts the service.
    EXPECT_EQ(calls("-1", "506"), (Calls{"U_SysSetModbusEnabled(-1)"}));
    EXPECT_EQ(calls("-1", "507"), (Calls{"U_SysSetModbusPort(507)"}));
    EXPECT_TRUE(contains(backup(), "modbus = -1 ;"));

    state().modbus = {17, 1, 1502};
    EXPECT_EQ(restore_calls(without_section(good, modbus), "Modbus"),
              (Calls{"U_SysSetModbusAddr(1)", off, "U_SysSetModbusPort(502)"}));
    EXPECT_EQ(restore_calls(with(good, modbus, "modbus address", "257"), "Modbus"),
              (Calls{"U_SysSetModbusAddr(257)"}));
}

TEST_F(Services, RestoreSystemLog) {
    EXPECT_EQ(restore_calls("", "Ui_Sys"),
              (Calls{"Ui_SysLogSet(0, 0, 0, 0.0.0.0, 0)", "Ui_SystemLogSettingSet(0, 20, 0, 20)"}));
    // Backup knows nothing of the viewer.
    const std::string document =
        "[system log settings]\nsystem log event to flash=257\nsystem log level=300\n"
        "system log server=-1\nsystem log server ip=\"300.1.1.1\"\nsystem log server port=65537\n"
        "read all notification=257\nread list number=65537\nautomatic refresh=2\n"
        "automatic refresh cycle time=-1\n";
    EXPECT_EQ(restore_calls(document, "Ui_Sys"), (Calls{"Ui_SysLogSet(1, 44, 255, 0.0.0.0, 1)",
                                                        "Ui_SystemLogSettingSet(1, 1, 2, 65535)"}));
}

TEST_F(Services, RestoreSwitches) {
    for (const std::string& off : {with(good, lldp, "enable state", "2"), std::string()}) {
        EXPECT_EQ(restore_calls(off, "U_Lldp"),
                  (Calls{"U_LldpSetEnable(3)", "U_LldpSetTxTtl(120)", "U_LldpSetTxInterval(30)"}));
    }
    expect_restored(good, https, {{"enable state", {"2", nullptr}, "U_FlshHTTPSSet(", "0)"}});

    // The EEPROM is written only where its number differs.
    const std::string on = with(good, auto_default, "enable state", "1");
    const char set[] = "set_eeprom_serial_port(";
    EXPECT_EQ(restored(good, set), "");
    EXPECT_EQ(restored(on, set), "1)");
    EXPECT_EQ(restored(on, set), "");
    EXPECT_EQ(restored("", set), "0)");
    state().eeprom.serial_port = 2;
    EXPECT_EQ(restored(on, set), "1)");
}

TEST_F(Services, RestorePortMirror) {
    const auto calls = [&](const char* state, const char* source, const char* destination) {
        const std::string document = with(
            good, mirror,
            {{"enable state", state}, {"Source Port", source}, {"Destination Port", destination}});
        return restored(document, "U_FwdSetPortMirror(");
    };
    EXPECT_EQ(calls("0", "3", "5"), "0, 0, -1, -1)");
    EXPECT_EQ(calls("2", "\"65537\"", "-1"), "2, 3, 0, 65534)");
    EXPECT_EQ(calls(nullptr, nullptr, nullptr), "-1, 3, -1, -1)");
    EXPECT_EQ(calls("1", "3", "5"), "1, 3, 2, 4)");
    EXPECT_TRUE(contains(backup(), "enable state      = \"1\" ;\nSource Port       = \"3\" ;\n"
                                   "Destination Port  = \"5\" ;\n"));
    state().port_mirror = {0, 3, 2, 4}; // off: as they are
    EXPECT_TRUE(contains(backup(), "Source Port       = \"2\" ;\nDestination Port  = \"4\" ;\n"));
}

TEST_F(Services, RestoreSntp) {
    const auto client_of = [](const std::string& lines) {
        return restored("[sntp setting]\n" + lines, "U_SysSetMSNTP(");
    };
    const std::string off = R"(0, 0, "0.pool.ntp.org", "1.pool.ntp.org", 60, 0))";
    const std::string client = "Time Zone = 9\nTime Server Query Period (Sec) = 600\n"
                               "NTP Public Server1 = a\nNTP Public Server2 = b\n";
    const std::string mode_line = "Time and Date Setting :mode = ";
    EXPECT_EQ(client_of(mode_line + "\"1\"\n" + client), R"(1, 9, "a", "b", 600, 0))");
    for (const char* word : {"01", "true", "2", "0", "\"1 \""}) {
        EXPECT_EQ(client_of(mode_line + word + "\n" + client), off) << word;
    }
    EXPECT_EQ(client_of(client), off);
    EXPECT_EQ(client_of(""), off);
    EXPECT_EQ(client_of(mode_line + "1\n"), R"(1, 0, "", "", 0, 0))");
    const std::string manual = mode_line + "1\nNTP Server = 1\nTime Zone = 300\n";
    state().sntp.server1 = "first";
    state().sntp.server2 = "second";
    EXPECT_EQ(client_of(manual), R"(1, 44, "first", "second", 0, 0))");
    EXPECT_EQ(
        client_of(manual + "NTP Manual Server name = \"a name of more than 31 characters\"\n"),
        R"(1, 44, "first", "a name of more than 31 characte", 0, 0))");
    const std::string named = manual + "NTP Manual Server name = c\n";
    EXPECT_EQ(client_of(named + "NTP Public Server1 = a\n"), R"(1, 44, "a", "c", 0, 0))");
    EXPECT_EQ(client_of(named + "NTP Public Server1 = a\nNTP Public Server2 = \"\"\n"),
              R"(1, 44, "a", "", 0, 0))");
    simulator::make_fail("U_SysGetMSNTP");
    EXPECT_EQ(client_of(named), "") << "the first server would be lost";
}

TEST_F(Services, RestoreDaylight) {
    const auto rule_of = [](const std::string& state) {
        return restored("[sntp setting]\n" + state +
                            "Start Date(Month)=1\nStart Date(Week)=2\nStart Date(Day)=3\n"
                            "Start Date(Hour)=4\nEnd Date(Month)=5\nEnd Date(Week)=6\n"
                            "End Date(Day)=257\nOffset=-1\n",
                        "U_SysSetDaylight(");
    };
    EXPECT_EQ(rule_of("Daylight saving :enable state = 1\n"), "1, 1, 2, 3, 4, 5, 6, 1, 0, 255)");
    EXPECT_EQ(rule_of("Daylight saving :enable state = 01\n"), "0, 0, 0, 0, 0, 0, 0, 0, 0, 0)");
    EXPECT_EQ(rule_of(""), "0, 0, 0, 0, 0, 0, 0, 0, 0, 0)");
    EXPECT_EQ(restored("", "U_SysSetDaylight("), "0, 0, 0, 0, 0, 0, 0, 0, 0, 0)");
}

TEST_F(Services, ClockLines) {
    fixed_time = 1709782503; // 2024-03-07 03:35:03 UTC
    state().sntp.client_enabled = 0;
    state().daylight.enabled = 0;
    const std::string before = "[sntp setting]\nTime and Date Setting :mode = \"0\" ;\n";
    const std::string behind = "Daylight saving :enable state = \"0\" ;\n\n";
    const std::pair<const char*, const char*> zones[] = {
        {"IST-5:30", "Date       = \"07.03.2024\" ;\nTime       = \"09:05:03\" ;\n"},
        {"HST10", "Date       = \"06.03.2024\" ;\nTime       = \"17:35:03\" ;\n"}};
    for (const auto& [zone, lines] : zones) {
        setenv("TZ", zone, 1);
        tzset();
        const std::string document = backup();
        EXPECT_TRUE(contains(document, before + lines + behind)) << zone;
        EXPECT_EQ(check(document), "");
    }
    unsetenv("TZ");
    tzset();
}

// A flag that is neither 0 nor 1 chooses the shape of 1, and is written as 0.
TEST_F(Services, SntpFlagsOtherThanOne) {
    state().sntp.client_enabled = 2;
    state().sntp.manual = 2;
    state().sntp.ip_or_domain = 2;
    state().daylight.enabled = 2;
    const std::string document = backup();
    EXPECT_TRUE(contains(document, ":mode = \"0\" ;\nNTP Server = \"0\" ;\n"));
    EXPECT_TRUE(contains(document, "IP/Domain = \"0\" ;\n"
                                   "NTP Manual Server name = \"ntp2.example.com\" ;\n"
                                   "Daylight saving :enable state = \"0\" ;\nStart Date(Month)"));
}

TEST_F(Services, PeriodicBackup) {
    const char set[] = "U_SetPeriodicSetting(TstFlshPeriodic{";
    const std::string only = "[Periodic Back-Up]\n";
    for (const char* off : {"", "Enable State = 01\n", "Enable State = 1.0\n"}) {
        EXPECT_EQ(restored(only + off, set), "backUp=0, tm_hour=0, tm_min=0, serverIp=0.0.0.0})")
            << off;
    }
    EXPECT_EQ(restored(only + "Enable State = 1\nPeriod Hour = 99\nPeriod Minute = 65537\n"
                              "TFTP ServerIP = 3232238151\n",
                       set),
              "backUp=1, tm_hour=99, tm_min=1, serverIp=192.168.10.71})");
    const std::pair<std::uint32_t, const char*> servers[] = {
        {0x80000000, "-2147483648"}, {0xffffffff, "-1"}, {0x7fffffff, "2147483647"}};
    for (const auto& [address, text] : servers) {
        state().periodic_backup.server = {address};
        const std::string document = backup();
        EXPECT_TRUE(contains(document, "TFTP ServerIP     = \"" + std::string(text) + "\" ;\n"));
        state().periodic_backup = {};
        restore(document);
        EXPECT_EQ(state().periodic_backup.server.value, address);
    }
}

TEST_F(Services, AlarmLevels) {
    const std::pair<std::uint8_t, const char*> levels[] = {
        {100, "Disabled"},  {0, "LOG_EMERG"},  {1, "LOG_ALERT"}, {2, "LOG_CRIT"}, {3, "LOG_ERR"},
        {4, "LOG_WARNING"}, {5, "LOG_NOTICE"}, {6, "LOG_INFO"},  {7, "LOG_DEBUG"}};
    for (const auto& [level, word] : levels) {
        state().warnings.syslog_level = level;
        const std::string document = backup();
        EXPECT_TRUE(
            contains(document, "syslog_level_alarm    = \"" + std::string(word) + "\" ;\n"));
        state().warnings.syslog_level = 50;
        restore(document);
        EXPECT_EQ(state().warnings.syslog_level, level);
    }
    for (const int level : {8, 99, 228}) {
        state().warnings.syslog_level = static_cast<std::uint8_t>(level);
        EXPECT_FALSE(contains(backup(), "syslog_level_alarm")) << level;
    }
    restore(with(good, warning, "syslog_level_alarm", "\"Disable\""));
    EXPECT_EQ(state().warnings.syslog_level, 100);
}

TEST_F(Services, AlarmWords) {
    const std::string words[] = {"Link UP",  "Link Down", "LinkUp/Down", "Disable",
                                 "Disabled", "link up",   "Link UP ",    std::string(60, 'L'),
                                 "Link UP"}; // of a port that there is not
    std::string document = "[warning/alarm setting]\n";
    for (std::size_t i = 0; i < std::size(words); ++i) {
        document += "PORT_" + std::to_string(i + 1) + " LINK_STATUS = \"" + words[i] + "\"\n";
    }
    document += "power_1 Power_status = Power On\npower_2 Power_status = Power Off\n";
    const std::string no_port = ",0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0";
    EXPECT_EQ(restore_calls(document, "SetEmail"),
              (Calls{"U_SysSetEmailPort({1,2,3,0,0,0,0,0" + no_port + "})",
                     "U_SysSetEmailPower({1,2})", "U_SysSetEmailSyslog(0)"}));
    EXPECT_EQ(restore_calls("", "SetEmail"),
              (Calls{"U_SysSetEmailPort({0,0,0,0,0,0,0,0" + no_port + "})",
                     "U_SysSetEmailPower({0,0})", "U_SysSetEmailSyslog(0)"}));
}

TEST_F(Services, RestoreSmtp) {
    EXPECT_EQ(restored("[smtp setting]\nSMTP server = " + std::string(40, 's') +
                           "\nauthentication = 0\ntls/ssl = 1x\nusername = user\n"
                           "password = 12345678901234567890\nmail recipient4 = " +
                           std::string(40, 'r') + "\n",
                       "U_FlshSmtpSet"),
              "Server(\"" + std::string(31, 's') +
                  R"("); SendAdd(""); Subject(""); )"
                  R"(UnamePwd(0, "user", "123456789012345"); TLS(1); RecAdd("", "", "", ")" +
                  std::string(31, 'r') + "\")");
    EXPECT_EQ(calls_with(changes(), "Relay"), Calls{"U_SysSetRelayConfig()"});
    EXPECT_EQ(restored("[smtp setting]\nauthentication=511\ntls/ssl=x1\n", "U_FlshSmtpSet"),
              R"(Server(""); SendAdd(""); Subject(""); UnamePwd(-1, "", ""); TLS(0); )"
              R"(RecAdd("", "", "", ""))");
}
