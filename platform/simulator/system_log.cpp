// Choices of this switch: levels 0 to 7 (RFC 5424), flags of 0 or 1, any dotted
// IPv4 address (0.0.0.0 is none), and any port (0 is none).

#include "platform/include/system_log.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

unsigned short Ui_SysLogFlashConfig(uint8_t* event_to_flash, uint8_t* level,
                                    uint8_t* server_enabled, unsigned long* server_address,
                                    uint16_t* server_port) {
    return reads(call(__func__), [&] {
        const SystemLog& log = state().system_log;
        *event_to_flash = log.event_to_flash;
        *level = log.level;
        *server_enabled = log.server_enabled;
        *server_address = log.server.value;
        *server_port = log.server_port;
    });
}

unsigned short Ui_SysLogSet(uint8_t event_to_flash, uint8_t level, uint8_t server_enabled,
                            unsigned long server_address, uint16_t server_port) {
    const Ipv4 server{static_cast<uint32_t>(server_address)};
    return changes(call(__func__, event_to_flash, level, server_enabled, server, server_port), [&] {
        SystemLog& log = state().system_log;
        log.event_to_flash = event_to_flash;
        log.level = level;
        log.server_enabled = server_enabled;
        log.server = server;
        log.server_port = server_port;
    });
}

unsigned short Ui_SystemLogSettingSet(uint8_t read_all_notification, uint16_t read_list_number,
                                      uint8_t automatic_refresh,
                                      uint16_t automatic_refresh_cycle_time) {
    return changes(call(__func__, read_all_notification, read_list_number, automatic_refresh,
                        automatic_refresh_cycle_time),
                   [&] {
                       SystemLog& log = state().system_log;
                       log.read_all_notification = read_all_notification;
                       log.read_list_number = read_list_number;
                       log.automatic_refresh = automatic_refresh;
                       log.automatic_refresh_cycle_time = automatic_refresh_cycle_time;
                   });
}

int Usrsyslog_check_log_event_to_flash_status(int event_to_flash) {
    return judge(call(__func__, event_to_flash), event_to_flash == 0 || event_to_flash == 1);
}

int Usrsyslog_check_log_level(int level) {
    return judge(call(__func__, level), level >= 0 && level <= 7);
}

int Usrsyslog_check_system_log_server_status(int enabled) {
    return judge(call(__func__, enabled), enabled == 0 || enabled == 1);
}

int Usrsyslog_check_system_log_server_ip(const char* address) {
    return judge(call(__func__, address), ipv4_from(address).has_value());
}

int Usrsyslog_check_system_log_server_port(int port) {
    return judge(call(__func__, port), port >= 0 && port <= 65535);
}
