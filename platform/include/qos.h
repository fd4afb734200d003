/*
 * Quality of service: how the eight egress queues are served, and which queue a
 * frame gets by its 802.1p priority or its DSCP (RFC 2474).
 *
 * Operations return 0 or a fault. A read that fails leaves its output unchanged.
 * The library judges the ranges of weights, queues and mapped values.
 */
#ifndef SWITCH_QOS_H
#define SWITCH_QOS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* What decides the class of a frame. Devices may return any other number. */
typedef int32_t classification_t;
enum { CLASSIFY_NONE = 0, IEE_PCP = 1, IP_DSCP = 2, IEE_PCP_PLUS_IP_DSCP = 3 };
CONTRACT_SIZE(classification_t, 4);
CONTRACT_ASSERT(CLASSIFY_NONE == 0 && IEE_PCP == 1);
CONTRACT_ASSERT(IP_DSCP == 2 && IEE_PCP_PLUS_IP_DSCP == 3);

/* The scheduling mode. The tool knows these two; documents carry no other. */
enum { QOS_WEIGHTED_ROUND_ROBIN = 0, QOS_STRICT_PRIORITY = 7 };
CONTRACT_ASSERT(QOS_WEIGHTED_ROUND_ROBIN == 0 && QOS_STRICT_PRIORITY == 7);

typedef struct {
    uint16_t sch;
    uint32_t paiWeights[8]; /* of queues 0 to 7, in packets */
    classification_t classify;
} TstFlshSchedulemode;

CONTRACT_SIZE(TstFlshSchedulemode, 40);
CONTRACT_FIELD(TstFlshSchedulemode, sch, uint16_t, 0);
CONTRACT_FIELD(TstFlshSchedulemode, paiWeights, uint32_t[8], 4);
CONTRACT_FIELD(TstFlshSchedulemode, classify, classification_t, 36);

/* The queue of each 802.1p priority, 0 to 7. */
typedef struct {
    uint8_t pcpq[8];
} TstFlshCosQueueMapping;
typedef TstFlshCosQueueMapping TstFlshcosqueuemapping;

CONTRACT_SIZE(TstFlshCosQueueMapping, 8);
CONTRACT_FIELD(TstFlshCosQueueMapping, pcpq, uint8_t[8], 0);

/* The mapped value of each DSCP, 0 to 63. */
typedef struct {
    uint8_t dscp[64];
} TstFlshDscpMapping;
typedef TstFlshDscpMapping TstFlshdscpmapping;

CONTRACT_SIZE(TstFlshDscpMapping, 64);
CONTRACT_FIELD(TstFlshDscpMapping, dscp, uint8_t[64], 0);

/* Mode, weights and classification together. */
int U_QosGetScheduleMode(TstFlshSchedulemode* mode);
int U_QosSetScheduleMode(TstFlshSchedulemode* mode);

/* Each of these reads or stores a whole table. */
int U_QosGetcosqueuemapping(TstFlshCosQueueMapping* mapping);
int U_QosSetcosqueuemapping(TstFlshCosQueueMapping* mapping);
int U_QosGetdscpmapping(TstFlshDscpMapping* mapping);
int U_QosSetdscpmapping(TstFlshDscpMapping* mapping);

/* The library's QoS initialisation. Restore calls nothing else when it does not know the mode. */
int U_QosInit(void);

#ifdef __cplusplus
}
#endif

#endif
