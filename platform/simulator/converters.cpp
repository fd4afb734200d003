// Forms that this switch has chosen:
//  - An IPv4 address as a number has the first byte of the dotted text on top.
//    Only full dotted quads are read.
//  - An address record of type 0 is IPv4, and so is a zeroed record (0.0.0.0);
//    type 1 is IPv6 (RFC 4291 text, written as RFC 5952 recommends).
//  - A MAC address is written 02:00:5E:10:20:30 and read with ":" or "-"
//    between pairs of digits of either case.

#include "platform/include/converters.h"

#include "platform/simulator/gate.h"

#include <arpa/inet.h>

#include <cctype>
#include <cstdio>
#include <cstring>

using namespace simulator;

namespace {

constexpr uint16_t type_ipv4 = 0;
constexpr uint16_t type_ipv6 = 1;

constexpr int failed = -1;
constexpr int not_hexadecimal = -2;

int digit_value(char digit) {
    if (isxdigit(static_cast<unsigned char>(digit)) == 0) {
        return -1;
    }
    const int lower = tolower(static_cast<unsigned char>(digit));
    return lower <= '9' ? lower - '0' : lower - 'a' + 10;
}

} // namespace

void ip_to_str(char* text, unsigned long address) {
    reads(
        "ip_to_str",
        [&] {
            const std::string address_text = dotted({static_cast<uint32_t>(address)});
            memcpy(text, address_text.c_str(), address_text.size() + 1);
        },
        Ipv4{static_cast<uint32_t>(address)});
}

int str_to_ip(unsigned long* address, const char* text) {
    return answers(
        "str_to_ip", failed,
        [&] {
            in_addr number;
            if (inet_pton(AF_INET, text, &number) != 1) {
                return failed;
            }
            *address = ntohl(number.s_addr);
            return 0;
        },
        text);
}

int ipaddr_to_str(char* text, const ip_addr_t* address) {
    return answers("ipaddr_to_str", failed, [&] {
        if (address->type == type_ipv6) {
            inet_ntop(AF_INET6, address->addr.v6u8, text, INET6_ADDRSTRLEN);
        } else {
            inet_ntop(AF_INET, address->addr.v4u8, text, INET_ADDRSTRLEN);
        }
        return 0;
    });
}

int str_to_ipaddr(ip_addr_t* address, const char* text) {
    return answers(
        "str_to_ipaddr", failed,
        [&] {
            ip_addr_t read = {};
            if (inet_pton(AF_INET, text, read.addr.v4u8) == 1) {
                read.type = type_ipv4;
            } else if (inet_pton(AF_INET6, text, read.addr.v6u8) == 1) {
                read.type = type_ipv6;
            } else {
                return failed;
            }
            *address = read;
            return 0;
        },
        text);
}

void mac_to_str(char* text, const unsigned char* mac) {
    reads("mac_to_str", [&] {
        snprintf(text, 18, "%02X:%02X:%02X:%02X:%02X:%02X", mac[0], mac[1], mac[2], mac[3], mac[4],
                 mac[5]);
    });
}

int str_to_mac(unsigned char* mac, const char* text) {
    return answers(
        "str_to_mac", failed,
        [&] {
            if (strlen(text) != 17) {
                return failed;
            }
            unsigned char read[6];
            for (int i = 0; i < 6; ++i) {
                const int high = digit_value(text[3 * i]);
                const int low = digit_value(text[3 * i + 1]);
                const char after = text[3 * i + 2];
                const bool separated = i == 5 ? after == '\0' : after == ':' || after == '-';
                if (high < 0 || low < 0 || !separated) {
                    return failed;
                }
                read[i] = static_cast<unsigned char>(high * 16 + low);
            }
            memcpy(mac, read, sizeof read);
            return 0;
        },
        text);
}

// The whole text is judged, also what is beyond length bytes.
int usrutil_hexStrToHexValue(const unsigned char* text, unsigned char* bytes, int length) {
    return answers(
        "usrutil_hexStrToHexValue", failed,
        [&] {
            const char* digits = reinterpret_cast<const char*>(text);
            const int count = static_cast<int>(strlen(digits));
            if (strspn(digits, "0123456789abcdefABCDEF") != strlen(digits)) {
                return not_hexadecimal;
            }
            for (int i = 0; i < length && 2 * i + 1 < count; ++i) {
                bytes[i] = static_cast<unsigned char>(digit_value(digits[2 * i]) * 16 +
                                                      digit_value(digits[2 * i + 1]));
            }
            return 0;
        },
        text, length);
}
