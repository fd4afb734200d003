/*
 * The rapid spanning tree (IEEE 802.1D-2004, clause 17) and its protections.
 *
 * Ports count from 0. Flags are 1 (on) or 0 (off). U_ operations return 0
 * (USR_RET_OK) or a fault. A read that fails leaves its output unchanged.
 */
#ifndef SWITCH_RSTP_H
#define SWITCH_RSTP_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

unsigned short U_StpGetEbl(char* enabled);
unsigned short U_StpSetEbl(char enabled);

/* The protocol version. Check accepts only this one. */
enum { STP_VERSION_RSTP = 2 };
CONTRACT_ASSERT(STP_VERSION_RSTP == 2);
unsigned short U_StpGetForceVersion(uint8_t* version);
unsigned short U_StpSetForceVersion(uint8_t version);

/* The bridge priority: a multiple of 4096, at most 61440. */
unsigned short U_StpGetPriority(uint16_t* priority);
unsigned short U_StpSetPriority(uint16_t priority);

/* The bridge timers, in seconds. Restore always sets 15, 20 and 2. */
unsigned short U_StpSetFwdAgeHello(uint8_t forward_delay, uint8_t maximum_age, uint8_t hello_time);

/* BPDU guard of the bridge. Unit and range of the interval are the library's own. */
typedef struct {
    uint8_t bEbl;
    uint32_t ulIntervalTime;
} TstBpduGuardCfg;

CONTRACT_SIZE(TstBpduGuardCfg, 8);
CONTRACT_FIELD(TstBpduGuardCfg, bEbl, uint8_t, 0);
CONTRACT_FIELD(TstBpduGuardCfg, ulIntervalTime, uint32_t, 4);

unsigned short U_FlshStpGetBpduGuardCfg(TstBpduGuardCfg* guard); /* stored */
unsigned short U_StpSetBpduGuardCfg(char enabled, uint32_t interval);

/* Whether a port is an edge port. Both work on the stored flag. */
unsigned short U_FlshStpGetPortEdge(uint8_t port, char* edge);
unsigned short U_FlshStpSetPortEdge(uint8_t port, char edge);

/* 1 excludes a port from the spanning tree, 0 includes it. */
unsigned short U_FlshStpGetPortNonstp(uint8_t port, char* excluded); /* stored */
unsigned short U_StpSetPortNonstp(uint8_t port, char excluded);

/* BPDU guard of a port. The caller of the read sets ucPortId; the library sets the rest. */
typedef struct {
    uint8_t ucPortId;
    char bBpduGuardEbl;
    char bStateIsDisabled;
} TstBpduGuardPortState;

CONTRACT_SIZE(TstBpduGuardPortState, 3);
CONTRACT_FIELD(TstBpduGuardPortState, ucPortId, uint8_t, 0);
CONTRACT_FIELD(TstBpduGuardPortState, bBpduGuardEbl, char, 1);
CONTRACT_FIELD(TstBpduGuardPortState, bStateIsDisabled, char, 2);

unsigned short U_FlshStpGetBpduGuardPortState(TstBpduGuardPortState* state); /* stored */
unsigned short U_StpSetPortBpduGuardEbl(uint8_t port, char enabled);

/*
 * Root guard and BPDU filter of a port. The two sets apply the flags, and
 * stp_rstp_setToFlash stores them; restore calls all three, in this order.
 */
unsigned short U_StpSetPortRootGuard(uint8_t port, char enabled);
unsigned short U_StpSetPortBpduFilter(uint8_t port, char enabled);

/* The stored flags of a port, one byte each. */
typedef struct {
    uint8_t bpdu_filter;
    uint8_t root_guard;
    char reserved[100]; /* zero */
} stp_rstp_t;

CONTRACT_SIZE(stp_rstp_t, 102);
CONTRACT_FIELD(stp_rstp_t, bpdu_filter, uint8_t, 0);
CONTRACT_FIELD(stp_rstp_t, root_guard, uint8_t, 1);
CONTRACT_FIELD(stp_rstp_t, reserved, char[100], 2);

/* The tool sets the error to STP_RSTP_NO_ERROR before a call and does not read it afterwards. */
typedef int32_t stp_rstp_err_t;
enum {
    STP_RSTP_NO_ERROR = 0,
    STP_RSTP_ME_PTR_NULL = 1,
    STP_RSTP_PORT_ID_WRONG = 2,
    STP_RSTP_ERROR_PTR_NULL = 3,
    STP_RSTP_EDGE_VALUE_ERROR = 4,
    STP_RSTP_BPDU_FILTER_VALUE_ERROR = 5,
    STP_RSTP_BPDU_GUARD_VALUE_ERROR = 6,
    STP_RSTP_ROOT_GUARD_VALUE_ERROR = 7
};
CONTRACT_ASSERT(STP_RSTP_NO_ERROR == 0 && STP_RSTP_ME_PTR_NULL == 1);
CONTRACT_ASSERT(STP_RSTP_PORT_ID_WRONG == 2 && STP_RSTP_ERROR_PTR_NULL == 3);
CONTRACT_ASSERT(STP_RSTP_EDGE_VALUE_ERROR == 4 && STP_RSTP_BPDU_FILTER_VALUE_ERROR == 5);
CONTRACT_ASSERT(STP_RSTP_BPDU_GUARD_VALUE_ERROR == 6 && STP_RSTP_ROOT_GUARD_VALUE_ERROR == 7);

void stp_rstp_getFromFlash(stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error);
void stp_rstp_setToFlash(const stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error);

#ifdef __cplusplus
}
#endif

#endif
