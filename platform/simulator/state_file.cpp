#include "platform/simulator/state_file.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace simulator {

using nlohmann::json;

template <std::size_t Size>
void to_json(json& value, const Field<Size>& field) {
    const std::string text = field.text().substr(0, Size - 1);
    try {
        static_cast<void>(json(text).dump());
        value = text;
    } catch (const json::type_error&) { // not UTF-8
        value = json::array();
        for (const char byte : text) {
            value.push_back(static_cast<std::uint8_t>(byte));
        }
    }
}

template <std::size_t Size>
void from_json(const json& value, Field<Size>& field) {
    if (value.is_array()) {
        const auto bytes = value.get<std::vector<std::uint8_t>>();
        field.fill(std::string(bytes.begin(), bytes.end()).c_str());
    } else {
        field.fill(value.get<std::string>().c_str());
    }
}

void to_json(json& value, const Ipv4& address) {
    value = dotted(address);
}

void from_json(const json& value, Ipv4& address) {
    const auto number = ipv4_from(value.get<std::string>().c_str());
    if (!number) {
        throw std::runtime_error(value.dump() + " is not an IPv4 address");
    }
    address = *number;
}

void to_json(json& value, const Mac& mac) {
    value = colon_separated(mac);
}

void from_json(const json& value, Mac& mac) {
    const auto bytes = mac_from(value.get<std::string>().c_str());
    if (!bytes) {
        throw std::runtime_error(value.dump() + " is not a MAC address");
    }
    mac = *bytes;
}

void to_json(json& value, const Address& address) {
    value = address_text(address.record);
}

void from_json(const json& value, Address& address) {
    const auto record = address_from(value.get<std::string>().c_str());
    if (!record) {
        throw std::runtime_error(value.dump() + " is not an IPv4 or IPv6 address");
    }
    address.record = *record;
}

void to_json(json& value, const PortSet& set) {
    value = set.ports();
}

void from_json(const json& value, PortSet& set) {
    set = {};
    const auto ports = value.get<std::vector<unsigned>>();
    for (const unsigned port : ports) {
        set.add(port);
    }
    if (set.ports() != ports) {
        throw std::runtime_error(value.dump() + " is not an ascending list of ports 0 to 63");
    }
}

template <typename Entry>
void to_json(json& value, const Indexed<Entry>& ports) {
    value = ports.entries;
}

template <typename Entry>
void from_json(const json& value, Indexed<Entry>& ports) {
    ports.entries = value.get<std::vector<Entry>>();
}

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Eeprom, model_name, macsec_port_type, fiber_speed,
                                                serial_port)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(System, mac, firmware_major, firmware_minor,
                                                firmware_date, name, dhcp, address, mask, gateway,
                                                dns)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Port, enabled, mode)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Ports, physical, logical, ports, trunks)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Account, empty, name, password, access_right)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Accounts, slots, minimum_length, maximum_length)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(SnmpCommunity, community, permission)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(SnmpReceiver, address, port, community)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(SnmpUser, name, authentication, password, privacy,
                                                privacy_key)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Snmp, enabled, version, communities, trap_mode,
                                                receivers, users)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Dot1xPort, mode)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Dot1x, enabled, server, server_port,
                                                accounting_port, nas_identifier, shared_key,
                                                quiet_period, tx_period, supplicant_timeout,
                                                server_timeout, maximum_requests, reauth_period,
                                                ports)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Macsec, status, sci, sak)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(LoginServer, enabled, kind, address, port,
                                                shared_key, method, timeout)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Modbus, address, enabled, port)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(SystemLog, event_to_flash, level, server_enabled,
                                                server, server_port, read_all_notification,
                                                read_list_number, automatic_refresh,
                                                automatic_refresh_cycle_time)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Lldp, enabled, ttl, interval)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(PortMirror, state, mode, analyzer_port,
                                                monitored_port)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Sntp, client_enabled, time_zone, server1, server2,
                                                query_period, manual, ip_or_domain, ip, domain)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Daylight, enabled, start_month, start_week,
                                                start_day, start_hour, end_month, end_week, end_day,
                                                end_hour, offset)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Https, enabled)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(PeriodicBackup, enabled, hour, minute, server)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Warnings, ports, powers, syslog_level)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Smtp, server, sender, subject, authentication, tls,
                                                username, password, recipients)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(StaticVlan, id, name, members, tagged)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Vlan, roles, lists, table, management, verdict,
                                                isolation)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(RstpPort, edge, excluded, bpdu_guard, root_guard,
                                                bpdu_filter)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Rstp, enabled, version, priority, bpdu_guard,
                                                bpdu_guard_interval, ports)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(AclRule, index, name, conditions, mac, mac_mask, ip,
                                                ip_mask, ports, policy)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Acl, rules)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Qos, scheduling, weights, classification, cos, dscp)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(SecuredPort, action, maximum)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(PortSecurity, enabled, ports)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(State, eeprom, system, accounts, ports, snmp,
                                                macsec, dot1x, modbus, system_log, lldp,
                                                port_mirror, sntp, daylight, https, periodic_backup,
                                                warnings, smtp, login_server, vlan, rstp, acl, qos,
                                                port_security)

namespace {

// Why a value would not be stored as it is written. Shows no texts but those of
// addresses: others may be secret.
std::string difference(const json& written, const json& held) {
    if (written.is_array() && held.is_array()) {
        return ": has " + std::to_string(written.size()) + " entries, the switch holds " +
               std::to_string(held.size());
    }
    if (!written.is_string() || !held.is_string()) {
        return written.is_array()
                   ? ": is a text, write it as a string"
                   : ": " + written.dump() + " does not fit, it would become " + held.dump();
    }
    const auto text = held.get<std::string>();
    return written.get<std::string>().rfind(text, 0) == 0
               ? ": is longer than " + std::to_string(text.size()) + " bytes"
               : ": must be written as " + text;
}

// The JSON library's message without its mark, "[json.exception.type_error.302] ",
// and without the text that it read last, which may be secret.
std::string message_of(const std::exception& fault) {
    static const std::regex mark(R"(^\[json\.exception\.[^\]]*\] |; last read: '[^]*')");
    static const std::regex no_object(R"(^cannot use value\(\) with)");
    const std::string message = std::regex_replace(fault.what(), mark, "");
    return std::regex_replace(message, no_object, "must be an object, but is");
}

bool can_be_read(const json& written) {
    try {
        static_cast<void>(written.get<State>());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

// The first member that cannot be read even alone, such as /system/dhcp.
std::string place_of_fault(const json& written) {
    for (const auto& [area, members] : written.items()) {
        if (!members.is_object() && !can_be_read({{area, members}})) {
            return "/" + area;
        }
        for (const auto& [name, value] : members.items()) {
            if (!can_be_read({{area, {{name, value}}}})) {
                return "/" + area + "/" + name;
            }
        }
    }
    return "/";
}

State read_members(const json& written) {
    try {
        return written.get<State>();
    } catch (const std::exception& fault) {
        throw std::runtime_error(place_of_fault(written) + ": " + message_of(fault));
    }
}

// Requires that the state holds what the file says, as it says it. Finds
// misspelt members, numbers and texts that do not fit, and addresses in another
// form than the stored one.
void require_same(const json& written, const json& held, const std::string& place) {
    if (written.is_object() && held.is_object()) {
        for (const auto& [name, value] : written.items()) {
            if (!held.contains(name)) {
                throw std::runtime_error(place + "/" + name + ": there is no such member");
            }
            require_same(value, held[name], place + "/" + name);
        }
    } else if (written.is_array() && held.is_array() && written.size() == held.size()) {
        for (std::size_t i = 0; i < written.size(); ++i) {
            require_same(written[i], held[i], place + "/" + std::to_string(i));
        }
    } else if (written != held) {
        throw std::runtime_error(place + difference(written, held));
    }
}

struct StateFile {
    std::string path;
    std::string loaded; // the state at the start of the run
};

StateFile& state_file() {
    static StateFile file;
    return file;
}

// Renames a temporary file, so that a run that dies leaves the old file whole.
void store_changes() {
    const std::string text = to_json_text(state());
    if (text == state_file().loaded) {
        return;
    }
    const std::string temporary = state_file().path + ".new";
    std::ofstream file(temporary);
    file << text << std::flush;
    if (!file || rename(temporary.c_str(), state_file().path.c_str()) != 0) {
        fprintf(stderr, "simulated switch: cannot store %s: %s\n", state_file().path.c_str(),
                strerror(errno));
    }
}

State read_state(const std::string& path) {
    std::ifstream file(path);
    if (!file && errno == ENOENT) {
        return State();
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
        throw std::runtime_error(strerror(errno));
    }
    return from_json_text(text);
}

} // namespace

std::string to_json_text(const State& state) {
    return json(state).dump(2) + "\n";
}

State from_json_text(const std::string& text) {
    const json written = json::parse(text);
    State state = read_members(written);
    require_same(written, json(state), "");
    return state;
}

State from_json_text_cut(const std::string& text) {
    return json::parse(text).get<State>();
}

void load_stored_configuration() {
    const char* path = std::getenv("SWITCH_SIMULATOR_STATE");
    state_file().path = path != nullptr ? path : "/tmp/simulated_switch.json";
    try {
        state() = read_state(state_file().path);
    } catch (const std::exception& fault) {
        fprintf(stderr, "simulated switch: cannot load %s: %s\n", state_file().path.c_str(),
                message_of(fault).c_str());
        std::exit(1);
    }
    state_file().loaded = to_json_text(state());
    std::atexit(store_changes);
}

} // namespace simulator
