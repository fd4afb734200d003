// Everything that the simulated switch remembers: one plain record per area,
// with the factory defaults as member initialisers.
//
// A record lists its fields a second time for its JSON form, in state_file.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace simulator {

// A fixed text field of the device's memory. A text that fills it has no
// terminator; what follows a shorter one is zero.
template <std::size_t Size>
struct Field {
    std::array<char, Size> bytes = {};

    Field() = default;
    Field(const char* text) { assign(text); }

    void assign(const char* text) {
        bytes = {};
        std::memcpy(bytes.data(), text, strnlen(text, Size));
    }

    std::string text() const { return std::string(bytes.data(), strnlen(bytes.data(), Size)); }

    // Into a buffer of size bytes, cut and unterminated when it is too small.
    void copy_to(void* buffer, std::size_t size) const {
        std::memset(buffer, 0, size);
        std::memcpy(buffer, bytes.data(), size < Size ? size : Size);
    }

    bool operator==(const Field& other) const { return bytes == other.bytes; }
};

// An IPv4 address as a number whose top byte is the first of the dotted text.
struct Ipv4 {
    std::uint32_t value = 0;
};

std::string dotted(Ipv4 address);

struct Mac {
    std::array<std::uint8_t, 6> bytes = {};
};

// One entry for each port that differs from the default, by port index.
template <typename Entry>
struct PerPort {
    std::vector<Entry> entries;

    Entry get(std::size_t port) const { return port < entries.size() ? entries[port] : Entry(); }

    Entry& at(std::size_t port) {
        if (entries.size() <= port) {
            entries.resize(port + 1);
        }
        return entries[port];
    }
};

struct Eeprom {
    Field<32> model_name = "MS-8P";
    int macsec_port_type = 1;
    std::array<int, 2> fiber_speed = {2, 2};
};

struct System {
    Mac mac = {{0x02, 0x00, 0x5e, 0x10, 0x20, 0x30}};
    std::uint8_t firmware_major = 2;
    std::uint8_t firmware_minor = 7;
    std::uint32_t firmware_date = 20260105;
    Field<30> name = "Line 4 cabinet switch";
    std::int8_t dhcp = 0;
    Ipv4 address = {0xc0a80a14};
    Ipv4 mask = {0xffffff00};
    Ipv4 gateway = {0xc0a80a01};
    Ipv4 dns = {0xc0a80a02};
};

struct Port {
    std::int8_t enabled = 1;
    std::uint8_t mode = 1; // LAN_PORT_MODE_COPPER
};

// Six copper ports and two fibre ports.
PerPort<Port> factory_ports();

struct Ports {
    std::uint8_t physical = 8;
    std::uint8_t logical = 16;
    PerPort<Port> ports = factory_ports();
};

struct State {
    Eeprom eeprom;
    System system;
    Ports ports;
};

State& state();

// Makes this the switch, as if it had just started up: the port counts follow,
// the journal is empty and nothing is made to fail.
void reset(const State& state = State());

} // namespace simulator
