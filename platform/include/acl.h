/*
 * Access control rules, in 33 storage slots, numbered from 0.
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * output unchanged.
 */
#ifndef SWITCH_ACL_H
#define SWITCH_ACL_H

#include "platform/include/port_masks.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Which conditions a classifier has: bits of its ulBitMap. */
enum {
    ACL_CLASSIFIER_SA = 1,     /* source MAC address and mask */
    ACL_CLASSIFIER_SRC_IP = 64 /* source IPv4 address and mask */
};
CONTRACT_ASSERT(ACL_CLASSIFIER_SA == 1 && ACL_CLASSIFIER_SRC_IP == 64);

/* What a frame must match. Addresses are in the form of mac_to_str and ip_to_str. */
typedef struct {
    uint32_t ulBitMap;
    uint8_t aucSrcMac[6];
    uint8_t aucSrcMacMask[6];
    uint32_t ulSrcIp;
    uint32_t ulSrcIpMask;
    TstPPortMask pstSrcPortMask; /* ingress ports */
} TstAclClassifier;

CONTRACT_SIZE(TstAclClassifier, 32);
CONTRACT_FIELD(TstAclClassifier, ulBitMap, uint32_t, 0);
CONTRACT_FIELD(TstAclClassifier, aucSrcMac, uint8_t[6], 4);
CONTRACT_FIELD(TstAclClassifier, aucSrcMacMask, uint8_t[6], 10);
CONTRACT_FIELD(TstAclClassifier, ulSrcIp, uint32_t, 16);
CONTRACT_FIELD(TstAclClassifier, ulSrcIpMask, uint32_t, 20);
CONTRACT_FIELD(TstAclClassifier, pstSrcPortMask, TstPPortMask, 24);

/* What happens to a frame that matches; one of these, not bits. */
enum {
    ACL_POLICY_NULL = 1, /* permit */
    ACL_POLICY_DROP = 2, /* deny */
    ACL_POLICY_DISABLE = 3
};
CONTRACT_ASSERT(ACL_POLICY_NULL == 1 && ACL_POLICY_DROP == 2 && ACL_POLICY_DISABLE == 3);

typedef struct {
    uint32_t ulBitMap;
} TstAclPolicy;

CONTRACT_SIZE(TstAclPolicy, 4);
CONTRACT_FIELD(TstAclPolicy, ulBitMap, uint32_t, 0);

/* A rule. */
typedef struct {
    uint16_t usIndex;   /* 0: the slot is empty */
    char acAclName[32]; /* NUL-terminated, at most 31 characters */
    TstAclClassifier stClassifier;
    TstAclPolicy stPolicy;
} TstFlshAcl;

CONTRACT_SIZE(TstFlshAcl, 72);
CONTRACT_FIELD(TstFlshAcl, usIndex, uint16_t, 0);
CONTRACT_FIELD(TstFlshAcl, acAclName, char[32], 2);
CONTRACT_FIELD(TstFlshAcl, stClassifier, TstAclClassifier, 36);
CONTRACT_FIELD(TstFlshAcl, stPolicy, TstAclPolicy, 68);

/* Reads the stored rule of a slot. What the slot numbers mean is the library's own. */
uint16_t U_FlshGetAcl(uint32_t slot, TstFlshAcl* rule);

/*
 * Installs and stores a rule, in place of any that has the same index. Which
 * slot it gets is the library's own.
 */
uint16_t U_AclInsRule(uint16_t index, TstFlshAcl* rule);

#ifdef __cplusplus
}
#endif

#endif
