// The choice of this switch: an address record of type 0 is IPv4, one of type
// 1 is IPv6. A zeroed record is therefore 0.0.0.0.

#include "platform/simulator/addresses.h"

#include <arpa/inet.h>

#include <cctype>
#include <cstdio>
#include <cstring>

namespace simulator {

namespace {

constexpr uint16_t type_ipv4 = 0;
constexpr uint16_t type_ipv6 = 1;

} // namespace

int hex_digit(char digit) {
    if (isxdigit(static_cast<unsigned char>(digit)) == 0) {
        return -1;
    }
    const int lower = tolower(static_cast<unsigned char>(digit));
    return lower <= '9' ? lower - '0' : lower - 'a' + 10;
}

std::string dotted(Ipv4 address) {
    const in_addr number{htonl(address.value)};
    char text[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &number, text, sizeof text);
}

std::optional<Ipv4> ipv4_from(const char* text) {
    in_addr number;
    if (inet_pton(AF_INET, text, &number) != 1) {
        return std::nullopt;
    }
    return Ipv4{ntohl(number.s_addr)};
}

std::string colon_separated(Mac mac) {
    const auto& b = mac.bytes;
    char text[18];
    snprintf(text, sizeof text, "%02X:%02X:%02X:%02X:%02X:%02X", b[0], b[1], b[2], b[3], b[4],
             b[5]);
    return text;
}

std::optional<Mac> mac_from(const char* text) {
    Mac mac;
    if (strlen(text) != 3 * mac.bytes.size() - 1) {
        return std::nullopt;
    }
    for (std::uint8_t& byte : mac.bytes) {
        const int high = hex_digit(text[0]);
        const int low = hex_digit(text[1]);
        const bool separated = text[2] == ':' || text[2] == '-' || text[2] == '\0';
        if (high < 0 || low < 0 || !separated) {
            return std::nullopt;
        }
        byte = static_cast<std::uint8_t>(high * 16 + low);
        text += 3;
    }
    return mac;
}

std::string address_text(const ip_addr_t& address) {
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(address.type == type_ipv6 ? AF_INET6 : AF_INET, address.addr.v6u8, text,
                     sizeof text);
}

std::optional<ip_addr_t> address_from(const char* text) {
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

} // namespace simulator
