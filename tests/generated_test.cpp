// Generated switches: every value of the state anywhere in its range, tables
// from empty to full, texts of every length from the characters that a value
// may hold. GENERATED_SWITCHES in the environment sets how many, SEED where
// they start.

#include "platform/simulator/state_file.h"
#include "tests/support/switch_test.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <functional>
#include <map>
#include <random>
#include <set>

using nlohmann::json;
using simulator::reset;
using simulator::State;
using simulator::state;

namespace {

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    // A whole number of the range, its ends more often than others.
    template <typename Number = std::int64_t>
    Number number(std::int64_t low, std::int64_t high) {
        const std::int64_t value = std::uniform_int_distribution<std::int64_t>(low, high)(random_);
        const unsigned end = random_() % 8;
        return static_cast<Number>(end == 0 ? low : end == 1 ? high : value);
    }

    // Such a number in each of the fields.
    template <typename... Numbers>
    void numbers(std::int64_t low, std::int64_t high, Numbers&... fields) {
        ((fields = number<Numbers>(low, high)), ...);
    }

    // In each of the fields, or in each of its elements, any number of its type.
    template <typename... Values>
    void any(Values&... fields) {
        (any_of(fields), ...);
    }

    // A text in each of the fields.
    template <std::size_t... Sizes>
    void texts(int shortest, int longest, simulator::Field<Sizes>&... fields) {
        (fields.assign(text(shortest, longest).c_str()), ...);
    }

    // A text of at most this length that no other entry of the table has.
    template <std::size_t Size>
    void name(simulator::Field<Size>& field, std::size_t entry, int longest) {
        const std::string start = std::to_string(entry);
        field.assign((start + text(0, longest - static_cast<int>(start.size()))).c_str());
    }

    // A table of none to this many entries, each filled in with its number known.
    template <typename Entry, typename Fill>
    void table(std::vector<Entry>& entries, int most, Fill fill) {
        entries.assign(number<std::size_t>(0, most), {});
        for (std::size_t i = 0; i < entries.size(); ++i) {
            fill(entries[i], i);
        }
    }

private:
    // From the characters that a quoted value may hold: all but the quote and
    // the line end. It begins with a letter, so that it is never "-1".
    std::string text(int shortest, int longest) {
        std::string text(number<std::size_t>(shortest, longest), 'x');
        for (std::size_t i = 1; i < text.size(); ++i) {
            text[i] = number<char>(0x20, 0x7e);
            text[i] = text[i] == '"' ? '\xe4' : text[i];
        }
        return text;
    }

    template <typename Value>
    void any_of(Value& value) {
        if constexpr (std::is_arithmetic_v<Value>) {
            using Limits = std::numeric_limits<Value>;
            value = number<Value>(Limits::min(), Limits::max());
        } else {
            for (auto& element : value) {
                any_of(element);
            }
        }
    }

    std::mt19937 random_;
};

void generate_system(Generator& g, State& s) {
    g.texts(1, 32, s.eeprom.model_name);
    g.numbers(0, 1, s.eeprom.macsec_port_type, s.system.dhcp);
    g.numbers(1, 2, s.eeprom.fiber_speed[0], s.eeprom.fiber_speed[1]);
    g.any(s.system.mac.bytes, s.system.firmware_major, s.system.firmware_minor);
    g.texts(0, 29, s.system.name);
    s.system.mask = {0xffff0000};
    const auto network = g.number<std::uint32_t>(0x0100, 0x7eff);
    s.system.address = {network << 16 | g.number<std::uint16_t>(1, 0xfffe)};
    s.system.gateway = {g.number(0, 1) == 0 ? 0 : s.system.address.value ^ 1};
    s.system.dns = {g.number(0, 1) == 0 ? 0 : g.number<std::uint32_t>(0x01000000, 0x7effffff)};
}

void generate_ports(Generator& g, State& s) {
    g.numbers(8, 254, s.ports.physical);
    g.numbers(s.ports.physical, 255, s.ports.logical);
    g.table(s.ports.trunks, 4, [&](simulator::PortSet& trunk, std::size_t) { g.any(trunk.words); });
    for (std::size_t port = 0; port < s.ports.physical; ++port) {
        simulator::RstpPort& rstp = s.rstp.ports.at(port);
        g.numbers(0, 1, s.ports.ports.at(port).enabled, rstp.edge, rstp.excluded, rstp.bpdu_guard,
                  rstp.root_guard, rstp.bpdu_filter);
        g.numbers(0, 3, s.dot1x.ports.at(port).mode);
    }
    s.port_security.ports.fill({0, 0});
    s.warnings.ports.entries.assign(32, 0);
    for (std::size_t port = 0; port < std::min<std::size_t>(32, s.ports.physical); ++port) {
        g.numbers(0, 3, s.warnings.ports.at(port));
        g.numbers(0, 1, s.port_security.ports[port].action);
        g.any(s.port_security.ports[port].maximum);
    }
}

void generate_snmp(Generator& g, State& s) {
    g.numbers(0, 1, s.snmp.enabled, s.snmp.trap_mode);
    g.numbers(1, 3, s.snmp.version);
    g.table(s.snmp.communities, 15, [&](simulator::SnmpCommunity& entry, std::size_t i) {
        g.name(entry.community, i, 15);
        g.numbers(1, 2, entry.permission);
    });
    g.table(s.snmp.receivers, 15, [&](simulator::SnmpReceiver& receiver, std::size_t i) {
        ip_addr_t& address = receiver.address.record;
        g.any(address.addr.v6u8);
        g.numbers(0, 1, address.type);
        if (address.type == 0) {
            memset(address.addr.v6u8 + 4, 0, 12);
        }
        receiver.port = static_cast<std::uint16_t>(g.number<std::size_t>(0, 4095) << 4 | (i + 1));
        g.texts(1, 15, receiver.community);
    });
    g.table(s.snmp.users, 2, [&](simulator::SnmpUser& user, std::size_t i) {
        g.name(user.name, i, 15);
        g.texts(0, 32, user.password, user.privacy_key);
        user.privacy = user.privacy_key.text().empty() ? 0 : 1; // as restore derives them
        user.authentication = user.password.text().empty() ? user.privacy : 1;
    });
}

void generate_security(Generator& g, State& s) {
    g.table(s.accounts.slots, 15, [&](simulator::Account& account, std::size_t i) {
        g.name(account.name, i, 31);
        g.texts(0, 31, account.password);
        g.any(account.access_right);
    });
    g.any(s.accounts.minimum_length, s.accounts.maximum_length);
    for (simulator::Macsec& macsec : s.macsec) {
        g.numbers(0, 1, macsec.status);
        g.texts(0, 16, macsec.sci);
        g.texts(0, 32, macsec.sak);
    }
    g.numbers(0, 1, s.dot1x.enabled);
    g.any(s.dot1x.server.value, s.dot1x.server_port, s.dot1x.accounting_port);
    g.texts(0, 29, s.dot1x.nas_identifier);
    g.texts(0, 30, s.dot1x.shared_key);
    g.numbers(10, 65535, s.dot1x.quiet_period, s.dot1x.tx_period);
    g.numbers(10, 300, s.dot1x.supplicant_timeout, s.dot1x.server_timeout);
    g.numbers(2, 10, s.dot1x.maximum_requests);
    g.numbers(30, 65535, s.dot1x.reauth_period);
    simulator::LoginServer& login = s.login_server;
    g.numbers(0, 1, login.enabled);
    g.any(login.kind, login.address.record.addr.v4u8, login.port, login.method, login.timeout);
    g.texts(0, 29, login.shared_key);
    if (g.number(0, 3) == 0) { // of 15 characters at most, as restore takes them
        const std::string text = "2001:db8::" + std::to_string(g.number(1, 9999));
        login.address.record = *simulator::address_from(text.c_str());
    }
}

void generate_services(Generator& g, State& s) {
    g.numbers(1, 247, s.modbus.address);
    g.numbers(1, 65535, s.modbus.port);
    g.numbers(0, 1, s.modbus.enabled, s.system_log.event_to_flash, s.system_log.server_enabled,
              s.port_mirror.state, s.sntp.client_enabled, s.sntp.manual, s.sntp.ip_or_domain,
              s.daylight.enabled, s.https.enabled, s.eeprom.serial_port, s.periodic_backup.enabled);
    g.numbers(0, 7, s.system_log.level);
    g.any(s.system_log.server.value, s.system_log.server_port);
    s.lldp.enabled = g.number(0, 1) == 0 ? 1 : 3; // on or off
    s.port_mirror.mode = 3;                       // both directions
    g.any(s.port_mirror.analyzer_port, s.port_mirror.monitored_port);
    g.numbers(0, 62, s.sntp.time_zone);
    g.texts(0, 31, s.sntp.server1, s.sntp.server2);
    g.numbers(60, 0x7fffffff, s.sntp.query_period);
    simulator::Daylight& rule = s.daylight;
    g.any(rule.start_month, rule.start_week, rule.start_day, rule.start_hour, rule.end_month,
          rule.end_week, rule.end_day, rule.end_hour, rule.offset);
    g.numbers(0, 2, s.warnings.powers[0], s.warnings.powers[1]);
    g.any(s.smtp.authentication, s.smtp.tls);
    g.any(s.periodic_backup.hour, s.periodic_backup.minute, s.periodic_backup.server.value);
    const auto level = g.number<std::uint8_t>(0, 8);
    s.warnings.syslog_level = level == 8 ? 100 : level;
    auto& [to1, to2, to3, to4] = s.smtp.recipients;
    g.texts(0, 31, s.smtp.server, s.smtp.sender, s.smtp.subject, s.smtp.username, to1, to2, to3,
            to4);
    g.texts(0, 15, s.smtp.password);
}

void generate_vlans(Generator& g, State& s) {
    g.numbers(1, 4094, s.vlan.management);
    s.vlan.table = {{s.vlan.management, "", {}, {}}};
    int room = 500; // the switch holds 512 VLANs
    for (std::size_t port = 0; port < 8; ++port) {
        g.numbers(0, 1, s.vlan.roles[port]);
        const bool is_trunk = s.vlan.roles[port] == 1;
        std::string list = port == 0 ? std::to_string(s.vlan.management) : "";
        auto pieces = g.number(0, is_trunk ? 200 : port == 0 ? 0 : 1);
        for (; pieces > 0 && room > 1 && list.size() < 990; --pieces, room -= 2) {
            const auto id = g.number(1, 4093);
            list += (list.empty() ? "" : ",") + std::to_string(id);
            list += is_trunk && g.number(0, 3) == 0 ? "-" + std::to_string(id + 1) : "";
        }
        s.vlan.lists[port] = list.c_str();
        const auto others = g.number<std::uint32_t>(0, 255) & ~(1U << port);
        s.vlan.isolation[port].words = {others | 1U << 8, 0};
    }
}

void generate_switching(Generator& g, State& s) {
    g.numbers(0, 1, s.rstp.enabled);
    s.rstp.priority = static_cast<std::uint16_t>(g.number(0, 15) * 4096);
    g.any(s.rstp.bpdu_guard, s.rstp.bpdu_guard_interval);
    g.table(s.acl.rules.entries, 33, [&](simulator::AclRule& rule, std::size_t i) {
        if (g.number(0, 3) == 0) {
            return; // an empty slot
        }
        // The simulated switch puts a rule of this index here.
        rule.index = static_cast<std::uint16_t>(i + 1);
        g.texts(0, 31, rule.name);
        if (g.number(0, 1) != 0) {
            rule.conditions |= 1;
            g.any(rule.mac.bytes, rule.mac_mask.bytes);
        }
        if (g.number(0, 1) != 0) {
            rule.conditions |= 64;
            g.any(rule.ip.value, rule.ip_mask.value);
        }
        rule.ports.words = {g.number<std::uint32_t>(0, 255), 0};
        rule.ports.words[0] |= s.ports.logical > 8 ? 1U << 8 : 0;
        g.numbers(1, 2, rule.policy);
    });
    while (!s.acl.rules.entries.empty() && s.acl.rules.entries.back().index == 0) {
        s.acl.rules.entries.pop_back();
    }
    g.numbers(0, 1, s.qos.scheduling, s.port_security.enabled);
    s.qos.scheduling = static_cast<std::uint16_t>(s.qos.scheduling * 7);
    g.any(s.qos.weights, s.qos.cos, s.qos.dscp);
    s.qos.classification = g.number<std::int32_t>(0, 2);
    s.qos.classification += s.qos.classification == 2 ? 1 : 0; // none, by CoS, by both
}

State generated(unsigned seed) {
    Generator g(seed);
    State s;
    generate_system(g, s);
    generate_ports(g, s);
    generate_snmp(g, s);
    generate_security(g, s);
    generate_services(g, s);
    generate_vlans(g, s);
    generate_switching(g, s);
    return s;
}

// What a document does not carry to another switch, by contract. Besides, these are
// not generated: slots without an account, codes without a word, the ports after the
// ninth of access rules, an address without its mask; and what backup does not read:
// the log viewer, the times of LLDP, the mode of a mirror, the kinds of ports, and the
// tables of VLANs, which follow from the lists. RSTP versions other than 2 fail check.
void take_over_what_no_document_carries(State& target, State& source, unsigned keep) {
    // It is for switches of one model, and shows which one it was made on.
    target.eeprom.model_name = source.eeprom.model_name;
    target.eeprom.macsec_port_type = source.eeprom.macsec_port_type;
    target.system.mac = source.system.mac;
    target.system.firmware_major = source.system.firmware_major;
    target.system.firmware_minor = source.system.firmware_minor;
    target.ports = source.ports;
    for (std::size_t port = 0; port < source.ports.physical; ++port) {
        target.ports.ports.at(port).enabled ^= 1;
    }
    target.rstp.ports.entries.resize(source.ports.physical);
    target.dot1x.ports.entries.resize(source.ports.physical);
    // Accounts, version 3 users and access rules of the switch are kept.
    if ((keep & 1) == 0) {
        target.accounts.slots.clear();
    }
    target.snmp.users.clear();
    target.acl.rules = {};
    // Nothing sets whether the NTP server was given by hand, and as what.
    target.sntp.manual = source.sntp.manual;
    target.sntp.ip_or_domain = source.sntp.ip_or_domain;
    // A login server that is off is not applied; the switch keeps its own.
    if (source.login_server.enabled == 0) {
        target.login_server = source.login_server;
        target.login_server.enabled = 1;
    }
    // The ports of a mirror that is off are not applied; the switch then has none.
    if (source.port_mirror.state == 0) {
        source.port_mirror = {0, 0, 65535, 65535};
    }
    target.system.mask = {0xff000000};
    target.rstp.version = 0;
    // Check demands that the switch has the management VLAN already.
    target.vlan.table.push_back({source.vlan.management, "", {}, {}});
}

// The target after the source's document: what the document holds no keys of, because
// something is off or of another kind, has a default or stays as it was.
State restored_state(State source, const State& target, unsigned keep) {
    const bool by_hand = source.sntp.client_enabled != 0 && source.sntp.manual != 0;
    if (source.eeprom.macsec_port_type != 1) {
        source.eeprom.fiber_speed = target.eeprom.fiber_speed;
    }
    if ((keep & 1) != 0) {
        source.accounts = target.accounts;
    }
    if ((keep & 2) != 0) {
        const auto name = source.system.name;
        source.system = target.system;
        source.system.name = name;
    }
    if (source.sntp.client_enabled == 0) {
        source.sntp = target.sntp;
        source.sntp.client_enabled = 0;
        source.sntp.time_zone = 0;
        source.sntp.server1 = "0.pool.ntp.org";
        source.sntp.server2 = "1.pool.ntp.org";
        source.sntp.query_period = 60;
    } else if (by_hand) {
        source.sntp.server1 = target.sntp.server1;
    }
    if (source.daylight.enabled == 0) {
        source.daylight = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    }
    if (source.qos.scheduling != 0) {
        source.qos.weights = target.qos.weights;
    }
    if (source.qos.classification == 1) {
        source.qos.dscp = target.qos.dscp;
    }
    return source;
}

// Without the table of VLANs, which follows from the lists.
json members_of(const State& state) {
    json members = json::parse(simulator::to_json_text(state));
    members["vlan"].erase("table");
    return members;
}

unsigned setting(const char* variable, unsigned otherwise) {
    const char* value = std::getenv(variable);
    return value != nullptr ? static_cast<unsigned>(std::atoi(value)) : otherwise;
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
        const unsigned keep = seed % 4;
        State source = generated(2 * seed);
        State target = generated(2 * seed + 1);
        take_over_what_no_document_carries(target, source, keep);
        reset(source);
        const std::string document = backup();
        EXPECT_EQ(check(document), "");
        reset(simulator::from_json_text(simulator::to_json_text(source)));
        EXPECT_EQ(backup(), document) << "the stored configuration is another";

        reset(target);
        EXPECT_NE(backup(), document);
        restore(document, keep);
        const State expected = restored_state(source, target, keep);
        EXPECT_EQ(json::diff(members_of(expected), members_of(state())), json::array());
        if (keep == 0) {
            EXPECT_EQ(backup(), document);
        }

        reset(target);
        if (source.dot1x.enabled == 0) { // else a switch with other settings refuses it
            state().dot1x = source.dot1x;
        }
        EXPECT_EQ(check(document), "");
    }
    std::printf("%u documents restored onto other switches\n", count);
}

// Two values at least of each member, but for those that are listed here.
TEST_F(Generated, EveryMemberVaries) {
    std::map<std::string, std::set<json>> values;
    const std::function<void(const std::string&, const json&)> collect =
        [&](const std::string& place, const json& value) {
            for (const auto& [name, member] : value.items()) {
                const std::string at = place + (value.is_array() ? "" : "/" + name);
                if (member.is_structured()) {
                    collect(at, member);
                } else if (values[at].size() < 2) {
                    values[at].insert(member);
                }
            }
        };
    for (unsigned seed = 0; seed < 60; ++seed) {
        collect("", members_of(generated(seed)));
    }
    EXPECT_EQ(values.size(), 147U) << "members of the stored configuration";
    Calls constant;
    for (const auto& [place, seen] : values) {
        if (seen.size() < 2) {
            constant.push_back(place);
        }
    }
    EXPECT_EQ(
        constant,
        (Calls{"/accounts/slots/empty", "/lldp/interval", "/lldp/ttl", "/port_mirror/mode",
               "/rstp/version", "/sntp/domain", "/sntp/ip", "/system/firmware_date", "/system/mask",
               "/system_log/automatic_refresh", "/system_log/automatic_refresh_cycle_time",
               "/system_log/read_all_notification", "/system_log/read_list_number",
               "/vlan/verdict"}));
}
