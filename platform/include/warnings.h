/*
 * The events that the switch reports by mail, as unsigned 8-bit codes.
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * output unchanged. Each set gets all codes of its kind.
 */
#ifndef SWITCH_WARNINGS_H
#define SWITCH_WARNINGS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Bytes of the arrays: one for each port index, one for each power input. */
enum { EMAIL_PORTS = 32, EMAIL_POWERS = 2 };
CONTRACT_ASSERT(EMAIL_PORTS == 32 && EMAIL_POWERS == 2);

/* The link of a port. */
enum { EMAIL_LINK_DISABLED = 0, EMAIL_LINK_UP = 1, EMAIL_LINK_DOWN = 2, EMAIL_LINK_UP_DOWN = 3 };
CONTRACT_ASSERT(EMAIL_LINK_DISABLED == 0 && EMAIL_LINK_UP == 1);
CONTRACT_ASSERT(EMAIL_LINK_DOWN == 2 && EMAIL_LINK_UP_DOWN == 3);
unsigned short U_FlshSysGetEmailPort(unsigned char* codes);
unsigned short U_SysSetEmailPort(unsigned char* codes);

/* A power input. */
enum { EMAIL_POWER_DISABLED = 0, EMAIL_POWER_ON = 1, EMAIL_POWER_OFF = 2 };
CONTRACT_ASSERT(EMAIL_POWER_DISABLED == 0 && EMAIL_POWER_ON == 1 && EMAIL_POWER_OFF == 2);
unsigned short U_FlshSysGetEmailPower(unsigned char* codes);
unsigned short U_SysSetEmailPower(unsigned char* codes);

/* Log messages from a severity on, 0 (emergency) to 7 (debug) as in RFC 5424, or none. One byte. */
enum { EMAIL_SYSLOG_DISABLED = 100 };
CONTRACT_ASSERT(EMAIL_SYSLOG_DISABLED == 100);
unsigned short U_SysGetEmailSyslog(unsigned char* level);
unsigned short U_SysSetEmailSyslog(unsigned char* level);

#ifdef __cplusplus
}
#endif

#endif
