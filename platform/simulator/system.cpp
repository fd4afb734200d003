// Choices of this switch: an address is acceptable when it is a dotted quad
// that a host may have (not 0.x, not 127.x, not 224.x and above), a netmask
// when it is a row of one bits followed by a row of zero bits and neither row
// is empty, and the address is then neither the network's nor its broadcast
// address.

#include "platform/include/system.h"

#include "platform/include/return_codes.h"
#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <arpa/inet.h>

#include <optional>

using namespace simulator;

namespace {

// This switch's own codes for an address or a mask that it refuses.
constexpr int address_invalid = 20;
constexpr int mask_invalid = 21;

std::optional<uint32_t> number(const char* text) {
    in_addr address;
    if (inet_pton(AF_INET, text, &address) != 1) {
        return std::nullopt;
    }
    return ntohl(address.s_addr);
}

bool is_host_address(const char* text) {
    const auto address = number(text);
    if (!address) {
        return false;
    }
    const uint32_t first = *address >> 24;
    return first != 0 && first != 127 && first < 224;
}

bool is_netmask(const char* text) {
    const auto mask = number(text);
    if (!mask || *mask == 0 || *mask == 0xffffffff) {
        return false;
    }
    const uint32_t host_bits = ~*mask;
    return (host_bits & (host_bits + 1)) == 0;
}

int judge_address_and_mask(const char* address, const char* mask) {
    if (!is_host_address(address)) {
        return address_invalid;
    }
    if (!is_netmask(mask)) {
        return mask_invalid;
    }
    const uint32_t host_bits = ~*number(mask);
    const uint32_t host = *number(address) & host_bits;
    return host == 0 || host == host_bits ? address_invalid : USR_RET_OK;
}

int judge_subnet(const char* address, const char* mask, const char* gateway) {
    const auto a = number(address);
    const auto m = number(mask);
    const auto g = number(gateway);
    const bool same = a && m && g && (*a & *m) == (*g & *m);
    return same ? USR_RET_OK : USR_RET_ERR_IP_GW_NOT_IN_SAME_SUBNET;
}

Ipv4 as_ipv4(unsigned long address) {
    return {static_cast<uint32_t>(address)};
}

// Only the primary server is kept.
constexpr unsigned short primary = 1;

} // namespace

unsigned short U_SysGetMac(unsigned char* mac) {
    return reads("U_SysGetMac", [&] {
        memcpy(mac, state().system.mac.bytes.data(), state().system.mac.bytes.size());
    });
}

unsigned short U_SysGetFirmwareVer(unsigned char* major, unsigned char* minor,
                                   unsigned long* date) {
    return reads("U_SysGetFirmwareVer", [&] {
        *major = state().system.firmware_major;
        *minor = state().system.firmware_minor;
        *date = state().system.firmware_date;
    });
}

unsigned short U_FlshSysInfoGetName(unsigned char* name, unsigned char length) {
    return reads(
        "U_FlshSysInfoGetName", [&] { state().system.name.copy_to(name, length); }, length);
}

unsigned short U_FlshSysInfoSetName(const unsigned char* name) {
    return changes(
        "U_FlshSysInfoSetName",
        [&] { state().system.name.assign(reinterpret_cast<const char*>(name)); }, name);
}

unsigned short U_FlshSysGetDhcp(char* dhcp) {
    return reads("U_FlshSysGetDhcp", [&] { *dhcp = static_cast<char>(state().system.dhcp); });
}

unsigned short U_FlshSysSetDhcp(char dhcp) {
    return changes(
        "U_FlshSysSetDhcp", [&] { state().system.dhcp = dhcp; }, dhcp);
}

unsigned short U_FlshSysGetIp(unsigned long* address, unsigned long* mask) {
    return reads("U_FlshSysGetIp", [&] {
        *address = state().system.address.value;
        *mask = state().system.mask.value;
    });
}

unsigned short U_FlshSysSetIp(unsigned long address, unsigned long mask) {
    return changes(
        "U_FlshSysSetIp",
        [&] {
            state().system.address = as_ipv4(address);
            state().system.mask = as_ipv4(mask);
        },
        as_ipv4(address), as_ipv4(mask));
}

unsigned short U_FlshSysGetGateway(unsigned long* gateway) {
    return reads("U_FlshSysGetGateway", [&] { *gateway = state().system.gateway.value; });
}

unsigned short U_FlshSysSetGateway(unsigned long gateway) {
    return changes(
        "U_FlshSysSetGateway", [&] { state().system.gateway = as_ipv4(gateway); },
        as_ipv4(gateway));
}

unsigned short U_FlshSysGetDNSIp(unsigned short index, unsigned long* server) {
    return reads(
        "U_FlshSysGetDNSIp",
        [&] {
            if (index != primary) {
                return false;
            }
            *server = state().system.dns.value;
            return true;
        },
        index);
}

unsigned short U_FlshSysSetDNSIp(unsigned short index, unsigned long server) {
    return changes(
        "U_FlshSysSetDNSIp",
        [&] {
            if (index != primary) {
                return false;
            }
            state().system.dns = as_ipv4(server);
            return true;
        },
        index, as_ipv4(server));
}

unsigned short U_SysCheckIpMaskString(const char* address, const char* mask) {
    return reads(
        "U_SysCheckIpMaskString", [&] { return judge_address_and_mask(address, mask); }, address,
        mask);
}

unsigned short U_SysCheckGatewayString(const char* gateway) {
    return reads(
        "U_SysCheckGatewayString",
        [&] { return is_host_address(gateway) ? USR_RET_OK : USR_RET_ERR_GATEWAY_INVALID; },
        gateway);
}

unsigned short U_SysCheckInTheSubnet(const char* address, const char* mask, const char* gateway) {
    return reads(
        "U_SysCheckInTheSubnet", [&] { return judge_subnet(address, mask, gateway); }, address,
        mask, gateway);
}

unsigned short U_SysCheckDnsString(const char* dns) {
    return reads(
        "U_SysCheckDnsString",
        [&] { return is_host_address(dns) ? USR_RET_OK : USR_RET_ERR_DNS_INVALID; }, dns);
}
