// Choices of this switch: versions 1 to 3, permission types 1 (read only) and
// 2 (read and write), texts of 1 to 15 characters, receivers with an IPv4 or
// IPv6 address and a port of at least 1, secrets of 32 or 64 hexadecimal
// digits. A community or receiver that exists is not added again; a user that
// exists is replaced, and a third one is refused. The running and the stored receivers are the
// same.

#include "platform/include/snmp.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>

using namespace simulator;

namespace {

constexpr size_t max_communities = 15;
constexpr size_t max_receivers = 15;
constexpr size_t max_users = 2;
constexpr size_t short_text = 16;
constexpr size_t secret_text = 32;

Snmp& snmp() {
    return state().snmp;
}

unsigned short read_receiver(const char* name, uint16_t index, IP_ADDR_T* address, uint16_t* port,
                             char* community) {
    return reads(
        name,
        [&] {
            if (index >= snmp().receivers.size()) {
                return false;
            }
            const SnmpReceiver& receiver = snmp().receivers[index];
            *address = receiver.address.record;
            *port = receiver.port;
            receiver.community.copy_to(community, short_text);
            return true;
        },
        index);
}

auto find_receiver(const IP_ADDR_T& address, uint16_t port) {
    return std::find_if(snmp().receivers.begin(), snmp().receivers.end(), [&](const auto& entry) {
        return address_text(entry.address.record) == address_text(address) && entry.port == port;
    });
}

unsigned short insert_receiver(const char* name, const IP_ADDR_T* address, uint16_t port,
                               const char* community) {
    return changes(
        name,
        [&] {
            if (snmp().receivers.size() >= max_receivers ||
                find_receiver(*address, port) != snmp().receivers.end()) {
                return false;
            }
            snmp().receivers.push_back({{*address}, port, community});
            return true;
        },
        *address, port, community);
}

bool has_text(const char* text) {
    const size_t length = strlen(text);
    return length >= 1 && length < short_text;
}

bool is_encrypted_text(const char* text) {
    const size_t length = strlen(text);
    return (length == 32 || length == 64) &&
           std::all_of(text, text + length, [](char digit) { return hex_digit(digit) >= 0; });
}

template <typename Result, typename Value, typename Predicate>
Result judge(const char* name, Value value, Predicate accepts) {
    return answers(
        name, Result{0}, [&] { return static_cast<Result>(accepts(value) ? 1 : 0); }, value);
}

} // namespace

unsigned short U_SnmpGetEbl(char* enabled) {
    return reads("U_SnmpGetEbl", [&] { *enabled = static_cast<char>(snmp().enabled); });
}

unsigned short U_SnmpSetEbl(char enabled) {
    return changes(
        "U_SnmpSetEbl", [&] { snmp().enabled = static_cast<signed char>(enabled); }, enabled);
}

unsigned short U_FlshSnmpGetVer(uint8_t* version) {
    return reads("U_FlshSnmpGetVer", [&] { *version = snmp().version; });
}

unsigned short U_FlshSnmpSetVer(int version) {
    return changes(
        "U_FlshSnmpSetVer", [&] { snmp().version = static_cast<uint8_t>(version); }, version);
}

unsigned short U_SnmpGetCommunitySize(uint16_t* count) {
    return reads("U_SnmpGetCommunitySize",
                 [&] { *count = static_cast<uint16_t>(snmp().communities.size()); });
}

unsigned short U_SnmpGetCommunityEntry(uint16_t index, uint8_t* permission, char* community) {
    return reads(
        "U_SnmpGetCommunityEntry",
        [&] {
            if (index >= snmp().communities.size()) {
                return false;
            }
            *permission = snmp().communities[index].permission;
            snmp().communities[index].community.copy_to(community, short_text);
            return true;
        },
        index);
}

unsigned short U_SnmpInsCommunity(uint8_t permission, const char* community) {
    return changes(
        "U_SnmpInsCommunity",
        [&] {
            const Field<16> text = community;
            const bool exists =
                std::any_of(snmp().communities.begin(), snmp().communities.end(),
                            [&](const auto& entry) { return entry.community == text; });
            if (exists || snmp().communities.size() >= max_communities) {
                return false;
            }
            snmp().communities.push_back({text, permission});
            return true;
        },
        permission, community);
}

unsigned short U_SnmpDelCommunity(const char* community) {
    return changes(
        "U_SnmpDelCommunity",
        [&] {
            auto& entries = snmp().communities;
            const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
                return entry.community.text() == community;
            });
            if (found == entries.end()) {
                return false;
            }
            entries.erase(found);
            return true;
        },
        community);
}

unsigned short U_FlshSnmpGetMode(uint8_t* mode) {
    return reads("U_FlshSnmpGetMode", [&] { *mode = snmp().trap_mode; });
}

unsigned short U_FlshSnmpSetMode(int mode) {
    return changes(
        "U_FlshSnmpSetMode", [&] { snmp().trap_mode = static_cast<uint8_t>(mode); }, mode);
}

unsigned short U_SnmpGetTrapSize(uint16_t* count) {
    return reads("U_SnmpGetTrapSize",
                 [&] { *count = static_cast<uint16_t>(snmp().receivers.size()); });
}

unsigned short U_SnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                      char* community) {
    return read_receiver("U_SnmpGetTrapIpv6Entry", index, address, port, community);
}

unsigned short U_FlshSnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                          char* community) {
    return read_receiver("U_FlshSnmpGetTrapIpv6Entry", index, address, port, community);
}

unsigned short U_SnmpInsTrapIpv6(const IP_ADDR_T* address, uint16_t port, const char* community) {
    return insert_receiver("U_SnmpInsTrapIpv6", address, port, community);
}

unsigned short U_SnmpInsInformIpv6(const IP_ADDR_T* address, uint16_t port, const char* community) {
    return insert_receiver("U_SnmpInsInformIpv6", address, port, community);
}

unsigned short U_SnmpDelTrapIpv6(const IP_ADDR_T* address, uint16_t port) {
    return changes(
        "U_SnmpDelTrapIpv6",
        [&] {
            const auto found = find_receiver(*address, port);
            if (found == snmp().receivers.end()) {
                return false;
            }
            snmp().receivers.erase(found);
            return true;
        },
        *address, port);
}

unsigned short U_SnmpGetUsmSize(uint16_t* count) {
    return reads("U_SnmpGetUsmSize", [&] { *count = static_cast<uint16_t>(snmp().users.size()); });
}

unsigned short U_FlshSnmpGetUsmEntry(uint16_t index, char* name, uint8_t* authentication,
                                     char* password, uint8_t* privacy, char* privacy_key) {
    return reads(
        "U_FlshSnmpGetUsmEntry",
        [&] {
            if (index >= snmp().users.size()) {
                return false;
            }
            const SnmpUser& user = snmp().users[index];
            user.name.copy_to(name, short_text);
            *authentication = user.authentication;
            user.password.copy_to(password, secret_text);
            *privacy = user.privacy;
            user.privacy_key.copy_to(privacy_key, secret_text);
            return true;
        },
        index);
}

unsigned short U_SnmpInsUsm(const char* name, uint8_t authentication, const char* password,
                            uint8_t privacy, const char* privacy_key) {
    return changes(
        "U_SnmpInsUsm",
        [&] {
            const SnmpUser user{name, authentication, password, privacy, privacy_key};
            auto& users = snmp().users;
            const auto found = std::find_if(users.begin(), users.end(),
                                            [&](const auto& old) { return old.name == user.name; });
            if (found != users.end()) {
                *found = user;
                return true;
            }
            if (users.size() >= max_users) {
                return false;
            }
            users.push_back(user);
            return true;
        },
        name, authentication, password, privacy, privacy_key);
}

int Usrsnmp_check_snmp_enable(int enabled) {
    return judge<int>("Usrsnmp_check_snmp_enable", enabled,
                      [](int value) { return value == 0 || value == 1; });
}

char Usrflsh_check_snmp_version(int version) {
    return judge<char>("Usrflsh_check_snmp_version", version,
                       [](int value) { return value >= 1 && value <= 3; });
}

int Usrsnmp_check_community_string(const char* community) {
    return judge<int>("Usrsnmp_check_community_string", community, has_text);
}

int Usrsnmp_check_community_permission_type(int permission) {
    return judge<int>("Usrsnmp_check_community_permission_type", permission,
                      [](int value) { return value == 1 || value == 2; });
}

char Usrflsh_check_snmp_trap_mode(int mode) {
    return judge<char>("Usrflsh_check_snmp_trap_mode", mode, [](int value) {
        return value == USR_SNMP_TRAP_MODE_TRAP || value == USR_SNMP_TRAP_MODE_INFORM;
    });
}

int Usrsnmp_check_trap_server_ip(const char* address) {
    return judge<int>("Usrsnmp_check_trap_server_ip", address,
                      [](const char* text) { return address_from(text).has_value(); });
}

int Usrsnmp_check_trap_server_port(int port) {
    return judge<int>("Usrsnmp_check_trap_server_port", port,
                      [](int value) { return value >= 1 && value <= 65535; });
}

int Usrsnmp_check_trap_community_string(const char* community) {
    return judge<int>("Usrsnmp_check_trap_community_string", community, has_text);
}

char Usrflsh_check_snmpV3_userName(const char* name) {
    return judge<char>("Usrflsh_check_snmpV3_userName", name, has_text);
}

char Usrflsh_check_snmpV3_authentication_password(const char* encrypted_text) {
    return judge<char>("Usrflsh_check_snmpV3_authentication_password", encrypted_text,
                       is_encrypted_text);
}

char Usrflsh_check_snmpV3_encryption_key(const char* encrypted_text) {
    return judge<char>("Usrflsh_check_snmpV3_encryption_key", encrypted_text, is_encrypted_text);
}
