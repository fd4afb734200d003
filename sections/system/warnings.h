// "Warning/Alarm setting": the events that the switch reports by mail. Check judges
// none of it.
#pragma once

#include "frame/document.h"

void backup_ini_warning_alarm_settings(FILE* ini_file);
void restore_ini_warning_alarm(const dictionary* ini);
