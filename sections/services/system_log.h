// "system log settings": where log events go, and from which level up.
#pragma once

#include "frame/document.h"

void backup_ini_system_log_settings(FILE* ini_file);
int check_ini_systemLog_settings(const dictionary* ini, FILE* error_file);
void restore_ini_systemLog_settings(const dictionary* ini);
