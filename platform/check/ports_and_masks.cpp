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
    judge_mask(set_name, "adds ports 0, 31, 32 and 63, and no 64 or 255", mask, 0x80000001,
               0x80000001);
    for (unsigned port = 0; port < 64; ++port) {
        set(&mask, static_cast<uint8_t>(port));
    }
    judge_mask(set_name, "adds each of 64 ports", mask, ~0U, ~0U);
}

void check_masks() {
    check_mask(NAMED(U_LPortMaskClrAll), NAMED(U_LPortMaskSetPort));
    check_mask(NAMED(U_PPortMaskClrAll), NAMED(U_PPortMaskSetPort));
    const TstLPortMask set = {{0x80000001, 0x80000001}};
    for (unsigned port = 0; port < 64; ++port) {
        const bool is_in = U_LPortMaskGetPort(&set, static_cast<uint8_t>(port)) != 0;
        if (is_in != (port % 32 == 0 || port % 32 == 31) || port == 63) {
            expect(is_in == (port % 32 == 0 || port % 32 == 31), "U_LPortMaskGetPort",
                   "finds ports 0, 31, 32 and 63 only", "seen the opposite for port %u", port);
        }
    }
    const TstPPortMask first = {{0x80000001, 0x10}};
    const TstPPortMask second = {{0x300, 0x80000000}};
    TstPPortMask result = {{0x40, 0x40}};
    U_PPortMaskCopy(&result, &first);
    judge_mask("U_PPortMaskCopy", "copies both words", result, 0x80000001, 0x10);
    U_PPortMaskOr(&result, &second, &first);
    judge_mask("U_PPortMaskOr", "unites both words", result, 0x80000301, 0x80000010);
}

// On a model of port type 1, backup asks for an EEPROM entry for each fibre port,
// and check looks for the keys of Port7 and Port8.
void check_fibre_port(uint8_t port) {
    const bool is_expected = port == 6 || port == 7;
    char name[17] = {};
    U_TrkLId2LogicId(name, port);
    expect((U_PortGetMode(port) == LAN_PORT_MODE_FIBER) == is_expected, "U_PortGetMode",
           "of port type 1, ports 7 and 8 are fibre and no others",
           "expected %s 3 for port %d, seen %d", is_expected ? "mode" : "a mode other than",
           port + 1, U_PortGetMode(port));
    expect(!is_expected || std::strcmp(name, port == 6 ? "Port7" : "Port8") == 0,
           "U_TrkLId2LogicId", "of port type 1, ports 7 and 8 are Port7 and Port8",
           "expected Port%d, seen %s", port + 1, name);
}

void fibre_speed(unsigned entry, int* speed) {
    *speed = get_eeprom_fiber_speed(static_cast<int>(entry));
}

int set_speeds(int entry, int speed) {
    set_fiber_speed(entry + 5, speed);
    return set_eeprom_fiber_speed(entry, speed);
}

void check_fibre_ports() {
    for (uint8_t port = 0; port < g_ucMaxPhyPort || port < 8; ++port) {
        check_fibre_port(port);
    }
    const int speeds[] = {get_eeprom_fiber_speed(1) & 0xffff, get_eeprom_fiber_speed(2) & 0xffff};
    VALIDATOR(Usrmacsec_check_fiber_speed, {speeds[0], speeds[1]}, {-2, 1000000});
    check_setting({"get_eeprom_fiber_speed", call<fibre_speed>},
                  {"set_eeprom_fiber_speed", call<set_speeds>}, "entry/4x speed/4=1-2", {1, 2});
}

// The name of each id is its own.
void check_names() {
    for (unsigned i = 1; i < g_ucMaxLogicPort; ++i) {
        char names[2][17] = {};
        U_TrkLId2LogicId(names[0], static_cast<uint8_t>(i - 1));
        U_TrkLId2LogicId(names[1], static_cast<uint8_t>(i));
        expect(std::strcmp(names[0], names[1]) != 0 && names[1][0] != '\0', "U_TrkLId2LogicId",
               "an id has a name of its own", "expected another than of %u for %u, seen %s", i - 1,
               i, names[1]);
    }
}

unsigned short set_enabled(uint8_t port, char enabled) {
    const unsigned short result = U_PortSetEbl(port, enabled);
    U_PortSetSWreset();
    return result;
}

} // namespace

void check_ports_and_masks() {
    expect(g_ucMaxPhyPort > 0 && g_ucMaxLogicPort >= g_ucMaxPhyPort, "port_init", "sets the counts",
           "expected a port or more, and no fewer logical ones, seen %u and %u", g_ucMaxPhyPort,
           g_ucMaxLogicPort);
    check_masks();
    GETTER(U_TrkLId2LogicId, "name/16t id/1x", {0, g_ucMaxLogicPort});
    GETTER(U_TrkLId2PMask, "members/8b id/1x",
           {g_ucMaxPhyPort, unsigned{g_ucMaxLogicPort} - g_ucMaxPhyPort});
    check_names();
    check_setting(OPERATION(U_FlshPortGetEbl), {"U_PortSetEbl", call<set_enabled>},
                  "port/1x flag/1=0-1", {0, g_ucMaxPhyPort});
    VALIDATOR(Usrflsh_check_port_enable_status, {0, 1}, {100, -100});
    const int type = get_eeprom_macsec_port_type();
    expect(type >= 0 && type <= 255, "get_eeprom_macsec_port_type", "is a byte",
           "expected 0 to 255, seen %d", type);
    if (type == 1) {
        check_fibre_ports();
    }
}
