#include "platform/include/sntp.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr size_t name_size = 32;

Sntp& sntp() {
    return state().sntp;
}

} // namespace

unsigned short U_SysGetMSNTP(char* client_enabled, uint8_t* time_zone, char* server1, char* server2,
                             unsigned long* query_period) {
    return reads(call(__func__), [&] {
        *client_enabled = static_cast<char>(sntp().client_enabled);
        *time_zone = sntp().time_zone;
        sntp().server1.copy_to(server1, name_size);
        sntp().server2.copy_to(server2, name_size);
        *query_period = sntp().query_period;
    });
}

unsigned short U_SysSetMSNTP(char client_enabled, uint8_t time_zone, const char* server1,
                             const char* server2, unsigned long query_period, unsigned long last) {
    return changes(call(__func__, client_enabled, time_zone, server1, server2, query_period, last),
                   [&] {
                       sntp().client_enabled = static_cast<signed char>(client_enabled);
                       sntp().time_zone = time_zone;
                       sntp().server1.assign(server1);
                       sntp().server2.assign(server2);
                       sntp().query_period = static_cast<uint32_t>(query_period);
                   });
}

unsigned short U_FlshntpIpDmStrngGet(char* manual, char* ip_or_domain, char* ip, char* domain) {
    return reads(call(__func__), [&] {
        *manual = static_cast<char>(sntp().manual);
        *ip_or_domain = static_cast<char>(sntp().ip_or_domain);
        sntp().ip.copy_to(ip, name_size);
        sntp().domain.copy_to(domain, name_size);
    });
}

unsigned short U_SysGetDaylight(uint8_t* enabled, uint8_t* start_month, uint8_t* start_week,
                                uint8_t* start_day, uint8_t* start_hour, uint8_t* end_month,
                                uint8_t* end_week, uint8_t* end_day, uint8_t* end_hour,
                                uint8_t* offset) {
    return reads(call(__func__), [&] {
        const Daylight& rule = state().daylight;
        *enabled = rule.enabled;
        *start_month = rule.start_month;
        *start_week = rule.start_week;
        *start_day = rule.start_day;
        *start_hour = rule.start_hour;
        *end_month = rule.end_month;
        *end_week = rule.end_week;
        *end_day = rule.end_day;
        *end_hour = rule.end_hour;
        *offset = rule.offset;
    });
}

unsigned short U_SysSetDaylight(uint8_t enabled, uint8_t start_month, uint8_t start_week,
                                uint8_t start_day, uint8_t start_hour, uint8_t end_month,
                                uint8_t end_week, uint8_t end_day, uint8_t end_hour,
                                uint8_t offset) {
    return changes(call(__func__, enabled, start_month, start_week, start_day, start_hour,
                        end_month, end_week, end_day, end_hour, offset),
                   [&] {
                       state().daylight = {enabled,    start_month, start_week, start_day,
                                           start_hour, end_month,   end_week,   end_day,
                                           end_hour,   offset};
                   });
}
