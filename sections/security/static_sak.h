// "static sak": the static MACsec keys of ports 7 and 8.
#pragma once

#include "frame/document.h"

void backup_ini_static_sak(FILE* ini_file);
int check_ini_static_sak(const dictionary* ini, FILE* error_file);
void restore_ini_static_sak(const dictionary* ini);
