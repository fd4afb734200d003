/*
 * The Modbus TCP service (Modbus Messaging on TCP/IP Implementation Guide).
 *
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * output as it was.
 */
#ifndef SWITCH_MODBUS_H
#define SWITCH_MODBUS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The stored settings; modbus_enabled is 1 when the service runs. */
typedef struct {
    uint8_t modbus_address;
    char modbus_enabled;
    unsigned long modbus_port;
} TstFlshModbus;

/*
 * A read of the address or port fills the width of its field above. The
 * caller's variable is zeroed and has room for an unsigned long, so that a
 * library that fills another width does no harm; the value then comes out right
 * on a little-endian machine only, and such a library needs an adapter on a
 * big-endian one.
 */
unsigned short U_SysGetModbusAddr(uint8_t* address);
unsigned short U_SysSetModbusAddr(int address);
unsigned short U_SysGetModbusEnabled(char* enabled);
unsigned short U_SysSetModbusEnabled(int enabled);
unsigned short U_SysGetModbusPort(unsigned long* port);
unsigned short U_SysSetModbusPort(int port);

/* Starts the service that has just been enabled; the argument is always 1. */
unsigned short U_SysExecuteModbus(int start);

/* Validators: nonzero in the low 8 bits when acceptable. */
char Usrmodbus_check_modbus_addr(int address);
char Usrmodbus_check_modbus_enable(int enabled);
char Usrmodbus_check_modbus_port(int port);

#ifdef __cplusplus
}
#endif

#endif
