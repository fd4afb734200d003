/*
 * The system log: where events are sent, and the settings of the log viewer.
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_SYSTEM_LOG_H
#define SWITCH_SYSTEM_LOG_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Whether events are kept in flash (1), the log level in the library's own
 * numbering, and the remote server: whether it is used (1), its IPv4 address in
 * the form of ip_to_str, and its port. The read returns the stored values.
 */
unsigned short Ui_SysLogFlashConfig(uint8_t* event_to_flash, uint8_t* level,
                                    uint8_t* server_enabled, unsigned long* server_address,
                                    uint16_t* server_port);
unsigned short Ui_SysLogSet(uint8_t event_to_flash, uint8_t level, uint8_t server_enabled,
                            unsigned long server_address, uint16_t server_port);

/* The log viewer. The unit of the refresh cycle is the library's own; there is no read. */
unsigned short Ui_SystemLogSettingSet(uint8_t read_all_notification, uint16_t read_list_number,
                                      uint8_t automatic_refresh,
                                      uint16_t automatic_refresh_cycle_time);

/* Validators: nonzero in the low 8 bits when acceptable. */
int Usrsyslog_check_log_event_to_flash_status(int event_to_flash);
int Usrsyslog_check_log_level(int level);
int Usrsyslog_check_system_log_server_status(int enabled);
int Usrsyslog_check_system_log_server_ip(const char* address);
int Usrsyslog_check_system_log_server_port(int port);

#ifdef __cplusplus
}
#endif

#endif
