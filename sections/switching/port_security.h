// "port security setting": how many source MAC addresses a port may learn.
// Check judges none of it.
#pragma once

#include "frame/document.h"

void backup_ini_port_security_settings(FILE* ini_file);
void restore_ini_port_security(const dictionary* ini);
