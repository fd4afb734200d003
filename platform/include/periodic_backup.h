/* When the switch sends its configuration to a TFTP server (RFC 1350) by itself. */
#ifndef SWITCH_PERIODIC_BACKUP_H
#define SWITCH_PERIODIC_BACKUP_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The schedule. The tool passes any hour and minute; their range is the library's to judge. */
typedef struct {
    char backUp; /* 1: on */
    uint16_t tm_hour;
    uint16_t tm_min;
    uint32_t serverIp; /* IPv4, in the form of ip_to_str */
} TstFlshPeriodic;

CONTRACT_SIZE(TstFlshPeriodic, 12);
CONTRACT_FIELD(TstFlshPeriodic, backUp, char, 0);
CONTRACT_FIELD(TstFlshPeriodic, tm_hour, uint16_t, 2);
CONTRACT_FIELD(TstFlshPeriodic, tm_min, uint16_t, 4);
CONTRACT_FIELD(TstFlshPeriodic, serverIp, uint32_t, 8);

/*
 * Return 0 (USR_RET_OK) or a fault. A read that fails leaves the record
 * unchanged; a set applies the record and stores it.
 */
unsigned short U_GetPeriodicSetting(TstFlshPeriodic* setting);
unsigned short U_SetPeriodicSetting(TstFlshPeriodic* setting);

#ifdef __cplusplus
}
#endif

#endif
