// "port settings": whether each front-panel port is enabled and, on the model
// with two fibre ports, the speed of these two.
#pragma once

#include "frame/document.h"

void backup_ini_port_settings(FILE* ini_file);
int check_ini_port_settings(const dictionary* ini, FILE* error_file);
void restore_ini_port_settings(const dictionary* ini);
