// The choice of this switch: hexadecimal text is judged whole, also what lies
// beyond the bytes that are asked for.

#include "platform/include/converters.h"

#include "platform/simulator/addresses.h"
#include "platform/simulator/gate.h"

#include <cstring>

using namespace simulator;

namespace {

constexpr int failed = -1;
constexpr int not_hexadecimal = -2;

} // namespace

void ip_to_str(char* text, unsigned long address) {
    const Ipv4 number{static_cast<uint32_t>(address)};
    reads(call(__func__, number), [&] { strcpy(text, dotted(number).c_str()); });
}

int str_to_ip(unsigned long* address, const char* text) {
    return answers(call(__func__, text), failed, [&] {
        const auto number = ipv4_from(text);
        if (!number) {
            return failed;
        }
        *address = number->value;
        return 0;
    });
}

int ipaddr_to_str(char* text, const ip_addr_t* address) {
    return reads(call(__func__, *address), [&] { strcpy(text, address_text(*address).c_str()); });
}

int str_to_ipaddr(ip_addr_t* address, const char* text) {
    return answers(call(__func__, text), failed, [&] {
        const auto converted = address_from(text);
        if (!converted) {
            return failed;
        }
        *address = *converted;
        return 0;
    });
}

void mac_to_str(char* text, const unsigned char* mac) {
    Mac address;
    memcpy(address.bytes.data(), mac, address.bytes.size());
    reads(call(__func__, address), [&] { strcpy(text, colon_separated(address).c_str()); });
}

int str_to_mac(unsigned char* mac, const char* text) {
    return answers(call(__func__, text), failed, [&] {
        const auto address = mac_from(text);
        if (!address) {
            return failed;
        }
        memcpy(mac, address->bytes.data(), address->bytes.size());
        return 0;
    });
}

int usrutil_hexStrToHexValue(const unsigned char* text, unsigned char* bytes, int length) {
    return answers(call(__func__, text, length), failed, [&] {
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
    });
}
