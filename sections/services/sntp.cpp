// A switch that keeps its own clock writes the date and time, for the reader
// only; one that takes its time from servers writes the servers, the zone and
// the query period. The servers are either two public ones or one given by hand
// ("NTP Server" 1). The device has no operation to choose between them.
// Restore takes client mode and daylight saving as on only for the text "1". Check
// takes client mode as on for any number but 0; of daylight saving it only wants the key.

#include "sections/services/sntp.h"

#include "frame/report.h"
#include "platform/include/return_codes.h"
#include "platform/include/sntp.h"

#include <ctime>

namespace {

constexpr std::size_t name_size = 32;   // of a server, terminator included
constexpr std::size_t number_size = 64; // of the texts that numbers are read from
constexpr char default_server1[] = "0.pool.ntp.org";
constexpr char default_server2[] = "1.pool.ntp.org";
constexpr std::uint32_t default_query_period = 60;

constexpr std::uint8_t max_time_zone = 62;
constexpr int min_query_period = 60;

struct Client {
    char enabled = 0;
    std::uint8_t time_zone = 0;
    // A text of the device may fill its field: one byte more terminates it.
    Text<name_size + 1> server1;
    Text<name_size + 1> server2;
    unsigned long query_period = 0;
};

// False if the device's settings cannot be read.
bool get_client(Client& client) {
    return U_SysGetMSNTP(&client.enabled, &client.time_zone, client.server1.chars,
                         client.server2.chars, &client.query_period) == USR_RET_OK;
}

struct Daylight {
    std::uint8_t enabled = 0;
    std::uint8_t start_month = 0;
    std::uint8_t start_week = 0;
    std::uint8_t start_day = 0;
    std::uint8_t start_hour = 0;
    std::uint8_t end_month = 0;
    std::uint8_t end_week = 0;
    std::uint8_t end_day = 0;
    std::uint8_t end_hour = 0;
    std::uint8_t offset = 0;
};

Daylight stored_daylight() {
    Daylight rule;
    U_SysGetDaylight(&rule.enabled, &rule.start_month, &rule.start_week, &rule.start_day,
                     &rule.start_hour, &rule.end_month, &rule.end_week, &rule.end_day,
                     &rule.end_hour, &rule.offset);
    return rule;
}

struct ManualServer {
    char manual = 0;
    char ip_or_domain = 0;
};

ManualServer stored_manual_server() {
    ManualServer server;
    Text<name_size + 1> ip;
    Text<name_size + 1> domain;
    U_FlshntpIpDmStrngGet(&server.manual, &server.ip_or_domain, ip.chars, domain.chars);
    return server;
}

tm local_time() {
    const time_t now = time(nullptr);
    tm local = {};
    localtime_r(&now, &local);
    return local;
}

void write_clock(FILE* ini_file, const tm& now) {
    fprintf(ini_file, "Date       = \"%02d.%02d.%04d\" ;\n", now.tm_mday, now.tm_mon + 1,
            now.tm_year + 1900);
    fprintf(ini_file, "Time       = \"%02d:%02d:%02d\" ;\n", now.tm_hour, now.tm_min, now.tm_sec);
}

// A server given by hand is the device's second one.
void write_client(FILE* ini_file, const Client& client, const ManualServer& server) {
    fprintf(ini_file, "NTP Server = \"%d\" ;\n", server.manual == 1 ? 1 : 0);
    fprintf(ini_file, "Time Zone  = \"%d\" ;\n", client.time_zone);
    fprintf(ini_file, "Time Server Query Period (Sec)  = \"%d\" ;\n",
            static_cast<int>(client.query_period));
    if (server.manual != 0) {
        fprintf(ini_file, "IP/Domain = \"%d\" ;\n", server.ip_or_domain == 1 ? 1 : 0);
        fprintf(ini_file, "NTP Manual Server name = \"%s\" ;\n", client.server2.chars);
    } else {
        fprintf(ini_file, "NTP Public Server1 = \"%s\" ;\n", client.server1.chars);
        fprintf(ini_file, "NTP Public Server2 = \"%s\" ;\n", client.server2.chars);
    }
}

void write_daylight_rule(FILE* ini_file, const Daylight& rule) {
    fprintf(ini_file, "Start Date(Month) = \"%d\" ;\n", rule.start_month);
    fprintf(ini_file, "Start Date(Week)  = \"%d\" ;\n", rule.start_week);
    fprintf(ini_file, "Start Date(Day)   = \"%d\" ;\n", rule.start_day);
    fprintf(ini_file, "Start Date(Hour)  = \"%d\" ;\n", rule.start_hour);
    fprintf(ini_file, "End Date(Month)   = \"%d\" ;\n", rule.end_month);
    fprintf(ini_file, "End Date(Week)    = \"%d\" ;\n", rule.end_week);
    fprintf(ini_file, "End Date(Day)     = \"%d\" ;\n", rule.end_day);
    fprintf(ini_file, "End Date(Hour)    = \"%d\" ;\n", rule.end_hour);
    fprintf(ini_file, "Offset            = \"%d\" ;\n", rule.offset);
}

} // namespace

void backup_ini_sntp_settings(FILE* ini_file) {
    write_section_line(ini_file, "sntp setting");
    const tm now = local_time();
    Client client;
    get_client(client);
    const Daylight rule = stored_daylight();
    const ManualServer server = stored_manual_server();

    fprintf(ini_file, "Time and Date Setting :mode = \"%d\" ;\n", client.enabled == 1 ? 1 : 0);
    if (client.enabled == 0) {
        write_clock(ini_file, now);
    } else {
        write_client(ini_file, client, server);
    }
    fprintf(ini_file, "Daylight saving :enable state = \"%d\" ;\n", rule.enabled == 1 ? 1 : 0);
    if (rule.enabled != 0) {
        write_daylight_rule(ini_file, rule);
    }
}

namespace {

// "NTP Server" must be there, and the key that its kind of server needs.
int check_ntp_server(const dictionary* ini, FILE* error_file) {
    const std::optional<int> by_hand = read_number(ini, "sntp setting:NTP Server");
    if (!by_hand) {
        return report_fault(error_file, USR_RET_ERR_NTP_SERVER_STATE_NOT_FOUND);
    }
    if (*by_hand != 0) {
        return check_present(ini, error_file, "sntp setting:IP/Domain",
                             USR_RET_ERR_NTP_IP_DOMAIN_STATE_NOT_FOUND);
    }
    const char* server = read_string(ini, "sntp setting:NTP Public Server1", absent);
    return decimal_value(server) == -1
               ? report_fault(error_file, USR_RET_ERR_NTP_PUBLIC_SERVER_STATE_NOT_FOUND)
               : 0;
}

// Judged as the 8 bits the device takes: -1 is 255, and 256 is 0.
int check_time_zone(const dictionary* ini, FILE* error_file) {
    const int zone = read_decimal<number_size>(ini, "sntp setting:Time Zone");
    return static_cast<std::uint8_t>(zone) > max_time_zone
               ? report_fault(error_file, USR_RET_ERR_NTPTIME_ZONE_VALUE_INVALID)
               : 0;
}

int check_query_period(const dictionary* ini, FILE* error_file) {
    const int period =
        read_decimal<number_size>(ini, "sntp setting:Time Server Query Period (Sec)");
    return period < min_query_period
               ? report_fault(error_file, USR_RET_ERR_NTPTIME_QUERY_PERIOD_INVALID)
               : 0;
}

int check_client(const dictionary* ini, FILE* error_file) {
    const std::optional<int> mode = read_number(ini, "sntp setting:Time and Date Setting :mode");
    if (!mode) {
        return report_fault(error_file, USR_RET_ERR_NTP_CLIENT_STATE_NOT_FOUND);
    }
    if (*mode == 0) {
        return 0;
    }
    return run_check_steps({check_ntp_server, check_time_zone, check_query_period}, ini,
                           error_file);
}

int check_daylight(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "sntp setting:Daylight saving :enable state",
                         USR_RET_ERR_NTP_DAY_LIGHT_STATE_NOT_FOUND);
}

} // namespace

int check_ini_sntp(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_client, check_daylight}, ini, error_file);
}

namespace {

std::uint8_t read_byte(const dictionary* ini, const char* entry) {
    return static_cast<std::uint8_t>(read_decimal<number_size>(ini, entry));
}

// Names are cut so that name and terminator fit the device's field.
using ServerName = Text<name_size>;

struct Servers {
    ServerName server1;
    ServerName server2;
};

// Takes the public servers that the document has. With a server given by hand, its name
// replaces a missing server 2, and what is still missing then stays as the device has
// it: false if that cannot be read. Otherwise a missing server becomes empty.
bool read_servers(const dictionary* ini, Servers& servers) {
    const char* server1 = read_string(ini, "sntp setting:NTP Public Server1", nullptr);
    const char* server2 = read_string(ini, "sntp setting:NTP Public Server2", nullptr);
    const bool by_hand = read_int(ini, "sntp setting:NTP Server", 0) != 0;
    if (by_hand && server2 == nullptr) {
        server2 = read_string(ini, "sntp setting:NTP Manual Server name", nullptr);
    }
    Client device;
    if (by_hand && (server1 == nullptr || server2 == nullptr) && !get_client(device)) {
        return false;
    }
    copy_text(servers.server1.chars, server1 != nullptr ? server1 : device.server1.chars);
    copy_text(servers.server2.chars, server2 != nullptr ? server2 : device.server2.chars);
    return true;
}

// With client mode off, every setting gets its default.
void restore_client(const dictionary* ini) {
    if (!is_exactly_one(ini, "sntp setting:Time and Date Setting :mode")) {
        U_SysSetMSNTP(0, 0, default_server1, default_server2, default_query_period, 0);
        return;
    }
    const std::uint8_t time_zone = read_byte(ini, "sntp setting:Time Zone");
    const auto query_period = static_cast<std::uint32_t>(
        read_decimal<number_size>(ini, "sntp setting:Time Server Query Period (Sec)"));
    Servers servers;
    if (read_servers(ini, servers)) {
        U_SysSetMSNTP(1, time_zone, servers.server1.chars, servers.server2.chars, query_period, 0);
    }
}

Daylight read_daylight(const dictionary* ini) {
    Daylight rule;
    if (!is_exactly_one(ini, "sntp setting:Daylight saving :enable state")) {
        return rule;
    }
    rule.enabled = 1;
    rule.start_month = read_byte(ini, "sntp setting:Start Date(Month)");
    rule.start_week = read_byte(ini, "sntp setting:Start Date(Week)");
    rule.start_day = read_byte(ini, "sntp setting:Start Date(Day)");
    rule.start_hour = read_byte(ini, "sntp setting:Start Date(Hour)");
    rule.end_month = read_byte(ini, "sntp setting:End Date(Month)");
    rule.end_week = read_byte(ini, "sntp setting:End Date(Week)");
    rule.end_day = read_byte(ini, "sntp setting:End Date(Day)");
    rule.end_hour = read_byte(ini, "sntp setting:End Date(Hour)");
    rule.offset = read_byte(ini, "sntp setting:Offset");
    return rule;
}

} // namespace

// Restore never sets the clock.
void restore_ini_sntp(const dictionary* ini) {
    const Daylight rule = read_daylight(ini);
    restore_client(ini);
    U_SysSetDaylight(rule.enabled, rule.start_month, rule.start_week, rule.start_day,
                     rule.start_hour, rule.end_month, rule.end_week, rule.end_day, rule.end_hour,
                     rule.offset);
}
