/*
 * Time from NTP servers by SNTP (RFC 4330), and the daylight-saving rule.
 *
 * Server names are in fields of 32 bytes; one that fills its field needs no
 * terminator. The tool gives at most 31 characters.
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * outputs as they were.
 */
#ifndef SWITCH_SNTP_H
#define SWITCH_SNTP_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Whether the time is taken from servers (1), the index of the time zone, the
 * servers, and the seconds between queries. The last argument of a set is
 * always 0.
 */
unsigned short U_SysGetMSNTP(char* client_enabled, uint8_t* time_zone, char* server1, char* server2,
                             unsigned long* query_period);
unsigned short U_SysSetMSNTP(char client_enabled, uint8_t time_zone, const char* server1,
                             const char* server2, unsigned long query_period, unsigned long last);

/*
 * Whether a server was given by hand (1) rather than chosen among the public
 * ones (0), whether it was given as an address or as a name, and both texts.
 * There is no operation to set them.
 */
unsigned short U_FlshntpIpDmStrngGet(char* manual, char* ip_or_domain, char* ip, char* domain);

/*
 * The daylight-saving rule: whether it is applied (1), its start, its end, and
 * its offset, in the library's coding.
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
