// The document holds the shared key in plain text. Restore applies the server only
// if the document turns it on.

#include "sections/security/auth_server.h"

#include "frame/report.h"
#include "frame/text.h"
#include "platform/include/login_server.h"
#include "platform/include/return_codes.h"

#include <netinet/in.h>

namespace {

constexpr std::size_t shared_key_size = 30; // terminator included
constexpr std::size_t number_size = 32;     // of the texts that numbers are read from
constexpr char apply = 1;

} // namespace

void backup_ini_authserver_settings(FILE* ini_file) {
    std::uint8_t enabled = 0;
    std::uint8_t kind = 0;
    IP_ADDR_T address = {};
    std::uint16_t port = 1812;
    Secret<shared_key_size + 1> shared_key; // terminates a key that fills its field
    std::uint8_t method = 0;
    std::uint8_t timeout = 1;
    Text<INET6_ADDRSTRLEN> address_text;

    write_section_line(ini_file, "auth server setting");
    U_LoginAuthSrvGetEbl(&enabled, &kind);
    U_GetLoginAuthSrv(&address, &port, shared_key.chars, &method, &timeout);
    ipaddr_to_str(address_text.chars, &address);

    fprintf(ini_file, "authentication server    = \"%d\" ;\n", enabled != 0 ? 1 : 0);
    fprintf(ini_file, "server type    \t\t = \"%d\" ;\n", kind);
    fprintf(ini_file, "server Ip/Name       = \"%s\" ;\n", address_text.chars);
    fprintf(ini_file, "server port   \t\t = \"%d\" ;\n", port);
    fprintf(ini_file, "shared key   \t\t = \"%s\" ;\n", shared_key.chars);
    fprintf(ini_file, "authentication type  \t = \"%d\" ;\n", method);
    fprintf(ini_file, "server timeout  \t = \"%d\" ;\n", timeout);
}

int check_ini_authserver(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "auth server setting:authentication server",
                         USR_RET_ERR_ASERVER_STATE_NOT_FOUND);
}

namespace {

// Only the flag changes; the device keeps its server.
void turn_off() {
    std::uint8_t enabled = 0;
    std::uint8_t kind = 0;
    U_LoginAuthSrvGetEbl(&enabled, &kind);
    U_LoginAuthSrvSetEbl(0, kind, apply);
}

constexpr char address_entry[] = "auth server setting:server Ip/Name";

constexpr std::size_t max_address_length = INET_ADDRSTRLEN - 1;

// The first 15 characters of an IPv6 address may be another host's address.
bool is_cut_ipv6_address(const char* text) {
    return strlen(text) > max_address_length && memchr(text, ':', max_address_length) != nullptr;
}

// If the address does not convert, nothing changes, not even the flag.
void turn_on(const dictionary* ini) {
    const int kind = read_decimal<number_size>(ini, "auth server setting:server type");
    const auto address_text = read_text<INET_ADDRSTRLEN>(ini, address_entry);
    const int port = read_decimal<number_size>(ini, "auth server setting:server port");
    Secret<shared_key_size> shared_key;
    copy_text(shared_key.chars, read_string(ini, "auth server setting:shared key", ""));
    const int method = read_decimal<number_size>(ini, "auth server setting:authentication type");
    const int timeout = read_decimal<number_size>(ini, "auth server setting:server timeout");

    IP_ADDR_T address = {};
    if (is_cut_ipv6_address(read_string(ini, address_entry, "")) ||
        str_to_ipaddr(&address, address_text.chars) != 0) {
        return;
    }
    U_LoginAuthSrvSetEbl(1, static_cast<std::uint8_t>(kind), apply);
    U_SetLoginAuthSrv(address, static_cast<std::uint16_t>(port), shared_key.chars,
                      static_cast<std::uint8_t>(method), static_cast<std::uint8_t>(timeout), apply);
}

} // namespace

void restore_ini_authserver(const dictionary* ini) {
    const int enabled = read_decimal<number_size>(ini, "auth server setting:authentication server");
    if (static_cast<std::uint8_t>(enabled) == 1) {
        turn_on(ini);
    } else {
        turn_off();
    }
}
