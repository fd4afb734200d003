/*
 * Sets of ports, and the members and names of logical ports.
 *
 * Logical ids count from 0: first the physical ports, one to one, then the trunk
 * (link aggregation) groups, g_ucMaxLogicPort ids in all. Callers never touch the
 * words of a mask.
 */
#ifndef SWITCH_PORT_MASKS_H
#define SWITCH_PORT_MASKS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A set of logical ports: bit k of word w is port 32 w + k, 64 ports in all. */
typedef struct {
    uint32_t ulMask[2];
} TstLPortMask;
typedef TstLPortMask LOGIC_PORTMASK_T;

/* A set of physical ports. The tool reads it with U_LPortMaskGetPort too. */
typedef struct {
    uint32_t ulMask[2];
} TstPPortMask;
typedef TstPPortMask PHY_PORTMASK_T;

CONTRACT_SIZE(TstLPortMask, 8);
CONTRACT_FIELD(TstLPortMask, ulMask, uint32_t[2], 0);
CONTRACT_SIZE(TstPPortMask, 8);
CONTRACT_FIELD(TstPPortMask, ulMask, uint32_t[2], 0);

/* Ports count from 0. No set holds a port above 63. */
void U_LPortMaskClrAll(TstLPortMask* mask);
void U_LPortMaskSetPort(TstLPortMask* mask, uint8_t port);
char U_LPortMaskGetPort(const TstLPortMask* mask, uint8_t port); /* nonzero: in the set */

void U_PPortMaskClrAll(TstPPortMask* mask);
void U_PPortMaskSetPort(TstPPortMask* mask, uint8_t port);
void U_PPortMaskCopy(TstPPortMask* destination, const TstPPortMask* source);
/* Sets destination to the union of first and second. */
void U_PPortMaskOr(TstPPortMask* destination, const TstPPortMask* first,
                   const TstPPortMask* second);

/*
 * The physical ports that are members of a trunk group. Returns 0 (USR_RET_OK) or
 * a fault, which leaves members unchanged.
 */
uint16_t U_TrkLId2PMask(TstPPortMask* members, uint8_t logical_id);

/*
 * The display name of a logical port, NUL-terminated, into 16 bytes: "Port7" for
 * id 6. Returns 0 (USR_RET_OK) or a fault, which leaves name unchanged.
 */
uint16_t U_TrkLId2LogicId(char* name, uint8_t logical_id);

#ifdef __cplusplus
}
#endif

#endif
