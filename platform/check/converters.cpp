#include "platform/include/converters.h"

#include "platform/check/check.h"
#include "platform/include/aes.h"

namespace {

// The text of the address that a text is read as.
std::string number_again(const char* text) {
    unsigned long address = 0;
    char again[64] = "";
    const int result = str_to_ip(&address, text);
    ip_to_str(again, address);
    return result == 0 && address <= 0xffffffff ? again : "";
}

// Empty too if the text needs more than the 46 bytes that the tool has.
std::string record_again(const char* text) {
    ip_addr_t address = {};
    char again[128] = "";
    const int result = str_to_ipaddr(&address, text);
    ipaddr_to_str(again, &address);
    return result == 0 && hex(again + 46, 82) == std::string(164, '0') ? again : "";
}

void check_mac(const unsigned char (&mac)[6]) {
    char text[64] = "";
    unsigned char again[6] = {1, 1, 1, 1, 1, 1};
    mac_to_str(text, mac);
    str_to_mac(again, text);
    expect("str_to_mac", "reads what mac_to_str has written", hex(mac, 6), hex(again, 6));
}

template <typename Output>
void check_refused(const char* name, int (*convert)(Output*, const char*)) {
    for (const char* text : {"", "-1", "not an address", "256.1.1.1"}) {
        alignas(Output) unsigned char output[64] = {};
        const int result = convert(reinterpret_cast<Output*>(output), text);
        const bool is_alone = hex(output, 64) == std::string(128, '0');
        expect(name, formatted("refuses \"%s\", and leaves its output alone", text).c_str(),
               "not 0, nothing written",
               formatted("%s, %s", result != 0 ? "not 0" : "0",
                         is_alone ? "nothing written" : "an output"));
    }
}

void check_digits(const char* text, const char* expected) {
    unsigned char output[64] = {};
    const auto* digits = reinterpret_cast<const unsigned char*>(text);
    const int result = usrutil_hexStrToHexValue(digits, output, 16);
    expect("usrutil_hexStrToHexValue", "converts 16 bytes, and returns -2 for other text", expected,
           result == -2 ? "-2" : hex(output, 16));
    expect("usrutil_hexStrToHexValue", "writes no more than its length", std::string(96, '0'),
           hex(output + 16, 48));
}

// The example of FIPS 197, appendix C.3.
void check_known_answer() {
    AES_ctx context = {};
    unsigned char aes_key[32], block[16];
    for (unsigned char i = 0; i < 32; ++i) {
        aes_key[i] = i;
        block[i % 16] = static_cast<unsigned char>(i % 16 * 0x11);
    }
    const std::string plain = hex(block, 16), cipher = "8ea2b7ca516745bfeafc49904b496089";
    AES_init_ctx(&context, aes_key);
    AES_ECB_encrypt(&context, block);
    expect("AES_ECB_encrypt", "the example of FIPS 197", cipher, hex(block, 16));
    AES_ECB_decrypt(&context, block);
    expect("AES_ECB_decrypt", "the example of FIPS 197", plain, hex(block, 16));
}

void check_padding(std::string block, char padding) {
    std::string padded = block;
    padded.resize(16, padding);
    padded.resize(17);
    block.resize(17);
    _pkcs7pad(reinterpret_cast<uint8_t*>(block.data()));
    expect("_pkcs7pad", "fills a block", hex(padded.data(), 17), hex(block.data(), 17));
}

} // namespace

void check_converters() {
    static const ip_addr_t ipv4 = {0xffff, {{1, 1, 1, 1}}};
    for (const char* text : {"0.0.0.0", "1.2.3.4", "192.0.2.129", "255.255.255.255"}) {
        expect("ip_to_str", "writes what its counterpart reads", text, number_again(text));
        expect("ipaddr_to_str", "writes what its counterpart reads", text, record_again(text));
    }
    for (const char* address : {"::1", "2001:db8:1111:2222:3333:4444:5555:6666"}) {
        const std::string text = record_again(address); // one of several
        const std::string again = text.empty() ? "" : record_again(text.c_str());
        expect("ipaddr_to_str", "writes any IPv6 text that its counterpart reads", text, again);
    }
    GETTER(ip_to_str, text(16), ip("255.255.255.255"));
    GETTER(mac_to_str, text(18), bytes(6, 6, '\xff'));
    GETTER(str_to_ip, {}, given("192.0.2.129"));
    GETTER(str_to_ipaddr, record(ipv4), given("192.0.2.129"));
    check_mac({0, 0, 0, 0, 0, 0});
    check_mac({0x02, 0x00, 0x5e, 0x10, 0x20, 0xff});
    check_refused(NAMED(str_to_ip));
    check_refused(NAMED(str_to_ipaddr));
    check_refused(NAMED(str_to_mac));
    check_digits("011f456789abcdef0123456789abcdef", "011f456789abcdef0123456789abcdef");
    check_digits("g11f456789abcdef0123456789abcdef", "-2");
    check_digits("011f456789abcdef0123456789abcdef0123456789abcdef0123456789abcdeg", "-2");
    check_known_answer();
    check_padding("", 16);
    check_padding("a", 15);
    check_padding("fifteen letters", 1);
    check_padding("sixteen letters.", 0);
    char bytes[] = "......";
    hexstr_to_byte(bytes, "4a4b6c");
    expect("hexstr_to_byte", "converts each pair of digits, and nothing else", "JKl...", bytes);
}
