#include "platform/include/system.h"

#include "platform/check/check.h"
#include "platform/include/converters.h"
#include "platform/include/eeprom.h"
#include "platform/include/periodic_backup.h"
#include "platform/include/ports.h"
#include "platform/include/services.h"
#include "platform/include/warnings.h"

#include <algorithm>

namespace {

// A document has the signed number.
std::string tftp_server(const char* text) {
    unsigned long address = 0;
    str_to_ip(&address, text);
    return std::to_string(signed_32_bits(static_cast<uint32_t>(address)));
}

} // namespace

void check_system() {
    const std::size_t ports = std::min<std::size_t>(g_ucMaxPhyPort, EMAIL_PORTS);
    Argument codes = bytes(EMAIL_PORTS);
    codes.kinds.replace(ports, EMAIL_PORTS, EMAIL_PORTS - ports, 'r'); // of no port
    check_getter("get_full_model_name", [](char* name) { get_full_model_name(name); }, {text(33)});
    GETTER(U_SysGetMac, bytes(6));
    GETTERS(U_SysGetFirmwareVer, U_FlshHTTPSGet);
    KEPT(U_FlshSysGetDhcp, U_FlshSysSetDhcp);
    KEPT(U_FlshSysInfoGetName, U_FlshSysInfoSetName, text(30), 30);
    KEPT(U_FlshSysGetIp, U_FlshSysSetIp);
    KEPT(U_FlshSysGetGateway, U_FlshSysSetGateway);
    KEPT(U_FlshSysGetDNSIp, U_FlshSysSetDNSIp, 1);
    KEPT(U_LldpGetEnable, U_LldpSetEnable);
    KEPT(U_FwdGetPortMirror, U_FwdSetPortMirror);
    KEPT(U_GetPeriodicSetting, U_SetPeriodicSetting);
    KEPT(U_FlshSysGetEmailPort, U_SysSetEmailPort, codes);
    KEPT(U_FlshSysGetEmailPower, U_SysSetEmailPower, bytes(EMAIL_POWERS));
    KEPT(U_SysGetEmailSyslog, U_SysSetEmailSyslog);
    setting("U_FlshSysInfoSetName", "system settings:device name=" + texts_of_29);
    setting("U_FlshSysSetDhcp", "network settings:dhcp=0|1");
    setting("U_FlshSysSetIp", "network settings:static ip address=192.0.2.10|192.0.2.129;"
                              "subnet mask=255.255.255.0|255.255.0.0");
    setting("U_FlshSysSetGateway", "network settings:gateway=192.0.2.1|192.0.2.254");
    setting("U_FlshSysSetDNSIp", "network settings:primary dns=192.0.2.10|192.0.2.129");
    setting("U_LldpSetEnable", "lldp setting:enable state=0|1");
    setting("U_FwdSetPortMirror", "port mirror setting:enable state=1|1|0;source port=1|2|-1;"
                                  "destination port=2|1|-1");
    setting("U_FlshHTTPSSet", "https setting:enable state=0|1");
    setting("set_eeprom_serial_port", "auto default setting:enable state=0|1");
    setting("U_SetPeriodicSetting", "periodic back-up:enable state=0|1;period hour=0|23;"
                                    "period minute=0|59;tftp serverip=" +
                                        tftp_server("192.0.2.10") + "|" +
                                        tftp_server("192.0.2.129"));
    setting("U_SysSetEmailPort", "warning/alarm setting:port_# link_status=Link UP|LinkUp/Down",
            static_cast<int>(ports));
    setting("U_SysSetEmailPower", "warning/alarm setting:power_# power_status=Power On|Power Off",
            EMAIL_POWERS);
    setting("U_SysSetEmailSyslog", "warning/alarm setting:syslog_level_alarm=LOG_DEBUG|Disabled");
}

void check_addresses() {
    const char* good = "network settings:static ip address=192.0.2.1;subnet mask=255.255.255.0;"
                       "gateway=192.0.2.254;primary dns=192.0.2.1;";
    check_verdict("U_SysCheckIpMaskString", true, good, "gateway=;primary dns=");
    check_verdict("U_SysCheckIpMaskString", false, good, "static ip address=256.1.1.1");
    check_verdict("U_SysCheckIpMaskString", false, good, "subnet mask=mask");
    check_verdict("U_SysCheckGatewayString", false, good, "gateway=gateway");
    check_verdict("U_SysCheckInTheSubnet", true, good, "primary dns=");
    check_verdict("U_SysCheckInTheSubnet", false, good, "gateway=198.51.100.1;primary dns=");
    check_verdict("U_SysCheckDnsString", true, good, "primary dns=192.0.2.1");
    check_verdict("U_SysCheckDnsString", false, good, "primary dns=server");
}
