/*
 * Device identity and the addressing of the management interface.
 *
 * Addresses are numbers in the form of ip_to_str and str_to_ip; 0 is none.
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * outputs as they were.
 */
#ifndef SWITCH_SYSTEM_H
#define SWITCH_SYSTEM_H

#include <assert.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The stored system information; each text is NUL-terminated when it is shorter than its field. */
typedef struct {
    unsigned char aucName[64];
    unsigned char aucDescription[64];
    unsigned char aucLocation[64];
    unsigned char aucContact[64];
} TstFlshSysInfo;

static_assert(sizeof(TstFlshSysInfo) == 256, "four texts of 64 bytes");

/* The MAC address, 6 bytes. */
unsigned short U_SysGetMac(unsigned char* mac);
unsigned short U_SysGetFirmwareVer(unsigned char* major, unsigned char* minor, unsigned long* date);

/* The device name; a read fills at most length bytes. */
unsigned short U_FlshSysInfoGetName(unsigned char* name, unsigned char length);
unsigned short U_FlshSysInfoSetName(const unsigned char* name);

/* 1 when the interface takes its address by DHCP (RFC 2131), else 0. */
unsigned short U_FlshSysGetDhcp(char* dhcp);
unsigned short U_FlshSysSetDhcp(char dhcp);

/* The static address and its netmask. */
unsigned short U_FlshSysGetIp(unsigned long* address, unsigned long* mask);
unsigned short U_FlshSysSetIp(unsigned long address, unsigned long mask);
unsigned short U_FlshSysGetGateway(unsigned long* gateway);
unsigned short U_FlshSysSetGateway(unsigned long gateway);

/* A DNS server; index 1 is the primary one. */
unsigned short U_FlshSysGetDNSIp(unsigned short index, unsigned long* server);
unsigned short U_FlshSysSetDNSIp(unsigned short index, unsigned long server);

/* Validators of dotted IPv4 texts of any length: 0 when acceptable, else the fault's code. */
unsigned short U_SysCheckIpMaskString(const char* address, const char* mask);
unsigned short U_SysCheckGatewayString(const char* gateway);
unsigned short U_SysCheckInTheSubnet(const char* address, const char* mask, const char* gateway);
unsigned short U_SysCheckDnsString(const char* dns);

#ifdef __cplusplus
}
#endif

#endif
