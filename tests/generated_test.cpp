// Generated switches: every value of the state anywhere in its range, tables
// from empty to full, texts of every length from the characters that a value
// may hold. GENERATED_SWITCHES in the environment sets how many, SEED where
// they start.

#include "tests/support/switch_test.h"

#include <cstdlib>
#include <random>

using simulator::reset;
using simulator::State;

namespace {

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    // A whole number of the range, its ends more often than others.
    template <typename Number = std::uint8_t>
    Number number(std::int64_t low, std::int64_t high) {
        const std::int64_t value = std::uniform_int_distribution<std::int64_t>(low, high)(random_);
        const unsigned end = random_() % 8;
        return static_cast<Number>(end == 0 ? low : end == 1 ? high : value);
    }

    template <typename Number>
    Number any() {
        return number<Number>(std::numeric_limits<Number>::min(),
                              std::numeric_limits<Number>::max());
    }

    // From the characters that a quoted value may hold: all but the quote and
    // the line end. It begins with a letter, so that it is never "-1".
    std::string text(std::size_t shortest, std::size_t longest) {
        std::string text(number<std::size_t>(static_cast<int>(shortest), static_cast<int>(longest)),
                         'x');
        for (std::size_t i = 1; i < text.size(); ++i) {
            text[i] = number<char>(0x20, 0x7e);
            text[i] = text[i] == '"' ? '\xe4' : text[i];
        }
        return text;
    }

    template <std::size_t Size>
    void fill(simulator::Field<Size>& field, std::size_t shortest, std::size_t longest) {
        field.assign(text(shortest, longest).c_str());
    }

    simulator::PortSet ports() {
        simulator::PortSet set;
        set.words = {any<std::uint32_t>(), any<std::uint32_t>()};
        return set;
    }

    simulator::Mac mac() {
        simulator::Mac mac;
        for (std::uint8_t& byte : mac.bytes) {
            byte = any<std::uint8_t>();
        }
        return mac;
    }

private:
    std::mt19937 random_;
};

void generate_system(Generator& g, State& s) {
    g.fill(s.eeprom.model_name, 1, 32);
    s.eeprom.macsec_port_type = g.number<int>(0, 1);
    s.eeprom.fiber_speed = {g.number<int>(1, 2), g.number<int>(1, 2)};
    s.system.mac = g.mac();
    s.system.firmware_major = g.any<std::uint8_t>();
    s.system.firmware_minor = g.any<std::uint8_t>();
    g.fill(s.system.name, 0, 29);
    s.system.dhcp = g.number<std::int8_t>(0, 1);
    const std::uint32_t network = g.number<std::uint32_t>(1, 0xdfff) << 16 | 0xa0000;
    const std::uint32_t unicast = (network >> 24) % 126 + 1;
    s.system.mask = {0xffff0000};
    s.system.address = {unicast << 24 | (network & 0xff0000) | g.number<std::uint16_t>(1, 0xfffe)};
    s.system.gateway = {g.number<int>(0, 1) == 0 ? 0 : s.system.address.value ^ 1};
    s.system.dns = {g.number<int>(0, 1) == 0 ? 0 : g.number<std::uint32_t>(0x01000000, 0x7effffff)};
    s.ports.physical = g.number(8, 40);
    s.ports.logical = g.number(s.ports.physical, 64);
    for (std::size_t port = 0; port < s.ports.physical; ++port) {
        s.ports.ports.at(port).enabled = g.number<std::int8_t>(0, 1);
    }
}

void generate_accounts(Generator& g, State& s) {
    s.accounts.slots.resize(g.number<std::size_t>(0, 15));
    int number = 0;
    for (simulator::Account& account : s.accounts.slots) {
        account.empty = false;
        account.name.assign((std::to_string(number++) + g.text(0, 29)).c_str());
        g.fill(account.password, 0, 31);
        account.access_right = g.any<std::int32_t>();
    }
    s.accounts.minimum_length = g.any<std::uint8_t>();
    s.accounts.maximum_length = g.any<std::uint8_t>();
}

void generate_snmp(Generator& g, State& s) {
    s.snmp.enabled = g.number<std::int8_t>(0, 1);
    s.snmp.version = g.number(1, 3);
    s.snmp.communities.resize(g.number<std::size_t>(0, 15));
    int number = 0;
    for (simulator::SnmpCommunity& entry : s.snmp.communities) {
        entry.community.assign((std::to_string(number++) + g.text(0, 14)).c_str());
        entry.permission = g.number(1, 2);
    }
    s.snmp.trap_mode = g.number(0, 1);
    s.snmp.receivers.resize(g.number<std::size_t>(0, 15));
    for (simulator::SnmpReceiver& receiver : s.snmp.receivers) {
        for (std::uint8_t& byte : receiver.address.record.addr.v6u8) {
            byte = g.any<std::uint8_t>();
        }
        receiver.address.record.type = g.number<std::uint16_t>(0, 1);
        if (receiver.address.record.type == 0) {
            memset(receiver.address.record.addr.v6u8 + 4, 0, 12);
        }
        receiver.port = static_cast<std::uint16_t>(1000 + number++);
        g.fill(receiver.community, 1, 16);
    }
    s.snmp.users.resize(g.number<std::size_t>(0, 2));
    for (simulator::SnmpUser& user : s.snmp.users) {
        user.name.assign((std::to_string(number++) + g.text(0, 13)).c_str());
        g.fill(user.password, 0, 32);
        g.fill(user.privacy_key, 0, 32);
    }
}

void generate_security(Generator& g, State& s) {
    for (simulator::Macsec& macsec : s.macsec) {
        macsec.status = g.number(0, 1);
        g.fill(macsec.sci, 0, 16);
        g.fill(macsec.sak, 0, 32);
    }
    s.dot1x.enabled = g.number<std::int8_t>(0, 1);
    s.dot1x.server = {g.any<std::uint32_t>()};
    s.dot1x.server_port = g.any<std::uint16_t>();
    s.dot1x.accounting_port = g.any<std::uint16_t>();
    g.fill(s.dot1x.nas_identifier, 0, 29);
    g.fill(s.dot1x.shared_key, 0, 30);
    s.dot1x.quiet_period = g.number<std::uint16_t>(10, 65535);
    s.dot1x.tx_period = g.number<std::uint16_t>(10, 65535);
    s.dot1x.supplicant_timeout = g.number<std::uint16_t>(10, 300);
    s.dot1x.server_timeout = g.number<std::uint16_t>(10, 300);
    s.dot1x.maximum_requests = g.number(2, 10);
    s.dot1x.reauth_period = g.number<std::uint32_t>(30, 65535);
    for (std::size_t port = 0; port < s.ports.physical; ++port) {
        s.dot1x.ports.at(port).mode = g.number(0, 3);
    }
    s.login_server.enabled = g.number(0, 2);
    s.login_server.kind = g.any<std::uint8_t>();
    for (std::uint8_t& byte : s.login_server.address.record.addr.v4u8) {
        byte = g.any<std::uint8_t>();
    }
    s.login_server.port = g.any<std::uint16_t>();
    g.fill(s.login_server.shared_key, 0, 29);
    s.login_server.method = g.any<std::uint8_t>();
    s.login_server.timeout = g.any<std::uint8_t>();
}

void generate_services(Generator& g, State& s) {
    s.modbus = {g.number(1, 247), g.number<std::int8_t>(0, 1), g.number<std::uint32_t>(1, 65535)};
    s.system_log.event_to_flash = g.number(0, 1);
    s.system_log.level = g.number(0, 7);
    s.system_log.server_enabled = g.number(0, 1);
    s.system_log.server = {g.any<std::uint32_t>()};
    s.system_log.server_port = g.any<std::uint16_t>();
    s.lldp.enabled = g.number(0, 3);
    s.port_mirror.state = g.number<std::int8_t>(0, 1);
    s.port_mirror.analyzer_port = g.any<std::uint16_t>();
    s.port_mirror.monitored_port = g.any<std::uint16_t>();
    s.sntp.client_enabled = g.number<std::int8_t>(0, 1);
    s.sntp.time_zone = g.number(0, 62);
    g.fill(s.sntp.server1, 0, 31);
    g.fill(s.sntp.server2, 0, 31);
    s.sntp.query_period = g.number<std::uint32_t>(60, 0x7fffffff);
    s.sntp.manual = g.number<std::int8_t>(0, 1);
    s.sntp.ip_or_domain = g.any<std::int8_t>();
    s.daylight = {g.number(0, 1),        g.any<std::uint8_t>(), g.any<std::uint8_t>(),
                  g.any<std::uint8_t>(), g.any<std::uint8_t>(), g.any<std::uint8_t>(),
                  g.any<std::uint8_t>(), g.any<std::uint8_t>(), g.any<std::uint8_t>(),
                  g.any<std::uint8_t>()};
    s.https.enabled = g.number<std::int8_t>(-1, 2);
    s.eeprom.serial_port = g.number<int>(-1, 2);
    s.periodic_backup = {g.number<std::int8_t>(0, 2),
                         g.any<std::uint16_t>(),
                         g.any<std::uint16_t>(),
                         {g.any<std::uint32_t>()}};
    for (std::size_t port = 0; port < 32; ++port) {
        s.warnings.ports.at(port) = g.number(0, 3);
    }
    s.warnings.powers = {g.number(0, 2), g.number(0, 2)};
    const std::uint8_t level = g.number(0, 8);
    s.warnings.syslog_level = level == 8 ? 100 : level;
    for (auto* field :
         {&s.smtp.server, &s.smtp.sender, &s.smtp.subject, &s.smtp.username, &s.smtp.recipients[0],
          &s.smtp.recipients[1], &s.smtp.recipients[2], &s.smtp.recipients[3]}) {
        g.fill(*field, 0, 31);
    }
    g.fill(s.smtp.password, 0, 15);
    s.smtp.authentication = g.any<std::int8_t>();
    s.smtp.tls = g.any<std::int8_t>();
}

void generate_vlans(Generator& g, State& s) {
    s.vlan.management = g.number<std::uint16_t>(1, 4094);
    s.vlan.table = {{s.vlan.management, "", {}, {}}};
    for (std::size_t port = 0; port < 8; ++port) {
        s.vlan.roles[port] = g.number<int>(0, 1);
        std::string list = std::to_string(port == 0 ? s.vlan.management : g.number<int>(1, 4094));
        const std::size_t entries = s.vlan.roles[port] == 0 ? 0 : g.number<std::size_t>(0, 55);
        for (std::size_t entry = 0; entry < entries; ++entry) {
            list += "," + std::to_string(g.number<int>(1, 4094));
        }
        s.vlan.lists[port] = list.c_str();
        s.vlan.isolation[port] = g.ports();
        s.vlan.isolation[port].words[0] &= ~(1U << port);
    }
}

void generate_switching(Generator& g, State& s) {
    generate_vlans(g, s);
    s.rstp.enabled = g.number<std::int8_t>(0, 1);
    s.rstp.priority = static_cast<std::uint16_t>(g.number<int>(0, 15) * 4096);
    s.rstp.bpdu_guard = g.any<std::uint8_t>();
    s.rstp.bpdu_guard_interval = g.any<std::uint32_t>();
    for (std::size_t port = 0; port < s.ports.physical; ++port) {
        s.rstp.ports.at(port) = {g.number<std::int8_t>(0, 1), g.any<std::int8_t>(),
                                 g.number<std::int8_t>(0, 1), g.any<std::uint8_t>(),
                                 g.any<std::uint8_t>()};
    }
    s.acl.rules.entries.assign(g.number<std::size_t>(0, 33), {});
    std::uint16_t index = 0;
    for (simulator::AclRule& rule : s.acl.rules.entries) {
        ++index; // where the simulated switch puts a rule of this index
        rule.index = g.number<int>(0, 3) == 0 ? 0 : index;
        g.fill(rule.name, 0, 31);
        rule.conditions = g.any<std::uint32_t>();
        rule.mac = g.mac();
        rule.mac_mask = g.mac();
        rule.ip = {g.any<std::uint32_t>()};
        rule.ip_mask = {g.any<std::uint32_t>()};
        rule.ports.words = {g.number<std::uint32_t>(0, 255) | 1U << 8, 0};
        rule.policy = g.number<std::uint32_t>(1, 2);
    }
    s.qos.scheduling = g.number<int>(0, 1) == 0 ? 0 : 7;
    for (std::uint32_t& weight : s.qos.weights) {
        weight = g.any<std::uint32_t>();
    }
    s.qos.classification = g.any<std::int32_t>() % 4;
    for (std::uint8_t& queue : s.qos.cos) {
        queue = g.any<std::uint8_t>();
    }
    for (std::uint8_t& value : s.qos.dscp) {
        value = g.any<std::uint8_t>();
    }
    s.port_security.enabled = g.number<std::int8_t>(-1, 1);
    for (simulator::SecuredPort& port : s.port_security.ports) {
        port = {g.number(0, 2), g.any<std::uint16_t>()};
    }
}

State generated(unsigned seed) {
    Generator g(seed);
    State s;
    generate_system(g, s);
    generate_accounts(g, s);
    generate_snmp(g, s);
    generate_security(g, s);
    generate_services(g, s);
    generate_switching(g, s);
    return s;
}

// What a document does not carry to another switch, by contract.
void take_over_what_no_document_carries(State& target, State& source) {
    // It is for switches of one model, and shows which one it was made on.
    target.eeprom.model_name = source.eeprom.model_name;
    target.eeprom.macsec_port_type = source.eeprom.macsec_port_type;
    target.system.mac = source.system.mac;
    target.system.firmware_major = source.system.firmware_major;
    target.system.firmware_minor = source.system.firmware_minor;
    target.ports.physical = source.ports.physical;
    target.ports.logical = source.ports.logical;
    // Accounts, version 3 users and access rules of the switch are kept.
    target.accounts.slots.clear();
    target.snmp.users.clear();
    target.acl.rules = {};
    // Nothing sets whether the NTP server was given by hand, and as what.
    target.sntp.manual = source.sntp.manual;
    target.sntp.ip_or_domain = source.sntp.ip_or_domain;
    // A login server that is off is not applied; the switch keeps its own.
    if (source.login_server.enabled != 1) {
        source.login_server.enabled = 0;
        target.login_server = source.login_server;
        target.login_server.enabled = 1;
    }
    // The ports of a mirror that is off are not applied; the switch has none then.
    if (source.port_mirror.state == 0) {
        source.port_mirror.analyzer_port = 65535;
        source.port_mirror.monitored_port = 65535;
    }
}

// The clock of a switch that keeps its own goes on.
std::string without_clock(const std::string& document) {
    return without(without(document, "sntp setting", "Date"), "sntp setting", "Time");
}

std::string section_of(const std::string& document, const std::string& name) {
    const std::size_t begin = document.find("\n[" + name + "]\n");
    return document.substr(begin, document.find("\n[", begin + 1) - begin);
}

unsigned setting(const char* variable, unsigned otherwise) {
    const char* value = std::getenv(variable);
    return value != nullptr ? static_cast<unsigned>(std::atoi(value)) : otherwise;
}

struct Pair {
    State source;
    State target;
};

Pair generated_pair(unsigned seed) {
    Pair pair = {generated(2 * seed), generated(2 * seed + 1)};
    take_over_what_no_document_carries(pair.target, pair.source);
    return pair;
}

} // namespace

class Generated : public SwitchTest {
protected:
    const unsigned first = setting("SEED", 1);
    const unsigned count = setting("GENERATED_SWITCHES", 300);
};

TEST_F(Generated, RoundTrip) {
    for (unsigned seed = first; seed < first + count && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const Pair pair = generated_pair(seed);
        reset(pair.source);
        const std::string document = without_clock(backup());
        EXPECT_EQ(without_clock(backup()), document) << "two backups differ";
        EXPECT_EQ(check(document), "");
        reset(pair.target);
        EXPECT_NE(without_clock(backup()), document);
        restore(document);
        EXPECT_EQ(without_clock(backup()), document);
    }
    RecordProperty("generated_switches", static_cast<int>(2 * count));
    std::printf("%u documents restored onto other switches\n", count);
}

// Whatever the mask, each section is either the document's or the device's.
TEST_F(Generated, KeepMasks) {
    for (unsigned seed = first; seed < first + count / 4 && !HasFailure(); ++seed) {
        const Pair pair = generated_pair(seed);
        reset(pair.source);
        const std::string document = without_clock(backup());
        for (unsigned keep = 0; keep <= 3; ++keep) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", keep " << keep);
            reset(pair.target);
            const std::string before = without_clock(backup());
            restore(document, keep);
            std::string expected = document;
            const std::pair<unsigned, const char*> kept[] = {{1, "password"},
                                                             {2, "network settings"}};
            for (const auto& [bit, name] : kept) {
                const std::string carried = section_of(document, name);
                if ((keep & bit) != 0) {
                    expected.replace(expected.find(carried), carried.size(),
                                     section_of(before, name));
                }
            }
            EXPECT_EQ(without_clock(backup()), expected);
        }
    }
}
