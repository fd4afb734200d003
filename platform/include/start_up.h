/*
 * Start-up of the device libraries. Each run calls these once, in this order and
 * before anything else; after that every other operation must work. The tool
 * ignores their results, and calls nothing at the end of a run.
 */
#ifndef SWITCH_START_UP_H
#define SWITCH_START_UP_H

#ifdef __cplusplus
extern "C" {
#endif

/* The switch-chip driver's handle of a device. */
typedef struct MSD_QD_DEV MSD_QD_DEV;

/* Opens the switch chip. The tool passes device number 0. */
MSD_QD_DEV* init_umdev(int device);

/* Loads the stored configuration. */
int initdef(void);

/* Sets the port counts g_ucMaxPhyPort and g_ucMaxLogicPort. */
int port_init(void);

#ifdef __cplusplus
}
#endif

#endif
