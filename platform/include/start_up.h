/*
 * Start-up of the device libraries, called once per run and in this order:
 * init_umdev, initdef, port_init. After them every other operation works and
 * the port counts are set. The tool uses none of their results.
 */
#ifndef SWITCH_START_UP_H
#define SWITCH_START_UP_H

#ifdef __cplusplus
extern "C" {
#endif

/* The switch-chip driver's device handle. */
typedef struct MSD_QD_DEV MSD_QD_DEV;

/* Opens the switch chip; the tool passes device number 0. */
MSD_QD_DEV* init_umdev(int device);

/* Loads the stored configuration. */
int initdef(void);

/* Sets the port counts g_ucMaxPhyPort and g_ucMaxLogicPort. */
int port_init(void);

#ifdef __cplusplus
}
#endif

#endif
