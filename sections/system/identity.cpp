// "system information" is written for the reader. Check refuses it if it comes from
// another model; restore ignores it.
// "system settings" has the device name.
// "network settings" has DHCP, the static address and mask, the default gateway and
// the primary DNS server. An address of 0 is written as an empty text.

#include "sections/system/identity.h"

#include "frame/report.h"
#include "platform/include/converters.h"
#include "platform/include/eeprom.h"
#include "platform/include/return_codes.h"
#include "platform/include/system.h"

#include <netinet/in.h>

#include <cstring>

namespace {

// From project() in CMakeLists.txt.
constexpr int tool_major = TOOL_MAJOR;
constexpr int tool_minor = TOOL_MINOR;
constexpr int tool_revision = TOOL_REVISION;

constexpr std::size_t max_device_name = 29;
constexpr std::size_t max_model_name = 32;
constexpr unsigned short primary_dns = 1;

// The model with two fibre ports, whose name gets a suffix.
bool is_2sfp_model() {
    return get_eeprom_macsec_port_type() == 1;
}

} // namespace

void backup_ini_system_information(FILE* ini_file) {
    Text<max_model_name + 2> model; // terminated even if the device fills its field of 33
    unsigned char mac[6] = {};
    Text<128> mac_text;
    unsigned char major = 0;
    unsigned char minor = 0;
    unsigned long date = 0;

    get_full_model_name(model.chars);
    U_SysGetMac(mac);
    mac_to_str(mac_text.chars, mac);
    U_SysGetFirmwareVer(&major, &minor, &date);

    write_section_line(ini_file, "system information");
    fprintf(ini_file, "# Only show the information. it can't be set.\n");
    if (is_2sfp_model()) {
        fprintf(ini_file, "model name = \"%s-2SFP\" ;\n", model.chars);
    } else {
        fprintf(ini_file, "model name = \"%s\" ;\n", model.chars);
    }
    fprintf(ini_file, "mac address = \"%s\" ;\n", mac_text.chars);
    fprintf(ini_file, "application version = \"%d.%02d-svn%d\" ;\n", tool_major, tool_minor,
            tool_revision);
    // The tool's revision on purpose: the firmware has none of its own.
    fprintf(ini_file, "kernel version = \"%d.%02d-svn%d\" ;\n", major, minor, tool_revision);
}

int check_ini_system_information(const dictionary* ini, FILE* error_file) {
    Text<128> model; // with room for the suffix
    get_full_model_name(model.chars);
    if (is_2sfp_model()) {
        strncat(model.chars, "-2SFP", sizeof model.chars - 1 - strlen(model.chars));
    }
    // Compared whole: a name that differs only after the field's width is another model.
    if (strcmp(model.chars, read_string(ini, "system information:model name", "")) != 0) {
        return report_fault(error_file, USR_RET_INI_MODEL_ERROR);
    }
    return 0;
}

void backup_ini_system_settings(FILE* ini_file) {
    TstFlshSysInfo info = {};
    U_FlshSysInfoGetName(info.aucName, max_device_name + 1);

    write_section_line(ini_file, "system settings");
    fprintf(ini_file, "device name = \"%s\" ;\n", reinterpret_cast<const char*>(info.aucName));
}

int check_ini_system_settings(const dictionary* ini, FILE* error_file) {
    if (strlen(read_string(ini, "system settings:device name", "")) > max_device_name) {
        return report_fault(error_file, USR_RET_INI_SYSTEM_NAME_LENGTH_ERROR);
    }
    return 0;
}

// A missing name clears the device's.
void restore_ini_system_settings(const dictionary* ini) {
    auto name = read_text<max_device_name + 1>(ini, "system settings:device name");
    U_FlshSysInfoSetName(name.bytes());
}

namespace {

using AddressText = Text<INET_ADDRSTRLEN>;

AddressText to_text(unsigned long address) {
    AddressText text;
    if (address != 0) {
        ip_to_str(text.chars, address);
    }
    return text;
}

// A text that is too long reads as empty: its beginning may be another address.
AddressText read_address(const dictionary* ini, const char* entry) {
    const char* value = read_string(ini, entry, "");
    return strlen(value) < sizeof(AddressText) ? AddressText(value) : AddressText();
}

// 0 for a text that is not an address.
unsigned long to_number(const AddressText& text) {
    unsigned long address = 0;
    str_to_ip(&address, text.chars);
    return address;
}

} // namespace

void backup_ini_network_settings(FILE* ini_file) {
    char dhcp = 0;
    unsigned long address = 0;
    unsigned long mask = 0;
    unsigned long gateway = 0;
    unsigned long dns = 0;

    U_FlshSysGetDhcp(&dhcp);
    U_FlshSysGetIp(&address, &mask);
    U_FlshSysGetGateway(&gateway);
    U_FlshSysGetDNSIp(primary_dns, &dns);

    write_section_line(ini_file, "network settings");
    fprintf(ini_file, "dhcp = %d ;\n", static_cast<std::int8_t>(dhcp));
    fprintf(ini_file, "static ip address = \"%s\" ;\n", to_text(address).chars);
    fprintf(ini_file, "subnet mask = \"%s\" ;\n", to_text(mask).chars);
    fprintf(ini_file, "gateway = \"%s\" ;\n", to_text(gateway).chars);
    fprintf(ini_file, "primary dns = \"%s\" ;\n", to_text(dns).chars);
}

// The validators judge the whole texts, and their codes are reported unchanged. An
// empty gateway or DNS server is not judged; an empty address or mask is.
int check_ini_network_settings(const dictionary* ini, FILE* error_file) {
    const char* address = read_string(ini, "network settings:static ip address", "");
    const char* mask = read_string(ini, "network settings:subnet mask", "");
    const char* gateway = read_string(ini, "network settings:gateway", "");
    const char* dns = read_string(ini, "network settings:primary dns", "");

    int fault = U_SysCheckIpMaskString(address, mask);
    if (fault == 0 && gateway[0] != '\0') {
        fault = U_SysCheckGatewayString(gateway);
        if (fault == 0) {
            fault = U_SysCheckInTheSubnet(address, mask, gateway);
        }
    }
    if (fault == 0 && dns[0] != '\0') {
        fault = U_SysCheckDnsString(dns);
    }
    return fault == 0 ? 0 : report_fault(error_file, fault);
}

// Without an address or a mask the device keeps all of its settings, DHCP included.
void restore_ini_network_settings(const dictionary* ini) {
    const int dhcp = read_boolean(ini, "network settings:dhcp", 0);
    const AddressText address = read_address(ini, "network settings:static ip address");
    const AddressText mask = read_address(ini, "network settings:subnet mask");
    const AddressText gateway = read_address(ini, "network settings:gateway");
    const AddressText dns = read_address(ini, "network settings:primary dns");
    if (address.chars[0] == '\0' || mask.chars[0] == '\0') {
        return;
    }
    const unsigned long address_number = to_number(address);
    const unsigned long mask_number = to_number(mask);
    const unsigned long gateway_number = to_number(gateway);
    const unsigned long dns_number = to_number(dns);

    U_FlshSysSetDhcp(static_cast<char>(dhcp));
    U_FlshSysSetIp(address_number, mask_number);
    U_FlshSysSetGateway(gateway_number);
    U_FlshSysSetDNSIp(primary_dns, dns_number);
}
