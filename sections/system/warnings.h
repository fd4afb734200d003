// "Warning/Alarm setting": the events that the switch warns of by mail. Check
// accepts it as it is.
#pragma once

#include "frame/document.h"

void backup_ini_warning_alarm_settings(FILE* ini_file);
void restore_ini_warning_alarm(const dictionary* ini);
