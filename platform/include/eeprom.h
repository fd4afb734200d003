/* The EEPROM library: what the factory wrote into this device, and a few options. */
#ifndef SWITCH_EEPROM_H
#define SWITCH_EEPROM_H

#ifdef __cplusplus
extern "C" {
#endif

/* The model name, NUL-terminated, at most 32 characters. */
int get_full_model_name(char* name);

/* The MACsec port type; 1 is a model whose two fibre ports carry the suffix "-2SFP". */
int get_eeprom_macsec_port_type(void);

/* The stored speed code of a fibre entry, 1 or 2; the coding is the EEPROM's. */
int get_eeprom_fiber_speed(int entry);
int set_eeprom_fiber_speed(int entry, int speed);

/* The option flag of the automatic default; any number but 0 is on. */
int get_eeprom_serial_port(void);
int set_eeprom_serial_port(int flag);

#ifdef __cplusplus
}
#endif

#endif
