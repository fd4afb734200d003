#include "codec/secret_codec.h"
#include "platform/check/check.h"
#include "platform/include/modbus.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/sntp.h"
#include "platform/include/system_log.h"

#include <cstring>

namespace {

Rows read_communities() {
    Rows rows;
    const unsigned count = value_of(U_SnmpGetCommunitySize);
    for (; rows.count < count && rows.count < 64; ++rows.count) {
        Row& row = rows.list[rows.count];
        uint8_t permission = 0;
        U_SnmpGetCommunityEntry(static_cast<uint16_t>(rows.count), &permission, row.name);
        row.number = permission;
    }
    return rows;
}

void insert_community(const Row& row) {
    U_SnmpInsCommunity(static_cast<uint8_t>(row.number), row.name);
}

void delete_community(const Row& row) {
    U_SnmpDelCommunity(row.name);
}

Rows read_receivers() {
    Rows rows;
    const unsigned count = value_of(U_SnmpGetTrapSize);
    for (; rows.count < count && rows.count < 64; ++rows.count) {
        Row& row = rows.list[rows.count];
        ip_addr_t address = {};
        uint16_t port = 0;
        U_SnmpGetTrapIpv6Entry(static_cast<uint16_t>(rows.count), &address, &port, row.name);
        ipaddr_to_str(row.detail, &address);
        row.number = port;
    }
    return rows;
}

ip_addr_t address_of(const Row& row) {
    ip_addr_t address = {};
    str_to_ipaddr(&address, row.detail);
    return address;
}

// By the stored mode, as restore does.
void insert_receiver(const Row& row) {
    const ip_addr_t address = address_of(row);
    const auto insert = value_of(U_FlshSnmpGetMode) == USR_SNMP_TRAP_MODE_TRAP
                            ? U_SnmpInsTrapIpv6
                            : U_SnmpInsInformIpv6;
    insert(&address, static_cast<uint16_t>(row.number), row.name);
}

void delete_receiver(const Row& row) {
    const ip_addr_t address = address_of(row);
    U_SnmpDelTrapIpv6(&address, static_cast<uint16_t>(row.number));
}

void check_receivers() {
    const uint8_t mode = value_of(U_FlshSnmpGetMode);
    check_table({"U_SnmpInsTrapIpv6", "U_SnmpDelTrapIpv6", read_receivers, insert_receiver,
                 delete_receiver, 162});
    if (writing && stopped == 0) {
        U_FlshSnmpSetMode(mode == 0 ? 1 : 0);
        check_table({"U_SnmpInsInformIpv6", "U_SnmpDelTrapIpv6", read_receivers, insert_receiver,
                     delete_receiver, 162});
        U_FlshSnmpSetMode(mode);
    }
    for (unsigned i = 0; i < read_receivers().count; ++i) {
        const Row row = read_receivers().list[i];
        VALIDATOR(Usrsnmp_check_trap_server_ip, {row.detail}, {});
        VALIDATOR(Usrsnmp_check_trap_server_port, {static_cast<int>(row.number)}, {});
        VALIDATOR(Usrsnmp_check_trap_community_string, {row.name}, {});
    }
}

constexpr const char* long_text = "a text that is too long for any field of names on this device";

struct User {
    char name[17] = {};
    char password[33] = {};
    char privacy_key[33] = {};
    uint8_t authentication = 0;
    uint8_t privacy = 0;

    explicit User(uint16_t row) {
        U_FlshSnmpGetUsmEntry(row, name, &authentication, password, &privacy, privacy_key);
    }
};

// A user that exists may be replaced or kept. It cannot be deleted, so none is added.
void check_user(uint16_t row) {
    const User user(row);
    char encrypted[encrypted_size];
    encrypt_snmp_key(user.password, encrypted);
    VALIDATOR(Usrflsh_check_snmpV3_userName, {user.name}, {});
    VALIDATOR(Usrflsh_check_snmpV3_authentication_password, {encrypted}, {});
    encrypt_snmp_key(user.privacy_key, encrypted);
    VALIDATOR(Usrflsh_check_snmpV3_encryption_key, {encrypted}, {});
    if (writing && stopped == 0) {
        const unsigned count = value_of(U_SnmpGetUsmSize);
        U_SnmpInsUsm(user.name, user.authentication, user.password, user.privacy, user.privacy_key);
        const User again(row);
        expect(value_of(U_SnmpGetUsmSize) == count && std::memcmp(&user, &again, sizeof user) == 0,
               "U_SnmpInsUsm", "a user that exists is no second one",
               "expected %u users, this one as it was, seen %u", count, value_of(U_SnmpGetUsmSize));
    }
}

void check_snmp() {
    SETTING(U_SnmpGetEbl, U_SnmpSetEbl, "flag/1=0-1");
    SETTING(U_FlshSnmpGetVer, U_FlshSnmpSetVer, "version/1=1-2");
    SETTING(U_FlshSnmpGetMode, U_FlshSnmpSetMode, "mode/1=0-1");
    GETTER(U_SnmpGetCommunitySize, "count/2");
    GETTER(U_SnmpGetTrapSize, "count/2");
    GETTER(U_SnmpGetUsmSize, "count/2");
    const unsigned receivers = value_of(U_SnmpGetTrapSize);
    GETTER(U_SnmpGetCommunityEntry, "row/2x permission/1 community/16s",
           {0, value_of(U_SnmpGetCommunitySize)});
    GETTER(U_SnmpGetTrapIpv6Entry, "row/2x address/20p port/2 community/16s", {0, receivers});
    GETTER(U_FlshSnmpGetTrapIpv6Entry, "row/2x address/20p port/2 community/16s", {0, receivers});
    GETTER(U_FlshSnmpGetUsmEntry, "row/2x name/16t authentication/1 password/32s privacy/1 key/32s",
           {0, value_of(U_SnmpGetUsmSize)});
    VALIDATOR(Usrsnmp_check_snmp_enable, {value_of(U_SnmpGetEbl)}, {-2, 100});
    VALIDATOR(Usrflsh_check_snmp_version, {value_of(U_FlshSnmpGetVer)}, {-2, 256});
    VALIDATOR(Usrflsh_check_snmp_trap_mode, {value_of(U_FlshSnmpGetMode)}, {-2, 256});
    VALIDATOR(Usrsnmp_check_community_permission_type, {}, {-2, 256});
    VALIDATOR(Usrsnmp_check_community_string, {}, {long_text});
    VALIDATOR(Usrsnmp_check_trap_server_ip, {}, {"not an address", "256.1.1.1"});
    VALIDATOR(Usrsnmp_check_trap_server_port, {}, {-2, 65536});
    VALIDATOR(Usrsnmp_check_trap_community_string, {}, {long_text});
    VALIDATOR(Usrflsh_check_snmpV3_userName, {}, {long_text});
    VALIDATOR(Usrflsh_check_snmpV3_authentication_password, {}, {"0123", long_text});
    VALIDATOR(Usrflsh_check_snmpV3_encryption_key, {}, {"0123", long_text});
    for (unsigned i = 0; i < read_communities().count; ++i) {
        const Row row = read_communities().list[i];
        VALIDATOR(Usrsnmp_check_community_string, {row.name}, {});
        VALIDATOR(Usrsnmp_check_community_permission_type, {static_cast<int>(row.number)}, {});
    }
    check_table({"U_SnmpInsCommunity", "U_SnmpDelCommunity", read_communities, insert_community,
                 delete_community, 1});
    check_receivers();
    for (unsigned i = 0; i < value_of(U_SnmpGetUsmSize); ++i) {
        check_user(static_cast<uint16_t>(i));
    }
}

// In the order of restore.
unsigned short set_modbus(int enabled) {
    const unsigned short result = U_SysSetModbusEnabled(enabled);
    return enabled == 1 ? U_SysExecuteModbus(1) : result;
}

unsigned short set_modbus_port(int port) {
    const bool runs = value_of(U_SysGetModbusEnabled) != 0;
    if (runs) {
        U_SysSetModbusEnabled(0);
    }
    const unsigned short result = U_SysSetModbusPort(port);
    if (runs) {
        U_SysSetModbusEnabled(1);
    }
    return result;
}

void check_modbus() {
    SETTING(U_SysGetModbusAddr, U_SysSetModbusAddr, "address/1=1-247");
    check_setting(OPERATION(U_SysGetModbusEnabled), {"U_SysSetModbusEnabled", call<set_modbus>},
                  "flag/1=0-1");
    check_setting(OPERATION(U_SysGetModbusPort), {"U_SysSetModbusPort", call<set_modbus_port>},
                  "port/L=503-65535");
    VALIDATOR(Usrmodbus_check_modbus_addr, {value_of(U_SysGetModbusAddr)}, {-2, 256});
    VALIDATOR(Usrmodbus_check_modbus_enable, {value_of(U_SysGetModbusEnabled)}, {-2, 100});
    VALIDATOR(Usrmodbus_check_modbus_port, {static_cast<int>(value_of(U_SysGetModbusPort))},
              {-2, 65536});
}

void check_system_log() {
    SETTING(Ui_SysLogFlashConfig, Ui_SysLogSet,
            "to-flash/1=0-1 level/1=0-7 server/1=0-1 address/La port/2=1-65535");
    uint8_t numbers[3] = {};
    unsigned long address = 0;
    uint16_t port = 0;
    char text[64] = {};
    Ui_SysLogFlashConfig(&numbers[0], &numbers[1], &numbers[2], &address, &port);
    ip_to_str(text, address);
    VALIDATOR(Usrsyslog_check_log_event_to_flash_status, {numbers[0]}, {-2, 100});
    VALIDATOR(Usrsyslog_check_log_level, {numbers[1]}, {-2, 256});
    VALIDATOR(Usrsyslog_check_system_log_server_status, {numbers[2]}, {-2, 100});
    VALIDATOR(Usrsyslog_check_system_log_server_ip, {text}, {"not an address", "256.1.1.1"});
    VALIDATOR(Usrsyslog_check_system_log_server_port, {port}, {-2, 65536});
}

} // namespace

void check_services() {
    check_snmp();
    check_modbus();
    check_system_log();
    SETTING(U_SysGetMSNTP, U_SysSetMSNTP,
            "client/1=0-1 zone/1=0-62 server1/32t server2/32t period/L=60-86400 last/Li=0");
    GETTER(U_FlshntpIpDmStrngGet, "manual/1 ip-or-domain/1 ip/32t domain/32t");
    SETTING(U_SysGetDaylight, U_SysSetDaylight,
            "flag/1=0-1 month/1=3-4 week/1=1-2 day/1=0-1 hour/1=1-2 end-month/1=9-10 "
            "end-week/1=1-2 end-day/1=0-1 end-hour/1=1-2 offset/1=1-2");
    SETTING(U_FlshSmtpGetServer, U_FlshSmtpSetServer, "server/32t size/1i=32");
    SETTING(U_FlshSmtpGetSendAdd, U_FlshSmtpSetSendAdd, "sender/32m size/1i=32");
    SETTING(U_FlshSmtpGetSubject, U_FlshSmtpSetSubject, "subject/32t size/1i=32");
    SETTING(U_FlshSmtpGetUnamePwd, U_FlshSmtpSetUnamePwd, "flag/1=0-1 username/32t password/16s");
    SETTING(U_FlshSmtpGetTLS, U_FlshSmtpSetTLS, "flag/1=0-1");
    SETTING(U_FlshSmtpGetRecAdd, U_FlshSmtpSetRecAdd,
            "recipient1/32m recipient2/32m recipient3/32m recipient4/32m");
    if (writing) {
        U_SysSetRelayConfig();
    }
}
