// Any state of the device: codes out of range, texts that fill their fields,
// any number of entries. Backup survives them, and its document loads
// unless a text of the device holds what a document cannot carry.

#include "fuzz/fuzz.h"

#include "platform/simulator/state_file.h"

#include <nlohmann/json.hpp>

#include <set>

using nlohmann::json;

namespace {

// What the JSON form does not say, by place. Every entry of an array is "/".
const std::set<std::string> fixed_arrays = {
    "/eeprom/fiber_speed", "/macsec",      "/port_security/ports", "/qos/cos",
    "/qos/dscp",           "/qos/weights", "/smtp/recipients",     "/vlan/isolation",
    "/vlan/lists",         "/vlan/roles",  "/warnings/powers"};
const std::set<std::string> port_sets = {"/acl/rules//ports", "/ports/trunks/", "/vlan/isolation/",
                                         "/vlan/table//members", "/vlan/table//tagged"};
const std::set<std::string> ipv6_too = {"/login_server/address", "/snmp/receivers//address"};

// What a document carries in a quoted value: no quote, no line end, and at
// most 1005 characters: a VLAN list of more makes its line longer than 1022.
bool can_be_carried = true;

json any_text(const std::string& place, fuzz::Bytes& source) {
    const std::string part = source.text(64);
    std::string text = part;
    if (place == "/vlan/lists/" && !part.empty()) {
        const auto size = source.number<std::size_t>(0, 1024);
        while (text.size() < size) {
            text += part;
        }
    }
    can_be_carried =
        can_be_carried && text.size() <= 1005 && text.find_first_of("\"\n") == std::string::npos;
    return std::vector<std::uint8_t>(text.begin(), text.end());
}

json any_address(const std::string& place, fuzz::Bytes& source) {
    if (ipv6_too.count(place) != 0 && source.flag()) {
        ip_addr_t address = *simulator::address_from("::");
        source.fill(address.addr.v6u8, sizeof address.addr.v6u8);
        return simulator::address_text(address);
    }
    return simulator::dotted({source.number<std::uint32_t>()});
}

json any_port_set(fuzz::Bytes& source) {
    const auto mask = source.number<std::uint64_t>();
    json ports = json::array();
    for (unsigned port = 0; port < 64; ++port) {
        if ((mask >> port & 1U) != 0) {
            ports.push_back(port);
        }
    }
    return ports;
}

// Changes each member of the stored configuration to another value of its kind.
// Numbers are cut to the member's width when they are read back.
void change(json& value, const std::string& place, fuzz::Bytes& source) {
    if (source.flag()) {
        return; // keeps its value, with all that is in it
    }
    const bool can_grow = fixed_arrays.count(place) + port_sets.count(place) == 0;
    if (value.is_array() && can_grow && source.flag()) {
        const json entry = value.front();
        value = json::array_t(source.number<std::size_t>(0, 40), entry);
    }
    if (port_sets.count(place) != 0) {
        value = any_port_set(source);
    } else if (value.is_structured()) {
        for (const auto& [name, member] : value.items()) {
            change(member, place + "/" + (value.is_array() ? "" : name), source);
        }
    } else if (value.is_boolean()) {
        value = source.flag();
    } else if (value.is_number()) {
        value = source.number<std::int64_t>();
    } else if (simulator::address_from(value.get<std::string>().c_str())) {
        value = any_address(place, source);
    } else if (value.get<std::string>().find(':') != std::string::npos) {
        simulator::Mac mac; // no text of the factory has a colon
        source.fill(mac.bytes.data(), mac.bytes.size());
        value = simulator::colon_separated(mac);
    } else {
        value = any_text(place, source);
    }
}

// The factory's state, with an entry in each array that is empty there.
json first_state() {
    simulator::State state;
    state.ports.trunks.resize(1);
    state.dot1x.ports.entries.resize(1);
    return json::parse(simulator::to_json_text(state));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const json first = first_state();
    fuzz::Bytes source(data, size);
    can_be_carried = true;
    json changed = first;
    change(changed, "", source);
    // Takes every value that is made here: an exception is a fault of this target.
    simulator::reset(simulator::from_json_text_cut(changed.dump()));

    const std::string document = fuzz::backup();
    fuzz::require(document == fuzz::backup(), "two backups differ", document);
    dictionary* ini = fuzz::load(document);
    fuzz::require(ini != nullptr || !can_be_carried, "the backup cannot be loaded", document);
    if (ini != nullptr) {
        fuzz::check(ini);
        restore_sections(ini, 0);
        iniparser_freedict(ini);
    }
    return 0;
}
