#include "codec/secret_codec.h"
#include "platform/check/check.h"
#include "platform/include/modbus.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/sntp.h"
#include "platform/include/system_log.h"

namespace {

constexpr const char* long_text = "a text that is too long for any field of names on this device";

template <auto size, auto read>
std::vector<Row> rows_of() {
    std::vector<Row> rows(value_of(size));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i] = read(static_cast<uint16_t>(i));
    }
    return rows;
}

Row read_community(uint16_t index) {
    uint8_t permission = 0;
    char community[33] = {};
    U_SnmpGetCommunityEntry(index, &permission, community);
    return {community, "", permission};
}

Row read_receiver(uint16_t index) {
    ip_addr_t address = {};
    uint16_t port = 0;
    char community[33] = {};
    char text[64] = {};
    U_SnmpGetTrapIpv6Entry(index, &address, &port, community);
    ipaddr_to_str(text, &address);
    return {community, text, port};
}

constexpr auto read_communities = rows_of<U_SnmpGetCommunitySize, read_community>;
constexpr auto read_receivers = rows_of<U_SnmpGetTrapSize, read_receiver>;

template <auto insert>
void insert_receiver(const Row& row) {
    ip_addr_t address = {};
    str_to_ipaddr(&address, row.detail.c_str());
    insert(&address, static_cast<uint16_t>(row.number), row.name.c_str());
}

unsigned short delete_receiver(const ip_addr_t* address, uint16_t port, const char*) {
    return U_SnmpDelTrapIpv6(address, port);
}

void check_tables() {
    check_table({"U_SnmpInsCommunity",
                 "U_SnmpDelCommunity",
                 read_communities,
                 [](const Row& row) {
                     U_SnmpInsCommunity(static_cast<uint8_t>(row.number), row.name.c_str());
                 },
                 [](const Row& row) { U_SnmpDelCommunity(row.name.c_str()); },
                 {"check-", "", accepted(Usrsnmp_check_community_permission_type, 0)}});
    const Row receiver = {"check-", "192.0.2.1", 162};
    check_table({"U_SnmpInsTrapIpv6", "U_SnmpDelTrapIpv6", read_receivers,
                 insert_receiver<U_SnmpInsTrapIpv6>, insert_receiver<delete_receiver>, receiver});
    check_table({"U_SnmpInsInformIpv6", "U_SnmpDelTrapIpv6", read_receivers,
                 insert_receiver<U_SnmpInsInformIpv6>, insert_receiver<delete_receiver>, receiver});
}

// A user cannot be deleted, so none is added.
void check_users() {
    const unsigned count = value_of(U_SnmpGetUsmSize);
    GETTER(U_FlshSnmpGetUsmEntry, "row/2# name/16t protocol/1 password/32t privacy/1 key/32t",
           {0, count});
    REFUSES(Usrflsh_check_snmpV3_userName, long_text);
    REFUSES(Usrflsh_check_snmpV3_authentication_password, "0123", long_text);
    REFUSES(Usrflsh_check_snmpV3_encryption_key, "0123", long_text);
    for (uint16_t i = 0; i < count; ++i) {
        char name[17] = {};
        char secrets[2][33] = {};
        uint8_t protocols[2] = {};
        char encrypted[2][encrypted_size];
        U_FlshSnmpGetUsmEntry(i, name, &protocols[0], secrets[0], &protocols[1], secrets[1]);
        encrypt_snmp_key(secrets[0], encrypted[0]);
        encrypt_snmp_key(secrets[1], encrypted[1]);
        ACCEPTS(Usrflsh_check_snmpV3_userName, name);
        ACCEPTS(Usrflsh_check_snmpV3_authentication_password, encrypted[0]);
        ACCEPTS(Usrflsh_check_snmpV3_encryption_key, encrypted[1]);
    }
}

void check_snmp() {
    const Range receivers = {0, value_of(U_SnmpGetTrapSize)};
    SETTING(U_SnmpGetEbl, U_SnmpSetEbl, "flag/1=0-1");
    const Phrase version("version/1=%d-%d", accepted(Usrflsh_check_snmp_version, 0),
                         accepted(Usrflsh_check_snmp_version, 1));
    SETTING(U_FlshSnmpGetVer, U_FlshSnmpSetVer, version.chars);
    SETTING(U_FlshSnmpGetMode, U_FlshSnmpSetMode, "mode/1=0-1");
    GETTER(U_SnmpGetCommunitySize, "count/2");
    GETTER(U_SnmpGetTrapSize, "count/2");
    GETTER(U_SnmpGetUsmSize, "count/2");
    GETTER(U_SnmpGetCommunityEntry, "row/2# permission/1 community/16t",
           {0, value_of(U_SnmpGetCommunitySize)});
    GETTER(U_SnmpGetTrapIpv6Entry, "row/2# address/20p port/2 community/16t", receivers);
    GETTER(U_FlshSnmpGetTrapIpv6Entry, "row/2# address/20p port/2 community/16t", receivers);
    VALIDATOR(Usrsnmp_check_snmp_enable, value_of(U_SnmpGetEbl), -2, 100);
    VALIDATOR(Usrflsh_check_snmp_version, value_of(U_FlshSnmpGetVer), -2, 256);
    VALIDATOR(Usrflsh_check_snmp_trap_mode, value_of(U_FlshSnmpGetMode), -2, 256);
    for (const Row& row : read_communities()) {
        VALIDATOR(Usrsnmp_check_community_string, row.name.c_str(), long_text);
        VALIDATOR(Usrsnmp_check_community_permission_type, static_cast<int>(row.number), -2, 256);
    }
    for (const Row& row : read_receivers()) {
        VALIDATOR(Usrsnmp_check_trap_server_ip, row.detail.c_str(), "not an address");
        VALIDATOR(Usrsnmp_check_trap_server_port, static_cast<int>(row.number), -2, 65536);
        VALIDATOR(Usrsnmp_check_trap_community_string, row.name.c_str(), long_text);
    }
    check_tables();
    check_users();
}

// These two in the order of restore.
unsigned short set_modbus(int enabled) {
    const unsigned short result = U_SysSetModbusEnabled(enabled);
    return enabled == 1 ? U_SysExecuteModbus(1) : result;
}

unsigned short set_modbus_port(int port) {
    if (value_of(U_SysGetModbusEnabled) == 0) {
        return U_SysSetModbusPort(port);
    }
    U_SysSetModbusEnabled(0);
    const unsigned short result = U_SysSetModbusPort(port);
    U_SysSetModbusEnabled(1);
    return result;
}

void check_modbus() {
    SETTING(U_SysGetModbusAddr, U_SysSetModbusAddr, "address/1=1-247");
    check_setting({NAMED(U_SysGetModbusEnabled)}, {"U_SysSetModbusEnabled", set_modbus},
                  "flag/1=0-1");
    check_setting({NAMED(U_SysGetModbusPort)}, {"U_SysSetModbusPort", set_modbus_port},
                  "port/L=503-65535");
    const auto port = static_cast<int>(value_of(U_SysGetModbusPort));
    VALIDATOR(Usrmodbus_check_modbus_addr, value_of(U_SysGetModbusAddr), -2, 256);
    VALIDATOR(Usrmodbus_check_modbus_enable, value_of(U_SysGetModbusEnabled), -2, 100);
    VALIDATOR(Usrmodbus_check_modbus_port, port, -2, 65536);
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
    VALIDATOR(Usrsyslog_check_log_event_to_flash_status, numbers[0], -2, 100);
    VALIDATOR(Usrsyslog_check_log_level, numbers[1], -2, 256);
    VALIDATOR(Usrsyslog_check_system_log_server_status, numbers[2], -2, 100);
    VALIDATOR(Usrsyslog_check_system_log_server_ip, text, "not an address", "256.1.1.1");
    VALIDATOR(Usrsyslog_check_system_log_server_port, port, -2, 65536);
}

} // namespace

void check_services() {
    check_snmp();
    check_modbus();
    check_system_log();
    SETTING(U_SysGetMSNTP, U_SysSetMSNTP,
            "client/1=0-1 zone/1=0-62 server1/32t server2/32t period/L=60-86400 last/4i=0");
    GETTER(U_FlshntpIpDmStrngGet, "manual/1 ip-or-domain/1 ip/32t domain/32t");
    SETTING(U_SysGetDaylight, U_SysSetDaylight,
            "flag/1=0-1 month/1=3-4 week/1=1-2 day/1=0-1 hour/1=1-2 end-month/1=9-10 "
            "end-week/1=1-2 end-day/1=0-1 end-hour/1=1-2 offset/1=1-2");
    SETTING(U_FlshSmtpGetServer, U_FlshSmtpSetServer, "server/32t size/1i=32");
    SETTING(U_FlshSmtpGetSendAdd, U_FlshSmtpSetSendAdd, "sender/32m size/1i=32");
    SETTING(U_FlshSmtpGetSubject, U_FlshSmtpSetSubject, "subject/32t size/1i=32");
    SETTING(U_FlshSmtpGetUnamePwd, U_FlshSmtpSetUnamePwd, "flag/1=0-1 user/32t password/16t");
    SETTING(U_FlshSmtpGetTLS, U_FlshSmtpSetTLS, "flag/1=0-1");
    SETTING(U_FlshSmtpGetRecAdd, U_FlshSmtpSetRecAdd, "one/32m two/32m three/32m four/32m");
    if (writing) {
        U_SysSetRelayConfig();
    }
}
