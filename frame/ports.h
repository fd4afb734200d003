// Port numbering: device operations count ports from 0, document keys from 1.
#pragma once

#include "platform/include/port_masks.h"
#include "platform/include/ports.h"

#include <cstdio>

// The number of a port in its keys.
constexpr int key_number(int port) {
    return port + 1;
}

// A list of ports in the document, "1,2,4", can name the ports 1 to 8.
constexpr int listed_ports = 8;

constexpr int none_left_out = -1;

// Adds the ports of a list to a set, and logical port 8, which no list can name but
// every set gets. Does not add the port with index left_out (from 0, or none_left_out).
// Ignores numbers other than 1 to 8.
void add_listed_ports(TstLPortMask& ports, const char* list, int left_out);

// Writes the ports of the set that are below count (at most 64), in ascending order.
void write_port_list(FILE* ini_file, const TstLPortMask& ports, int count);

// Replaces trunk groups by their member ports.
TstPPortMask physical_ports(const TstLPortMask& logical_ports);
