/*
 * Quality of service: how the eight egress queues are served, and how frames
 * are assigned to them by 802.1p priority and DSCP (RFC 2474).
 *
 * Operations return 0 or a fault; a read that fails leaves its output as it was.
 */
#ifndef SWITCH_QOS_H
#define SWITCH_QOS_H

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What a frame is classified by. Any number may come from the device. */
typedef int32_t classification_t;
enum { CLASSIFY_NONE = 0, IEE_PCP = 1, IP_DSCP = 2, IEE_PCP_PLUS_IP_DSCP = 3 };

/* The scheduling mode; the library has more. */
enum { QOS_WEIGHTED_ROUND_ROBIN = 0, QOS_STRICT_PRIORITY = 7 };

typedef struct {
    uint16_t sch;
    uint32_t paiWeights[8]; /* of the queues, in packets */
    classification_t classify;
} TstFlshSchedulemode;

static_assert(sizeof(TstFlshSchedulemode) == 40, "one gap, after the mode");
static_assert(offsetof(TstFlshSchedulemode, paiWeights) == 4, "a 4-byte boundary");
static_assert(offsetof(TstFlshSchedulemode, classify) == 36, "no gap");

/* The queue of each 802.1p priority. */
typedef struct {
    uint8_t pcpq[8];
} TstFlshCosQueueMapping;
typedef TstFlshCosQueueMapping TstFlshcosqueuemapping;

/* The mapped value of each DSCP. */
typedef struct {
    uint8_t dscp[64];
} TstFlshDscpMapping;
typedef TstFlshDscpMapping TstFlshdscpmapping;

static_assert(sizeof(TstFlshCosQueueMapping) == 8, "no gaps");
static_assert(sizeof(TstFlshDscpMapping) == 64, "no gaps");

/* Mode, weights and classification together. */
int U_QosGetScheduleMode(TstFlshSchedulemode* mode);
int U_QosSetScheduleMode(TstFlshSchedulemode* mode);

int U_QosGetcosqueuemapping(TstFlshCosQueueMapping* mapping);
int U_QosSetcosqueuemapping(TstFlshCosQueueMapping* mapping);

int U_QosGetdscpmapping(TstFlshDscpMapping* mapping);
int U_QosSetdscpmapping(TstFlshDscpMapping* mapping);

/* The library's QoS initialisation. */
int U_QosInit(void);

#ifdef __cplusplus
}
#endif

#endif
