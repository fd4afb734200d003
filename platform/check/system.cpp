#include "platform/include/system.h"

#include "platform/check/check.h"
#include "platform/include/eeprom.h"
#include "platform/include/periodic_backup.h"
#include "platform/include/ports.h"
#include "platform/include/services.h"
#include "platform/include/warnings.h"

namespace {

// These validators return 0 for what they accept.
template <typename... Texts>
void check_texts(const char* name, unsigned short (*validate)(Texts...), bool is_good,
                 Texts... texts) {
    const unsigned short code = validate(texts...);
    expect((code == 0) == is_good, name, is_good ? "accepts what is right" : "refuses what is not",
           {"expected %s, seen %u", is_good ? "0" : "a code", code});
}

void check_address_validators() {
    const char* host = "192.0.2.1";
    const char* mask = "255.255.255.0";
    check_texts(NAMED(U_SysCheckIpMaskString), true, host, mask);
    check_texts(NAMED(U_SysCheckIpMaskString), false, "256.1.1.1", mask);
    check_texts(NAMED(U_SysCheckIpMaskString), false, host, "mask");
    check_texts(NAMED(U_SysCheckGatewayString), true, host);
    check_texts(NAMED(U_SysCheckGatewayString), false, "gateway");
    check_texts(NAMED(U_SysCheckInTheSubnet), true, host, mask, "192.0.2.254");
    check_texts(NAMED(U_SysCheckInTheSubnet), false, host, mask, "198.51.100.1");
    check_texts(NAMED(U_SysCheckDnsString), true, host);
    check_texts(NAMED(U_SysCheckDnsString), false, "server");
}

// On is 1. Any other number is off, which is set as 3.
unsigned short lldp_state(unsigned char* state) {
    const unsigned short result = U_LldpGetEnable(state);
    *state = *state == 1 ? 1 : 3;
    return result;
}

// No port is -1, and is read as 65535.
unsigned short set_mirror(char state, unsigned char mode, int16_t analyzer, int16_t monitored) {
    return U_FwdSetPortMirror(state, mode, analyzer, monitored);
}

} // namespace

void check_system() {
    check_getter({"get_full_model_name", +[](char* name) { get_full_model_name(name); }},
                 "name/33t");
    GETTER(U_SysGetMac, "address/6");
    GETTER(U_SysGetFirmwareVer, "major/1 minor/1 date/L");
    SETTING(U_FlshSysInfoGetName, U_FlshSysInfoSetName, "name/30t size/1i=30");
    SETTING(U_FlshSysGetDhcp, U_FlshSysSetDhcp, "flag/1=0-1");
    SETTING(U_FlshSysGetIp, U_FlshSysSetIp, "address/La mask/La=1");
    SETTING(U_FlshSysGetGateway, U_FlshSysSetGateway, "address/La");
    SETTING(U_FlshSysGetDNSIp, U_FlshSysSetDNSIp, "server/2i=1 address/La");
    check_address_validators();
    GETTER(U_LldpGetEnable, "state/1");
    check_setting({"U_LldpGetEnable", lldp_state}, {NAMED(U_LldpSetEnable)}, "state/1=3-1");
    SETTING(U_FlshHTTPSGet, U_FlshHTTPSSet, "flag/1=0-1");
    check_setting({NAMED(U_FwdGetPortMirror)}, {"U_FwdSetPortMirror", set_mirror},
                  "state/1=1-1 mode/1=3-3 analyzer/2=0-1 monitored/2=1-0");
    check_setting({"get_eeprom_serial_port", +[](int* flag) { *flag = get_eeprom_serial_port(); }},
                  {NAMED(set_eeprom_serial_port)}, "flag/4=0-1");
    SETTING(U_GetPeriodicSetting, U_SetPeriodicSetting,
            "setting/12r backUp@0/1=0-1 hour@2/2=0-23 minute@4/2=0-59 server@8/4a");
    SETTING(U_FlshSysGetEmailPort, U_SysSetEmailPort,
            Phrase("codes/32r port@0/1*%d=1-3", g_ucMaxPhyPort < 32 ? g_ucMaxPhyPort : 32).chars);
    SETTING(U_FlshSysGetEmailPower, U_SysSetEmailPower, "codes/2r power@0/1*2=1-2");
    SETTING(U_SysGetEmailSyslog, U_SysSetEmailSyslog, "level/1=7-100");
}
