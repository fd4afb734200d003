// The state of the simulated switch: one record for each area, initialised
// with the factory defaults.
//
// A new member is also listed in state_file.cpp, for the stored configuration.
#pragma once

#include "platform/simulator/addresses.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

namespace simulator {

// A text field of the device's memory: at most Size - 1 characters, the rest zero.
template <std::size_t Size>
struct Field {
    std::array<char, Size> bytes = {};

    Field() = default;
    Field(const char* text) { assign(text); }

    // A longer text is cut.
    void assign(const char* text) {
        bytes = {};
        std::memcpy(bytes.data(), text, strnlen(text, Size - 1));
    }

    // Takes Size characters and leaves no room for a terminator. No operation
    // does: it makes a device that does not terminate its texts.
    void fill(const char* text) {
        bytes = {};
        std::memcpy(bytes.data(), text, strnlen(text, Size));
    }

    std::string text() const { return std::string(bytes.data(), strnlen(bytes.data(), Size)); }

    // Writes size bytes; a text that is too long for them is cut and terminated.
    void copy_to(void* buffer, std::size_t size) const {
        std::memset(buffer, 0, size);
        std::memcpy(buffer, bytes.data(), std::min(size, Size));
        if (size != 0 && size < Size) {
            static_cast<char*>(buffer)[size - 1] = '\0';
        }
    }

    bool operator==(const Field& other) const { return bytes == other.bytes; }
};

// A set of ports 0 to 63, laid out like the masks of the contract.
struct PortSet {
    std::array<std::uint32_t, 2> words = {};

    PortSet() = default;
    PortSet(std::initializer_list<unsigned> ports) {
        for (const unsigned port : ports) {
            add(port);
        }
    }

    template <typename Mask>
    explicit PortSet(const Mask& mask) : words{{mask.ulMask[0], mask.ulMask[1]}} {}

    template <typename Mask>
    Mask as() const {
        return {{words[0], words[1]}};
    }

    // A port beyond 63 is in no set.
    void add(unsigned port) {
        if (port < 64) {
            words[port / 32] |= 1U << (port % 32);
        }
    }

    bool contains(unsigned port) const {
        return port < 64 && (words[port / 32] >> (port % 32) & 1U) != 0;
    }

    std::vector<unsigned> ports() const {
        std::vector<unsigned> ports;
        for (unsigned port = 0; port < 64; ++port) {
            if (contains(port)) {
                ports.push_back(port);
            }
        }
        return ports;
    }
};

// Entries by port or slot. One that was never set has the defaults.
template <typename Entry>
struct Indexed {
    std::vector<Entry> entries;

    Entry get(std::size_t index) const { return index < entries.size() ? entries[index] : Entry(); }

    Entry& at(std::size_t index) {
        if (entries.size() <= index) {
            entries.resize(index + 1);
        }
        return entries[index];
    }
};

struct Eeprom {
    Field<33> model_name = "MS-8P";
    int macsec_port_type = 1;
    std::array<int, 2> fiber_speed = {2, 2};
    int serial_port = 0; // the flag of "auto default setting"
};

struct System {
    Mac mac = {{0x02, 0x00, 0x5e, 0x10, 0x20, 0x30}};
    std::uint8_t firmware_major = 2;
    std::uint8_t firmware_minor = 7;
    std::uint32_t firmware_date = 20260105;
    Field<30> name = "Line 4 cabinet switch";
    std::int8_t dhcp = 0;
    Ipv4 address = {0xc0a80a14};
    Ipv4 mask = {0xffffff00};
    Ipv4 gateway = {0xc0a80a01};
    Ipv4 dns = {0xc0a80a02};
};

struct Port {
    std::int8_t enabled = 1;
    std::uint8_t mode = 1; // LAN_PORT_MODE_COPPER
};

// Six copper ports and two fibre ports.
Indexed<Port> factory_ports();

struct Ports {
    std::uint8_t physical = 8;
    std::uint8_t logical = 16;
    Indexed<Port> ports = factory_ports();
    std::vector<PortSet> trunks; // the members of each trunk group
};

struct Account {
    bool empty = false; // the slot holds no account
    Field<32> name;
    Field<32> password;
    std::int32_t access_right = 0;
};

struct Accounts {
    std::vector<Account> slots = {{false, "admin", "Admin-4711", 1},
                                  {false, "operator", "turn the key", 0},
                                  {true, "", "", 0},
                                  {true, "", "", 0},
                                  {false, "guest", "", 0}};
    std::uint8_t minimum_length = 6;
    std::uint8_t maximum_length = 31;
};

struct SnmpCommunity {
    Field<16> community;
    std::uint8_t permission = 1;
};

struct SnmpReceiver {
    Address address;
    std::uint16_t port = 162;
    Field<16> community;
};

struct SnmpUser {
    Field<16> name;
    std::uint8_t authentication = 0;
    Field<32> password;
    std::uint8_t privacy = 0;
    Field<32> privacy_key;
};

struct Snmp {
    std::int8_t enabled = 1;
    std::uint8_t version = 2;
    std::vector<SnmpCommunity> communities = {{"public", 1}, {"private", 2}};
    std::uint8_t trap_mode = 0;
    std::vector<SnmpReceiver> receivers = {{{*address_from("192.168.10.50")}, 162, "public"},
                                           {{*address_from("192.168.10.51")}, 1162, "traps"}};
    std::vector<SnmpUser> users = {{"supervisor", 1, "authenticate me", 1, "and keep it private"}};
};

struct Dot1xPort {
    std::uint8_t mode = 1; // pmt_ForceAuthorized
};

struct Dot1x {
    std::int8_t enabled = 0;
    Ipv4 server = {0xc0a80a3c};
    std::uint16_t server_port = 1812;
    std::uint16_t accounting_port = 1813;
    Field<30> nas_identifier = "cabinet-4";
    Field<30> shared_key = "radius shared secret";
    std::uint16_t quiet_period = 60;
    std::uint16_t tx_period = 15;
    std::uint16_t supplicant_timeout = 30;
    std::uint16_t server_timeout = 30;
    std::uint8_t maximum_requests = 2;
    std::uint32_t reauth_period = 3600;
    Indexed<Dot1xPort> ports;
};

// The static keys of a fibre port.
struct Macsec {
    std::uint8_t status = 0;
    Field<17> sci = "0200005e10200001";
    Field<33> sak = "000102030405060708090a0b0c0d0e0f";
};

struct LoginServer {
    std::uint8_t enabled = 0;
    std::uint8_t kind = 0; // auth_RADIUS
    Address address = {*address_from("192.168.10.61")};
    std::uint16_t port = 1812;
    Field<30> shared_key = "login shared secret";
    std::uint8_t method = 2; // crypt_PAP
    std::uint8_t timeout = 5;
};

struct Modbus {
    std::uint8_t address = 1;
    std::int8_t enabled = 0;
    std::uint32_t port = 502;
};

struct SystemLog {
    std::uint8_t event_to_flash = 1;
    std::uint8_t level = 4;
    std::uint8_t server_enabled = 0;
    Ipv4 server = {0xc0a80a46};
    std::uint16_t server_port = 514;
    // The log viewer.
    std::uint8_t read_all_notification = 0;
    std::uint16_t read_list_number = 20;
    std::uint8_t automatic_refresh = 0;
    std::uint16_t automatic_refresh_cycle_time = 20;
};

struct Lldp {
    std::uint8_t enabled = 1;
    std::uint16_t ttl = 120;
    std::uint16_t interval = 30;
};

struct PortMirror {
    std::int8_t state = 0;
    std::uint8_t mode = 0;
    std::uint16_t analyzer_port = 65535; // no port
    std::uint16_t monitored_port = 65535;
};

struct Sntp {
    std::int8_t client_enabled = 1;
    std::uint8_t time_zone = 30;
    Field<32> server1 = "ntp1.example.com";
    Field<32> server2 = "ntp2.example.com";
    std::uint32_t query_period = 3600;
    std::int8_t manual = 0;
    std::int8_t ip_or_domain = 0;
    Field<32> ip;
    Field<32> domain;
};

// From 02:00 on the last Sunday of March to 03:00 on the last one of October.
struct Daylight {
    std::uint8_t enabled = 1;
    std::uint8_t start_month = 3;
    std::uint8_t start_week = 5;
    std::uint8_t start_day = 0;
    std::uint8_t start_hour = 2;
    std::uint8_t end_month = 10;
    std::uint8_t end_week = 5;
    std::uint8_t end_day = 0;
    std::uint8_t end_hour = 3;
    std::uint8_t offset = 1;
};

struct Https {
    std::int8_t enabled = 1;
};

struct PeriodicBackup {
    std::int8_t enabled = 0;
    std::uint16_t hour = 2;
    std::uint16_t minute = 30;
    Ipv4 server = {0xc0a80a47};
};

// The codes of the e-mail alarms.
struct Warnings {
    Indexed<std::uint8_t> ports = {std::vector<std::uint8_t>(8, 2)};
    std::array<std::uint8_t, 2> powers = {2, 0};
    std::uint8_t syslog_level = 100; // none
};

struct Smtp {
    Field<32> server = "mail.example.com";
    Field<32> sender = "line4@example.com";
    Field<32> subject = "Line 4 cabinet switch";
    std::int8_t authentication = 1;
    std::int8_t tls = 1;
    Field<32> username = "line4";
    Field<16> password = "mail secret";
    std::array<Field<32>, 4> recipients = {"maintenance@example.com", "", "", ""};
};

struct StaticVlan {
    std::uint16_t id = 0;
    Field<17> name;
    PortSet members;
    PortSet tagged;
};

struct Vlan {
    std::array<std::int32_t, 8> roles = {0, 0, 0, 0, 0, 0, 1, 1}; // VLAN_ROLE_ACCESS, _TRUNK
    std::array<Field<1024>, 8> lists = {"1", "1", "1", "10", "10", "20", "1,10,20", "1,10-12,20"};
    std::vector<StaticVlan> table = {{1, "default", {0, 1, 2, 6, 7}, {6, 7}},
                                     {10, "drives", {3, 4, 6, 7}, {6, 7}},
                                     {11, "VLAN0011", {7}, {7}},
                                     {12, "VLAN0012", {7}, {7}},
                                     {20, "cameras", {5, 6, 7}, {6, 7}}};
    std::uint16_t management = 1;
    std::int32_t verdict = 0; // what check_vlan_data returns when it finds no fault
    std::array<PortSet, 8> isolation = {{{1, 2, 3, 4, 5, 6, 7, 8},
                                         {0, 2, 3, 4, 5, 6, 7, 8},
                                         {0, 1, 3, 4, 5, 6, 7, 8},
                                         {0, 1, 2, 4, 6, 7, 8},
                                         {0, 1, 2, 3, 6, 7, 8},
                                         {6, 7, 8},
                                         {0, 1, 2, 3, 4, 5, 7, 8},
                                         {0, 1, 2, 3, 4, 5, 6, 8}}};
};

struct RstpPort {
    std::int8_t edge = 0;
    std::int8_t excluded = 0;
    std::int8_t bpdu_guard = 0;
    std::uint8_t root_guard = 0;
    std::uint8_t bpdu_filter = 0;
};

// Two edge ports with BPDU guard, and one that is excluded.
Indexed<RstpPort> factory_rstp_ports();

struct Rstp {
    std::int8_t enabled = 1;
    std::uint8_t version = 2; // STP_VERSION_RSTP
    std::uint16_t priority = 32768;
    std::uint8_t bpdu_guard = 0;
    std::uint32_t bpdu_guard_interval = 300;
    Indexed<RstpPort> ports = factory_rstp_ports();
};

struct AclRule {
    std::uint16_t index = 0; // 0 when the slot is empty
    Field<32> name;
    std::uint32_t conditions = 0;
    Mac mac;
    Mac mac_mask;
    Ipv4 ip;
    Ipv4 ip_mask;
    PortSet ports;
    std::uint32_t policy = 1; // ACL_POLICY_NULL
};

// The rules by slot. Restore adds port 8 to the ports of every rule.
struct Acl {
    Indexed<AclRule> rules = {
        {{1,
          "cabinet only",
          1,
          {{0x02, 0x00, 0x5e, 0x10, 0, 0}},
          {{0xff, 0xff, 0xff, 0xff, 0, 0}},
          {},
          {},
          {0, 1, 2, 8},
          1},
         {2, "no office", 64, {}, {}, {0xc0a81400}, {0xffffff00}, {0, 1, 2, 3, 4, 5, 6, 7, 8}, 2}}};
};

struct Qos {
    std::uint16_t scheduling = 0; // QOS_WEIGHTED_ROUND_ROBIN
    std::array<std::uint32_t, 8> weights = {1, 2, 3, 4, 5, 6, 7, 8};
    std::int32_t classification = 3; // IEE_PCP_PLUS_IP_DSCP
    std::array<std::uint8_t, 8> cos = {1, 0, 2, 3, 4, 5, 6, 7};
    std::array<std::uint8_t, 64> dscp = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1,
                                         2, 2, 2, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3, 3, 3, 3,
                                         4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5, 5, 5, 5, 5, 5,
                                         6, 6, 6, 6, 6, 6, 6, 6, 7, 7, 7, 7, 7, 7, 7, 7};
};

struct SecuredPort {
    std::uint8_t action = 0;
    std::uint16_t maximum = 1;
};

struct PortSecurity {
    std::int8_t enabled = 0;
    std::array<SecuredPort, 32> ports = {{{1, 4}, {1, 4}, {0, 128}}};
};

struct State {
    Eeprom eeprom;
    System system;
    Accounts accounts;
    Ports ports;
    Snmp snmp;
    std::array<Macsec, 2> macsec = {{{}, {1, "0200005e10200002", "short sak"}}};
    Dot1x dot1x;
    Modbus modbus;
    SystemLog system_log;
    Lldp lldp;
    PortMirror port_mirror;
    Sntp sntp;
    Daylight daylight;
    Https https;
    PeriodicBackup periodic_backup;
    Warnings warnings;
    Smtp smtp;
    LoginServer login_server;
    Vlan vlan;
    Rstp rstp;
    Acl acl;
    Qos qos;
    PortSecurity port_security;
};

State& state();

// Starts up with this state: sets the port counts, empties the journal, and
// makes nothing fail.
void reset(const State& state = State());

// Whether there is such a front-panel port, numbered from 0.
bool has_port(int port);

} // namespace simulator
