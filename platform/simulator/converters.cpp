// Forms that this switch has chosen:
//  - An IPv4 address as a number has the first byte of the dotted text on top.
//    Only full dotted quads are read.
//  - An address record of type 0 is IPv4, and so is a zeroed record (0.0.0.0);
//    type 1 is IPv6 (RFC 4291 text, written as RFC 5952 recommends).
//  - A MAC address is written 02:00:5E:10:20:30 and read with ":" or "-"
//    between pairs of digits of either case.

#include "platform/include/converters.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <arpa/inet.h>

#include <cctype>
#include <cstdio>
#include <cstring>

using namespace simulator;

namespace {

constexpr uint16_t type_ipv4 = 0;
constexpr uint16_t type_ipv6 = 1;

void copy_terminated(char* text, const std::string& source) {
    memcpy(text, source.c_str(), source.size() + 1);
}

constexpr int failed = -1;
constexpr int not_hexadecimal = -2;

} // namespace

int simulator::hex_digit(char digit) {
    if (isxdigit(static_cast<unsigned char>(digit)) == 0) {
        return -1;
    }
    const int lower = tolower(static_cast<unsigned char>(digit));
    return lower <= '9' ? lower - '0' : lower - 'a' + 10;
}

std::string simulator::dotted(Ipv4 address) {
    const in_addr number{htonl(address.value)};
    char text[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &number, text, sizeof text);
}

std::string simulator::colon_separated(Mac mac) {
    const auto& b = mac.bytes;
    char text[18];
    snprintf(text, sizeof text, "%02X:%02X:%02X:%02X:%02X:%02X", b[0], b[1], b[2], b[3], b[4],
             b[5]);
    return text;
}

std::string simulator::address_text(const ip_addr_t& address) {
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(address.type == type_ipv6 ? AF_INET6 : AF_INET, address.addr.v6u8, text,
                     sizeof text);
}

std::optional<ip_addr_t> simulator::address_from(const char* text) {
    ip_addr_t address = {};
    if (inet_pton(AF_INET, text, address.addr.v4u8) == 1) {
        address.type = type_ipv4;
        return address;
    }
    if (inet_pton(AF_INET6, text, address.addr.v6u8) == 1) {
        address.type = type_ipv6;
        return address;
    }
    return std::nullopt;
}

void ip_to_str(char* text, unsigned long address) {
    const Ipv4 number{static_cast<uint32_t>(address)};
    reads(
        "ip_to_str", [&] { copy_terminated(text, dotted(number)); }, number);
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
    return reads(
        "ipaddr_to_str", [&] { copy_terminated(text, address_text(*address)); }, *address);
}

int str_to_ipaddr(ip_addr_t* address, const char* text) {
    return answers(
        "str_to_ipaddr", failed,
        [&] {
            const auto converted = address_from(text);
            if (!converted) {
                return failed;
            }
            *address = *converted;
            return 0;
        },
        text);
}

void mac_to_str(char* text, const unsigned char* mac) {
    Mac address;
    memcpy(address.bytes.data(), mac, address.bytes.size());
    reads(
        "mac_to_str", [&] { copy_terminated(text, colon_separated(address)); }, address);
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
                const int high = hex_digit(text[3 * i]);
                const int low = hex_digit(text[3 * i + 1]);
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
                bytes[i] = static_cast<unsigned char>(hex_digit(digits[2 * i]) * 16 +
                                                      hex_digit(digits[2 * i + 1]));
            }
            return 0;
        },
        text, length);
}
