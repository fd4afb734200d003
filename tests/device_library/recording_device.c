/*
 * A device library of a few operations that record that they were called, on
 * standard output. Every other operation is an empty stub.
 */
#include "platform/include/aes.h"
#include "platform/include/ports.h"
#include "platform/include/return_codes.h"
#include "platform/include/start_up.h"
#include "platform/include/system.h"

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
