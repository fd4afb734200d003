#include "codec/secret_codec.h"
#include "platform/check/check.h"
#include "platform/include/converters.h"
#include "platform/include/modbus.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/sntp.h"
#include "platform/include/system_log.h"

#include <cstdlib>

namespace {

constexpr const char* too_long = "a text that is too long for any field of names on this device";

std::string secret() {
    char text[encrypted_size] = {};
    encrypt_snmp_key("password-1", text);
    return text;
}

// What a getter with one output reads, with room for one that writes too much.
template <typename Result, typename Value>
int value_of(Result (*get)(Value*)) {
    Value values[64] = {};
    get(values);
    return static_cast<int>(values[0]);
}

Argument rows_of(unsigned short (*size)(uint16_t*)) {
    return index_up_to(static_cast<unsigned long>(value_of(size)));
}

void check_snmp() {
    const Argument communities = rows_of(U_SnmpGetCommunitySize);
    const Argument receivers = rows_of(U_SnmpGetTrapSize), users = rows_of(U_SnmpGetUsmSize);
    const int permission = std::atoi(accepted(Usrsnmp_check_community_permission_type).c_str());
    GETTERS(U_SnmpGetEbl, U_FlshSnmpGetVer, U_FlshSnmpGetMode, U_SnmpGetCommunitySize,
            U_SnmpGetTrapSize, U_SnmpGetUsmSize);
    GETTER(U_SnmpGetCommunityEntry, communities, {}, text(16));
    GETTER(U_SnmpGetTrapIpv6Entry, receivers, {}, {}, text(16));
    GETTER(U_FlshSnmpGetTrapIpv6Entry, receivers, {}, {}, text(16));
    GETTER(U_FlshSnmpGetUsmEntry, users, text(16), {}, text(32), {}, text(32));
    check_validator(NAMED(Usrsnmp_check_snmp_enable), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrflsh_check_snmp_version), {value_of(U_FlshSnmpGetVer)}, {-2, 256});
    check_validator(NAMED(Usrflsh_check_snmp_trap_mode), {0, 1}, {-2, 256});
    check_validator(NAMED(Usrsnmp_check_community_string), {"public"}, {too_long});
    check_validator(NAMED(Usrsnmp_check_community_permission_type), {permission}, {-2, 256});
    check_validator(NAMED(Usrsnmp_check_trap_server_ip), {"192.0.2.1"}, {"not an address"});
    check_validator(NAMED(Usrsnmp_check_trap_server_port), {162}, {-2, 65536});
    check_validator(NAMED(Usrsnmp_check_trap_community_string), {"public"}, {too_long});
    check_validator(NAMED(Usrflsh_check_snmpV3_userName), {"user"}, {too_long});
    check_validator(NAMED(Usrflsh_check_snmpV3_authentication_password), {secret().c_str()},
                    {"0123", too_long});
    check_validator(NAMED(Usrflsh_check_snmpV3_encryption_key), {secret().c_str()},
                    {"0123", too_long});
    setting("U_SnmpSetEbl", "snmp settings:snmp=0|1");
    setting("U_FlshSnmpSetVer",
            "snmp settings:snmp version=" + accepted(Usrflsh_check_snmp_version));
    setting("U_FlshSnmpSetMode", "snmp settings:snmp trap mode=0|0|1");
    setting("U_SnmpInsCommunity",
            formatted("snmp settings:snmp community string#=-1|check-device-#|check-device-#;"
                      "snmp community permission type#=-1|%d|%d",
                      permission, permission),
            15, 1, "U_SnmpDelCommunity");
    // In turn none, receivers of one address and others of one port.
    setting("U_SnmpInsTrapIpv6 and U_SnmpInsInformIpv6",
            "snmp settings:snmp trap server ip#=-1|192.0.2.10|192.0.2.#;"
            "snmp trap server port#=-1|100#|162;"
            "snmp trap server community string#=-1|check-device|check-device",
            15, 1, "U_SnmpDelTrapIpv6");
    for (int number = value_of(U_SnmpGetUsmSize) + 1; number <= 2; ++number) {
        lasting_setting("U_SnmpInsUsm",
                        "snmp settings:snmp v3 user name#=check-device-#;snmp v3 encryption key#=" +
                            secret() + ";snmp v3 authentication password#=" + secret(),
                        number);
    }
    setting("U_SnmpInsUsm", "snmp settings:snmp v3");
}

void check_modbus() {
    const int address = value_of(U_SysGetModbusAddr), port = value_of(U_SysGetModbusPort);
    GETTERS(U_SysGetModbusAddr, U_SysGetModbusEnabled, U_SysGetModbusPort);
    check_validator(NAMED(Usrmodbus_check_modbus_addr), {address}, {-2, 256});
    check_validator(NAMED(Usrmodbus_check_modbus_enable), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrmodbus_check_modbus_port), {port}, {-2, 65536});
    setting("U_SysSetModbusAddr",
            "modbus tcp settings:modbus address=" + accepted(Usrmodbus_check_modbus_addr));
    setting("U_SysSetModbusEnabled", "modbus tcp settings:modbus=0|1");
    setting("U_SysSetModbusPort", "modbus tcp settings:modbus port=503|65535");
}

void check_system_log() {
    const std::string levels = accepted(Usrsyslog_check_log_level);
    GETTERS(Ui_SysLogFlashConfig);
    check_validator(NAMED(Usrsyslog_check_log_event_to_flash_status), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrsyslog_check_log_level), {std::atoi(levels.c_str())}, {-2, 256});
    check_validator(NAMED(Usrsyslog_check_system_log_server_status), {0, 1}, {-2, 100});
    check_validator(NAMED(Usrsyslog_check_system_log_server_ip), {"192.0.2.1"},
                    {"not an address", "256.1.1.1"});
    check_validator(NAMED(Usrsyslog_check_system_log_server_port), {514}, {-2, 65536});
    setting("Ui_SysLogSet", "system log settings:system log event to flash=0|1;"
                            "system log server=0|1;system log server ip=192.0.2.10|192.0.2.129;"
                            "system log server port=1|65535;system log level=" +
                                levels);
}

// Which kind of server it is, nothing sets.
void check_sntp() {
    char by_hand[64] = {}, is_address[64] = {}, names[2][96] = {};
    U_FlshntpIpDmStrngGet(by_hand, is_address, names[0], names[1]);
    GETTER(U_FlshntpIpDmStrngGet, {}, {}, text(32), text(32));
    KEPT(U_SysGetMSNTP, U_SysSetMSNTP, {}, {}, text(32), text(32), {}, 0);
    KEPT(U_SysGetDaylight, U_SysSetDaylight);
    if (by_hand[0] == 0) {
        setting("U_SysSetMSNTP",
                "sntp setting:ntp server=0|0|-1;ntp public server#=" + texts_of_31 + "|-1", 2);
    } else {
        const std::string form = is_address[0] == 1 ? "1|1|-1;" : "0|0|-1;";
        setting("U_SysSetMSNTP", "sntp setting:ntp server=1|1|-1;ip/domain=" + form +
                                     "ntp manual server name=" + texts_of_31 + "|-1");
    }
    setting("U_SysSetMSNTP", "sntp setting:time and date setting :mode=1|1|0;time zone=0|62|-1;"
                             "time server query period (sec)=60|86400|-1");
    setting("U_SysSetDaylight", "sntp setting:daylight saving :enable state=1|1|0;offset=1|2|-1;"
                                "start date(month)=3|4|-1;start date(week)=1|2|-1;"
                                "start date(day)=0|1|-1;start date(hour)=1|2|-1;"
                                "end date(month)=9|10|-1;end date(week)=1|2|-1;"
                                "end date(day)=0|1|-1;end date(hour)=1|2|-1");
}

void check_smtp() {
    GETTERS(U_FlshSmtpGetTLS);
    KEPT(U_FlshSmtpGetServer, U_FlshSmtpSetServer, text(32), 32);
    KEPT(U_FlshSmtpGetSendAdd, U_FlshSmtpSetSendAdd, text(32), 32);
    KEPT(U_FlshSmtpGetSubject, U_FlshSmtpSetSubject, text(32), 32);
    KEPT(U_FlshSmtpGetUnamePwd, U_FlshSmtpSetUnamePwd, {}, text(32), text(16));
    KEPT(U_FlshSmtpGetRecAdd, U_FlshSmtpSetRecAdd, text(32), text(32), text(32), text(32));
    const std::string addresses = "a@example.com|0123456789abcdefghi@example.com";
    setting("U_FlshSmtpSetServer", "smtp setting:smtp server=" + texts_of_31);
    setting("U_FlshSmtpSetSendAdd", "smtp setting:sender address=" + addresses);
    setting("U_FlshSmtpSetSubject", "smtp setting:subject of mail=" + texts_of_31);
    setting("U_FlshSmtpSetUnamePwd", "smtp setting:authentication=0|1;"
                                     "password=password-1|password-of-15.;username=" +
                                         texts_of_31);
    setting("U_FlshSmtpSetTLS", "smtp setting:tls/ssl=0|1");
    setting("U_FlshSmtpSetRecAdd", "smtp setting:mail recipient#=" + addresses, 4);
}

} // namespace

void delete_snmp_rows(Document& document) {
    const std::string name = document["snmp settings:snmp community string8"];
    ip_addr_t address = {};
    if (name != "check-device-8" ||
        str_to_ipaddr(&address, document["snmp settings:snmp trap server ip8"].c_str()) != 0) {
        return; // the tables are empty in this turn
    }
    const int port = std::atoi(document["snmp settings:snmp trap server port8"].c_str());
    U_SnmpDelCommunity(name.c_str());
    U_SnmpDelTrapIpv6(&address, static_cast<uint16_t>(port));
    for (const char* key :
         {"snmp community string", "snmp community permission type", "snmp trap server ip",
          "snmp trap server port", "snmp trap server community string"}) {
        move_rows_up(document, std::string("snmp settings:") + key, 8);
    }
}

void check_services() {
    check_snmp();
    check_modbus();
    check_system_log();
    check_sntp();
    check_smtp();
}
