// Choices of this switch:
//  - Versions 1 to 3, permission types 1 (read) and 2 (read and write), names of
//    at least 1 character, receiver ports from 1, and encrypted secrets of 32 or
//    64 hexadecimal digits are accepted. A text longer than its field is cut.
//  - A community or receiver that is in its table is not added again; a v3 user
//    replaces the one of the same name. A full table (15 communities, 15
//    receivers, 2 users) refuses another entry.
//  - The running receivers are the stored ones.

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

auto find_community(const char* community) {
    auto& entries = snmp().communities;
    return std::find_if(entries.begin(), entries.end(), [&](const SnmpCommunity& entry) {
        return entry.community.text() == community;
    });
}

unsigned short read_receiver(const Call& call, uint16_t index, IP_ADDR_T* address, uint16_t* port,
                             char* community) {
    return reads(call, index < snmp().receivers.size(), [&] {
        const SnmpReceiver& receiver = snmp().receivers[index];
        *address = receiver.address.record;
        *port = receiver.port;
        receiver.community.copy_to(community, short_text);
    });
}

auto find_receiver(const IP_ADDR_T& address, uint16_t port) {
    auto& entries = snmp().receivers;
    return std::find_if(entries.begin(), entries.end(), [&](const SnmpReceiver& entry) {
        return address_text(entry.address.record) == address_text(address) && entry.port == port;
    });
}

unsigned short insert_receiver(const Call& call, const IP_ADDR_T* address, uint16_t port,
                               const char* community) {
    auto& entries = snmp().receivers;
    const bool is_new = find_receiver(*address, port) == entries.end();
    return changes(call, is_new && entries.size() < max_receivers, [&] {
        entries.push_back({{*address}, port, community});
    });
}

bool insert_user(const SnmpUser& user) {
    auto& users = snmp().users;
    const auto found = std::find_if(users.begin(), users.end(),
                                    [&](const SnmpUser& old) { return old.name == user.name; });
    if (found != users.end()) {
        *found = user;
    } else if (users.size() < max_users) {
        users.push_back(user);
    } else {
        return false;
    }
    return true;
}

bool is_name(const char* text) {
    const size_t length = strlen(text);
    return length >= 1 && length < short_text;
}

bool is_encrypted_text(const char* text) {
    const size_t length = strlen(text);
    return (length == 32 || length == 64) &&
           std::all_of(text, text + length, [](char digit) { return hex_digit(digit) >= 0; });
}

} // namespace

unsigned short U_SnmpGetEbl(char* enabled) {
    return reads(call(__func__), [&] { *enabled = static_cast<char>(snmp().enabled); });
}

unsigned short U_SnmpSetEbl(char enabled) {
    return changes(call(__func__, enabled),
                   [&] { snmp().enabled = static_cast<signed char>(enabled); });
}

unsigned short U_FlshSnmpGetVer(uint8_t* version) {
    return reads(call(__func__), [&] { *version = snmp().version; });
}

unsigned short U_FlshSnmpSetVer(int version) {
    return changes(call(__func__, version),
                   [&] { snmp().version = static_cast<uint8_t>(version); });
}

unsigned short U_SnmpGetCommunitySize(uint16_t* count) {
    return reads(call(__func__),
                 [&] { *count = static_cast<uint16_t>(snmp().communities.size()); });
}

unsigned short U_SnmpGetCommunityEntry(uint16_t index, uint8_t* permission, char* community) {
    return reads(call(__func__, index), index < snmp().communities.size(), [&] {
        *permission = snmp().communities[index].permission;
        snmp().communities[index].community.copy_to(community, short_text);
    });
}

unsigned short U_SnmpInsCommunity(uint8_t permission, const char* community) {
    auto& entries = snmp().communities;
    const SnmpCommunity added{community, permission};
    const bool is_new = find_community(added.community.bytes.data()) == entries.end();
    return changes(call(__func__, permission, community),
                   is_new && entries.size() < max_communities, [&] { entries.push_back(added); });
}

unsigned short U_SnmpDelCommunity(const char* community) {
    const auto found = find_community(community);
    return changes(call(__func__, community), found != snmp().communities.end(),
                   [&] { snmp().communities.erase(found); });
}

unsigned short U_FlshSnmpGetMode(uint8_t* mode) {
    return reads(call(__func__), [&] { *mode = snmp().trap_mode; });
}

unsigned short U_FlshSnmpSetMode(int mode) {
    return changes(call(__func__, mode), [&] { snmp().trap_mode = static_cast<uint8_t>(mode); });
}

unsigned short U_SnmpGetTrapSize(uint16_t* count) {
    return reads(call(__func__), [&] { *count = static_cast<uint16_t>(snmp().receivers.size()); });
}

unsigned short U_SnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                      char* community) {
    return read_receiver(call(__func__, index), index, address, port, community);
}

unsigned short U_FlshSnmpGetTrapIpv6Entry(uint16_t index, IP_ADDR_T* address, uint16_t* port,
                                          char* community) {
    return read_receiver(call(__func__, index), index, address, port, community);
}

unsigned short U_SnmpInsTrapIpv6(const IP_ADDR_T* address, uint16_t port, const char* community) {
    return insert_receiver(call(__func__, *address, port, community), address, port, community);
}

unsigned short U_SnmpInsInformIpv6(const IP_ADDR_T* address, uint16_t port, const char* community) {
    return insert_receiver(call(__func__, *address, port, community), address, port, community);
}

unsigned short U_SnmpDelTrapIpv6(const IP_ADDR_T* address, uint16_t port) {
    const auto found = find_receiver(*address, port);
    return changes(call(__func__, *address, port), found != snmp().receivers.end(),
                   [&] { snmp().receivers.erase(found); });
}

unsigned short U_SnmpGetUsmSize(uint16_t* count) {
    return reads(call(__func__), [&] { *count = static_cast<uint16_t>(snmp().users.size()); });
}

unsigned short U_FlshSnmpGetUsmEntry(uint16_t index, char* name, uint8_t* authentication,
                                     char* password, uint8_t* privacy, char* privacy_key) {
    return reads(call(__func__, index), index < snmp().users.size(), [&] {
        const SnmpUser& user = snmp().users[index];
        user.name.copy_to(name, short_text);
        *authentication = user.authentication;
        user.password.copy_to(password, secret_text);
        *privacy = user.privacy;
        user.privacy_key.copy_to(privacy_key, secret_text);
    });
}

unsigned short U_SnmpInsUsm(const char* name, uint8_t authentication, const char* password,
                            uint8_t privacy, const char* privacy_key) {
    return changes(call(__func__, name, authentication, password, privacy, privacy_key), [&] {
        return insert_user({name, authentication, password, privacy, privacy_key});
    });
}

int Usrsnmp_check_snmp_enable(int enabled) {
    return judge(call(__func__, enabled), enabled == 0 || enabled == 1);
}

char Usrflsh_check_snmp_version(int version) {
    return judge(call(__func__, version), version >= 1 && version <= 3);
}

int Usrsnmp_check_community_string(const char* community) {
    return judge(call(__func__, community), is_name(community));
}

int Usrsnmp_check_community_permission_type(int permission) {
    return judge(call(__func__, permission), permission == 1 || permission == 2);
}

char Usrflsh_check_snmp_trap_mode(int mode) {
    return judge(call(__func__, mode),
                 mode == USR_SNMP_TRAP_MODE_TRAP || mode == USR_SNMP_TRAP_MODE_INFORM);
}

int Usrsnmp_check_trap_server_ip(const char* address) {
    return judge(call(__func__, address), address_from(address).has_value());
}

int Usrsnmp_check_trap_server_port(int port) {
    return judge(call(__func__, port), port >= 1 && port <= 65535);
}

int Usrsnmp_check_trap_community_string(const char* community) {
    return judge(call(__func__, community), is_name(community));
}

char Usrflsh_check_snmpV3_userName(const char* name) {
    return judge(call(__func__, name), is_name(name));
}

char Usrflsh_check_snmpV3_authentication_password(const char* encrypted_text) {
    return judge(call(__func__, encrypted_text), is_encrypted_text(encrypted_text));
}

char Usrflsh_check_snmpV3_encryption_key(const char* encrypted_text) {
    return judge(call(__func__, encrypted_text), is_encrypted_text(encrypted_text));
}
