/*
 * Time from NTP servers by SNTP (RFC 4330), and the daylight-saving rule.
 *
 * Server names are char[32], NUL-terminated, at most 31 characters. Operations
 * return 0 (USR_RET_OK) or a fault. A read that fails leaves its outputs
 * unchanged.
 */
#ifndef SWITCH_SNTP_H
#define SWITCH_SNTP_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Whether the time comes from NTP servers (1), the index of the time zone, two
 * servers, and the seconds between queries. Check accepts an index of 0 to 62 and
 * at least 60 seconds; which zone an index means is the library's own. The last
 * argument of the set is always 0.
 */
unsigned short U_SysGetMSNTP(char* client_enabled, uint8_t* time_zone, char* server1, char* server2,
                             unsigned long* query_period);
unsigned short U_SysSetMSNTP(char client_enabled, uint8_t time_zone, const char* server1,
                             const char* server2, unsigned long query_period, unsigned long last);

/*
 * The stored choice of a server: entered by hand (1) or public (0), entered as an
 * IP address or as a domain (backup writes 1 or 0; the codes are the library's
 * own), and both texts. There is no operation to set these.
 */
unsigned short U_FlshntpIpDmStrngGet(char* manual, char* ip_or_domain, char* ip, char* domain);

/*
 * The daylight-saving rule: whether it applies (1), its start, its end and its
 * offset. All but the first are in the library's own codes.
 */
unsigned short U_SysGetDaylight(uint8_t* enabled, uint8_t* start_month, uint8_t* start_week,
                                uint8_t* start_day, uint8_t* start_hour, uint8_t* end_month,
                                uint8_t* end_week, uint8_t* end_day, uint8_t* end_hour,
                                uint8_t* offset);
unsigned short U_SysSetDaylight(uint8_t enabled, uint8_t start_month, uint8_t start_week,
                                uint8_t start_day, uint8_t start_hour, uint8_t end_month,
                                uint8_t end_week, uint8_t end_day, uint8_t end_hour,
                                uint8_t offset);

#ifdef __cplusplus
}
#endif

#endif
