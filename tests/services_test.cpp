// "modbus tcp settings", "system log settings", "lldp setting", "port mirror
// setting", "sntp setting", "https setting", "auto default setting", "Periodic
// Back-Up", "Warning/Alarm setting" and "smtp setting".

#include "tests/support/switch_test.h"

#include <cstdlib>
#include <ctime>

using simulator::state;

namespace {

constexpr std::time_t usual_time = 1709782503;
std::time_t fixed_time = usual_time;

} // namespace

// In place of the C library's: for all tests, the clock stands still.
extern "C" std::time_t time(std::time_t* result) noexcept {
    if (result != nullptr) {
        *result = fixed_time;
    }
    return fixed_time;
}

class Services : public SwitchTest {
protected:
    ~Services() override { fixed_time = usual_time; }

    const std::string good = backup();
};

namespace {

constexpr char modbus[] = "modbus tcp settings";
constexpr char sntp[] = "sntp setting";
constexpr char mode[] = "Time and Date Setting :mode";
constexpr char daylight_state[] = "Daylight saving :enable state";

} // namespace

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
}

// A read value is compared with the document's, and written only where it differs.
TEST_F(Services, AutomaticDefault) {
    const std::string on = with(good, "auto default setting", "enable state", "1");
    const char set[] = "set_eeprom_serial_port(";
    for (const int stored : {0, 2}) {
        state().eeprom.serial_port = stored;
        EXPECT_EQ(restored(on, set), "1)");
        EXPECT_EQ(restored(on, set), "");
    }
    EXPECT_EQ(restored(good, set), "0)");
}

TEST_F(Services, ClockLines) {
    state().sntp.client_enabled = 0;
    state().daylight.enabled = 0;
    const std::string before = "[sntp setting]\nTime and Date Setting :mode = \"0\" ;\n";
    const std::string after = "Daylight saving :enable state = \"0\" ;\n\n";
    struct Clock {
        long long time;
        const char* zone;
        const char* lines;
    };
    const Clock clocks[] = {
        {usual_time, "IST-5:30", "Date       = \"07.03.2024\" ;\nTime       = \"09:05:03\" ;\n"},
        {usual_time, "HST10", "Date       = \"06.03.2024\" ;\nTime       = \"17:35:03\" ;\n"},
        {4294967296, "UTC0", "Date       = \"07.02.2106\" ;\nTime       = \"06:28:16\" ;\n"}};
    for (const auto& [time, zone, lines] : clocks) {
        fixed_time = static_cast<std::time_t>(time);
        if (fixed_time != time) {
            continue; // beyond a clock of 32 bits
        }
        setenv("TZ", zone, 1);
        tzset();
        const std::string document = backup();
        EXPECT_TRUE(contains(document, before + lines + after)) << zone;
        EXPECT_EQ(check(document), "");
    }
    setenv("TZ", "UTC0", 1);
    tzset();
}

// An SNTP flag that is neither 0 nor 1 selects the keys of 1, and is written as 0.
TEST_F(Services, FlagsOtherThanOne) {
    state().sntp.client_enabled = 2;
    state().sntp.manual = 2;
    state().sntp.ip_or_domain = 2;
    state().daylight.enabled = 2;
    state().port_mirror = {2, 3, 2, 4};
    state().periodic_backup.enabled = 2;
    state().https.enabled = 2;
    state().smtp.authentication = -82;
    state().smtp.tls = -1;
    const std::string document = backup();
    for (const char* lines :
         {":mode = \"0\" ;\nNTP Server = \"0\" ;\n",
          "IP/Domain = \"0\" ;\nNTP Manual Server name = \"ntp2.example.com\" ;\n",
          "Daylight saving :enable state = \"0\" ;\nStart Date(Month)",
          "enable state      = \"0\" ;\nSource Port       = \"3\" ;\nDestination Port  = \"5\" ;\n",
          "authentication          = \"-82\" ;\ntls/ssl                 = \"-1\" ;\n",
          "[https setting]\nenable state      = \"0\" ;\n", "Enable State      = \"0\" ;\n"}) {
        EXPECT_TRUE(contains(document, lines)) << lines;
    }
}

TEST_F(Services, AlarmLevels) {
    const std::pair<std::uint8_t, const char*> levels[] = {
        {100, "Disabled"},  {0, "LOG_EMERG"},  {1, "LOG_ALERT"}, {2, "LOG_CRIT"}, {3, "LOG_ERR"},
        {4, "LOG_WARNING"}, {5, "LOG_NOTICE"}, {6, "LOG_INFO"},  {7, "LOG_DEBUG"}};
    for (const auto& [level, word] : levels) {
        state().warnings.syslog_level = level;
        EXPECT_TRUE(contains(backup(), "alarm    = \"" + std::string(word) + "\" ;\n")) << word;
    }
    for (const int level : {8, 99, 228}) {
        state().warnings.syslog_level = static_cast<std::uint8_t>(level);
        EXPECT_FALSE(contains(backup(), "syslog_level_alarm")) << level;
    }
}
