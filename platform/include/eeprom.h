/*
 * The EEPROM library: the model, the fibre speeds, and one option flag.
 *
 * The tool ignores the results of the sets and of get_full_model_name.
 */
#ifndef SWITCH_EEPROM_H
#define SWITCH_EEPROM_H

#ifdef __cplusplus
extern "C" {
#endif

/* The model name, NUL-terminated, at most 32 characters, into at least 33 bytes. */
int get_full_model_name(char* name);

/*
 * The MACsec port type, 0 to 255. Type 1 is a model with two fibre ports, indexes
 * 6 and 7; its documents append "-2SFP" to the model name.
 */
int get_eeprom_macsec_port_type(void);

/*
 * The stored speed code of a fibre port, 0 to 65535. Entry 1 is port index 6,
 * entry 2 is port index 7. The codes are the library's own.
 */
int get_eeprom_fiber_speed(int entry);
int set_eeprom_fiber_speed(int entry, int speed);

/* The flag of the automatic default: 0 is off, any other number on; a set passes 0 or 1. */
int get_eeprom_serial_port(void);
int set_eeprom_serial_port(int flag);

#ifdef __cplusplus
}
#endif

#endif
