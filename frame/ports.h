// Port numbering: device operations count ports from 0, document keys from 1.
#pragma once

#include "platform/include/port_masks.h"
#include "platform/include/ports.h"

#include <cstdio>

// The number that the keys of a port carry.
constexpr int key_number(int port) {
    return port + 1;
}

// Lists of ports in the document, "1,2,4", are read as naming the ports 1 to 8.
constexpr int listed_ports = 8;

// Adds the ports of a list to a set, and with them logical port 8, the one behind
// those that a list can name: it is part of every list. A port that is left out
// is not added. Numbers that are no such port are ignored.
constexpr int none_left_out = -1;
void add_listed_ports(TstLPortMask& ports, const char* list, int left_out);

// Writes the ports below count, and below 64, that are in the set, ascending.
void write_port_list(FILE* ini_file, const TstLPortMask& ports, int count);

// The physical ports behind a set of logical ports: trunk groups become their members.
TstPPortMask physical_ports(const TstLPortMask& logical_ports);
