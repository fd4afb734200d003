/* The schedule on which the switch sends its configuration to a TFTP server (RFC 1350). */
#ifndef SWITCH_PERIODIC_BACKUP_H
#define SWITCH_PERIODIC_BACKUP_H

#include <assert.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The schedule: on when backUp is 1, and the server's IPv4 address in the form of ip_to_str. */
typedef struct {
    char backUp;
    uint16_t tm_hour;
    uint16_t tm_min;
    uint32_t serverIp;
} TstFlshPeriodic;

static_assert(sizeof(TstFlshPeriodic) == 12, "an address on a 4-byte boundary");

/* 0 (USR_RET_OK) or a fault; a read that fails leaves the record as it was. */
unsigned short U_GetPeriodicSetting(TstFlshPeriodic* setting);
unsigned short U_SetPeriodicSetting(TstFlshPeriodic* setting);

#ifdef __cplusplus
}
#endif

#endif
