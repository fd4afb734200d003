#include "platform/include/converters.h"

#include "platform/check/check.h"

#include <cstring>

namespace {

constexpr const char* longest_address = "2001:db8:1111:2222:3333:4444:5555:6666";

// What the one converter of a pair reads, the other writes as the same text.
void check_ipv4(const char* dotted) {
    unsigned long address = ~0UL;
    ip_addr_t record = {};
    char texts[2][64] = {};
    const int results[] = {str_to_ip(&address, dotted), str_to_ipaddr(&record, dotted)};
    ip_to_str(texts[0], address & 0xffffffff);
    ipaddr_to_str(texts[1], &record);
    expect(results[0] == 0 && address <= 0xffffffff && std::strcmp(texts[0], dotted) == 0,
           "ip_to_str", "writes what str_to_ip has read, a number of 32 bits",
           "expected 0 and %s, seen %d, %lx and %s", dotted, results[0], address, texts[0]);
    expect(results[1] == 0 && std::strcmp(texts[1], dotted) == 0, "ipaddr_to_str",
           "writes what str_to_ipaddr has read", "expected 0 and %s, seen %d and %s", dotted,
           results[1], texts[1]);
}

// An IPv6 address has several texts: the one that is written is read as the same address.
void check_ipv6(const char* address) {
    ip_addr_t records[2] = {};
    char text[64] = {};
    if (str_to_ipaddr(&records[0], address) != 0) {
        return report("str_to_ipaddr", address, {"SKIP the library takes no IPv6 address"});
    }
    ipaddr_to_str(text, &records[0]);
    const int result = str_to_ipaddr(&records[1], text);
    const bool is_same = records[0].type == records[1].type &&
                         std::memcmp(records[0].addr.v6u8, records[1].addr.v6u8, 16) == 0;
    expect(result == 0 && is_same, "str_to_ipaddr", "reads what ipaddr_to_str has written",
           "expected 0 and %s, seen %d for %s", address, result, text);
}

void check_mac(const unsigned char (&mac)[6]) {
    char text[64] = {};
    unsigned char again[6] = {1, 1, 1, 1, 1, 1};
    mac_to_str(text, mac);
    const int result = str_to_mac(again, text);
    expect(result == 0 && std::memcmp(mac, again, sizeof mac) == 0, "str_to_mac",
           "reads what mac_to_str has written", "expected 0 and the same bytes, seen %d for %s",
           result, text);
}

template <typename Output>
void check_refused(const char* name, int (*convert)(Output*, const char*)) {
    for (const char* text : {"", "-1", "not an address", "256.1.1.1"}) {
        alignas(Output) unsigned char output[sizeof(ip_addr_t)] = {};
        const unsigned char before[sizeof output] = {};
        const int result = convert(reinterpret_cast<Output*>(output), text);
        const bool is_alone = std::memcmp(output, before, sizeof output) == 0;
        expect(result != 0 && is_alone, name, "refuses other texts, and leaves its output alone",
               "expected not 0 for \"%s\" and nothing written, seen %d and %s", text, result,
               is_alone ? "nothing" : "an output");
    }
}

void check_hexadecimal(const char* text, bool is_good) {
    unsigned char output[64] = {};
    const auto* digits = reinterpret_cast<const unsigned char*>(text);
    const int result = usrutil_hexStrToHexValue(digits, output, 16);
    expect((result != -2) == is_good && (!is_good || output[1] == 0x1f) && output[16] == 0,
           "usrutil_hexStrToHexValue", "converts as many digits as fit, and refuses other text",
           "expected %s for %s, seen %d, bytes %02x %02x, byte 16 %02x",
           is_good ? "not -2 and bytes 01 1f" : "-2", text, result, output[0], output[1],
           output[16]);
}

// Converters that write their longest text, judged like getters.
void longest_ip(char* text) {
    unsigned long address = 0;
    str_to_ip(&address, "255.255.255.255");
    ip_to_str(text, address);
}

void longest_ipaddr(char* text) {
    ip_addr_t record = {};
    str_to_ipaddr(&record, longest_address);
    ipaddr_to_str(text, &record);
}

void longest_mac(char* text) {
    const unsigned char mac[6] = {255, 255, 255, 255, 255, 255};
    mac_to_str(text, mac);
}

} // namespace

void check_converters() {
    for (const char* dotted : {"0.0.0.0", "1.2.3.4", "192.0.2.129", "255.255.255.255"}) {
        check_ipv4(dotted);
    }
    check_ipv6("::1");
    check_ipv6(longest_address);
    check_mac({0, 0, 0, 0, 0, 0});
    check_mac({0x02, 0x00, 0x5e, 0x10, 0x20, 0xff});
    check_refused(NAMED(str_to_ip));
    check_refused(NAMED(str_to_ipaddr));
    check_refused(NAMED(str_to_mac));
    check_getter({"ip_to_str", call<longest_ip>}, "text/16t");
    check_getter({"ipaddr_to_str", call<longest_ipaddr>}, "text/46t");
    check_getter({"mac_to_str", call<longest_mac>}, "text/18t");
    check_hexadecimal("011f456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef", true);
    check_hexadecimal("g11f456789abcdef0123456789abcdef", false);
    check_hexadecimal("011f456789abcdef0123456789abcdeg", false);
}
