/*
 * Device identity and the IPv4 addresses of the management interface.
 *
 * Addresses are in the form of ip_to_str; 0 means none. Operations return 0
 * (USR_RET_OK) or a fault. A read that fails leaves its outputs unchanged.
 */
#ifndef SWITCH_SYSTEM_H
#define SWITCH_SYSTEM_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The stored system information, NUL-terminated texts. The tool uses the name only. */
typedef struct {
    unsigned char aucName[64];
    unsigned char aucDescription[64];
    unsigned char aucLocation[64];
    unsigned char aucContact[64];
} TstFlshSysInfo;

CONTRACT_SIZE(TstFlshSysInfo, 256);
CONTRACT_FIELD(TstFlshSysInfo, aucName, unsigned char[64], 0);
CONTRACT_FIELD(TstFlshSysInfo, aucDescription, unsigned char[64], 64);
CONTRACT_FIELD(TstFlshSysInfo, aucLocation, unsigned char[64], 128);
CONTRACT_FIELD(TstFlshSysInfo, aucContact, unsigned char[64], 192);

/* The MAC address, 6 bytes. */
unsigned short U_SysGetMac(unsigned char* mac);

/* The firmware version. The tool does not use the date; its form is the library's own. */
unsigned short U_SysGetFirmwareVer(unsigned char* major, unsigned char* minor, unsigned long* date);

/* The device name, at most 29 characters. A read writes at most length bytes; length is 30. */
unsigned short U_FlshSysInfoGetName(unsigned char* name, unsigned char length);
unsigned short U_FlshSysInfoSetName(const unsigned char* name);

/* 1 when the interface takes its address by DHCP (RFC 2131), else 0. */
unsigned short U_FlshSysGetDhcp(char* dhcp);
unsigned short U_FlshSysSetDhcp(char dhcp);

/* The static address and its netmask, then the default gateway. */
unsigned short U_FlshSysGetIp(unsigned long* address, unsigned long* mask);
unsigned short U_FlshSysSetIp(unsigned long address, unsigned long mask);
unsigned short U_FlshSysGetGateway(unsigned long* gateway);
unsigned short U_FlshSysSetGateway(unsigned long gateway);

/* A DNS server. The tool uses index 1, the primary one. */
unsigned short U_FlshSysGetDNSIp(unsigned short index, unsigned long* server);
unsigned short U_FlshSysSetDNSIp(unsigned short index, unsigned long server);

/*
 * Validators of texts of any length. Return 0 when acceptable, else the fault's
 * code, which the report carries unchanged. Address and mask may be empty;
 * gateway and DNS server never are.
 */
unsigned short U_SysCheckIpMaskString(const char* address, const char* mask);
unsigned short U_SysCheckGatewayString(const char* gateway);
unsigned short U_SysCheckInTheSubnet(const char* address, const char* mask, const char* gateway);
unsigned short U_SysCheckDnsString(const char* dns);

#ifdef __cplusplus
}
#endif

#endif
