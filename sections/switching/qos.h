// "QoS Setting", "CoS Queue Mapping" and "DSCP Mapping": how the egress queues
// are served, and how frames are assigned to them. Check judges none of it.
#pragma once

#include "frame/document.h"

void backup_ini_qos_settings(FILE* ini_file);
void backup_ini_cos_queue_mapping(FILE* ini_file);
void backup_ini_dscp_mapping(FILE* ini_file);

// Applies all three sections, the last two through the routines below.
void restore_ini_qos(const dictionary* ini);
void restore_ini_cos(const dictionary* ini);
void restore_ini_dscp(const dictionary* ini);
