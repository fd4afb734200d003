// "rstp setting": the rapid spanning tree, BPDU guard, and the flags of each port.
#pragma once

#include "frame/document.h"

void backup_ini_rstp_settings(FILE* ini_file);
int check_ini_rstp(const dictionary* ini, FILE* error_file);
void restore_ini_rstp(const dictionary* ini);
