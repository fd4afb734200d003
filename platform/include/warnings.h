/*
 * The events that the switch warns of by mail.
 *
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * output as it was.
 */
#ifndef SWITCH_WARNINGS_H
#define SWITCH_WARNINGS_H

#ifdef __cplusplus
extern "C" {
#endif

/* Sizes of the arrays: one code a port, by its index, and one a power input. */
enum { EMAIL_PORTS = 32, EMAIL_POWERS = 2 };

/* Link changes of a port. */
enum { EMAIL_LINK_DISABLED = 0, EMAIL_LINK_UP = 1, EMAIL_LINK_DOWN = 2, EMAIL_LINK_UP_DOWN = 3 };
unsigned short U_FlshSysGetEmailPort(unsigned char* codes);
unsigned short U_SysSetEmailPort(unsigned char* codes);

/* Changes of a power input. */
enum { EMAIL_POWER_DISABLED = 0, EMAIL_POWER_ON = 1, EMAIL_POWER_OFF = 2 };
unsigned short U_FlshSysGetEmailPower(unsigned char* codes);
unsigned short U_SysSetEmailPower(unsigned char* codes);

/* System log messages from a severity on, 0 to 7 (RFC 5424), or none. */
enum { EMAIL_SYSLOG_DISABLED = 100 };
unsigned short U_SysGetEmailSyslog(unsigned char* level);
unsigned short U_SysSetEmailSyslog(unsigned char* level);

#ifdef __cplusplus
}
#endif

#endif
