// Choices of this switch:
//  - A list has IDs 1 to 4094 and ranges (10-12) between single commas, without
//    blanks. An empty list is of no VLAN. An access port is in one VLAN or none,
//    a trunk port is a tagged member of all that it lists.
//  - The first fault is found in this order: the roles of all ports; then for
//    each port what is no ID or range, what is out of range, the number of VLANs.
//  - The static VLAN table has room for 512 VLANs; more are another fault than
//    those with a name in the contract.
//  - A management VLAN is never at fault by itself: that verdict is part of the
//    stored configuration.
//  - The entry table holds what the static VLAN table is to hold, the removal
//    list the 32-bit IDs of what it holds now and is not to hold; a 0 ends each,
//    unless it is full. The message says that they are ready, and is empty when
//    the check fails; without it a set changes nothing.
//  - A check that fails, or whose buffers have not been cleared, finds fault with
//    the management VLAN.

#include "platform/include/vlan.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>
#include <cstring>
#include <map>

using namespace simulator;

namespace {

constexpr size_t ports = 8;
constexpr int max_id = 4094;
constexpr size_t max_vlans = 512;
constexpr uint16_t protocol_type = 0x8100; // IEEE 802.1Q
constexpr int table_is_full = -7;
constexpr char prepared[] = "prepared";

Vlan& vlan() {
    return state().vlan;
}

struct Membership {
    PortSet members;
    PortSet tagged;
};
using Memberships = std::map<int, Membership>; // by VLAN ID

void add(PortSet& set, size_t port) {
    set.words[0] |= 1U << port;
}

// The number at the start of a text, moved behind it; -1 without digits.
int take_number(const char*& text) {
    if (*text < '0' || *text > '9') {
        return -1;
    }
    int number = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        number = std::min(number * 10 + (*text - '0'), max_id + 1);
    }
    return number;
}

// An ID or a range, moved behind it.
int take_range(const char*& text, int& first, int& last) {
    first = last = take_number(text);
    if (*text == '-') {
        last = take_number(++text);
    }
    if (first == -1 || last == -1 || (*text != ',' && *text != '\0')) {
        return VLAN_DATA_ID_VALUE;
    }
    const bool in_range = first >= 1 && last <= max_id && first <= last;
    return in_range ? VLAN_DATA_VALID : VLAN_DATA_ID_RANGE;
}

int list_port(const char* text, size_t port, bool is_trunk, Memberships& vlans) {
    std::vector<int> ids;
    while (*text != '\0') {
        int first = 0;
        int last = 0;
        const int verdict = take_range(text, first, last);
        if (verdict != VLAN_DATA_VALID) {
            return verdict;
        }
        for (int id = first; id <= last; ++id) {
            ids.push_back(id);
        }
        if (*text == ',' && *++text == '\0') {
            return VLAN_DATA_ID_VALUE; // nothing behind the comma
        }
    }
    if (!is_trunk && std::any_of(ids.begin(), ids.end(), [&](int id) { return id != ids[0]; })) {
        return VLAN_DATA_ACCESS_LIST;
    }
    for (const int id : ids) {
        add(vlans[id].members, port);
        if (is_trunk) {
            add(vlans[id].tagged, port);
        }
    }
    return VLAN_DATA_VALID;
}

// Which VLANs the roles and lists make.
int judge(const vlan_data_t& data, Memberships& vlans) {
    for (const int32_t role : data.portrole) {
        if (role != VLAN_ROLE_ACCESS && role != VLAN_ROLE_TRUNK) {
            return VLAN_DATA_ROLE;
        }
    }
    for (size_t port = 0; port < ports; ++port) {
        const bool is_trunk = data.portrole[port] == VLAN_ROLE_TRUNK;
        const int verdict = list_port(data.vlan_str[port], port, is_trunk, vlans);
        if (verdict != VLAN_DATA_VALID) {
            return verdict;
        }
    }
    return vlans.size() <= max_vlans ? VLAN_DATA_VALID : table_is_full;
}

auto find(int id) {
    return std::find_if(vlan().table.begin(), vlan().table.end(),
                        [&](const StaticVlan& entry) { return entry.id == id; });
}

Field<17> name_of(int id) {
    if (find(id) != vlan().table.end()) {
        return find(id)->name;
    }
    char name[16];
    snprintf(name, sizeof name, "VLAN%04d", id);
    return name;
}

void prepare_table(const Memberships& vlans, TstFlshVlanEntry* table) {
    for (const auto& [id, ports_of] : vlans) {
        TstFlshVlanEntry& entry = *table++;
        entry.usVlanId = static_cast<uint16_t>(id);
        name_of(id).copy_to(entry.acName, sizeof entry.acName);
        entry.stPortMask = ports_of.members.as<TstLPortMask>();
        entry.stPPortMask = ports_of.members.as<TstPPortMask>();
        entry.stTagMask = ports_of.tagged.as<TstLPortMask>();
        entry.stPTagMask = ports_of.tagged.as<TstPPortMask>();
        entry.usProtocolType = protocol_type;
    }
}

void prepare_removal(const Memberships& vlans, void* removal_list) {
    std::array<int32_t, max_vlans> ids = {};
    size_t count = 0;
    for (const StaticVlan& entry : vlan().table) {
        if (vlans.count(entry.id) == 0 && count < ids.size()) {
            ids[count++] = entry.id;
        }
    }
    memcpy(removal_list, ids.data(), sizeof ids);
}

bool is_zero(const void* buffer, size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(buffer);
    return std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; });
}

void remove_vlans(const void* removal_list) {
    std::array<int32_t, max_vlans> ids;
    memcpy(ids.data(), removal_list, sizeof ids);
    for (const int32_t id : ids) {
        if (find(id) != vlan().table.end()) {
            vlan().table.erase(find(id));
        }
    }
}

void store_vlans(const TstFlshVlanEntry* table) {
    for (size_t i = 0; i < max_vlans && table[i].usVlanId != 0; ++i) {
        const StaticVlan entry{table[i].usVlanId, table[i].acName, PortSet(table[i].stPortMask),
                               PortSet(table[i].stTagMask)};
        const auto found = find(entry.id);
        if (found != vlan().table.end()) {
            *found = entry;
        } else {
            vlan().table.push_back(entry);
        }
    }
}

Written written_record(const vlan_data_t& data) {
    std::string record;
    for (size_t port = 0; port < ports; ++port) {
        record += (port == 0 ? "" : ", ") + written(data.portrole[port]) + " " +
                  written(data.vlan_str[port]);
    }
    return {"vlan_data_t{" + record + "}"};
}

Written written_record(const TstFlshVlanPortBasedEntry& table) {
    std::string record;
    for (const TstLPortMask& mask : table.stPortMask) {
        record += (record.empty() ? "" : ", ") + written(mask);
    }
    return {"TstFlshVlanPortBasedEntry{" + record + "}"};
}

} // namespace

void get_vlan_data(vlan_data_t* data) {
    reads("get_vlan_data", [&] {
        for (size_t port = 0; port < ports; ++port) {
            data->portrole[port] = vlan().roles[port];
            vlan().lists[port].copy_to(data->vlan_str[port], sizeof data->vlan_str[port]);
        }
    });
}

int check_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list) {
    return answers(
        "check_vlan_data", static_cast<int>(VLAN_DATA_MANAGEMENT),
        [&]() -> int {
            *msg = '\0';
            Memberships vlans;
            const int verdict = judge(*data, vlans);
            if (verdict != VLAN_DATA_VALID) {
                return verdict;
            }
            if (!is_zero(table, max_vlans * sizeof *table) ||
                !is_zero(removal_list, max_vlans * sizeof(int32_t))) {
                return VLAN_DATA_MANAGEMENT;
            }
            prepare_table(vlans, table);
            prepare_removal(vlans, removal_list);
            if (vlan().verdict >= VLAN_DATA_VALID) {
                strcpy(msg, prepared);
            }
            return vlan().verdict;
        },
        written_record(*data));
}

void set_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list,
                   int apply) {
    changes(
        "set_vlan_data",
        [&] {
            if (strncmp(msg, prepared, sizeof prepared) != 0) {
                return false;
            }
            remove_vlans(removal_list);
            store_vlans(table);
            for (size_t port = 0; port < ports; ++port) {
                vlan().roles[port] = data->portrole[port];
                vlan().lists[port].assign(data->vlan_str[port]);
            }
            return true;
        },
        written_record(*data), apply);
}

unsigned short U_VlanGetMgnVlanId(uint16_t* id) {
    return reads("U_VlanGetMgnVlanId", [&] { *id = vlan().management; });
}

unsigned short U_FlshVlanSetMgnVlanId(uint16_t id) {
    return changes(
        "U_FlshVlanSetMgnVlanId", [&] { vlan().management = id; }, id);
}

uint16_t U_VlanGetSttcEntry(uint16_t id, TstLPortMask* members, TstLPortMask* tagged,
                            uint16_t* type) {
    return reads(
        "U_VlanGetSttcEntry",
        [&] {
            const auto entry = find(id);
            if (entry == vlan().table.end()) {
                return false;
            }
            *members = entry->members.as<TstLPortMask>();
            *tagged = entry->tagged.as<TstLPortMask>();
            *type = protocol_type;
            return true;
        },
        id);
}

unsigned short U_FlshVlanGetPortBasedEntry(TstFlshVlanPortBasedEntry* table) {
    return reads("U_FlshVlanGetPortBasedEntry", [&] {
        for (size_t port = 0; port < ports; ++port) {
            table->stPortMask[port] = vlan().isolation[port].as<TstLPortMask>();
        }
    });
}

unsigned short U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry* table) {
    return changes(
        "U_FlshVlanSetPortBasedEntry",
        [&] {
            for (size_t port = 0; port < ports; ++port) {
                vlan().isolation[port] = PortSet(table->stPortMask[port]);
            }
        },
        written_record(*table));
}
