/*
 * VLANs (IEEE 802.1Q) of the eight ports, the management VLAN, and port
 * isolation.
 *
 * U_ operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * outputs as they were.
 */
#ifndef SWITCH_VLAN_H
#define SWITCH_VLAN_H

#include "platform/include/port_masks.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The role of a port; any other number is none. */
enum { VLAN_ROLE_ACCESS = 0, VLAN_ROLE_TRUNK = 1 };

/*
 * Role and VLAN list of each port. The lists are texts, IDs separated by ",";
 * whatever else is in their grammar is the library's, and so is min_vlan.
 */
typedef struct {
    int32_t portrole[8];
    int32_t min_vlan[8];
    char vlan_str[8][1024];
} vlan_data_t;

static_assert(sizeof(vlan_data_t) == 8256, "no gaps");
static_assert(offsetof(vlan_data_t, vlan_str) == 64, "no gaps");

/* An entry of the static VLAN table: member ports and tagged ports, logical and physical. */
typedef struct {
    uint16_t usVlanId;
    char acName[17];
    TstLPortMask stPortMask;
    TstPPortMask stPPortMask;
    TstLPortMask stTagMask;
    TstPPortMask stPTagMask;
    uint16_t usProtocolType;
} TstFlshVlanEntry;

static_assert(sizeof(TstFlshVlanEntry) == 56, "a 4-byte boundary");
static_assert(offsetof(TstFlshVlanEntry, acName) == 2, "after the ID");
static_assert(offsetof(TstFlshVlanEntry, stPortMask) == 20, "a 4-byte boundary");
static_assert(offsetof(TstFlshVlanEntry, stPPortMask) == 28, "no gap");
static_assert(offsetof(TstFlshVlanEntry, stTagMask) == 36, "no gap");
static_assert(offsetof(TstFlshVlanEntry, stPTagMask) == 44, "no gap");
static_assert(offsetof(TstFlshVlanEntry, usProtocolType) == 52, "no gap");

void get_vlan_data(vlan_data_t* data);

/*
 * Judges roles and lists, and prepares the entry table and the removal list
 * for set_vlan_data. Work buffers are zeroed by the caller: msg has 100 bytes,
 * table at least 512 entries, removal_list at least 2048 bytes on a 4-byte
 * boundary. A set is given the buffers of the check before it, and 1 in the end.
 */
enum {
    VLAN_DATA_VALID = 0,
    VLAN_DATA_ROLE = -1,        /* a role is neither of the two */
    VLAN_DATA_ACCESS_LIST = -2, /* an access port lists more than one VLAN */
    VLAN_DATA_ID_VALUE = -3,    /* an ID is no number */
    VLAN_DATA_ID_RANGE = -4,    /* an ID is out of range */
    VLAN_DATA_MANAGEMENT = -5,  /* these two: the management VLAN is in error */
    VLAN_DATA_MANAGEMENT_2 = -6
};
int check_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list);
void set_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list,
                   int apply);

/* The management VLAN. */
unsigned short U_VlanGetMgnVlanId(uint16_t* id);
unsigned short U_FlshVlanSetMgnVlanId(uint16_t id); /* stores it */

/* The entry of a VLAN in the static VLAN table: 0 when there is one. */
uint16_t U_VlanGetSttcEntry(uint16_t id, TstLPortMask* members, TstLPortMask* tagged,
                            uint16_t* protocol_type);

/* Port isolation: for each source port the logical ports that it may forward to. */
typedef struct {
    TstLPortMask stPortMask[8];
} TstFlshVlanPortBasedEntry;

static_assert(sizeof(TstFlshVlanPortBasedEntry) == 64, "eight masks");

unsigned short U_FlshVlanGetPortBasedEntry(TstFlshVlanPortBasedEntry* table);
unsigned short U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry* table);

#ifdef __cplusplus
}
#endif

#endif
