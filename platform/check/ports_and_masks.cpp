#include "platform/check/check.h"
#include "platform/include/eeprom.h"
#include "platform/include/port_masks.h"
#include "platform/include/ports.h"

#include <cstring>

namespace {

template <typename Mask>
void judge_mask(const char* name, const char* what, const Mask& mask, uint32_t low, uint32_t high) {
    expect(mask.ulMask[0] == low && mask.ulMask[1] == high, name, what,
           "expected words %x and %x, seen %x and %x", low, high, mask.ulMask[0], mask.ulMask[1]);
}

template <typename Mask>
void check_mask(const char* clear_name, void (*clear)(Mask*), const char* set_name,
                void (*set)(Mask*, uint8_t)) {
    Mask mask = {{~0U, ~0U}};
    clear(&mask);
    judge_mask(clear_name, "empties both words", mask, 0, 0);
    for (const int port : {0, 31, 32, 63, 64, 255}) {
        set(&mask, static_cast<uint8_t>(port));
    }
    judge_mask(set_name, "adds ports 0, 31, 32 and 63, and not 64 or 255", mask, 0x80000001,
               0x80000001);
    for (uint8_t port = 0; port < 64; ++port) {
        set(&mask, port);
    }
    judge_mask(set_name, "adds each of 64 ports", mask, ~0U, ~0U);
}

void check_masks() {
    check_mask(NAMED(U_LPortMaskClrAll), NAMED(U_LPortMaskSetPort));
    check_mask(NAMED(U_PPortMaskClrAll), NAMED(U_PPortMaskSetPort));
    const TstLPortMask mask = {{0x80000001, 0x40000010}};
    TstLPortMask found = {};
    for (uint8_t port = 0; port < 64; ++port) {
        found.ulMask[port / 32] |= U_LPortMaskGetPort(&mask, port) != 0 ? 1U << port % 32 : 0;
    }
    judge_mask("U_LPortMaskGetPort", "finds each of 64 ports", found, 0x80000001, 0x40000010);
    const TstPPortMask sets[] = {{{0x80000001, 0x10}}, {{0x300, 0x80000000}}};
    TstPPortMask result = {{0x40, 0x40}};
    U_PPortMaskCopy(&result, &sets[0]);
    judge_mask("U_PPortMaskCopy", "copies both words", result, 0x80000001, 0x10);
    U_PPortMaskOr(&result, &sets[1], &sets[0]);
    judge_mask("U_PPortMaskOr", "unites both words", result, 0x80000301, 0x80000010);
}

struct Name {
    char chars[17] = {};

    explicit Name(int id) { U_TrkLId2LogicId(chars, static_cast<uint8_t>(id)); }
};

// On port type 1, backup asks the EEPROM for each fibre port, and check looks for
// the keys of Port7 and Port8.
void check_fibre_port(uint8_t port) {
    const bool is_expected = port == 6 || port == 7;
    const int mode = U_PortGetMode(port);
    expect((mode == LAN_PORT_MODE_FIBER) == is_expected, "U_PortGetMode",
           "ports 7 and 8 are fibre and no others, on port type 1", "expected %s 3 for %d, seen %d",
           is_expected ? "mode" : "a mode other than", port + 1, mode);
    expect(!is_expected || std::strcmp(Name(port).chars, Phrase("Port%d", port + 1).chars) == 0,
           "U_TrkLId2LogicId", "ports 7 and 8 are named Port7 and Port8, on port type 1",
           "expected Port%d, seen %s", port + 1, Name(port).chars);
}

void fibre_speed(int entry, int* speed) {
    *speed = get_eeprom_fiber_speed(entry);
}

int set_speeds(int entry, int speed) {
    set_fiber_speed(entry + 5, speed);
    return set_eeprom_fiber_speed(entry, speed);
}

void check_fibre_ports() {
    for (uint8_t port = 0; port < g_ucMaxPhyPort || port < 8; ++port) {
        check_fibre_port(port);
    }
    VALIDATOR(Usrmacsec_check_fiber_speed,
              {get_eeprom_fiber_speed(1) & 0xffff, get_eeprom_fiber_speed(2) & 0xffff},
              {-2, 1000000});
    const Phrase parts("entry/4# speed/4=%d-%d", accepted(Usrmacsec_check_fiber_speed, 0),
                       accepted(Usrmacsec_check_fiber_speed, 1));
    check_setting({"get_eeprom_fiber_speed", call<fibre_speed>},
                  {"set_eeprom_fiber_speed", call<set_speeds>}, parts.chars, {1, 2});
}

unsigned short set_enabled(uint8_t port, char enabled) {
    const unsigned short result = U_PortSetEbl(port, enabled);
    U_PortSetSWreset();
    return result;
}

} // namespace

void check_ports_and_masks() {
    const unsigned ports = g_ucMaxPhyPort;
    const unsigned ids = g_ucMaxLogicPort;
    expect(ports > 0 && ids >= ports, "port_init", "sets the counts",
           "expected a port or more, and no fewer logical ones, seen %u and %u", ports, ids);
    check_masks();
    GETTER(U_TrkLId2LogicId, "name/16t id/1#", {0, ids});
    for (int id = 1; id < g_ucMaxLogicPort; ++id) {
        expect(std::strcmp(Name(id - 1).chars, Name(id).chars) != 0, "U_TrkLId2LogicId",
               "each id has a name of its own", "expected %d to differ from the id before, seen %s",
               id, Name(id).chars);
    }
    GETTER(U_TrkLId2PMask, "members/8b id/1#", {ports, ids > ports ? ids - ports : 0});
    check_setting(OPERATION(U_FlshPortGetEbl), {"U_PortSetEbl", call<set_enabled>},
                  "port/1# flag/1=0-1", {0, ports});
    VALIDATOR(Usrflsh_check_port_enable_status, {0, 1}, {100, -100});
    const int type = get_eeprom_macsec_port_type();
    expect(type >= 0 && type <= 255, "get_eeprom_macsec_port_type", "is a byte",
           "expected 0 to 255, seen %d", type);
    if (type == 1) {
        check_fibre_ports();
    }
}
