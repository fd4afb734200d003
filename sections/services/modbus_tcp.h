// "modbus tcp settings": the Modbus TCP service, its address and its TCP port.
#pragma once

#include "frame/document.h"

void backup_ini_modbus_tcp_settings(FILE* ini_file);
int check_ini_modbusTcp_settings(const dictionary* ini, FILE* error_file);
void restore_ini_modbusTcp_settings(const dictionary* ini);
