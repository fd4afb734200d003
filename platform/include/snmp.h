/*
 * The SNMP agent: its communities, its trap receivers, and its users of SNMP
 * version 3 (RFC 3414).
 *
 * Indexes count from 0. Communities and user names are char[16], NUL-terminated,
 * at most 15 characters; the secrets of users are char[32], NUL-terminated.
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_SNMP_H
#define SWITCH_SNMP_H

#include "platform/include/converters.h"

#ifdef __cplusplus
extern "C" {
#endif

/* 1 when the agent is on, 0 when it is off. */
unsigned short U_SnmpGetEbl(char* enabled);
unsigned short U_SnmpSetEbl(char enabled);

/* The stored protocol version, in the library's own numbering. */
unsigned short U_FlshSnmpGetVer(uint8_t* version);
unsigned short U_FlshSnmpSetVer(int version);

/*
 * Communities, at most 15; the text identifies the one to delete. The numbering
 * of permissions is the library's own.
 */
unsigned short U_SnmpGetCommunitySize(uint16_t* count);
unsigned short U_SnmpGetCommunityEntry(uint16_t index, uint8_t* permission, char* community);
unsigned short U_SnmpInsCommunity(uint8_t permission, const char* community);
unsigned short U_SnmpDelCommunity(const char* community);

/* Whether receivers get traps or informs; stored. */
enum { USR_SNMP_TRAP_MODE_TRAP = 0, USR_SNMP_TRAP_MODE_INFORM = 1 };
CONTRACT_ASSERT(USR_SNMP_TRAP_MODE_TRAP == 0 && USR_SNMP_TRAP_MODE_INFORM == 1);
unsigned short U_FlshSnmpGetMode(uint8_t* mode);
unsigned short U_FlshSnmpSetMode(int mode);

/*
 * Receivers, at most 15; address and port identify the one to delete. Traps and
 * informs share one table: which of the two an entry gets depends on how it was
 * inserted, and a read does not return it.
 */
unsigned short U_SnmpGetTrapSize(uint16_t* count);
unsigned short U_SnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                      char* community); /* running */
unsigned short U_FlshSnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                          char* community); /* stored */
unsigned short U_SnmpInsTrapIpv6(const IP_ADDR_T* address, uint16_t port, const char* community);
unsigned short U_SnmpInsInformIpv6(const IP_ADDR_T* address, uint16_t port, const char* community);
unsigned short U_SnmpDelTrapIpv6(const IP_ADDR_T* address, uint16_t port);

/*
 * Users of version 3; restore inserts two at most and deletes none. The library
 * decides about a name that exists, and about a secret of 32 characters, which
 * does not fit its field.
 */
enum { SNMP_USM_AUTH_NONE = 0, SNMP_USM_AUTH_MD5 = 1, SNMP_USM_AUTH_SHA = 2 };
enum { SNMP_USM_PRIV_NONE = 0, SNMP_USM_PRIV_DES = 1 };
CONTRACT_ASSERT(SNMP_USM_AUTH_NONE == 0 && SNMP_USM_AUTH_MD5 == 1 && SNMP_USM_AUTH_SHA == 2);
CONTRACT_ASSERT(SNMP_USM_PRIV_NONE == 0 && SNMP_USM_PRIV_DES == 1);
unsigned short U_SnmpGetUsmSize(uint16_t* count);
unsigned short U_FlshSnmpGetUsmEntry(uint16_t index, char* name, uint8_t* authentication,
                                     char* password, uint8_t* privacy, char* privacy_key);
unsigned short U_SnmpInsUsm(const char* name, uint8_t authentication, const char* password,
                            uint8_t privacy, const char* privacy_key);

/*
 * Validators: nonzero in the low 8 bits when acceptable. They get the document's
 * text as it is: the secrets of users encrypted, 32 or 64 hexadecimal digits.
 */
int Usrsnmp_check_snmp_enable(int enabled);
char Usrflsh_check_snmp_version(int version);
int Usrsnmp_check_community_string(const char* community);
int Usrsnmp_check_community_permission_type(int permission);
char Usrflsh_check_snmp_trap_mode(int mode);
int Usrsnmp_check_trap_server_ip(const char* address);
int Usrsnmp_check_trap_server_port(int port);
int Usrsnmp_check_trap_community_string(const char* community);
char Usrflsh_check_snmpV3_userName(const char* name);
char Usrflsh_check_snmpV3_authentication_password(const char* encrypted_text);
char Usrflsh_check_snmpV3_encryption_key(const char* encrypted_text);

#ifdef __cplusplus
}
#endif

#endif
