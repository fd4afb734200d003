/*
 * The access control list: rules in 33 storage slots, numbered from 0.
 *
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * output as it was.
 */
#ifndef SWITCH_ACL_H
#define SWITCH_ACL_H

#include "platform/include/port_masks.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Which conditions a classifier has: bits of its ulBitMap. */
enum { ACL_CLASSIFIER_SA = 1, ACL_CLASSIFIER_SRC_IP = 64 };

/* What a frame must match. Addresses are in the form of str_to_mac and str_to_ip. */
typedef struct {
    uint32_t ulBitMap;
    uint8_t aucSrcMac[6];
    uint8_t aucSrcMacMask[6];
    uint32_t ulSrcIp;
    uint32_t ulSrcIpMask;
    TstPPortMask pstSrcPortMask; /* ingress ports */
} TstAclClassifier;

static_assert(sizeof(TstAclClassifier) == 32, "no gaps");
static_assert(offsetof(TstAclClassifier, aucSrcMac) == 4, "no gap");
static_assert(offsetof(TstAclClassifier, aucSrcMacMask) == 10, "no gap");
static_assert(offsetof(TstAclClassifier, ulSrcIp) == 16, "no gap");
static_assert(offsetof(TstAclClassifier, ulSrcIpMask) == 20, "no gap");
static_assert(offsetof(TstAclClassifier, pstSrcPortMask) == 24, "no gap");

/* What is done with a frame that matches: permit, deny, or disabled. */
enum { ACL_POLICY_NULL = 1, ACL_POLICY_DROP = 2, ACL_POLICY_DISABLE = 3 };
typedef struct {
    uint32_t ulBitMap;
} TstAclPolicy;

/* A rule. An index of 0 means an empty slot; the name has at most 31 characters. */
typedef struct {
    uint16_t usIndex;
    char acAclName[32];
    TstAclClassifier stClassifier;
    TstAclPolicy stPolicy;
} TstFlshAcl;

static_assert(sizeof(TstFlshAcl) == 72, "one gap, after the name");
static_assert(offsetof(TstFlshAcl, acAclName) == 2, "after the index");
static_assert(offsetof(TstFlshAcl, stClassifier) == 36, "a 4-byte boundary");
static_assert(offsetof(TstFlshAcl, stPolicy) == 68, "no gap");

/* The stored rule of a slot. */
uint16_t U_FlshGetAcl(uint32_t slot, TstFlshAcl* rule);

/* Installs and stores a rule under its index. */
uint16_t U_AclInsRule(uint16_t index, TstFlshAcl* rule);

#ifdef __cplusplus
}
#endif

#endif
