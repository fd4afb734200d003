#include "codec/secret_codec.h"
#include "platform/check/check.h"
#include "platform/include/modbus.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/sntp.h"
#include "platform/include/system_log.h"

namespace {

constexpr const char* long_text = "a text that is too long for any field of names on this device";

std::string name(unsigned n) {
    return "check-device-" + std::to_string(n); // fills its field
}

void check_communities() {
    const unsigned long permission = accepted(Usrsnmp_check_community_permission_type).numbers[0];
    const auto insert = [permission](unsigned n) {
        U_SnmpInsCommunity(static_cast<uint8_t>(permission), name(n).c_str());
    };
    const auto remove = [](unsigned n) { U_SnmpDelCommunity(name(n).c_str()); };
    const Lines lines = {"snmp community string = \"check-device-#\" ;",
                         formatted("snmp community permission type = %lu ;", permission)};
    check_table({"U_SnmpInsCommunity", insert}, {"U_SnmpDelCommunity", remove},
                {numbers_of(15 - value_of(U_SnmpGetCommunitySize), 10), "[snmp settings] ", lines});
}

// Address and port identify a receiver: either all have one address, or one port.
template <auto change, bool one_address>
void change_receiver(unsigned n) {
    ip_addr_t address = {};
    str_to_ipaddr(&address, formatted("192.0.2.%u", one_address ? 10 : n).c_str());
    change(&address, static_cast<uint16_t>(one_address ? 1000 + n : 162), "check-community");
}

unsigned short delete_receiver(const ip_addr_t* address, uint16_t port, const char*) {
    return U_SnmpDelTrapIpv6(address, port);
}

template <auto insert, bool one_address>
void check_receivers(const char* title) {
    const std::string address = one_address ? "10" : "#", port = one_address ? "10#" : "162";
    const Lines lines = {"snmp trap server ip = \"192.0.2." + address + "\" ;",
                         "snmp trap server port = " + port + " ;",
                         "snmp trap server community string = \"check-community\" ;"};
    check_table({title, change_receiver<insert, one_address>},
                {"U_SnmpDelTrapIpv6", change_receiver<delete_receiver, one_address>},
                {numbers_of(15 - value_of(U_SnmpGetTrapSize), 10), "[snmp settings] ", lines});
}

void check_users() {
    char password[encrypted_size] = {}, privacy_key[encrypted_size] = {};
    encrypt_snmp_key("password-1", password);
    encrypt_snmp_key("password-2", privacy_key);
    const auto insert = [](unsigned n) {
        U_SnmpInsUsm(name(n).c_str(), SNMP_USM_AUTH_MD5, "password-1", SNMP_USM_PRIV_DES,
                     "password-2");
    };
    const Lines lines = {"snmp v user name = \"check-device-#\" ;",
                         formatted("snmp v authentication password = \"%s\" ;", password),
                         formatted("snmp v encryption key = \"%s\" ;", privacy_key)};
    // Two are as many as a document holds. How many more there may be, the device knows.
    const int room = value_of(U_SnmpGetUsmSize) < 2 ? 15 : 0;
    check_lasting_table({"U_SnmpInsUsm", insert},
                        {numbers_of(room, 10), "[snmp settings] ", lines});
}

void check_snmp() {
    static const ip_addr_t ipv4 = {0xffff, {{1, 1, 1, 1}}};
    char secret[encrypted_size] = {};
    encrypt_snmp_key("password-1", secret);
    const Argument address = record(ipv4);
    const Argument receivers = index_up_to(value_of(U_SnmpGetTrapSize));
    SETTING(U_SnmpGetEbl, U_SnmpSetEbl, {0, 1});
    SETTING(U_FlshSnmpGetVer, U_FlshSnmpSetVer, accepted(Usrflsh_check_snmp_version));
    SETTING(U_FlshSnmpGetMode, U_FlshSnmpSetMode, {0, 1});
    GETTER(U_SnmpGetCommunitySize, {});
    GETTER(U_SnmpGetTrapSize, {});
    GETTER(U_SnmpGetUsmSize, {});
    GETTER(U_SnmpGetCommunityEntry, index_up_to(value_of(U_SnmpGetCommunitySize)), {}, text(16));
    GETTER(U_SnmpGetTrapIpv6Entry, receivers, address, {}, text(16));
    GETTER(U_FlshSnmpGetTrapIpv6Entry, receivers, address, {}, text(16));
    GETTER(U_FlshSnmpGetUsmEntry, index_up_to(value_of(U_SnmpGetUsmSize)), text(16), {}, text(32),
           {}, text(32));
    check_validator(NAMED(Usrsnmp_check_snmp_enable), {value_of(U_SnmpGetEbl)}, {-2, 100});
    check_validator(NAMED(Usrflsh_check_snmp_version), {value_of(U_FlshSnmpGetVer)}, {-2, 256});
    check_validator(NAMED(Usrflsh_check_snmp_trap_mode), {value_of(U_FlshSnmpGetMode)}, {-2, 256});
    check_validator(NAMED(Usrsnmp_check_community_string), {"public"}, {long_text});
    check_validator(NAMED(Usrsnmp_check_community_permission_type),
                    {usual(Usrsnmp_check_community_permission_type)}, {-2, 256});
    check_validator(NAMED(Usrsnmp_check_trap_server_ip), {"192.0.2.1"}, {"not an address"});
    check_validator(NAMED(Usrsnmp_check_trap_server_port), {162}, {-2, 65536});
    check_validator(NAMED(Usrsnmp_check_trap_community_string), {"public"}, {long_text});
    check_validator(NAMED(Usrflsh_check_snmpV3_userName), {"user"}, {long_text});
    check_validator(NAMED(Usrflsh_check_snmpV3_authentication_password), {secret},
                    {"0123", long_text});
    check_validator(NAMED(Usrflsh_check_snmpV3_encryption_key), {secret}, {"0123", long_text});
    check_communities();
    check_receivers<U_SnmpInsTrapIpv6, true>("U_SnmpInsTrapIpv6");
    check_receivers<U_SnmpInsInformIpv6, false>("U_SnmpInsInformIpv6");
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

} // namespace

void check_services() {
    check_snmp();
    SETTING(U_SysGetModbusAddr, U_SysSetModbusAddr, accepted(Usrmodbus_check_modbus_addr));
    check_setting({NAMED(U_SysGetModbusEnabled)}, {"U_SysSetModbusEnabled", set_modbus}, {{0, 1}});
    check_setting({NAMED(U_SysGetModbusPort)}, {"U_SysSetModbusPort", set_modbus_port},
                  {accepted(Usrmodbus_check_modbus_port)});
    check_validator(NAMED(Usrmodbus_check_modbus_addr), {value_of(U_SysGetModbusAddr)}, {-2, 256});
    check_validator(NAMED(Usrmodbus_check_modbus_enable), {value_of(U_SysGetModbusEnabled)},
                    {-2, 100});
    check_validator(NAMED(Usrmodbus_check_modbus_port),
                    {static_cast<int>(value_of(U_SysGetModbusPort))}, {-2, 65536});
    SETTING(Ui_SysLogFlashConfig, Ui_SysLogSet, {0, 1}, accepted(Usrsyslog_check_log_level), {1, 0},
            hosts(), accepted(Usrsyslog_check_system_log_server_port));
    check_validator(NAMED(Usrsyslog_check_log_event_to_flash_status), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrsyslog_check_log_level), {usual(Usrsyslog_check_log_level)},
                    {-2, 256});
    check_validator(NAMED(Usrsyslog_check_system_log_server_status), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrsyslog_check_system_log_server_ip), {"192.0.2.1"},
                    {"not an address", "256.1.1.1"});
    check_validator(NAMED(Usrsyslog_check_system_log_server_port), {514}, {-2, 65536});
    SETTING(U_SysGetMSNTP, U_SysSetMSNTP, {0, 1}, {0, 62}, text(32), text(32, '-'), {60, 86400}, 0);
    GETTER(U_FlshntpIpDmStrngGet, {}, {}, text(32), text(32));
    SETTING(U_SysGetDaylight, U_SysSetDaylight, turned_on(), {3, 4}, {1, 2}, {0, 1}, {1, 2},
            {9, 10}, {2, 1}, {1, 0}, {2, 1}, {1, 2});
    SETTING(U_FlshSmtpGetServer, U_FlshSmtpSetServer, text(32), 32);
    SETTING(U_FlshSmtpGetSendAdd, U_FlshSmtpSetSendAdd, text(32, '@'), 32);
    SETTING(U_FlshSmtpGetSubject, U_FlshSmtpSetSubject, text(32), 32);
    SETTING(U_FlshSmtpGetUnamePwd, U_FlshSmtpSetUnamePwd, {0, 1}, text(32), text(16));
    SETTING(U_FlshSmtpGetTLS, U_FlshSmtpSetTLS, {0, 1});
    SETTING(U_FlshSmtpGetRecAdd, U_FlshSmtpSetRecAdd, text(32, '@'), text(32, '@', 'b'),
            text(32, '@', 'c'), text(32, '@', 'd'));
    writes.push_back([] { U_SysSetRelayConfig(); });
}
