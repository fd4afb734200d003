// Choices of this switch: it accepts the dotted IPv4 addresses that a host may
// have (not 0.x, 127.x, or 224.x and above), except the network's own and its
// broadcast address, and netmasks of 1 to 31 one bits followed by zero bits.
// There is one DNS server, index 1.

#include "platform/include/system.h"

#include "platform/include/return_codes.h"
#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

// Refused addresses and masks; the codes are this switch's own.
constexpr int address_invalid = 20;
constexpr int mask_invalid = 21;

bool is_host_address(const char* text) {
    const auto address = ipv4_from(text);
    const uint32_t first = address ? address->value >> 24 : 0;
    return first != 0 && first != 127 && first < 224;
}

bool is_netmask(const char* text) {
    const auto mask = ipv4_from(text);
    const uint32_t host_bits = mask ? ~mask->value : 0;
    return host_bits != 0 && ~host_bits != 0 && (host_bits & (host_bits + 1)) == 0;
}

int judge_address_and_mask(const char* address, const char* mask) {
    if (!is_host_address(address)) {
        return address_invalid;
    }
    if (!is_netmask(mask)) {
        return mask_invalid;
    }
    const uint32_t host_bits = ~ipv4_from(mask)->value;
    const uint32_t host = ipv4_from(address)->value & host_bits;
    return host == 0 || host == host_bits ? address_invalid : USR_RET_OK;
}

int judge_subnet(const char* address, const char* mask, const char* gateway) {
    const auto a = ipv4_from(address);
    const auto m = ipv4_from(mask);
    const auto g = ipv4_from(gateway);
    const bool same = a && m && g && ((a->value ^ g->value) & m->value) == 0;
    return same ? USR_RET_OK : USR_RET_ERR_IP_GW_NOT_IN_SAME_SUBNET;
}

Ipv4 as_ipv4(unsigned long address) {
    return {static_cast<uint32_t>(address)};
}

constexpr unsigned short primary = 1;

} // namespace

unsigned short U_SysGetMac(unsigned char* mac) {
    return reads(call(__func__), [&] {
        memcpy(mac, state().system.mac.bytes.data(), state().system.mac.bytes.size());
    });
}

unsigned short U_SysGetFirmwareVer(unsigned char* major, unsigned char* minor,
                                   unsigned long* date) {
    return reads(call(__func__), [&] {
        *major = state().system.firmware_major;
        *minor = state().system.firmware_minor;
        *date = state().system.firmware_date;
    });
}

unsigned short U_FlshSysInfoGetName(unsigned char* name, unsigned char length) {
    return reads(call(__func__, length), [&] { state().system.name.copy_to(name, length); });
}

unsigned short U_FlshSysInfoSetName(const unsigned char* name) {
    return changes(call(__func__, name),
                   [&] { state().system.name.assign(reinterpret_cast<const char*>(name)); });
}

unsigned short U_FlshSysGetDhcp(char* dhcp) {
    return reads(call(__func__), [&] { *dhcp = static_cast<char>(state().system.dhcp); });
}

unsigned short U_FlshSysSetDhcp(char dhcp) {
    return changes(call(__func__, dhcp), [&] { state().system.dhcp = dhcp; });
}

unsigned short U_FlshSysGetIp(unsigned long* address, unsigned long* mask) {
    return reads(call(__func__), [&] {
        *address = state().system.address.value;
        *mask = state().system.mask.value;
    });
}

unsigned short U_FlshSysSetIp(unsigned long address, unsigned long mask) {
    return changes(call(__func__, as_ipv4(address), as_ipv4(mask)), [&] {
        state().system.address = as_ipv4(address);
        state().system.mask = as_ipv4(mask);
    });
}

unsigned short U_FlshSysGetGateway(unsigned long* gateway) {
    return reads(call(__func__), [&] { *gateway = state().system.gateway.value; });
}

unsigned short U_FlshSysSetGateway(unsigned long gateway) {
    return changes(call(__func__, as_ipv4(gateway)),
                   [&] { state().system.gateway = as_ipv4(gateway); });
}

unsigned short U_FlshSysGetDNSIp(unsigned short index, unsigned long* server) {
    return reads(call(__func__, index), index == primary,
                 [&] { *server = state().system.dns.value; });
}

unsigned short U_FlshSysSetDNSIp(unsigned short index, unsigned long server) {
    return changes(call(__func__, index, as_ipv4(server)), index == primary,
                   [&] { state().system.dns = as_ipv4(server); });
}

unsigned short U_SysCheckIpMaskString(const char* address, const char* mask) {
    return reads(call(__func__, address, mask),
                 [&] { return judge_address_and_mask(address, mask); });
}

unsigned short U_SysCheckGatewayString(const char* gateway) {
    return reads(call(__func__, gateway), [&] {
        return is_host_address(gateway) ? USR_RET_OK : USR_RET_ERR_GATEWAY_INVALID;
    });
}

unsigned short U_SysCheckInTheSubnet(const char* address, const char* mask, const char* gateway) {
    return reads(call(__func__, address, mask, gateway),
                 [&] { return judge_subnet(address, mask, gateway); });
}

unsigned short U_SysCheckDnsString(const char* dns) {
    return reads(call(__func__, dns),
                 [&] { return is_host_address(dns) ? USR_RET_OK : USR_RET_ERR_DNS_INVALID; });
}
