/*
 * Text forms of addresses. Whatever text a converter makes, its counterpart
 * reads back to the same address.
 */
#ifndef SWITCH_CONVERTERS_H
#define SWITCH_CONVERTERS_H

#include <assert.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* An IPv4 or IPv6 address; the coding of type is the library's. */
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

static_assert(sizeof(ip_addr_t) == 20, "a 16-bit type and a 16-byte address on a 4-byte boundary");

/* Dotted IPv4 text, into at least 16 bytes. */
void ip_to_str(char* text, unsigned long address);

/* Dotted IPv4 text to number: 0 on success; else address is left as it is. */
int str_to_ip(unsigned long* address, const char* text);

/* IPv4 or IPv6 text, into at least INET6_ADDRSTRLEN (46) bytes. */
int ipaddr_to_str(char* text, const ip_addr_t* address);

/* IPv4 or IPv6 text to address: 0 on success; else address is left as it is. */
int str_to_ipaddr(ip_addr_t* address, const char* text);

/* A MAC address of 6 bytes as text, into at least 18 bytes. */
void mac_to_str(char* text, const unsigned char* mac);

/* MAC address text to 6 bytes: 0 on success; else mac is left as it is. */
int str_to_mac(unsigned char* mac, const char* text);

/* Hexadecimal text to at most length bytes: -2 when the text is not hexadecimal. */
int usrutil_hexStrToHexValue(const unsigned char* text, unsigned char* bytes, int length);

#ifdef __cplusplus
}
#endif

#endif
