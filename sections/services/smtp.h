// "smtp setting": the server, sender, subject and recipients of the mail that
// the switch sends. Check judges none of it.
#pragma once

#include "frame/document.h"

void backup_ini_smtp_settings(FILE* ini_file);
void restore_ini_smtp(const dictionary* ini);
