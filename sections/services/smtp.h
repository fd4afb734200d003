// "smtp setting": the server, sender, subject and recipients of the mail that
// the switch sends. Check accepts it as it is.
#pragma once

#include "frame/document.h"

void backup_ini_smtp_settings(FILE* ini_file);
void restore_ini_smtp(const dictionary* ini);
