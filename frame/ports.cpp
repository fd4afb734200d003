#include "frame/ports.h"

#include "frame/document.h"

#include <algorithm>

namespace {

constexpr int ports_in_mask = 64;

} // namespace

void add_listed_ports(TstLPortMask& ports, const char* list, int left_out) {
    bool listed[listed_ports + 1] = {};
    listed[listed_ports] = true;
    for (Piece piece = first_piece(list); piece.length != 0; piece = next_piece(piece)) {
        const int number = decimal_value(piece.text);
        if (number >= 1 && number <= listed_ports) {
            listed[number - 1] = true;
        }
    }
    for (int port = 0; port <= listed_ports; ++port) {
        if (listed[port] && port != left_out) {
            U_LPortMaskSetPort(&ports, static_cast<std::uint8_t>(port));
        }
    }
}

void write_port_list(FILE* ini_file, const TstLPortMask& ports, int count) {
    const char* separator = "";
    for (int port = 0; port < std::min(count, ports_in_mask); ++port) {
        if (U_LPortMaskGetPort(&ports, static_cast<std::uint8_t>(port)) != 0) {
            fprintf(ini_file, "%s%d", separator, key_number(port));
            separator = ",";
        }
    }
}

namespace {

// `>` on purpose: the id right after the last physical port counts as a port. With
// 8 ports it is the one that every set gets.
bool is_trunk(std::uint8_t logical_id) {
    return logical_id > g_ucMaxPhyPort;
}

void add_members(TstPPortMask& ports, std::uint8_t trunk) {
    TstPPortMask members = {};
    TstPPortMask others = {};
    U_PPortMaskClrAll(&members);
    U_PPortMaskClrAll(&others);
    U_TrkLId2PMask(&members, trunk);
    U_PPortMaskCopy(&others, &ports);
    U_PPortMaskOr(&ports, &members, &others);
}

} // namespace

TstPPortMask physical_ports(const TstLPortMask& logical_ports) {
    TstPPortMask ports = {};
    U_PPortMaskClrAll(&ports);
    const int ids = std::min<int>(g_ucMaxLogicPort, ports_in_mask);
    for (std::uint8_t id = 0; id < ids; ++id) {
        if (U_LPortMaskGetPort(&logical_ports, id) == 0) {
            continue;
        }
        if (is_trunk(id)) {
            add_members(ports, id);
        } else {
            U_PPortMaskSetPort(&ports, id);
        }
    }
    return ports;
}
