// "snmp settings": the SNMP agent, its communities, its trap receivers and its SNMP
// version 3 users.
#pragma once

#include "frame/document.h"

void backup_ini_snmp_settings(FILE* ini_file);
int check_ini_snmp_settings(const dictionary* ini, FILE* error_file);
void restore_ini_snmp_settings(const dictionary* ini);
