/*
 * Text forms of addresses. The library chooses the forms; whatever text a
 * converter writes, its counterpart must read back as the same address.
 */
#ifndef SWITCH_CONVERTERS_H
#define SWITCH_CONVERTERS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* An IPv4 or IPv6 address. The library alone knows the values of type. */
typedef struct ip_addr {
    uint16_t type;
    union {
        uint8_t v6u8[16];
        int16_t v6u16[8];
        uint32_t v6u32[4];
        uint32_t v4u32;
        uint8_t v4u8[4];
    } addr;
} ip_addr_t;
typedef ip_addr_t IP_ADDR_T;

CONTRACT_SIZE(ip_addr_t, 20);
CONTRACT_FIELD(ip_addr_t, type, uint16_t, 0);
CONTRACT_FIELD(ip_addr_t, addr.v6u8, uint8_t[16], 4);
CONTRACT_FIELD(ip_addr_t, addr.v6u16, int16_t[8], 4);
CONTRACT_FIELD(ip_addr_t, addr.v6u32, uint32_t[4], 4);
CONTRACT_FIELD(ip_addr_t, addr.v4u32, uint32_t, 4);
CONTRACT_FIELD(ip_addr_t, addr.v4u8, uint8_t[4], 4);

/*
 * An IPv4 address as dotted text of at most 15 characters, NUL-terminated, into
 * at least 16 bytes. The byte order of the number is the library's own.
 */
void ip_to_str(char* text, unsigned long address);

/*
 * Dotted IPv4 text to a number. Returns 0 on success; otherwise leaves address
 * unchanged.
 */
int str_to_ip(unsigned long* address, const char* text);

/* IPv4 or IPv6 text, NUL-terminated, into at least 46 bytes (INET6_ADDRSTRLEN). */
int ipaddr_to_str(char* text, const ip_addr_t* address);

/* IPv4 or IPv6 text to an address. Returns 0 on success; otherwise leaves address unchanged. */
int str_to_ipaddr(ip_addr_t* address, const char* text);

/* A MAC address of 6 bytes as text, NUL-terminated, into at least 18 bytes. */
void mac_to_str(char* text, const unsigned char* mac);

/* MAC address text to 6 bytes. Returns 0 on success; otherwise leaves mac unchanged. */
int str_to_mac(unsigned char* mac, const char* text);

/*
 * Hexadecimal text to bytes; writes no more than length of them. Returns -2 when
 * any character of the text is not a hexadecimal digit, however long the text.
 * The tool looks for no other result.
 */
int usrutil_hexStrToHexValue(const unsigned char* text, unsigned char* bytes, int length);

#ifdef __cplusplus
}
#endif

#endif
