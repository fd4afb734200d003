/*
 * The rapid spanning tree (IEEE 802.1D-2004, clause 17) and its protections.
 *
 * Ports are numbered from 0. U_ operations return 0 (USR_RET_OK) or a fault;
 * a read that fails leaves its outputs as they were.
 */
#ifndef SWITCH_RSTP_H
#define SWITCH_RSTP_H

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

unsigned short U_StpGetEbl(char* enabled);
unsigned short U_StpSetEbl(char enabled);

/* The protocol version. */
enum { STP_VERSION_RSTP = 2 };
unsigned short U_StpGetForceVersion(uint8_t* version);
unsigned short U_StpSetForceVersion(uint8_t version);

/* The bridge priority: a multiple of 4096, at most 61440. */
unsigned short U_StpGetPriority(uint16_t* priority);
unsigned short U_StpSetPriority(uint16_t priority);

/* The bridge timers, in seconds. */
unsigned short U_StpSetFwdAgeHello(uint8_t forward_delay, uint8_t maximum_age, uint8_t hello_time);

/* BPDU guard: 1 on, 0 off, and its interval in the library's unit. */
typedef struct {
    uint8_t bEbl;
    uint32_t ulIntervalTime;
} TstBpduGuardCfg;
unsigned short U_FlshStpGetBpduGuardCfg(TstBpduGuardCfg* guard); /* stored */
unsigned short U_StpSetBpduGuardCfg(char enabled, uint32_t interval);

/* Whether a port is an edge port; stored. */
unsigned short U_FlshStpGetPortEdge(uint8_t port, char* edge);
unsigned short U_FlshStpSetPortEdge(uint8_t port, char edge);

/* 1 when a port is excluded from the spanning tree. */
unsigned short U_FlshStpGetPortNonstp(uint8_t port, char* excluded); /* stored */
unsigned short U_StpSetPortNonstp(uint8_t port, char excluded);

/* BPDU guard on a port; the caller of the read fills in ucPortId. */
typedef struct {
    uint8_t ucPortId;
    char bBpduGuardEbl;
    char bStateIsDisabled;
} TstBpduGuardPortState;
unsigned short U_FlshStpGetBpduGuardPortState(TstBpduGuardPortState* state); /* stored */
unsigned short U_StpSetPortBpduGuardEbl(uint8_t port, char enabled);

/* Root guard and BPDU filter on a port: applied by the one pair, stored by the other. */
unsigned short U_StpSetPortRootGuard(uint8_t port, char enabled);
unsigned short U_StpSetPortBpduFilter(uint8_t port, char enabled);

/* The flags are one byte each, 0 or 1. */
typedef struct {
    uint8_t bpdu_filter;
    uint8_t root_guard;
    char reserved[100];
} stp_rstp_t;

static_assert(sizeof(stp_rstp_t) == 102, "no gaps");
static_assert(offsetof(stp_rstp_t, root_guard) == 1, "no gaps");

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

void stp_rstp_getFromFlash(stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error);
void stp_rstp_setToFlash(const stp_rstp_t* protection, uint8_t port, stp_rstp_err_t* error);

#ifdef __cplusplus
}
#endif

#endif
