/*
 * Sets of ports, and the trunk (link aggregation) groups behind logical ports.
 *
 * Logical ids name the physical ports first, one to one, and then the trunk
 * groups, g_ucMaxLogicPort ids in all. The words of a mask are read and
 * written through these operations only.
 */
#ifndef SWITCH_PORT_MASKS_H
#define SWITCH_PORT_MASKS_H

#include <assert.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A set of logical ports: bit k of word w is port 32 w + k, 64 ports in all. */
typedef struct {
    uint32_t ulMask[2];
} TstLPortMask;
typedef TstLPortMask LOGIC_PORTMASK_T;

/* A set of physical ports, laid out like TstLPortMask. */
typedef struct {
    uint32_t ulMask[2];
} TstPPortMask;
typedef TstPPortMask PHY_PORTMASK_T;

static_assert(sizeof(TstLPortMask) == 8, "two 32-bit words");
static_assert(sizeof(TstPPortMask) == 8, "two 32-bit words");

/* Ports are numbered from 0; a port beyond 63 is in no set. */
void U_LPortMaskClrAll(TstLPortMask* mask);
void U_LPortMaskSetPort(TstLPortMask* mask, uint8_t port);
char U_LPortMaskGetPort(const TstLPortMask* mask, uint8_t port); /* nonzero: in the set */

void U_PPortMaskClrAll(TstPPortMask* mask);
void U_PPortMaskSetPort(TstPPortMask* mask, uint8_t port);
void U_PPortMaskCopy(TstPPortMask* destination, const TstPPortMask* source);
/* destination becomes the union of the other two. */
void U_PPortMaskOr(TstPPortMask* destination, const TstPPortMask* first,
                   const TstPPortMask* second);

/* The physical member ports of the trunk group with this logical id. */
uint16_t U_TrkLId2PMask(TstPPortMask* members, uint8_t logical_id);

/* The display name of a logical port ("Port7" for id 6), into 16 bytes. */
uint16_t U_TrkLId2LogicId(char* name, uint8_t logical_id);

#ifdef __cplusplus
}
#endif

#endif
