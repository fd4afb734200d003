#include "platform/include/ports.h"

#include "platform/check/check.h"
#include "platform/include/eeprom.h"
#include "platform/include/port_masks.h"

namespace {

template <typename Mask>
std::string words(const Mask& mask) {
    return formatted("%08x %08x", mask.ulMask[0], mask.ulMask[1]);
}

template <typename Mask>
void check_mask(const char* clear_name, void (*clear)(Mask*), const char* set_name,
                void (*set)(Mask*, uint8_t)) {
    Mask masks[2] = {{{~0U, ~0U}}, {{~0U, ~0U}}}; // the second must stay as it is
    clear(masks);
    expect(clear_name, "empties both words", "00000000 00000000", words(masks[0]));
    for (const uint8_t port : std::initializer_list<uint8_t>{0, 7, 31, 32, 40, 63}) {
        set(masks, port);
    }
    expect(set_name, "adds ports up to 63", "80000081 80000101", words(masks[0]));
    expect(clear_name, "writes both words and no others", "ffffffff ffffffff", words(masks[1]));
}

void check_masks() {
    check_mask(NAMED(U_LPortMaskClrAll), NAMED(U_LPortMaskSetPort));
    check_mask(NAMED(U_PPortMaskClrAll), NAMED(U_PPortMaskSetPort));
    const TstLPortMask mask = {{0x80000001, 0x40000010}};
    TstLPortMask found = {};
    for (uint8_t port = 0; port < 64; ++port) {
        found.ulMask[port / 32] |= U_LPortMaskGetPort(&mask, port) != 0 ? 1U << port % 32 : 0;
    }
    expect("U_LPortMaskGetPort", "finds each of 64 ports", words(mask), words(found));
    const TstPPortMask sets[] = {{{0x80000001, 0x10}}, {{0x300, 0x80000000}}};
    TstPPortMask result = {{0x40, 0x40}};
    U_PPortMaskCopy(&result, &sets[0]);
    expect("U_PPortMaskCopy", "copies both words", words(sets[0]), words(result));
    U_PPortMaskOr(&result, &sets[1], &sets[0]);
    expect("U_PPortMaskOr", "unites both words", "80000301 80000010", words(result));
}

std::string name_of(int id) {
    char name[80] = "";
    U_TrkLId2LogicId(name, static_cast<uint8_t>(id));
    return name;
}

// In the order of restore.
int set_speed(int entry, int speed) {
    set_fiber_speed(entry + 5, speed);
    return set_eeprom_fiber_speed(entry, speed);
}

// With port type 1, backup asks the EEPROM about each fibre port, and check wants the keys
// of Port7 and Port8.
void check_fibre_ports() {
    for (uint8_t port = 0; port < g_ucMaxPhyPort || port < 8; ++port) {
        const bool is_fibre = U_PortGetMode(port) == LAN_PORT_MODE_FIBER;
        expect("U_PortGetMode", "is 3 for ports 7 and 8 and no others, on port type 1",
               port == 6 || port == 7 ? "3" : "another", is_fibre ? "3" : "another");
    }
    expect("U_TrkLId2LogicId", "ports 7 and 8 are named Port7 and Port8, on port type 1",
           "Port7 Port8", name_of(6) + " " + name_of(7));
    check_validator(NAMED(Usrmacsec_check_fiber_speed),
                    {get_eeprom_fiber_speed(1) & 0xffff, get_eeprom_fiber_speed(2) & 0xffff},
                    {-2, 1000000});
    check_setting({"get_eeprom_fiber_speed",
                   [](int entry, int* speed) { *speed = get_eeprom_fiber_speed(entry); }},
                  {"set_eeprom_fiber_speed", set_speed},
                  {index_up_to(3, 1), accepted(Usrmacsec_check_fiber_speed)});
}

unsigned short set_enabled(uint8_t port, char enabled) {
    const unsigned short result = U_PortSetEbl(port, enabled);
    U_PortSetSWreset();
    return result;
}

} // namespace

void check_ports() {
    const unsigned ports = g_ucMaxPhyPort;
    const unsigned ids = g_ucMaxLogicPort;
    report("port_init", "sets as many logical ports as physical ones, or more",
           ids >= ports ? "" : formatted("expected that, seen %u and %u", ids, ports));
    check_masks();
    GETTER(U_TrkLId2LogicId, text(16), index_up_to(ids));
    GETTER(U_TrkLId2PMask, bytes(8, 8), index_up_to(ids, ports));
    check_setting({NAMED(U_FlshPortGetEbl)}, {"U_PortSetEbl", set_enabled},
                  {index_up_to(ports), {0, 1}});
    check_validator(NAMED(Usrflsh_check_port_enable_status), {0, 1}, {100, -100});
    const int type = get_eeprom_macsec_port_type();
    expect("get_eeprom_macsec_port_type", "is a byte", type & 0xff, type);
    if (type == 1) {
        check_fibre_ports();
    }
}
