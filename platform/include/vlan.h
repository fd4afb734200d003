/*
 * VLANs (IEEE 802.1Q) of the eight ports, the management VLAN, and port
 * isolation.
 *
 * U_ operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_VLAN_H
#define SWITCH_VLAN_H

#include "platform/include/port_masks.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The role of a port. The tool passes 2 for a text that names neither. */
enum { VLAN_ROLE_ACCESS = 0, VLAN_ROLE_TRUNK = 1 };
CONTRACT_ASSERT(VLAN_ROLE_ACCESS == 0 && VLAN_ROLE_TRUNK == 1);

/*
 * Role and VLAN list of each port. A list is a text of VLAN IDs separated by
 * ",", NUL-terminated, at most 1023 characters; the rest of its grammar is the
 * library's own. Only the library uses min_vlan; the tool passes zeros.
 */
typedef struct {
    int32_t portrole[8];
    int32_t min_vlan[8];
    char vlan_str[8][1024];
} vlan_data_t;

CONTRACT_SIZE(vlan_data_t, 8256);
CONTRACT_FIELD(vlan_data_t, portrole, int32_t[8], 0);
CONTRACT_FIELD(vlan_data_t, min_vlan, int32_t[8], 32);
CONTRACT_FIELD(vlan_data_t, vlan_str, char[8][1024], 64);

/* An entry of the static VLAN table: its members and its tagged ports, logical and physical. */
typedef struct {
    uint16_t usVlanId;
    char acName[17];
    TstLPortMask stPortMask;
    TstPPortMask stPPortMask;
    TstLPortMask stTagMask;
    TstPPortMask stPTagMask;
    uint16_t usProtocolType;
} TstFlshVlanEntry;

CONTRACT_SIZE(TstFlshVlanEntry, 56);
CONTRACT_FIELD(TstFlshVlanEntry, usVlanId, uint16_t, 0);
CONTRACT_FIELD(TstFlshVlanEntry, acName, char[17], 2);
CONTRACT_FIELD(TstFlshVlanEntry, stPortMask, TstLPortMask, 20);
CONTRACT_FIELD(TstFlshVlanEntry, stPPortMask, TstPPortMask, 28);
CONTRACT_FIELD(TstFlshVlanEntry, stTagMask, TstLPortMask, 36);
CONTRACT_FIELD(TstFlshVlanEntry, stPTagMask, TstPPortMask, 44);
CONTRACT_FIELD(TstFlshVlanEntry, usProtocolType, uint16_t, 52);

/* Reads roles and lists; sets all eight roles. */
void get_vlan_data(vlan_data_t* data);

/* What check_vlan_data returns. Any other number counts as valid. */
enum {
    VLAN_DATA_VALID = 0,
    VLAN_DATA_ROLE = -1,        /* a role is neither access nor trunk */
    VLAN_DATA_ACCESS_LIST = -2, /* an access port lists more than one VLAN */
    VLAN_DATA_ID_VALUE = -3,    /* an ID is invalid */
    VLAN_DATA_ID_RANGE = -4,    /* an ID is out of range */
    VLAN_DATA_MANAGEMENT = -5,  /* the management VLAN is wrong */
    VLAN_DATA_MANAGEMENT_2 = -6 /* the same */
};
CONTRACT_ASSERT(VLAN_DATA_VALID == 0 && VLAN_DATA_ROLE == -1 && VLAN_DATA_ACCESS_LIST == -2);
CONTRACT_ASSERT(VLAN_DATA_ID_VALUE == -3 && VLAN_DATA_ID_RANGE == -4);
CONTRACT_ASSERT(VLAN_DATA_MANAGEMENT == -5 && VLAN_DATA_MANAGEMENT_2 == -6);

/*
 * Judges roles and lists, and fills the entry table and the removal list for
 * set_vlan_data; the tool reads none of the three buffers. All are zeroed before.
 * msg has 100 bytes. Check passes a table of 4096 entries and a list of 4096
 * bytes, restore 512 entries and 512 32-bit numbers: stay within the smaller.
 */
int check_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list);

/*
 * Applies what check_vlan_data has prepared in the same buffers. The last argument
 * is always 1. Must do no harm when that check has found a fault: restore does not
 * look at its result.
 */
void set_vlan_data(vlan_data_t* data, char* msg, TstFlshVlanEntry* table, void* removal_list,
                   int apply);

/* The ID of the management VLAN, 1 to 4094. Restore stores any number, after the VLANs. */
unsigned short U_VlanGetMgnVlanId(uint16_t* id);
unsigned short U_FlshVlanSetMgnVlanId(uint16_t id);

/* The entry of a VLAN in the static VLAN table. Returns 0 when the table holds it. */
uint16_t U_VlanGetSttcEntry(uint16_t id, TstLPortMask* members, TstLPortMask* tagged,
                            uint16_t* protocol_type);

/*
 * Port isolation: for each source port the logical ports that it may forward to.
 * Restore always adds logical port 8, and never the source port itself.
 */
typedef struct {
    TstLPortMask stPortMask[8];
} TstFlshVlanPortBasedEntry;

CONTRACT_SIZE(TstFlshVlanPortBasedEntry, 64);
CONTRACT_FIELD(TstFlshVlanPortBasedEntry, stPortMask, TstLPortMask[8], 0);

/* Read and store the whole table. Restore stores it once for each port. */
unsigned short U_FlshVlanGetPortBasedEntry(TstFlshVlanPortBasedEntry* table);
unsigned short U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry* table);

#ifdef __cplusplus
}
#endif

#endif
