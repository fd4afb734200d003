// Numbered keys count from 1 and are grouped by kind: all community strings, then
// all permission types, and so on. Backup writes as many as the device reports;
// check and restore read 1 to 15, and 1 and 2 for the users. The document holds
// community strings in plain text and the users' secrets as encrypted hex text.

#include "sections/services/snmp.h"

#include "codec/secret_codec.h"
#include "frame/report.h"
#include "platform/include/return_codes.h"
#include "platform/include/snmp.h"

#include <netinet/in.h>

#include <algorithm>

namespace {

constexpr int max_communities = 15;
constexpr int max_receivers = 15;
constexpr int max_users = 2;

constexpr std::size_t name_size = 16;    // of a community or user name, terminator included
constexpr std::size_t secret_field = 32; // of a password or key, terminator included

using Community = Secret<name_size>;
using UserName = Text<name_size>;

// A text of the device may fill its field: one byte more terminates it.
using DeviceText = Secret<name_size + 1>;
using DeviceName = Text<name_size + 1>;
using DeviceSecret = Secret<secret_field + 1>;

struct DeviceCommunity {
    DeviceText community;
    std::uint8_t permission = 0;
};

struct DeviceReceiver {
    IP_ADDR_T address = {};
    std::uint16_t port = 0;
    DeviceText community;
};

std::uint16_t community_count() {
    std::uint16_t count = 0;
    U_SnmpGetCommunitySize(&count);
    return count;
}

void get_entry(std::uint16_t index, DeviceCommunity& entry) {
    U_SnmpGetCommunityEntry(index, &entry.permission, entry.community.chars);
}

std::uint16_t receiver_count() {
    std::uint16_t count = 0;
    U_SnmpGetTrapSize(&count);
    return count;
}

void get_entry(std::uint16_t index, DeviceReceiver& receiver) {
    U_SnmpGetTrapIpv6Entry(index, &receiver.address, &receiver.port, receiver.community.chars);
}

std::uint8_t stored_trap_mode() {
    std::uint8_t mode = 0;
    U_FlshSnmpGetMode(&mode);
    return mode;
}

void ini_write_snmp_status(FILE* ini_file) {
    char enabled = 0;
    U_SnmpGetEbl(&enabled);
    fprintf(ini_file, "snmp = %d ;\n", static_cast<std::int8_t>(enabled));
}

void ini_write_snmp_version(FILE* ini_file) {
    std::uint8_t version = 1;
    U_FlshSnmpGetVer(&version);
    fprintf(ini_file, "snmp version = %d ;\n", version);
}

void ini_write_snmp_community_string(FILE* ini_file) {
    const std::uint16_t count = community_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceCommunity entry;
        get_entry(i, entry);
        fprintf(ini_file, "snmp community string%d = \"%s\" ;\n", i + 1, entry.community.chars);
    }
}

void ini_write_snmp_community_permission_type(FILE* ini_file) {
    const std::uint16_t count = community_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceCommunity entry;
        get_entry(i, entry);
        fprintf(ini_file, "snmp community permission type%d = %d ;\n", i + 1, entry.permission);
    }
}

void ini_write_snmp_trap_mode(FILE* ini_file) {
    fprintf(ini_file, "snmp trap mode = %d ;\n", stored_trap_mode());
}

void ini_write_snmp_trap_server_ip(FILE* ini_file) {
    const std::uint16_t count = receiver_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceReceiver receiver;
        get_entry(i, receiver);
        Text<INET6_ADDRSTRLEN> address;
        ipaddr_to_str(address.chars, &receiver.address);
        fprintf(ini_file, "snmp trap server ip%d = \"%s\" ;\n", i + 1, address.chars);
    }
}

void ini_write_snmp_trap_server_port(FILE* ini_file) {
    const std::uint16_t count = receiver_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceReceiver receiver;
        get_entry(i, receiver);
        fprintf(ini_file, "snmp trap server port%d = %d ;\n", i + 1, receiver.port);
    }
}

void ini_write_snmp_trap_server_community_string(FILE* ini_file) {
    const std::uint16_t count = receiver_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceReceiver receiver;
        get_entry(i, receiver);
        fprintf(ini_file, "snmp trap server community string%d = \"%s\" ;\n", i + 1,
                receiver.community.chars);
    }
}

// The two protocols are not part of the document.
void write_user(FILE* ini_file, std::uint16_t index) {
    DeviceName name;
    std::uint8_t authentication = 0;
    DeviceSecret password;
    std::uint8_t privacy = 0;
    DeviceSecret privacy_key;
    U_FlshSnmpGetUsmEntry(index, name.chars, &authentication, password.chars, &privacy,
                          privacy_key.chars);

    Text<encrypted_size> encrypted_password;
    Text<encrypted_size> encrypted_key;
    encrypt_snmp_key(password.chars, encrypted_password.chars);
    encrypt_snmp_key(privacy_key.chars, encrypted_key.chars);

    const int number = index + 1;
    fprintf(ini_file, "snmp v3 user name%d = \"%s\" ;\n", number, name.chars);
    fprintf(ini_file, "snmp v3 authentication password%d = \"%s\" ;\n", number,
            encrypted_password.chars);
    fprintf(ini_file, "snmp v3 encryption key%d = \"%s\" ;\n", number, encrypted_key.chars);
}

void ini_write_snmpv3(FILE* ini_file) {
    std::uint16_t count = 0;
    U_SnmpGetUsmSize(&count);
    for (std::uint16_t i = 0; i < count; ++i) {
        write_user(ini_file, i);
    }
}

} // namespace

void backup_ini_snmp_settings(FILE* ini_file) {
    write_section_line(ini_file, "snmp settings");
    ini_write_snmp_status(ini_file);
    ini_write_snmp_version(ini_file);
    ini_write_snmp_community_string(ini_file);
    ini_write_snmp_community_permission_type(ini_file);
    ini_write_snmp_trap_mode(ini_file);
    ini_write_snmp_trap_server_ip(ini_file);
    ini_write_snmp_trap_server_port(ini_file);
    ini_write_snmp_trap_server_community_string(ini_file);
    ini_write_snmpv3(ini_file);
}

namespace {

const char* read_table_string(const dictionary* ini, const char* name, int number) {
    return read_string(ini, EntryName("snmp settings:%s%d", name, number), absent);
}

std::optional<int> read_table_number(const dictionary* ini, const char* name, int number) {
    return read_number(ini, EntryName("snmp settings:%s%d", name, number));
}

// A missing number is not a fault: the entries need not be consecutive.
template <typename Validator>
int check_strings(const dictionary* ini, FILE* error_file, const char* name, int count,
                  Validator accepts, int invalid) {
    for (int number = 1; number <= count; ++number) {
        const char* text = read_table_string(ini, name, number);
        if (!is_absent(text) && !is_accepted(accepts(text))) {
            return report_fault(error_file, invalid);
        }
    }
    return 0;
}

template <typename Validator>
int check_numbers(const dictionary* ini, FILE* error_file, const char* name, int count,
                  Validator accepts, int invalid) {
    for (int number = 1; number <= count; ++number) {
        const std::optional<int> value = read_table_number(ini, name, number);
        if (value && !is_accepted(accepts(*value))) {
            return report_fault(error_file, invalid);
        }
    }
    return 0;
}

int check_snmp_status(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "snmp settings:snmp",
                        {USR_RET_ERR_SNMP_STATUS_NO_FOUND, USR_RET_ERR_SNMP_STATUS_VALUE_INVALID},
                        Usrsnmp_check_snmp_enable);
}

int check_snmp_version(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "snmp settings:snmp version",
                        {USR_RET_ERR_SNMP_VERSION_NO_FOUND, USR_RET_ERR_SNMP_VERSION_VALUE_INVALID},
                        Usrflsh_check_snmp_version);
}

int check_snmp_community_string(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp community string", max_communities,
                         Usrsnmp_check_community_string,
                         USR_RET_ERR_SNMP_COMMUNITY_STRING_VALUE_INVALID);
}

int check_snmp_community_permission_type(const dictionary* ini, FILE* error_file) {
    return check_numbers(ini, error_file, "snmp community permission type", max_communities,
                         Usrsnmp_check_community_permission_type,
                         USR_RET_ERR_SNMP_PERMISSION_TYPE_VALUE_INVALID);
}

int check_snmp_trap_mode(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, "snmp settings:snmp trap mode",
        {USR_RET_ERR_SNMP_TRAP_MODE_NO_FOUND, USR_RET_ERR_SNMP_TRAP_MODE_VALUE_INVALID},
        Usrflsh_check_snmp_trap_mode);
}

int check_snmp_trap_server_ip(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp trap server ip", max_receivers,
                         Usrsnmp_check_trap_server_ip,
                         USR_RET_ERR_SNMP_TRAP_SERVER_IP_VALUE_INVALID);
}

int check_snmp_trap_server_port(const dictionary* ini, FILE* error_file) {
    return check_numbers(ini, error_file, "snmp trap server port", max_receivers,
                         Usrsnmp_check_trap_server_port,
                         USR_RET_ERR_SNMP_TRAP_SERVER_PORT_VALUE_INVALID);
}

int check_snmp_trap_server_community_string(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp trap server community string", max_receivers,
                         Usrsnmp_check_trap_community_string,
                         USR_RET_ERR_SNMP_TRAP_COMMUNITY_STRING_VALUE_INVALID);
}

int check_snmp_v3_userName(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp v3 user name", max_users,
                         Usrflsh_check_snmpV3_userName,
                         USR_RET_ERR_SNMP_V3_USER_NAME_VALUE_INVALID);
}

// The validators get the secrets encrypted, as they are in the document.

int check_snmp_v3_authenticationPassword(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp v3 authentication password", max_users,
                         Usrflsh_check_snmpV3_authentication_password,
                         USR_RET_ERR_SNMP_V3_AUTHENTICATION_PASSWORD_VALUE_INVALID);
}

int check_snmp_v3_encryptionKey(const dictionary* ini, FILE* error_file) {
    return check_strings(ini, error_file, "snmp v3 encryption key", max_users,
                         Usrflsh_check_snmpV3_encryption_key,
                         USR_RET_ERR_SNMP_V3_ENCRYPTION_KEY_VALUE_INVALID);
}

} // namespace

int check_ini_snmp_settings(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_snmp_status, check_snmp_version, check_snmp_community_string,
                            check_snmp_community_permission_type, check_snmp_trap_mode,
                            check_snmp_trap_server_ip, check_snmp_trap_server_port,
                            check_snmp_trap_server_community_string, check_snmp_v3_userName,
                            check_snmp_v3_authenticationPassword, check_snmp_v3_encryptionKey},
                           ini, error_file);
}

namespace {

void restore_snmp_status(const dictionary* ini) {
    U_SnmpSetEbl(static_cast<char>(read_int(ini, "snmp settings:snmp", 0)));
}

void restore_snmp_version(const dictionary* ini) {
    U_FlshSnmpSetVer(read_int(ini, "snmp settings:snmp version", 1));
}

// Deletions may move the entries, so all are read before the first is deleted.
void remove_all_snmp_community_stringAndPermissionType() {
    DeviceCommunity entries[max_communities];
    const int count = std::min<int>(community_count(), max_communities);
    for (int i = 0; i < count; ++i) {
        get_entry(static_cast<std::uint16_t>(i), entries[i]);
    }
    for (int i = 0; i < count; ++i) {
        U_SnmpDelCommunity(entries[i].community.chars);
    }
}

// Skips an entry that lacks either key.
void restore_snmp_community_stringAndPermissionType(const dictionary* ini) {
    for (int number = 1; number <= max_communities; ++number) {
        Community community;
        copy_text(community.chars, read_table_string(ini, "snmp community string", number));
        const std::optional<int> permission =
            read_table_number(ini, "snmp community permission type", number);
        if (!is_absent(community.chars) && permission) {
            U_SnmpInsCommunity(static_cast<std::uint8_t>(*permission), community.chars);
        }
    }
}

void insert_receiver(int trap_mode, const IP_ADDR_T& address, std::uint16_t port,
                     const char* community) {
    if (trap_mode == USR_SNMP_TRAP_MODE_TRAP) {
        U_SnmpInsTrapIpv6(&address, port, community);
    } else {
        U_SnmpInsInformIpv6(&address, port, community);
    }
}

// If the mode changes, the stored receivers are inserted again as the new kind. On a
// device where deletions move the entries up, the loop meets some receivers twice and
// misses others; the next step removes all of them anyway.
void restore_snmp_trap_mode(const dictionary* ini) {
    const int mode = read_int(ini, "snmp settings:snmp trap mode", USR_SNMP_TRAP_MODE_INFORM);
    if (mode == stored_trap_mode()) {
        return;
    }
    U_FlshSnmpSetMode(mode);
    const std::uint16_t count = receiver_count();
    for (std::uint16_t i = 0; i < count; ++i) {
        DeviceReceiver receiver;
        U_FlshSnmpGetTrapIpv6Entry(i, &receiver.address, &receiver.port, receiver.community.chars);
        U_SnmpDelTrapIpv6(&receiver.address, receiver.port);
        insert_receiver(mode, receiver.address, receiver.port, receiver.community.chars);
    }
}

// Removes all receivers, including those the mode change has just re-inserted.
void remove_all_snmp_trap_serverIp_and_port_and_communityString() {
    DeviceReceiver receivers[max_receivers];
    const int count = std::min<int>(receiver_count(), max_receivers);
    for (int i = 0; i < count; ++i) {
        get_entry(static_cast<std::uint16_t>(i), receivers[i]);
    }
    for (int i = 0; i < count; ++i) {
        U_SnmpDelTrapIpv6(&receivers[i].address, receivers[i].port);
    }
}

// Skips an entry that lacks a key. An address that does not convert is inserted as
// the zeroed record.
void restore_snmp_trap_serverIp_and_port_and_communityString(const dictionary* ini) {
    for (int number = 1; number <= max_receivers; ++number) {
        const char* address_text = read_table_string(ini, "snmp trap server ip", number);
        const std::optional<int> port = read_table_number(ini, "snmp trap server port", number);
        Community community;
        copy_text(community.chars,
                  read_table_string(ini, "snmp trap server community string", number));
        if (!is_absent(address_text) && port && !is_absent(community.chars)) {
            IP_ADDR_T address = {};
            str_to_ipaddr(&address, address_text);
            insert_receiver(stored_trap_mode(), address, static_cast<std::uint16_t>(*port),
                            community.chars);
        }
    }
}

// MD5 if there is any secret, DES if there is a privacy key.
void insert_user(const char* name, const char* password, const char* privacy_key) {
    const bool has_key = privacy_key[0] != '\0';
    const bool has_either = password[0] != '\0' || has_key;
    U_SnmpInsUsm(name, has_either ? SNMP_USM_AUTH_MD5 : SNMP_USM_AUTH_NONE, password,
                 has_key ? SNMP_USM_PRIV_DES : SNMP_USM_PRIV_NONE, privacy_key);
}

// Adds to the device's users; deletes none.
void restore_snmp_v3(const dictionary* ini) {
    for (int number = 1; number <= max_users; ++number) {
        const UserName name(read_table_string(ini, "snmp v3 user name", number));
        const char* password_text =
            read_table_string(ini, "snmp v3 authentication password", number);
        const char* key_text = read_table_string(ini, "snmp v3 encryption key", number);
        if (!is_absent(name.chars) && !is_absent(password_text) && !is_absent(key_text)) {
            Secret<secret_size> password;
            Secret<secret_size> privacy_key;
            decrypt_snmp_key(password_text, password.chars);
            decrypt_snmp_key(key_text, privacy_key.chars);
            insert_user(name.chars, password.chars, privacy_key.chars);
        }
    }
}

} // namespace

void restore_ini_snmp_settings(const dictionary* ini) {
    restore_snmp_status(ini);
    restore_snmp_version(ini);
    remove_all_snmp_community_stringAndPermissionType();
    restore_snmp_community_stringAndPermissionType(ini);
    restore_snmp_trap_mode(ini);
    remove_all_snmp_trap_serverIp_and_port_and_communityString();
    restore_snmp_trap_serverIp_and_port_and_communityString(ini);
    restore_snmp_v3(ini);
}
