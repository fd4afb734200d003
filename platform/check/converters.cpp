#include "platform/include/converters.h"

#include "platform/check/check.h"

#include <cstring>

namespace {

// A library that writes fewer bytes of the number leaves high bits set.
bool is_same(const unsigned long (&values)[2], bool) {
    return values[0] == values[1] && values[0] <= 0xffffffff;
}

bool is_same(const ip_addr_t (&values)[2], bool is_ipv6) {
    return values[0].type == values[1].type &&
           std::memcmp(values[0].addr.v6u8, values[1].addr.v6u8, is_ipv6 ? 16 : 4) == 0;
}

// An IPv4 address is written as it was read. IPv6 has several texts for an address: it is
// read back as the same.
template <typename Value, typename Written>
void check_pair(const char* name, const char* given, std::size_t width, Written write,
                int (*read)(Value*, const char*)) {
    Value values[2];
    std::memset(values, 0xff, sizeof values);
    std::string text(128, '\x96');
    const int result = read(&values[0], given);
    const bool is_ipv6 = std::strchr(given, ':') != nullptr;
    if (result != 0 && is_ipv6) {
        return report(name, given, {"SKIP the library takes no IPv6 address"});
    }
    write(text.data(), values[0]);
    const bool fits = text.find('\0') < width && text.find_first_not_of('\x96', width) == text.npos;
    const int again = fits ? read(&values[1], text.c_str()) : -1;
    const bool is_right = again == 0 && is_same(values, is_ipv6) &&
                          (is_ipv6 || std::strcmp(text.c_str(), given) == 0);
    expect(result == 0 && is_right, name, "writes what its counterpart reads, and fits",
           {"expected 0, 0 and %s in %zu bytes, seen %d, %d and %.60s", given, width, result, again,
            text.c_str()});
}

void write_number(char* text, unsigned long address) {
    ip_to_str(text, address & 0xffffffff); // the width of an address in a record
}

void write_record(char* text, const ip_addr_t& address) {
    ipaddr_to_str(text, &address);
}

void check_mac(const unsigned char (&mac)[6]) {
    char text[64] = {};
    unsigned char again[6] = {1, 1, 1, 1, 1, 1};
    mac_to_str(text, mac);
    const int result = str_to_mac(again, text);
    expect(result == 0 && std::memcmp(mac, again, sizeof mac) == 0, "str_to_mac",
           "reads what mac_to_str has written",
           {"expected 0 and the same bytes, seen %d for %.60s", result, text});
}

template <typename Output>
void check_refused(const char* name, int (*convert)(Output*, const char*)) {
    for (const char* text : {"", "-1", "not an address", "256.1.1.1"}) {
        alignas(Output) unsigned char output[64] = {};
        const unsigned char before[sizeof output] = {};
        const int result = convert(reinterpret_cast<Output*>(output), text);
        const bool is_alone = std::memcmp(output, before, sizeof output) == 0;
        expect(result != 0 && is_alone, name, "refuses other texts, and leaves its output alone",
               {"expected not 0 for \"%s\" and nothing written, seen %d and %s", text, result,
                is_alone ? "nothing" : "an output"});
    }
}

void check_hexadecimal(const char* text, bool is_good) {
    unsigned char output[64] = {};
    const auto* digits = reinterpret_cast<const unsigned char*>(text);
    const int result = usrutil_hexStrToHexValue(digits, output, 16);
    expect((result != -2) == is_good && (!is_good || output[1] == 0x1f) && output[16] == 0,
           "usrutil_hexStrToHexValue", "converts as many digits as fit, and refuses other text",
           {"expected %s and 0 in byte 16, seen %d, 01 %02x and %02x",
            is_good ? "not -2, 01 1f" : "-2", result, output[1], output[16]});
}

} // namespace

void check_converters() {
    for (const char* dotted : {"0.0.0.0", "1.2.3.4", "192.0.2.129", "255.255.255.255"}) {
        check_pair("ip_to_str", dotted, 16, write_number, str_to_ip);
        check_pair("ipaddr_to_str", dotted, 46, write_record, str_to_ipaddr);
    }
    for (const char* address : {"::1", "2001:db8:1111:2222:3333:4444:5555:6666"}) {
        check_pair("ipaddr_to_str", address, 46, write_record, str_to_ipaddr);
    }
    check_getter(
        {"mac_to_str",
         +[](char* text) { mac_to_str(text, reinterpret_cast<const unsigned char*>("abcdef")); }},
        "text/18t");
    check_mac({0, 0, 0, 0, 0, 0});
    check_mac({0x02, 0x00, 0x5e, 0x10, 0x20, 0xff});
    check_refused(NAMED(str_to_ip));
    check_refused(NAMED(str_to_ipaddr));
    check_refused(NAMED(str_to_mac));
    check_hexadecimal("011f456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef", true);
    check_hexadecimal("g11f456789abcdef0123456789abcdef", false);
    check_hexadecimal("011f456789abcdef0123456789abcdeg", false);
}
