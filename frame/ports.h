// Port numbering: device operations count ports from 0, document keys from 1.
#pragma once

#include "platform/include/port_masks.h"
#include "platform/include/ports.h"

#include <cstdio>

// The number that the keys of a port carry.
constexpr int key_number(int port) {
    return port + 1;
}

// Lists of ports in the document, "1,2,4", name the ports 1 to 8. Logical port
// 8, the one behind them, is never written, and is in every list that is read.
constexpr int listed_ports = 8;

struct PortList {
    bool has[listed_ports + 1]; // by port, from 0
};

// Numbers that are no such port are ignored.
PortList parse_port_list(const char* list);

// Writes the ports below count that are in the set, ascending.
void write_port_list(FILE* ini_file, const TstLPortMask& ports, int count);

// The physical ports behind a set of logical ports: trunk groups become their members.
TstPPortMask physical_ports(const TstLPortMask& logical_ports);
