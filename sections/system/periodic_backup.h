// "Periodic Back-Up": when the switch sends its configuration to a TFTP server,
// and to which one. Check judges none of it.
#pragma once

#include "frame/document.h"

void backup_ini_periodicbackup_settings(FILE* ini_file);
void restore_ini_periodic_backup(const dictionary* ini);
