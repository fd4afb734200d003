// The document holds the RADIUS shared key as encrypted hex text. While 802.1X is
// off in the document, check refuses every RADIUS field that differs from the
// device's; while it is on, check only validates the fields.

#include "sections/security/dot1x.h"

#include "codec/secret_codec.h"
#include "frame/ports.h"
#include "frame/report.h"
#include "platform/include/converters.h"
#include "platform/include/dot1x.h"
#include "platform/include/return_codes.h"

#include <netinet/in.h>

namespace {

constexpr std::uint16_t default_server_port = 1812;
constexpr std::uint16_t default_accounting_port = 1813;
constexpr std::size_t max_nas_identifier = 29;
// Of the NAS identifier and the plain shared key, terminator included.
constexpr std::uint8_t field_size = 30;

// Of the texts that are read from the document, terminator included.
constexpr std::size_t checked_size = 70;
constexpr std::size_t restored_size = 65;
constexpr std::size_t parameter_size = 32;
constexpr std::size_t mode_size = 64;

struct RadiusServer {
    std::uint32_t address = 0;
    std::uint16_t server_port = default_server_port;
    std::uint16_t accounting_port = default_accounting_port;
};

RadiusServer stored_server() {
    RadiusServer server;
    U_FlshDot1xGetRds(&server.address, &server.server_port, &server.accounting_port);
    return server;
}

// A text of the device may fill its field: one byte more terminates it.
using NasIdentifier = Text<field_size + 1>;

NasIdentifier stored_nas_identifier() {
    NasIdentifier identifier;
    U_FlshDot1xGetRdsId(identifier.chars, field_size);
    return identifier;
}

Text<encrypted_size> encrypted_stored_key() {
    Secret<field_size + 1> plain;
    Text<encrypted_size> encrypted;
    U_FlshDot1xGetRdsKey(plain.chars, field_size);
    encrypt_dot1x_key(plain.chars, encrypted.chars);
    return encrypted;
}

} // namespace

void backup_ini_dot1x_settings(FILE* ini_file) {
    char enabled = 0;
    Text<INET_ADDRSTRLEN> address;

    U_Dot1xGetEbl(&enabled);
    const RadiusServer server = stored_server();
    ip_to_str(address.chars, server.address);
    const NasIdentifier identifier = stored_nas_identifier();
    const Text<encrypted_size> shared_key = encrypted_stored_key();

    write_section_line(ini_file, "802.1x setting");
    fprintf(ini_file, "802.1x = %d ;\n", static_cast<std::int8_t>(enabled));
    fprintf(ini_file, "radius server ip = \"%s\" ;\n", address.chars);
    fprintf(ini_file, "server port = %d ;\n", server.server_port);
    fprintf(ini_file, "accounting port = %d ;\n", server.accounting_port);
    fprintf(ini_file, "nas identifier = \"%s\" ;\n", identifier.chars);
    fprintf(ini_file, "shared key = \"%s\" ;\n", shared_key.chars);
}

namespace {

// The fields as the document has them, with room for texts that are too long.
struct RadiusFields {
    explicit RadiusFields(const dictionary* ini)
        : address(read_text<checked_size>(ini, "802.1x setting:radius server ip")),
          server_port(read_decimal<checked_size>(ini, "802.1x setting:server port")),
          accounting_port(read_decimal<checked_size>(ini, "802.1x setting:accounting port")),
          nas_identifier(read_text<checked_size>(ini, "802.1x setting:nas identifier")),
          shared_key(read_text<checked_size>(ini, "802.1x setting:shared key")) {}

    Text<checked_size> address;
    int server_port;
    int accounting_port;
    Text<checked_size> nas_identifier;
    Text<checked_size> shared_key;
};

// 802.1X is off: nothing may change. Addresses are compared as numbers, so their
// text form does not matter. Keys are compared encrypted: the same key always gives
// the same text, and check never decodes the document's.
int check_unchanged(const RadiusFields& document, FILE* error_file) {
    const RadiusServer stored = stored_server();
    unsigned long address = 0;
    str_to_ip(&address, document.address.chars);
    if (static_cast<std::uint32_t>(address) != stored.address) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SERVER_IP_MODIFY);
    }
    if (document.server_port != stored.server_port) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SERVER_PORT_MODIFY);
    }
    if (document.accounting_port != stored.accounting_port) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_ACCOUNTING_PORT_MODIFY);
    }
    if (strcmp(document.nas_identifier.chars, stored_nas_identifier().chars) != 0) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_NAS_MODIFY);
    }
    if (strcmp(document.shared_key.chars, encrypted_stored_key().chars) != 0) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SHARED_KEY_MODIFY);
    }
    return 0;
}

bool is_port(int number) {
    return static_cast<unsigned>(number) <= 65535;
}

// 802.1X is on. Only the length of the shared key is judged, not its digits.
int check_valid(const RadiusFields& document, FILE* error_file) {
    unsigned long unused = 0;
    if (str_to_ip(&unused, document.address.chars) != 0) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SERVER_IP);
    }
    if (!is_port(document.server_port)) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SERVER_PORT);
    }
    if (!is_port(document.accounting_port)) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_ACCOUNTING_PORT);
    }
    if (strlen(document.nas_identifier.chars) > max_nas_identifier) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_NAS);
    }
    const std::size_t digits = strlen(document.shared_key.chars);
    if (digits != 32 && digits != 64) {
        return report_fault(error_file, USR_RET_ERR_DOT1X_SHARED_KEY);
    }
    return 0;
}

} // namespace

int check_ini_dot1x_settings(const dictionary* ini, FILE* error_file) {
    const RadiusFields document(ini);
    return read_boolean(ini, "802.1x setting:802.1x", 0) != 0
               ? check_valid(document, error_file)
               : check_unchanged(document, error_file);
}

// Text that does not convert is applied as 0. A missing shared key is applied as what
// the empty text decodes to.
void restore_ini_dot1x_settings(const dictionary* ini) {
    U_Dot1xSetEbl(static_cast<char>(read_boolean(ini, "802.1x setting:802.1x", 0)));

    unsigned long address = 0;
    str_to_ip(&address, read_text<restored_size>(ini, "802.1x setting:radius server ip").chars);
    const int server_port = read_decimal<restored_size>(ini, "802.1x setting:server port");
    const int accounting_port = read_decimal<restored_size>(ini, "802.1x setting:accounting port");
    U_Dot1xSetRds(static_cast<std::uint32_t>(address), static_cast<std::uint16_t>(server_port),
                  static_cast<std::uint16_t>(accounting_port));

    U_Dot1xSetRdsId(read_text<restored_size>(ini, "802.1x setting:nas identifier").chars);

    Secret<secret_size> shared_key;
    decrypt_dot1x_key(read_text<restored_size>(ini, "802.1x setting:shared key").chars,
                      shared_key.chars);
    U_Dot1xSetRdsKey(shared_key.chars);
}

void backup_ini_dot1x_parameter(FILE* ini_file) {
    std::uint16_t quiet_period = 60;
    std::uint16_t tx_period = 15;
    std::uint16_t supplicant_timeout = 30;
    std::uint16_t server_timeout = 30;
    std::uint8_t maximum_requests = 2;
    std::uint32_t reauth_period = 3600;

    U_Dot1xGetTimeoutQuiet(&quiet_period);
    U_Dot1xGetTimeoutTx(&tx_period);
    U_Dot1xGetTimeoutSupplicant(&supplicant_timeout);
    U_Dot1xGetTimeoutRds(&server_timeout);
    U_Dot1xGetMaxReq(&maximum_requests);
    U_Dot1xGetTimeoutReauth(&reauth_period);

    write_section_line(ini_file, "802.1x parameter setting");
    fprintf(ini_file, "quiet period = %d ;\n", quiet_period);
    fprintf(ini_file, "tx period = %d ;\n", tx_period);
    fprintf(ini_file, "supplicant timeout = %d ;\n", supplicant_timeout);
    fprintf(ini_file, "server timeout = %d ;\n", server_timeout);
    fprintf(ini_file, "maximum requests = %d ;\n", maximum_requests);
    fprintf(ini_file, "reauth period = %ld ;\n", signed_32_bits(reauth_period));
}

namespace {

int read_parameter(const dictionary* ini, const char* entry) {
    return read_decimal<parameter_size>(ini, entry);
}

struct ParameterRange {
    const char* entry;
    unsigned minimum;
    unsigned maximum; // negative numbers are above it
    int fault;
};

constexpr ParameterRange parameter_ranges[] = {
    {"802.1x parameter setting:quiet period", 10, 65535, USR_RET_ERR_QUIET_PERIOD},
    {"802.1x parameter setting:tx period", 10, 65535, USR_RET_ERR_TX_PEROID},
    {"802.1x parameter setting:supplicant timeout", 10, 300, USR_RET_ERR_SUPPLICANTT_TIMEOUT},
    {"802.1x parameter setting:server timeout", 10, 300, USR_RET_ERR_DOT1X_SERVER_TIMEOUT},
    {"802.1x parameter setting:maximum requests", 2, 10, USR_RET_ERR_DOT1X_MAXREQ},
    {"802.1x parameter setting:reauth period", 30, 65535, USR_RET_ERR_DOT1X_REAUTH_PEROID},
};

} // namespace

int check_ini_dot1x_parameter(const dictionary* ini, FILE* error_file) {
    for (const ParameterRange& range : parameter_ranges) {
        const auto value = static_cast<unsigned>(read_parameter(ini, range.entry));
        if (value < range.minimum || value > range.maximum) {
            return report_fault(error_file, range.fault);
        }
    }
    return 0;
}

// All are read before the first is set.
void restore_ini_dot1x_parameter(const dictionary* ini) {
    const int quiet_period = read_parameter(ini, "802.1x parameter setting:quiet period");
    const int tx_period = read_parameter(ini, "802.1x parameter setting:tx period");
    const int supplicant_timeout =
        read_parameter(ini, "802.1x parameter setting:supplicant timeout");
    const int server_timeout = read_parameter(ini, "802.1x parameter setting:server timeout");
    const int maximum_requests = read_parameter(ini, "802.1x parameter setting:maximum requests");
    const int reauth_period = read_parameter(ini, "802.1x parameter setting:reauth period");

    U_Dot1xSetTimeoutQuiet(static_cast<std::uint16_t>(quiet_period));
    U_Dot1xSetTimeoutTx(static_cast<std::uint16_t>(tx_period));
    U_Dot1xSetTimeoutSupplicant(static_cast<std::uint16_t>(supplicant_timeout));
    U_Dot1xSetTimeoutRds(static_cast<std::uint16_t>(server_timeout));
    U_Dot1xSetMaxReq(static_cast<std::uint8_t>(maximum_requests));
    U_Dot1xSetTimeoutReauth(static_cast<std::uint32_t>(reauth_period));
}

namespace {

constexpr std::uint8_t no_mode = 3; // "N/A", and any unknown text

Text<mode_size> read_port_mode(const dictionary* ini, int port) {
    return read_text<mode_size>(ini,
                                EntryName("802.1x port setting:port%d_mode", key_number(port)));
}

std::uint8_t port_mode(const char* text) {
    if (strcmp(text, "Force Unauthorized") == 0) {
        return pmt_ForceUnauthorized;
    }
    if (strcmp(text, "Force Authorized") == 0) {
        return pmt_ForceAuthorized;
    }
    if (strcmp(text, "Standard Authorization") == 0) {
        return pmt_Auto;
    }
    return no_mode;
}

} // namespace

void backup_ini_dot1x_port(FILE* ini_file) {
    write_section_line(ini_file, "802.1x port setting");
    std::uint8_t mode = 0; // a port that cannot be read is written as the one before it
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        U_Dot1xGetPortMode(port, &mode);
        switch (mode) {
        case pmt_ForceUnauthorized:
            fprintf(ini_file, "port%d_mode = \"Force Unauthorized\" ;\n", key_number(port));
            break;
        case pmt_ForceAuthorized:
            fprintf(ini_file, "port%d_mode = \"Force Authorized\" ;\n", key_number(port));
            break;
        case pmt_Auto:
            fprintf(ini_file, "port%d_mode = \"Standard Authorization\" ;\n", key_number(port));
            break;
        default:
            fprintf(ini_file, "port%d_mode = \"N/A\" ;\n", key_number(port));
            break;
        }
    }
}

int check_ini_dot1x_port(const dictionary* ini, FILE* error_file) {
    for (int port = 0; port < g_ucMaxPhyPort; ++port) {
        const Text<mode_size> text = read_port_mode(ini, port);
        if (port_mode(text.chars) == no_mode && strcmp(text.chars, "N/A") != 0) {
            return report_fault(error_file, USR_RET_ERR_DOT1X_PORT_MODE);
        }
    }
    return 0;
}

void restore_ini_dot1x_port(const dictionary* ini) {
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        U_Dot1xSetPortMode(port, port_mode(read_port_mode(ini, port).chars));
    }
}
