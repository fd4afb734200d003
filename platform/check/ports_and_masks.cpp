#include "platform/check/check.h"
#include "platform/include/eeprom.h"
#include "platform/include/port_masks.h"
#include "platform/include/ports.h"

#include <cstring>

namespace {

template <typename Mask>
void judge_mask(const char* name, const char* what, const Mask& mask, uint32_t low, uint32_t high) {
    expect(mask.ulMask[0] == low && mask.ulMask[1] == high, name, what,
           {"expected words %x and %x, seen %x and %x", low, high, mask.ulMask[0], mask.ulMask[1]});
}

template <typename Mask>
void check_mask(const char* clear_name, void (*clear)(Mask*), const char* set_name,
                void (*set)(Mask*, uint8_t)) {
    Mask mask = {{~0U, ~0U}};
    clear(&mask);
    judge_mask(clear_name, "empties both words", mask, 0, 0);
    uint32_t expected[3] = {}; // the last for ports above 63, which are not in a set
    for (unsigned port = 0; port < 256; ++port) {
        expected[port < 64 ? port / 32 : 2] |= 1U << port % 32;
        set(&mask, static_cast<uint8_t>(port));
        if (mask.ulMask[0] != expected[0] || mask.ulMask[1] != expected[1]) {
            break;
        }
    }
    judge_mask(set_name, "adds each of 64 ports", mask, expected[0], expected[1]);
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

std::string name_of(int id) {
    Roomy<char[17]> name;
    U_TrkLId2LogicId(name.value, static_cast<uint8_t>(id));
    return name.value;
}

// With port type 1, backup asks the EEPROM about each fibre port, and check wants the keys
// of Port7 and Port8.
void check_fibre_ports() {
    for (uint8_t port = 0; port < g_ucMaxPhyPort || port < 8; ++port) {
        const bool is_fibre = port == 6 || port == 7;
        const int mode = U_PortGetMode(port);
        expect((mode == LAN_PORT_MODE_FIBER) == is_fibre, "U_PortGetMode",
               "ports 7 and 8 are fibre and no others, on port type 1",
               {"expected %s 3 for %d, seen %d", is_fibre ? "mode" : "another than", port, mode});
    }
    expect(name_of(6) == "Port7" && name_of(7) == "Port8", "U_TrkLId2LogicId",
           "ports 7 and 8 are named Port7 and Port8, on port type 1",
           {"expected Port7 and Port8, seen %s and %s", name_of(6).c_str(), name_of(7).c_str()});
    ACCEPTS(Usrmacsec_check_fiber_speed, get_eeprom_fiber_speed(1) & 0xffff,
            get_eeprom_fiber_speed(2) & 0xffff);
    REFUSES(Usrmacsec_check_fiber_speed, -2, 1000000);
    const Phrase parts("entry/4# speed/4=%d-%d", accepted(Usrmacsec_check_fiber_speed, 0),
                       accepted(Usrmacsec_check_fiber_speed, 1));
    check_setting({"get_eeprom_fiber_speed",
                   +[](int entry, int* speed) { *speed = get_eeprom_fiber_speed(entry); }},
                  {"set_eeprom_fiber_speed",
                   +[](int entry, int speed) {
                       set_fiber_speed(entry + 5, speed);
                       return set_eeprom_fiber_speed(entry, speed);
                   }},
                  parts.chars, {1, 2});
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
           {"expected a port or more, and no fewer logical ones, seen %u and %u", ports, ids});
    check_masks();
    GETTER(U_TrkLId2LogicId, "name/16t id/1#", {0, ids});
    for (int id = 1; id < g_ucMaxLogicPort; ++id) {
        expect(name_of(id - 1) != name_of(id), "U_TrkLId2LogicId", "each id has its own name",
               {"expected %d unlike the id before, seen %s", id, name_of(id).c_str()});
    }
    GETTER(U_TrkLId2PMask, "members/8 id/1#", {ports, ids > ports ? ids - ports : 0});
    check_setting({NAMED(U_FlshPortGetEbl)}, {"U_PortSetEbl", set_enabled}, "port/1# flag/1=0-1",
                  {0, ports});
    ACCEPTS(Usrflsh_check_port_enable_status, 0, 1);
    REFUSES(Usrflsh_check_port_enable_status, 100, -100);
    const int type = get_eeprom_macsec_port_type();
    expect(type >= 0 && type <= 255, "get_eeprom_macsec_port_type", "is a byte",
           {"expected 0 to 255, seen %d", type});
    if (type == 1) {
        check_fibre_ports();
    }
}
