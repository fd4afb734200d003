// Choices of this switch:
//  - A list has IDs from 1 to 4094 and ranges such as 10-12, separated by single
//    commas, without blanks. It may be empty. An access port is in at most one
//    VLAN; a trunk port is a tagged member of each VLAN that it lists.
//  - The first fault is reported: the roles of all ports, then for each port a
//    text that is not an ID or a range, an ID out of range, and an access port's
//    second VLAN. More than 512 VLANs do not fit the table, and have a code of
//    this switch's own.
//  - The management VLAN is never at fault. A verdict other than 0 in the state
//    is what a check returns when it finds no fault; a negative one fails it, a
//    positive one is returned for lists at fault as well.
//  - A check that is made to fail, or whose buffers are not zero, returns
//    VLAN_DATA_MANAGEMENT.
//  - A check puts the VLANs to store into the entry table and the IDs to remove
//    into the removal list, as 32-bit numbers, each ended by 0 unless it is
//    full. The message then says that they are prepared; a set without that
//    message changes nothing.

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

// Takes the digits at the start of the text: their number, or -1 if there are none.
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

// Takes an ID or a range from the start of the text.
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

int add_port(const char* text, unsigned port, bool is_trunk, Memberships& vlans) {
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
            return VLAN_DATA_ID_VALUE; // nothing after the comma
        }
    }
    if (!is_trunk && std::any_of(ids.begin(), ids.end(), [&](int id) { return id != ids[0]; })) {
        return VLAN_DATA_ACCESS_LIST;
    }
    for (const int id : ids) {
        vlans[id].members.add(port);
        if (is_trunk) {
            vlans[id].tagged.add(port);
        }
    }
    return VLAN_DATA_VALID;
}

// The VLANs that roles and lists amount to, and the verdict on them.
int memberships(const vlan_data_t& data, Memberships& vlans) {
    for (const int32_t role : data.portrole) {
        if (role != VLAN_ROLE_ACCESS && role != VLAN_ROLE_TRUNK) {
            return VLAN_DATA_ROLE;
        }
    }
    for (unsigned port = 0; port < ports; ++port) {
        const bool is_trunk = data.portrole[port] == VLAN_ROLE_TRUNK;
        const int verdict = add_port(data.vlan_str[port], port, is_trunk, vlans);
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
    reads(call(__func__), [&] {
        for (size_t port = 0; port < ports; ++port) {
            data->portrole[port] = vlan().roles[port];
            vlan().lists[port].copy_to(data->vlan_str[port], sizeof data->vlan_str[port]);
        }
    });
}

int check_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list) {
    constexpr int failed = VLAN_DATA_MANAGEMENT;
    return answers(call(__func__, written_record(*data)), failed, [&] {
        *msg = '\0';
        Memberships vlans;
        const int verdict = memberships(*data, vlans);
        if (verdict != VLAN_DATA_VALID) {
            return vlan().verdict > VLAN_DATA_VALID ? vlan().verdict : verdict;
        }
        if (!is_zero(table, max_vlans * sizeof *table) ||
            !is_zero(removal_list, max_vlans * sizeof(int32_t))) {
            return failed;
        }
        prepare_table(vlans, table);
        prepare_removal(vlans, removal_list);
        if (vlan().verdict >= VLAN_DATA_VALID) {
            strcpy(msg, prepared);
        }
        return vlan().verdict;
    });
}

void set_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list,
                   int apply) {
    const bool is_prepared = strncmp(msg, prepared, sizeof prepared) == 0;
    changes(call(__func__, written_record(*data), apply), is_prepared, [&] {
        remove_vlans(removal_list);
        store_vlans(table);
        for (size_t port = 0; port < ports; ++port) {
            vlan().roles[port] = data->portrole[port];
            vlan().lists[port].assign(data->vlan_str[port]);
        }
    });
}

unsigned short U_VlanGetMgnVlanId(uint16_t* id) {
    return reads(call(__func__), [&] { *id = vlan().management; });
}

unsigned short U_FlshVlanSetMgnVlanId(uint16_t id) {
    return changes(call(__func__, id), [&] { vlan().management = id; });
}

uint16_t U_VlanGetSttcEntry(uint16_t id, TstLPortMask* members, TstLPortMask* tagged,
                            uint16_t* type) {
    const auto entry = find(id);
    return reads(call(__func__, id), entry != vlan().table.end(), [&] {
        *members = entry->members.as<TstLPortMask>();
        *tagged = entry->tagged.as<TstLPortMask>();
        *type = protocol_type;
    });
}

unsigned short U_FlshVlanGetPortBasedEntry(TstFlshVlanPortBasedEntry* table) {
    return reads(call(__func__), [&] {
        for (size_t port = 0; port < ports; ++port) {
            table->stPortMask[port] = vlan().isolation[port].as<TstLPortMask>();
        }
    });
}

unsigned short U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry* table) {
    return changes(call(__func__, written_record(*table)), [&] {
        for (size_t port = 0; port < ports; ++port) {
            vlan().isolation[port] = PortSet(table->stPortMask[port]);
        }
    });
}
