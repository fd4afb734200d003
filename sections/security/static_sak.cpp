// Only ports 7 and 8 have static keys, however many ports the device has. The
// document holds SCI and SAK as encrypted hex text.

#include "sections/security/static_sak.h"

#include "codec/secret_codec.h"
#include "frame/report.h"
#include "platform/include/converters.h"
#include "platform/include/macsec.h"
#include "platform/include/return_codes.h"

namespace {

constexpr int macsec_ports[] = {7, 8};

constexpr std::uint8_t device_port(int port) {
    return static_cast<std::uint8_t>(port - 1);
}

const char* read_sci(const dictionary* ini, int port) {
    return read_string(ini, EntryName("static sak:port %d sci", port), "");
}

const char* read_sak(const dictionary* ini, int port) {
    return read_string(ini, EntryName("static sak:port %d sak", port), "");
}

int read_status(const dictionary* ini, int port) {
    return read_int(ini, EntryName("static sak:port %d static sak status", port), 0);
}

void write_port(FILE* ini_file, int port) {
    SecretRecord<TstFlshMacsectEntry> record;
    TstFlshMacsectEntry& stored = record.value;
    U_MacsecGetPortConf(device_port(port), &stored);

    // A text may fill its field: one byte more terminates it.
    Secret<sizeof stored.key.sci + 1> sci;
    Secret<sizeof stored.key.sak + 1> sak;
    memcpy(sci.chars, stored.key.sci, sizeof stored.key.sci);
    memcpy(sak.chars, stored.key.sak, sizeof stored.key.sak);

    Text<encrypted_size> encrypted_sci;
    Text<encrypted_size> encrypted_sak;
    encrypt_sci(sci.chars, encrypted_sci.chars);
    encrypt_sak(sak.chars, encrypted_sak.chars);

    fprintf(ini_file, "port %d static sak status = %d ;\n", port, stored.status);
    fprintf(ini_file, "port %d sci = \"%s\" ;\n", port, encrypted_sci.chars);
    fprintf(ini_file, "port %d sak = \"%s\" ;\n", port, encrypted_sak.chars);
}

} // namespace

void backup_ini_static_sak(FILE* ini_file) {
    write_section_line(ini_file, "static sak");
    for (const int port : macsec_ports) {
        write_port(ini_file, port);
    }
}

namespace {

constexpr int not_hexadecimal = -2;

template <std::size_t Size>
bool is_hexadecimal(const char* text, std::uint8_t (&bytes)[Size]) {
    return usrutil_hexStrToHexValue(reinterpret_cast<const unsigned char*>(text), bytes, Size) !=
           not_hexadecimal;
}

int check_port(const dictionary* ini, FILE* error_file, int port) {
    MACSEC_PORT_KEY_VALUE_T value = {};

    const int status = read_status(ini, port);
    if (status != 0 && status != 1) {
        return report_fault(error_file, USR_RET_INI_STATIC_SAK_STATUS_ERROR);
    }
    const char* sci = read_sci(ini, port);
    if (strlen(sci) != 32) {
        return report_fault(error_file, USR_RET_INI_STATIC_SAK_SCI_LENGTH_ERROR);
    }
    if (!is_hexadecimal(sci, value.sci)) {
        return report_fault(error_file, USR_RET_INI_STATIC_SAK_KEY_ERROR);
    }
    const char* sak = read_sak(ini, port);
    if (strlen(sak) != 32 && strlen(sak) != 64) {
        return report_fault(error_file, USR_RET_INI_STATIC_SAK_SAK_LENGTH_ERROR);
    }
    if (!is_hexadecimal(sak, value.sak)) {
        return report_fault(error_file, USR_RET_INI_STATIC_SAK_KEY_ERROR);
    }
    return 0;
}

// A missing text is decoded like an empty one, and is set too.
void restore_port(const dictionary* ini, int port) {
    const auto status = static_cast<std::uint8_t>(read_status(ini, port));
    Secret<secret_size> sci;
    Secret<secret_size> sak;
    decrypt_sci(read_sci(ini, port), sci.chars);
    decrypt_sak(read_sak(ini, port), sak.chars);

    U_MacsecPortEnable(device_port(port), status);
    U_MacsecSetKey(device_port(port), sci.chars, sak.chars);
    U_MacsecSetPortEnable(device_port(port), status);
}

} // namespace

int check_ini_static_sak(const dictionary* ini, FILE* error_file) {
    for (const int port : macsec_ports) {
        const int result = check_port(ini, error_file, port);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

// Port 7 is applied before anything of port 8 is read.
void restore_ini_static_sak(const dictionary* ini) {
    for (const int port : macsec_ports) {
        restore_port(ini, port);
    }
}
