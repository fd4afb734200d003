/*
 * The Modbus TCP service (Modbus Messaging on TCP/IP Implementation Guide).
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * output unchanged.
 */
#ifndef SWITCH_MODBUS_H
#define SWITCH_MODBUS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The stored settings. modbus_enabled is 1 when the service runs. */
typedef struct {
    uint8_t modbus_address;
    char modbus_enabled;
    unsigned long modbus_port;
} TstFlshModbus;

CONTRACT_SIZE(TstFlshModbus, 2 * sizeof(unsigned long));
CONTRACT_FIELD(TstFlshModbus, modbus_address, uint8_t, 0);
CONTRACT_FIELD(TstFlshModbus, modbus_enabled, char, 1);
CONTRACT_FIELD(TstFlshModbus, modbus_port, unsigned long, sizeof(unsigned long));

/*
 * A read of the address or the port writes as many bytes as its field above has.
 * The tool passes a zeroed variable with room for an unsigned long. A library
 * that writes another width overruns nothing, but on a big-endian machine it
 * needs an adapter to return the right number.
 *
 * Restore passes any number to the sets; the validators below know the ranges.
 */
unsigned short U_SysGetModbusAddr(uint8_t* address);
unsigned short U_SysSetModbusAddr(int address);
unsigned short U_SysGetModbusEnabled(char* enabled);
unsigned short U_SysSetModbusEnabled(int enabled); /* 0 or 1 */
unsigned short U_SysGetModbusPort(unsigned long* port);
unsigned short U_SysSetModbusPort(int port);

/* Starts the service right after it has been enabled. The argument is always 1. */
unsigned short U_SysExecuteModbus(int start);

/* Validators: nonzero in the low 8 bits when acceptable. */
char Usrmodbus_check_modbus_addr(int address);
char Usrmodbus_check_modbus_enable(int enabled);
char Usrmodbus_check_modbus_port(int port);

#ifdef __cplusplus
}
#endif

#endif
