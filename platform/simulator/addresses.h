// Addresses as the simulated switch keeps them, and their texts.
#pragma once

#include "platform/include/converters.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace simulator {

// An IPv4 address whose top byte is the first of the dotted text.
struct Ipv4 {
    std::uint32_t value = 0;
};

// 192.168.10.20: four decimal numbers, not fewer.
std::string dotted(Ipv4 address);
std::optional<Ipv4> ipv4_from(const char* text);

struct Mac {
    std::array<std::uint8_t, 6> bytes = {};
};

// Written as 02:00:5E:10:20:30; read with ":" or "-" and digits of either case.
std::string colon_separated(Mac mac);
std::optional<Mac> mac_from(const char* text);

// An IPv4 or IPv6 address.
struct Address {
    ip_addr_t record = {};
};

// IPv6 is read as in RFC 4291 and written as in RFC 5952.
std::string address_text(const ip_addr_t& address);
std::optional<ip_addr_t> address_from(const char* text);

// The value of a hexadecimal digit of either case, or -1.
int hex_digit(char digit);

} // namespace simulator
