// "sntp setting": whether the time comes from NTP servers, which servers, the time
// zone, and daylight saving.
#pragma once

#include "frame/document.h"

void backup_ini_sntp_settings(FILE* ini_file);
int check_ini_sntp(const dictionary* ini, FILE* error_file);
void restore_ini_sntp(const dictionary* ini);
