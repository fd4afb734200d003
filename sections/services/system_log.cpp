// Restore also sets the log viewer. The device has no operation to read its four
// settings, so backup writes none of them, and they get their defaults unless
// somebody adds them to the document by hand.

#include "sections/services/system_log.h"

#include "frame/report.h"
#include "platform/include/converters.h"
#include "platform/include/return_codes.h"
#include "platform/include/system_log.h"

#include <netinet/in.h>

namespace {

struct LogSettings {
    std::uint8_t event_to_flash = 0;
    std::uint8_t level = 0;
    std::uint8_t server_enabled = 0;
    unsigned long server_address = 0;
    std::uint16_t server_port = 0;
};

LogSettings stored_settings() {
    LogSettings settings;
    Ui_SysLogFlashConfig(&settings.event_to_flash, &settings.level, &settings.server_enabled,
                         &settings.server_address, &settings.server_port);
    return settings;
}

void ini_write_system_log_event(FILE* ini_file) {
    fprintf(ini_file, "system log event to flash = %d ;\n", stored_settings().event_to_flash);
}

void ini_write_system_log_level(FILE* ini_file) {
    fprintf(ini_file, "system log level = %d ;\n", stored_settings().level);
}

void ini_write_system_log_server(FILE* ini_file) {
    fprintf(ini_file, "system log server = %d ;\n", stored_settings().server_enabled);
}

void ini_write_system_log_server_ip(FILE* ini_file) {
    Text<INET_ADDRSTRLEN> address;
    ip_to_str(address.chars, stored_settings().server_address);
    fprintf(ini_file, "system log server ip = \"%s\" ;\n", address.chars);
}

void ini_write_system_log_server_service_port(FILE* ini_file) {
    fprintf(ini_file, "system log server port = %d ;\n", stored_settings().server_port);
}

} // namespace

void backup_ini_system_log_settings(FILE* ini_file) {
    write_section_line(ini_file, "system log settings");
    ini_write_system_log_event(ini_file);
    ini_write_system_log_level(ini_file);
    ini_write_system_log_server(ini_file);
    ini_write_system_log_server_ip(ini_file);
    ini_write_system_log_server_service_port(ini_file);
}

namespace {

int check_systemLog_eventToFlash(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "system log settings:system log event to flash",
                        {USR_RET_ERR_SYSTEM_LOG_EVENT_TO_FLASH_NO_FOUND,
                         USR_RET_ERR_SYSTEM_LOG_EVENT_TO_FLASH_VALUE_INVALID},
                        Usrsyslog_check_log_event_to_flash_status);
}

int check_systemLog_level(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, "system log settings:system log level",
        {USR_RET_ERR_SYSTEM_LOG_LEVEL_NO_FOUND, USR_RET_ERR_SYSTEM_LOG_LEVEL_VALUE_INVALID},
        Usrsyslog_check_log_level);
}

int check_systemLog_server_status(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "system log settings:system log server",
                        {USR_RET_ERR_SYSTEM_LOG_SERVER_STATUS_NO_FOUND,
                         USR_RET_ERR_SYSTEM_LOG_SERVER_STATUS_VALUE_INVALID},
                        Usrsyslog_check_system_log_server_status);
}

// Address and port are judged even if the server is off.

int check_systemLog_serverIp(const dictionary* ini, FILE* error_file) {
    return check_text(
        ini, error_file, "system log settings:system log server ip",
        {USR_RET_ERR_SYSTEM_LOG_SERVER_IP_NO_FOUND, USR_RET_ERR_SYSTEM_LOG_SERVER_IP_VALUE_INVALID},
        Usrsyslog_check_system_log_server_ip);
}

int check_systemLog_serverPort(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "system log settings:system log server port",
                        {USR_RET_ERR_SYSTEM_LOG_SERVER_PORT_NO_FOUND,
                         USR_RET_ERR_SYSTEM_LOG_SERVER_PORT_VALUE_INVALID},
                        Usrsyslog_check_system_log_server_port);
}

} // namespace

int check_ini_systemLog_settings(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_systemLog_eventToFlash, check_systemLog_level,
                            check_systemLog_server_status, check_systemLog_serverIp,
                            check_systemLog_serverPort},
                           ini, error_file);
}

namespace {

// An address that does not convert is applied as 0.
void resotre_systemLog_settings1(const dictionary* ini) {
    const int event_to_flash = read_int(ini, "system log settings:system log event to flash", 0);
    const int level = read_int(ini, "system log settings:system log level", 0);
    const int server_enabled = read_int(ini, "system log settings:system log server", 0);
    const char* address_text =
        read_string(ini, "system log settings:system log server ip", "0.0.0.0");
    const int port = read_int(ini, "system log settings:system log server port", 0);

    unsigned long address = 0;
    str_to_ip(&address, address_text);
    Ui_SysLogSet(static_cast<std::uint8_t>(event_to_flash), static_cast<std::uint8_t>(level),
                 static_cast<std::uint8_t>(server_enabled), address,
                 static_cast<std::uint16_t>(port));
}

// These keys are never written by backup.
void resotre_systemLog_settings2(const dictionary* ini) {
    const int notification = read_int(ini, "system log settings:read all notification", 0);
    const int list_number = read_int(ini, "system log settings:read list number", 20);
    const int refresh = read_int(ini, "system log settings:automatic refresh", 0);
    const int cycle_time = read_int(ini, "system log settings:automatic refresh cycle time", 20);

    Ui_SystemLogSettingSet(
        static_cast<std::uint8_t>(notification), static_cast<std::uint16_t>(list_number),
        static_cast<std::uint8_t>(refresh), static_cast<std::uint16_t>(cycle_time));
}

} // namespace

// Sets everything, whether or not it differs from the device's.
void restore_ini_systemLog_settings(const dictionary* ini) {
    resotre_systemLog_settings1(ini);
    resotre_systemLog_settings2(ini);
}
