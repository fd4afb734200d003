#include "platform/include/system.h"

#include "platform/check/check.h"
#include "platform/include/eeprom.h"
#include "platform/include/periodic_backup.h"
#include "platform/include/ports.h"
#include "platform/include/services.h"
#include "platform/include/warnings.h"

#include <algorithm>

namespace {

// These validators return 0 for what they accept.
template <typename... Texts>
void check_texts(const char* name, unsigned short (*validate)(Texts...), bool is_good,
                 Texts... texts) {
    expect(name, is_good ? "accepts what is right" : "refuses what is not",
           is_good ? "0" : "a code", validate(texts...) == 0 ? "0" : "a code");
}

// On is 1. Any other number is off, which is set as 3.
unsigned short lldp_state(unsigned char* state) {
    const unsigned short result = U_LldpGetEnable(state);
    *state = result != 0 || *state == 1 ? *state : 3;
    return result;
}

// A gateway must be in the subnet.
unsigned short network(unsigned long* address, unsigned long* mask, unsigned long* gateway) {
    const unsigned short result = U_FlshSysGetIp(address, mask);
    return result != 0 ? result : U_FlshSysGetGateway(gateway);
}

unsigned short set_network(unsigned long address, unsigned long mask, unsigned long gateway) {
    const unsigned short result = U_FlshSysSetIp(address, mask);
    U_FlshSysSetGateway(gateway);
    return result;
}

// As in restore. No port is -1, and is read as 65535.
unsigned short set_mirror(char state, unsigned char mode, int16_t analyzer, int16_t monitored) {
    return state == 0 ? U_FwdSetPortMirror(0, 0, -1, -1)
                      : U_FwdSetPortMirror(state, mode, analyzer, monitored);
}

constexpr TstFlshPeriodic schedule = {1, 0xffff, 0xffff, 0xffffffff};

} // namespace

void check_system() {
    const char* host = "192.0.2.1";
    const char* mask = "255.255.255.0";
    check_getter({"get_full_model_name", [](char* name) { get_full_model_name(name); }},
                 {text(33)});
    GETTER(U_SysGetMac, bytes(6, 6));
    GETTER(U_SysGetFirmwareVer, {}, {}, {});
    SETTING(U_FlshSysInfoGetName, U_FlshSysInfoSetName, text(30), 30);
    SETTING(U_FlshSysGetDhcp, U_FlshSysSetDhcp, {0, 1});
    GETTER(U_FlshSysGetGateway, {});
    check_setting(
        {"U_FlshSysGetIp", network}, {"U_FlshSysSetIp", set_network},
        {hosts(), {ip("255.255.255.0"), ip("255.255.0.0")}, {ip("192.0.2.1"), ip("192.0.2.254")}});
    SETTING(U_FlshSysGetDNSIp, U_FlshSysSetDNSIp, 1, hosts());
    check_texts(NAMED(U_SysCheckIpMaskString), true, host, mask);
    check_texts(NAMED(U_SysCheckIpMaskString), false, "256.1.1.1", mask);
    check_texts(NAMED(U_SysCheckIpMaskString), false, host, "mask");
    check_texts(NAMED(U_SysCheckGatewayString), true, host);
    check_texts(NAMED(U_SysCheckGatewayString), false, "gateway");
    check_texts(NAMED(U_SysCheckInTheSubnet), true, host, mask, "192.0.2.254");
    check_texts(NAMED(U_SysCheckInTheSubnet), false, host, mask, "198.51.100.1");
    check_texts(NAMED(U_SysCheckDnsString), true, host);
    check_texts(NAMED(U_SysCheckDnsString), false, "server");
    GETTER(U_LldpGetEnable, {});
    check_setting({"U_LldpGetEnable", lldp_state}, {NAMED(U_LldpSetEnable)}, {{3, 1}});
    SETTING(U_FlshHTTPSGet, U_FlshHTTPSSet, {0, 1});
    check_setting({NAMED(U_FwdGetPortMirror)}, {"U_FwdSetPortMirror", set_mirror},
                  {turned_on(), {3, 3}, {0, 1}, {1, 0}});
    check_setting({"get_eeprom_serial_port", [](int* flag) { *flag = get_eeprom_serial_port(); }},
                  {NAMED(set_eeprom_serial_port)}, {{0, 1}});
    SETTING(U_GetPeriodicSetting, U_SetPeriodicSetting,
            record(schedule, {0, 0, 0, static_cast<uint32_t>(hosts().numbers[0])},
                   {1, 23, 59, static_cast<uint32_t>(hosts().numbers[1])}));
    SETTING(U_FlshSysGetEmailPort, U_SysSetEmailPort,
            bytes(32, std::min<std::size_t>(g_ucMaxPhyPort, 32), 1, 3));
    SETTING(U_FlshSysGetEmailPower, U_SysSetEmailPower, bytes(2, 2, 1, 2));
    SETTING(U_SysGetEmailSyslog, U_SysSetEmailSyslog, {7, 100});
}
