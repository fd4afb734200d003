// "vlan setting" and "vlan port isolation setting": the IEEE 802.1Q role and
// VLAN list of each port, the management VLAN, and the ports that each port
// may forward to.
#pragma once

#include "frame/document.h"

void backup_ini_vlan_settings(FILE* ini_file);
int check_ini_vlan(const dictionary* ini, FILE* error_file);
void restore_ini_vlan(const dictionary* ini);
