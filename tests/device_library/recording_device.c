/*
 * A device library of a few operations that record that they were called, on
 * standard output. In C, so that the contract's headers are read by a C
 * compiler too. Every other operation is an empty stub.
 */
#include "platform/include/accounts.h"
#include "platform/include/acl.h"
#include "platform/include/aes.h"
#include "platform/include/converters.h"
#include "platform/include/dot1x.h"
#include "platform/include/eeprom.h"
#include "platform/include/login_server.h"
#include "platform/include/macsec.h"
#include "platform/include/modbus.h"
#include "platform/include/periodic_backup.h"
#include "platform/include/port_masks.h"
#include "platform/include/port_security.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/return_codes.h"
#include "platform/include/rstp.h"
#include "platform/include/services.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/sntp.h"
#include "platform/include/start_up.h"
#include "platform/include/system.h"
#include "platform/include/system_log.h"
#include "platform/include/vlan.h"
#include "platform/include/warnings.h"

#include <stdio.h>
#include <string.h>

uint8_t g_ucMaxPhyPort;
uint8_t g_ucMaxLogicPort;
const uint8_t key[32] = {0};

MSD_QD_DEV* init_umdev(int device) {
    printf("init_umdev(%d)\n", device);
    return NULL;
}

int initdef(void) {
    puts("initdef()");
    return 0;
}

int port_init(void) {
    puts("port_init()");
    g_ucMaxPhyPort = 2;
    return 0;
}

int get_full_model_name(char* name) {
    strcpy(name, "REC-2");
    return 0;
}

unsigned short U_FlshPortGetEbl(uint8_t port, char* enabled) {
    printf("U_FlshPortGetEbl(%d)\n", port);
    *enabled = port == 1;
    return USR_RET_OK;
}
